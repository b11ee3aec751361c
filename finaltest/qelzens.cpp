// SPDX-License-Identifier: GPL-3.0-or-later
#include "qelzens.h"

#include "grading.h"
#include "modul1.h"
#include "qel11.h"
#include "screens.h"
#include "seams.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <cmath>

using namespace Modul1;

namespace {

QString blanks(int n) {
    return QString(n, QLatin1Char(' '));
}

} // namespace

const QString kScoringExplanation =
    QStringLiteral("Der Zensierung des Tests auf Seite 11 liegt folgendes Prinzip zugrunde: Für "
                   "jede richtig gelöste Aufgabe gibt es einen Punkt (bei 10 Aufgaben also 10 "
                   "mögliche Punkte). Wird eine falsche Lösung angeklickt, erhöht sich die "
                   "Gesamtpunktzahl um 1. Die nächste Aufgabe wird erst sichtbar, wenn die "
                   "richtige Lösung angeklickt wird.") +
    blanks(44) + QStringLiteral("Beispiel:") + blanks(8) +
    QStringLiteral("8 Aufgaben wurden richtig gelöst ; also 8 von 8 Punkten,") + blanks(8) +
    QStringLiteral("bei der 9. Aufgabe werden 2 Fehler gemacht:  nach dem 1. Fehler: 8 von 9;") +
    blanks(8) + QStringLiteral("nach dem 2. Fehler: 8 von 10;") + blanks(8) +
    QStringLiteral("nach richtiger Lösung: 9 von 11 usw.") + blanks(44) +
    QStringLiteral("Zunächst wurde folgende Zensurenskala festgelegt:") + blanks(8) +
    QStringLiteral("bis unter 20%:") + blanks(2) + QStringLiteral("Zensur 6,") + blanks(8) +
    QStringLiteral("mindestens 20% bis unter 40%:  Zensur 5,") + blanks(8) +
    QStringLiteral("mindestens 40% bis unter 60%:  Zensur 4,") + blanks(8) +
    QStringLiteral("mindestens 60% bis unter 80%:  Zensur 3,") + blanks(8) +
    QStringLiteral("mindestens 80% bis unter 96%:  Zensur 2,") + blanks(8) +
    QStringLiteral("mindestens 96%:") + blanks(2) + QStringLiteral("Zensur 1.");

namespace {

// Label1 breaks into lines at its longer runs of blanks only; the double blanks inside its
// lines stay as they are.
const QString kNonsenseHint = QStringLiteral(" Hinweis:") + blanks(30) +
                              QStringLiteral("Diese Eingabe war unsinnig und wurde    "
                                             "automatisch gelöscht.");
const QString kBlankHint = QStringLiteral(" Hinweis:") + blanks(30) +
                           QStringLiteral("Diese Eingabe wurde automatisch gelöscht.     "
                                          "Bitte keine Leerzeichen eingeben.");

} // namespace

std::int16_t toInteger16(const QString &text) {
    // Blanks around the number, a sign, digits and a decimal part rounded half to even.
    static const QRegularExpression number(QStringLiteral("^\\s*([+-]?)(\\d+)([.,](\\d*))?\\s*$"));
    const QRegularExpressionMatch m = number.match(text);
    if (!m.hasMatch())
        Seams::failProgramme(QStringLiteral("Typen unverträglich"));
    const QString digits = m.captured(2) + QLatin1Char('.') + m.captured(4) + QLatin1Char('0');
    double value = std::nearbyint(QLocale::c().toDouble(digits));
    if (m.captured(1) == QStringLiteral("-"))
        value = -value;
    if (value > 32767.0 || value < -32768.0)
        Seams::failProgramme(QStringLiteral("Überlauf"));
    return static_cast<std::int16_t>(value);
}

QelZens::QelZens(QWidget *parent)
    : Form(ScreenId::QelZens, parent) {
    setWindowTitle(QStringLiteral("Kelvora - Punktetabelle und Zensierung  "));
    resize(640, 560);
    auto *central = new QWidget(this);
    setCentralWidget(central);
    auto *page = new QVBoxLayout(central);
    page->setContentsMargins(16, 12, 16, 12);
    page->setSpacing(10);

    Label1 = new CaptionLabel(kScoringExplanation, central);
    Label1->setText(captionOnScreen(kScoringExplanation, 3, 40));
    Label1->setWordWrap(true);
    Label1->setFrameShape(QFrame::StyledPanel);
    Label1->setMargin(8);
    page->addWidget(Label1);

    Label6 = new QLabel(QStringLiteral("Eingestellte Zensurenskala:"), central);
    QFont bold = Label6->font();
    bold.setBold(true);
    Label6->setFont(bold);
    page->addWidget(Label6);

    auto *scale = new QGridLayout;
    scale->setHorizontalSpacing(8);
    for (int i = 0; i < 5; ++i) {
        const auto at = static_cast<std::size_t>(i);
        Label2[at] = new QLabel(QStringLiteral("Mindest-Prozentsatz für die Zensur %1:").arg(5 - i),
                                central);
        Text2[at] = new QLineEdit(central);
        Text2[at]->setObjectName(QStringLiteral("Text2_%1").arg(i));
        Text2[at]->setFixedWidth(64);
        Text2[at]->setAccessibleName(Label2[at]->text());
        Label2[at]->setBuddy(Text2[at]);
        Command2[at] = new QPushButton(QStringLiteral("OK"), central);
        Command2[at]->setObjectName(QStringLiteral("Command2_%1").arg(i));
        Command2[at]->setAccessibleName(QStringLiteral("OK, Zensur %1").arg(5 - i));
        setActive(Command2[at], false);
        scale->addWidget(Label2[at], i, 0);
        scale->addWidget(Text2[at], i, 1);
        scale->addWidget(Command2[at], i, 2);
        connect(Text2[at], &QLineEdit::textChanged, this, [this, i] { Text2_Change(i); });
        connect(Command2[at], &QPushButton::clicked, this, [this, i] { Command2_Click(i); });
    }

    auto *hints = new QVBoxLayout;
    hints->setSpacing(10);
    for (std::size_t h = 0; h < Label3.size(); ++h) {
        Label3[h] = new CaptionLabel(h == 0 ? kNonsenseHint : kBlankHint, central);
        Label3[h]->setObjectName(QStringLiteral("Label3_%1").arg(h));
        Label3[h]->setText(captionOnScreen(Label3[h]->caption(), 3, 40));
        Label3[h]->setStyleSheet(QStringLiteral("color: #b3141e;"));
        Label3[h]->hide();
        hints->addWidget(Label3[h]);
    }
    hints->addStretch(1);
    scale->addLayout(hints, 0, 3, 5, 1);
    scale->setColumnStretch(3, 1);
    page->addLayout(scale);
    page->addStretch(1);

    auto *buttons = new QHBoxLayout;
    Command4 = new QPushButton(QStringLiteral("Zensurentabelle ändern"), central);
    Command4->setMinimumHeight(40);
    Command1 =
        pictureButton(QStringLiteral(":/button-grade.svg"), QStringLiteral("Zensieren"), central);
    buttons->addWidget(Command4);
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    page->addLayout(buttons);

    connect(Command4, &QPushButton::clicked, this, &QelZens::Command4_Click);
    connect(Command1, &QPushButton::clicked, this, &QelZens::Command1_Click);
}

std::int16_t &QelZens::threshold(int Index) {
    switch (Index) {
    case 0:
        return GradeMin5;
    case 1:
        return GradeMin4;
    case 2:
        return GradeMin3;
    case 3:
        return GradeMin2;
    default:
        return GradeMin1;
    }
}

void QelZens::Form_Activate() {
    for (int i = 0; i < 5; ++i)
        Text2[static_cast<std::size_t>(i)]->setText(QString::number(threshold(i)));
}

void QelZens::Command4_Click() {
    for (TempIndex = 0; TempIndex <= 4; ++TempIndex)
        Text2[static_cast<std::size_t>(TempIndex)]->setText(QString());
    Label3[0]->setVisible(false);
    Label3[1]->setVisible(false);
    Command4->setEnabled(false);
    for (std::size_t i = 0; i < 5; ++i) {
        Label2[i]->setVisible(true);
        Text2[i]->setVisible(true);
        Command2[i]->setVisible(true);
    }
    Text2[0]->setFocus();
}

void QelZens::Text2_Change(int Index) {
    const auto i = static_cast<std::size_t>(Index);
    const QString text = Text2[i]->text();
    if (!text.isEmpty()) {
        Command2[i]->setEnabled(true);
        setBackColour(Command2[i], lightGrey());
    }
    const QChar c = text.isEmpty() ? QChar() : text.back();
    const bool allowed = (c >= u'0' && c <= u'9') || c == u'%';
    const bool blank = text.contains(QLatin1Char(' '));
    if (!allowed && !blank) {
        Label3[0]->setVisible(true);
        Text2[i]->setText(QString());
        Command2[i]->setEnabled(false);
        setBackColour(Command2[i], buttonFace());
    } else if (blank) {
        Label3[1]->setVisible(true);
        Text2[i]->setText(QString());
        Command2[i]->setEnabled(false);
        setBackColour(Command2[i], buttonFace());
    }
}

void QelZens::Command2_Click(int Index) {
    const auto i = static_cast<std::size_t>(Index);
    if (Text2[i]->text().endsWith(QLatin1Char('%')))
        Text2[i]->setText(Text2[i]->text().chopped(1));
    threshold(Index) = toInteger16(Text2[i]->text());
    if (Index < 4 && Text2[i + 1]->text().isEmpty())
        Text2[i + 1]->setFocus();
    else
        Command1->setFocus();
    Command2[i]->setEnabled(false);
    setBackColour(Command2[i], buttonFace());
    Command4->setEnabled(true);
}

void QelZens::Command1_Click() {
    Screens::unload(this);
    GradeTest();
}
