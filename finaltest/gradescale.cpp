// SPDX-License-Identifier: GPL-3.0-or-later
#include "gradescale.h"

#include "accessibility.h"
#include "captionlabel.h"
#include "course.h"
#include "grading.h"
#include "screens.h"
#include "seams.h"
#include "theme.h"
#include "widgets.h"
#include "zoom.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <cmath>

namespace {

QString blanks(int n) {
    return QString(n, QLatin1Char(' '));
}

// The default scale in words, grade 6 to grade 1, from the scale every start sets.
QString defaultScaleText() {
    const GradeScale &scale = kDefaultGradeScale;
    const auto percent = [&scale](std::size_t i) {
        return QString::number(scale.at(i)) + u'%';
    };
    QString text = QStringLiteral("bis unter ") + percent(0) + QStringLiteral(":") + blanks(2) +
                   QStringLiteral("Zensur 6,");
    for (std::size_t i = 0; i + 1 < scale.size(); ++i) {
        text += blanks(8) + QStringLiteral("mindestens %1 bis unter %2:  Zensur %3,")
                                .arg(percent(i), percent(i + 1), QString::number(5 - i));
    }
    return text + blanks(8) + QStringLiteral("mindestens ") + percent(scale.size() - 1) +
           QStringLiteral(":") + blanks(2) + QStringLiteral("Zensur 1.");
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
    defaultScaleText();

namespace {

// The explanation and the hints break into lines at their longer runs of blanks only; the double
// blanks inside their lines stay as they are.
constexpr BlankRuns kCaptionRuns{.line = 3, .paragraph = 40, .trim = false};

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

GradeScaleScreen::GradeScaleScreen(Course &course, double zoomFactor)
    : Form(ScreenId::GradeScale, zoomFactor)
    , course_(course) {
    setWindowTitle(QStringLiteral("Kelvora - Punktetabelle und Zensierung  "));
    setDesignSize({700, 600});
    QWidget *central = this->page();
    Zoom &z = zoom();
    auto *page = new QVBoxLayout(central);
    z.setMargins(page, 16, 12, 16, 12);
    z.setSpacing(page, 10);

    explanationLabel = new CaptionLabel(kScoringExplanation, kCaptionRuns, central);
    explanationLabel->setWordWrap(true);
    explanationLabel->setFrameShape(QFrame::StyledPanel);
    z.setMargin(explanationLabel, 8);
    page->addWidget(explanationLabel);

    scaleHeading = new QLabel(QStringLiteral("Eingestellte Zensurenskala:"), central);
    z.setBold(scaleHeading);
    page->addWidget(scaleHeading);

    auto *scale = new QGridLayout;
    z.follow(scale, [scale](const Zoom &zz) { scale->setHorizontalSpacing(zz.px(8)); });
    for (int i = 0; i < 5; ++i) {
        const auto at = static_cast<std::size_t>(i);
        thresholdLabels[at] = new QLabel(
            QStringLiteral("Mindest-Prozentsatz für die Zensur %1:").arg(5 - i), central);
        thresholdEdits[at] = new QLineEdit(central);
        thresholdLabels[at]->setObjectName(QStringLiteral("Label2_%1").arg(i));
        thresholdEdits[at]->setObjectName(QStringLiteral("Text2_%1").arg(i));
        z.setFixedWidth(thresholdEdits[at], 64);
        thresholdEdits[at]->setAccessibleName(thresholdLabels[at]->text());
        thresholdLabels[at]->setBuddy(thresholdEdits[at]);
        okButtons[at] = new QPushButton(QStringLiteral("OK"), central);
        okButtons[at]->setObjectName(QStringLiteral("Command2_%1").arg(i));
        okButtons[at]->setAccessibleName(QStringLiteral("OK, Zensur %1").arg(5 - i));
        setActive(okButtons[at], false);
        scale->addWidget(thresholdLabels[at], i, 0);
        scale->addWidget(thresholdEdits[at], i, 1);
        scale->addWidget(okButtons[at], i, 2);
        connect(thresholdEdits[at], &QLineEdit::textChanged, this,
                [this, i] { onThresholdChanged(i); });
        connect(okButtons[at], &QPushButton::clicked, this, [this, i] { takeThreshold(i); });
    }

    auto *hints = new QVBoxLayout;
    z.setSpacing(hints, 10);
    for (std::size_t h = 0; h < hintLabels.size(); ++h) {
        hintLabels[h] =
            new CaptionLabel(h == 0 ? kNonsenseHint : kBlankHint, kCaptionRuns, central);
        hintLabels[h]->setObjectName(QStringLiteral("Label3_%1").arg(h));
        // Beside the boxes the hints have what room is left: their lines break where it ends.
        hintLabels[h]->setWordWrap(true);
        setTextColour(hintLabels[h], Theme::kWrong);
        // The focus stays in the box: a screen reader says the hint as it appears.
        Accessibility::sayWhenShown(hintLabels[h]);
        hintLabels[h]->hide();
        hints->addWidget(hintLabels[h]);
    }
    hints->addStretch(1);
    scale->addLayout(hints, 0, 3, 5, 1);
    scale->setColumnStretch(3, 1);
    page->addLayout(scale);
    page->addStretch(1);

    auto *buttons = new QHBoxLayout;
    changeScaleButton = new QPushButton(QStringLiteral("Zensurentabelle ändern"), central);
    z.setMinimumHeight(changeScaleButton, 40);
    gradeButton =
        pictureButton(QStringLiteral(":/button-grade.svg"), QStringLiteral("Zensieren"), central);
    buttons->addWidget(changeScaleButton);
    buttons->addStretch(1);
    buttons->addWidget(gradeButton);
    page->addLayout(buttons);

    setFormNames({{explanationLabel, "Label1"},
                  {scaleHeading, "Label6"},
                  {changeScaleButton, "Command4"},
                  {gradeButton, "Command1"}});
    connect(changeScaleButton, &QPushButton::clicked, this, &GradeScaleScreen::openScaleForEditing);
    connect(gradeButton, &QPushButton::clicked, this, &GradeScaleScreen::closeAndGrade);
}

void GradeScaleScreen::onActivate() {
    for (std::size_t i = 0; i < 5; ++i)
        thresholdEdits[i]->setText(QString::number(course_.gradeScale()[i]));
}

void GradeScaleScreen::openScaleForEditing() {
    for (QLineEdit *edit : thresholdEdits)
        edit->setText(QString());
    hintLabels[0]->setVisible(false);
    hintLabels[1]->setVisible(false);
    changeScaleButton->setEnabled(false);
    for (std::size_t i = 0; i < 5; ++i) {
        thresholdLabels[i]->setVisible(true);
        thresholdEdits[i]->setVisible(true);
        okButtons[i]->setVisible(true);
    }
    thresholdEdits[0]->setFocus();
}

void GradeScaleScreen::onThresholdChanged(int index) {
    const auto i = static_cast<std::size_t>(index);
    const QString text = thresholdEdits[i]->text();
    if (!text.isEmpty()) {
        okButtons[i]->setEnabled(true);
        setBackColour(okButtons[i], Theme::activeButton());
    }
    const QChar c = text.isEmpty() ? QChar() : text.back();
    const bool allowed = (c >= u'0' && c <= u'9') || c == u'%';
    const bool blank = text.contains(QLatin1Char(' '));
    if (!allowed && !blank) {
        hintLabels[0]->setVisible(true);
        thresholdEdits[i]->setText(QString());
        okButtons[i]->setEnabled(false);
        setBackColour(okButtons[i], Theme::buttonFace());
    } else if (blank) {
        hintLabels[1]->setVisible(true);
        thresholdEdits[i]->setText(QString());
        okButtons[i]->setEnabled(false);
        setBackColour(okButtons[i], Theme::buttonFace());
    }
}

void GradeScaleScreen::takeThreshold(int index) {
    const auto i = static_cast<std::size_t>(index);
    if (thresholdEdits[i]->text().endsWith(QLatin1Char('%')))
        thresholdEdits[i]->setText(thresholdEdits[i]->text().chopped(1));
    course_.setGradeMinimum(index, toInteger16(thresholdEdits[i]->text()));
    if (index < 4 && thresholdEdits[i + 1]->text().isEmpty())
        thresholdEdits[i + 1]->setFocus();
    else
        gradeButton->setFocus();
    okButtons[i]->setEnabled(false);
    setBackColour(okButtons[i], Theme::buttonFace());
    changeScaleButton->setEnabled(true);
}

void GradeScaleScreen::closeAndGrade() {
    Screens::unload(this);
    gradeTest(course_);
}

bool GradeScaleScreen::closeOnEscape() {
    closeAndGrade();
    return true;
}
