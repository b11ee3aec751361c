// SPDX-License-Identifier: GPL-3.0-or-later
#include "testcontent.h"

namespace {

const QString kFreeElectrons = QStringLiteral("freie Elektronen");
const QString kElectronsHoles = QStringLiteral("freie Elektronen und Löcher");
const QString kIons = QStringLiteral("Ionen");
const QString kIonsElectrons = QStringLiteral("Ionen und freie Elektronen");
const std::array<QString, 4> kCarriers = {kFreeElectrons, kElectronsHoles, kIons, kIonsElectrons};
const std::array<QString, 4> kEffects = {
    QStringLiteral("Glühemission"), QStringLiteral("Fotoemission"),
    QStringLiteral("Stoßionisation"), QStringLiteral("Induktion")};
const std::array<QString, 4> kFunctions = {
    QStringLiteral("Erzeugen von Wechselstrom"), QStringLiteral("Gleichrichten von Wechselstrom"),
    QStringLiteral("Verstärken von Signalen"), QStringLiteral("Schalter")};

} // namespace

const std::array<TestQuestion, kTestQuestionCount> kTestQuestions = {{
    {.frame = QStringLiteral("Aufgabe 1"),
     .text = QStringLiteral("Welche Ladungsträger leiten in Metallen den Strom?"),
     .options = kCarriers,
     .right = {true, false, false, false}},
    {.frame = QStringLiteral("Aufgabe 2"),
     .text =
         QStringLiteral("Welche Ladungsträger leiten nach Stoß-   ionisation in Gasen den Strom?"),
     .options = kCarriers,
     .right = {false, false, false, true}},
    {.frame = QStringLiteral("Aufgabe 3"),
     .text = QStringLiteral("Welche Ladungsträger leiten in Halbleitern den Strom?"),
     .options = kCarriers,
     .right = {false, true, false, false}},
    {.frame = QStringLiteral("Aufgabe 4"),
     .text = QStringLiteral("Wie heißt der Vorgang, bei dem in einem Gas massenhaft und schnell "
                            "Ladungs-    träger erzeugt werden?"),
     .options = kEffects,
     .right = {false, false, true, false}},
    {.frame = QStringLiteral("Aufgabe 5"),
     .text =
         QStringLiteral("Selen sendet Elektronen aus, wenn es mit Licht bestrahlt wird. Wie heißt "
                        "dieser Vorgang?"),
     .options = kEffects,
     .right = {false, true, false, false}},
    {.frame = QStringLiteral("Aufgabe 6"),
     .text =
         QStringLiteral("Durch welchen Vorgang werden in einer Braunschen Röhre Ladungs- träger "
                        "erzeugt?"),
     .options = kEffects,
     .right = {true, false, false, false}},
    {.frame = QStringLiteral("Aufgabe 7"),
     .text =
         QStringLiteral("Wie ändert sich der Widerstand von Halbleitern, wenn sie erwärmt werden?"),
     .options = {QStringLiteral("wird um ein Vielfaches größer"), QStringLiteral("wird größer"),
                 QStringLiteral("wird kleiner"), QStringLiteral("bleibt gleich")},
     .right = {false, false, true, false}},
    {.frame = QStringLiteral("Aufgabe 8"),
     .text =
         QStringLiteral("Welche Leitungsart entsteht in Halb- leitern, wenn Atome mit größerer An- "
                        "zahl an Außenelektronen eingebaut werden?"),
     .options = {QStringLiteral("p-Leitung"), QStringLiteral("n-Leitung"),
                 QStringLiteral("Eigenleitung"), QStringLiteral("andere Leitungsart")},
     .right = {false, true, false, false}},
    {.frame = QStringLiteral("Aufgabe 9"),
     .text = QStringLiteral("Welche Funktion hat eine Halbleiterdiode?"),
     .options = kFunctions,
     .right = {false, true, false, false}},
    {.frame = QStringLiteral("Aufgabe 10"),
     .text = QStringLiteral("Welche Funktion hat ein Transistor?"),
     .options = kFunctions,
     .right = {false, false, true, true}},
}};

bool isRightOption(int index) {
    const auto &question = kTestQuestions.at(static_cast<std::size_t>(index / 4));
    return question.right.at(static_cast<std::size_t>(index % 4));
}

QString verdictCaption(int index) {
    return isRightOption(index) ? QStringLiteral("Richtig") : QStringLiteral("Falsch");
}
