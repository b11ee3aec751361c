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
    {QStringLiteral("Aufgabe 1"),
     QStringLiteral("Welche Ladungsträger leiten in Metallen den Strom?"),
     kCarriers,
     {true, false, false, false}},
    {QStringLiteral("Aufgabe 2"),
     QStringLiteral("Welche Ladungsträger leiten nach Stoß-   ionisation in Gasen den Strom?"),
     kCarriers,
     {false, false, false, true}},
    {QStringLiteral("Aufgabe 3"),
     QStringLiteral("Welche Ladungsträger leiten in Halbleitern den Strom?"),
     kCarriers,
     {false, true, false, false}},
    {QStringLiteral("Aufgabe 4"),
     QStringLiteral("Wie heißt der Vorgang, bei dem in einem Gas massenhaft und schnell "
                    "Ladungs-    träger erzeugt werden?"),
     kEffects,
     {false, false, true, false}},
    {QStringLiteral("Aufgabe 5"),
     QStringLiteral("Selen sendet Elektronen aus, wenn es mit Licht bestrahlt wird. Wie heißt "
                    "dieser Vorgang?"),
     kEffects,
     {false, true, false, false}},
    {QStringLiteral("Aufgabe 6"),
     QStringLiteral("Durch welchen Vorgang werden in einer Braunschen Röhre Ladungs- träger "
                    "erzeugt?"),
     kEffects,
     {true, false, false, false}},
    {QStringLiteral("Aufgabe 7"),
     QStringLiteral("Wie ändert sich der Widerstand von Halbleitern, wenn sie erwärmt werden?"),
     {QStringLiteral("wird um ein Vielfaches größer"), QStringLiteral("wird größer"),
      QStringLiteral("wird kleiner"), QStringLiteral("bleibt gleich")},
     {false, false, true, false}},
    {QStringLiteral("Aufgabe 8"),
     QStringLiteral("Welche Leitungsart entsteht in Halb- leitern, wenn Atome mit größerer An- "
                    "zahl an Außenelektronen eingebaut werden?"),
     {QStringLiteral("p-Leitung"), QStringLiteral("n-Leitung"), QStringLiteral("Eigenleitung"),
      QStringLiteral("andere Leitungsart")},
     {false, true, false, false}},
    {QStringLiteral("Aufgabe 9"),
     QStringLiteral("Welche Funktion hat eine Halbleiterdiode?"),
     kFunctions,
     {false, true, false, false}},
    {QStringLiteral("Aufgabe 10"),
     QStringLiteral("Welche Funktion hat ein Transistor?"),
     kFunctions,
     {false, false, true, true}},
}};

bool isRightOption(int index) {
    switch (index) {
    case 0:
    case 7:
    case 9:
    case 14:
    case 17:
    case 20:
    case 26:
    case 29:
    case 33:
    case 38:
    case 39:
        return true;
    default:
        return false;
    }
}

QString verdictCaption(int index) {
    const auto &question = kTestQuestions.at(static_cast<std::size_t>(index / 4));
    return question.right.at(static_cast<std::size_t>(index % 4)) ? QStringLiteral("Richtig")
                                                                  : QStringLiteral("Falsch");
}
