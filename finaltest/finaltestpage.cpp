// SPDX-License-Identifier: GPL-3.0-or-later
#include "finaltestpage.h"

#include "accessibility.h"
#include "captionlabel.h"
#include "course.h"
#include "gradescale.h"
#include "grading.h"
#include "keyboard.h"
#include "messagebox.h"
#include "picture.h"
#include "printing.h"
#include "resultlog.h"
#include "screens.h"
#include "seams.h"
#include "textfiles.h"
#include "theme.h"
#include "topics.h"
#include "widgets.h"
#include "zoom.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>

const QString kTestInstruction = QStringLiteral("  Überlege und klicke dann die richtige") +
                                 QString(15, QLatin1Char(' ')) + QStringLiteral("Lösung an.") +
                                 QString(52, QLatin1Char(' ')) +
                                 QStringLiteral("Überlege bei falscher Lösung noch einmal.");

QString questionOnScreen(const QString &caption) {
    // "Stoß-   ionisation": a word broken by hand for the original line width. On screen the
    // word is whole again, with a soft hyphen where the line may still break.
    static const QRegularExpression brokenWord(QStringLiteral("-\\s+(?=\\p{Ll})"));
    QString shown = caption;
    shown.replace(brokenWord, QString(QChar(0x00AD)));
    return shown;
}

const QString kSolvedDescription = QStringLiteral("Aufgabe gelöst");

namespace {

constexpr int kHalfChangeMs = 3000;
constexpr int kExplanationMs = 8000;

// The questions (0..9) whose solving does more than show the next one.
constexpr int kFirstQuestion = 0;             // its first logged click starts the log anew
constexpr int kExplanationWithdrawnAfter = 1; // by then the buttons are understood
constexpr int kLastOfFirstHalf = 4;           // the second five take the first five's place
constexpr int kLastQuestion = kTestQuestionCount - 1;

// What page 11 saves after its page number for "hier weiterarbeiten": a value that nothing in the
// programme ever sets, and nothing reads back.
constexpr int kFinalResumeValue = 0;
// The question texts and the instruction break at their runs of blanks.
constexpr BlankRuns kCaptionRuns{.line = 2, .paragraph = 40};

QLabel *scoreLabel(const QString &caption, QWidget *parent, bool number = false) {
    auto *label = new QLabel(caption, parent);
    if (number) {
        Zoom &zoom = Zoom::on(parent);
        zoom.setFont(label, 1.2, true);
        zoom.setMinimumWidth(label, 24);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return label;
}

const QList<ExplanationItem> kExplanation = {
    {{}, QStringLiteral("<<"), QStringLiteral("zurück zu Seite 10")},
    {QStringLiteral(":/button-repeat.svg"),
     {},
     QStringLiteral("Test neu beginnen (nach der ersten Aufgabe)")},
    {QStringLiteral(":/button-grade.svg"), {}, QStringLiteral("Zensierung (am Ende des Tests)")},
    {QStringLiteral(":/button-next.svg"), {}, QStringLiteral("weiter zur Schlussseite")},
    {QStringLiteral(":/button-end.svg"), {}, QStringLiteral("Lernprogramm beenden")},
};

// Verdicts and markers appear beside their options without moving the other options.
void keepPlaceWhenHidden(QWidget *w) {
    QSizePolicy policy = w->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    w->setSizePolicy(policy);
}

// The options of the questions shown together (the first five, the second five) line up: each
// column of options is as wide in each of their frames as its widest option with its marker and
// verdict, and the questions' texts take the rest (QuestionWidth).
void alignOptionColumns(const std::array<QGroupBox *, kTestQuestionCount> &frames) {
    for (std::size_t half = 0; half < frames.size(); half += 5) {
        for (int column : {1, 2}) {
            int widest = 0;
            for (std::size_t k = half; k < half + 5; ++k) {
                auto *grid = static_cast<QGridLayout *>(frames[k]->layout());
                for (int row : {0, 1}) {
                    QLayout *line = grid->itemAtPosition(row, column)->layout();
                    line->invalidate();
                    widest = std::max(widest, line->sizeHint().width());
                }
            }
            for (std::size_t k = half; k < half + 5; ++k)
                static_cast<QGridLayout *>(frames[k]->layout())
                    ->setColumnMinimumWidth(column, widest);
        }
    }
}

// A question's text takes the width its frame leaves beside the two columns of options, up to its
// design width, fixed to it, so that the frame is as high as the text needs there.
class QuestionWidth : public QObject {
public:
    QuestionWidth(QGroupBox *frame, QLabel *text)
        : QObject(frame)
        , frame_(frame)
        , text_(text) {
        frame->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *e) override {
        if (e->type() == QEvent::Resize) {
            auto *grid = static_cast<QGridLayout *>(frame_->layout());
            const QMargins margins = grid->contentsMargins();
            const int options = grid->columnMinimumWidth(1) + grid->columnMinimumWidth(2) +
                                2 * grid->horizontalSpacing();
            const int room =
                frame_->contentsRect().width() - margins.left() - margins.right() - options;
            text_->setFixedWidth(std::clamp(room, 0, Zoom::on(frame_).px(kQuestionWidth)));
        }
        return false;
    }

private:
    static constexpr int kQuestionWidth = 184;
    QGroupBox *frame_;
    QLabel *text_;
};

// The arrow keys move between the options of a question without choosing one, as in the control
// centre; Space chooses. Every choice in the test is judged and counted, so moving is none.
class OptionKeys : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *e) override {
        return e->type() == QEvent::KeyPress &&
               Keyboard::moveAmongOptions(static_cast<QWidget *>(watched),
                                          static_cast<QKeyEvent *>(e)->key());
    }
};

} // namespace

FinalTestPage::FinalTestPage(Course &course, double zoomFactor)
    : PageBase(ScreenId::FinalTest, 11, course, zoomFactor)
    , optionKeys_(new OptionKeys(this)) {
    buildControls();
    // The totals follow the test's counters; a grade given shows here.
    connect(&course_, &Course::testCountsChanged, this, [this] {
        totalCorrectLabel->setText(QString::number(course_.testCorrectCount()));
        totalAnsweredLabel->setText(QString::number(course_.testAnsweredCount()));
    });
    connect(&course_, &Course::graded, this, &FinalTestPage::showGrade);
}

QGroupBox *FinalTestPage::buildQuestion(int k, QWidget *parent) {
    const TestQuestion &question = kTestQuestions.at(static_cast<std::size_t>(k));
    auto *frame = new QGroupBox(question.frame, parent);
    frame->setObjectName(QStringLiteral("Frame1_%1").arg(k));
    Zoom &z = zoom();
    auto *grid = new QGridLayout(frame);
    z.setMargins(grid, 6, 2, 6, 2);
    z.setSpacing(grid, 3, 2);

    auto *text = new CaptionLabel(question.text, kCaptionRuns, frame);
    text->setText(questionOnScreen(question.text));
    text->setAccessibleName(questionOnScreen(question.text).remove(QChar(0x00AD)));
    // The options are read with their question: the frame is their label.
    frame->setAccessibleName(question.frame + QStringLiteral(": ") + text->accessibleName());
    text->setObjectName(QStringLiteral("Label2_%1").arg(k));
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    z.follow(text, [text](const Zoom &zz) { text->setContentsMargins(0, 0, zz.px(6), 0); });
    new QuestionWidth(frame, text);
    questionLabels[static_cast<std::size_t>(k)] = text;
    grid->addWidget(text, 0, 0, 2, 1);
    grid->setColumnStretch(2, 1);

    // The four options in two columns; the radio buttons are direct children of the frame, so
    // each frame is an option group of its own.
    for (int j = 0; j < 4; ++j) {
        const int i = 4 * k + j;
        const auto at = static_cast<std::size_t>(i);
        auto *option = new QRadioButton(question.options.at(static_cast<std::size_t>(j)), frame);
        option->setObjectName(QStringLiteral("Option1_%1").arg(i));
        option->installEventFilter(optionKeys_);
        optionButtons[at] = option;

        auto *marker = new QLabel(frame);
        marker->setObjectName(QStringLiteral("Label14_%1").arg(i));
        z.setFixedSize(marker, {8, 8});
        // Without a name of its own a screen reader would read the frame's title for it.
        marker->setAccessibleName(QStringLiteral("angeklickt"));
        marker->setAutoFillBackground(true);
        QPalette mark = marker->palette();
        mark.setColor(QPalette::Window, isRightOption(i) ? Theme::kRight : Theme::kWrong);
        marker->setPalette(mark);
        keepPlaceWhenHidden(marker);
        marker->hide();
        markerLabels[at] = marker;

        auto *verdict = new QLabel(verdictCaption(i), frame);
        verdict->setObjectName(QStringLiteral("Label16_%1").arg(i));
        setTextColour(verdict, isRightOption(i) ? Theme::kRight : Theme::kWrong);
        z.setBold(verdict);
        keepPlaceWhenHidden(verdict);
        verdict->hide();
        verdictLabels[at] = verdict;

        // Marker and verdict follow the option's text, so that they read as its own; a gap
        // after the first column.
        auto *line = new QHBoxLayout;
        z.setSpacing(line, 3);
        line->addWidget(option);
        line->addWidget(marker, 0, Qt::AlignVCenter);
        line->addWidget(verdict);
        line->addStretch(1);
        if (j % 2 == 0)
            z.addSpacing(line, 12);
        grid->addLayout(line, j / 2, 1 + j % 2);
        connect(option, &QRadioButton::toggled, this, [this, i](bool checked) {
            if (checked)
                onOptionClicked(i);
        });
    }
    return frame;
}

void FinalTestPage::buildControls() {
    setWindowTitle(Topics::pageCaption(Topics::kFinalTestPage));

    QWidget *central = this->page();
    Zoom &z = zoom();
    buildPageParts(central, {.explanation = explanationHtml(kExplanation, 1),
                             .explanationName = QStringLiteral("Image1"),
                             .overviewLineName = QStringLiteral("Label20")});
    addExplanationTimers(kExplanationMs, QStringLiteral("Label21"));
    auto *page = new QVBoxLayout(central);
    z.setMargins(page, 10, 4, 10, 4);
    z.setSpacing(page, 3);
    page->addLayout(buildScorePanel(central));
    buildQuestions(central, page);
    page->addStretch(1);
    page->addLayout(buildFooter(central));

    // A screen reader says the page, the title and the instruction with the option that has the
    // focus on arrival.
    optionButtons[0]->setAccessibleDescription(QStringLiteral("Seite %1. %2. %3")
                                                   .arg(QString::number(pageNumber()),
                                                        titleLabel->text(),
                                                        instructionLabel->accessibleName()));
    halfChangeTimer = new QTimer(this);
    halfChangeTimer->setInterval(kHalfChangeMs);
    nameControls();
    connectHandlers();
}

QHBoxLayout *FinalTestPage::buildScorePanel(QWidget *central) {
    Zoom &z = zoom();
    auto *top = new QHBoxLayout;
    titleLabel = new QLabel(QStringLiteral("Abschlusstest"), central);
    z.setFont(titleLabel, 1.8, true);
    top->addWidget(titleLabel);
    top->addStretch(1);
    questionNumberHeading = scoreLabel(QStringLiteral("Aufgabe"), central);
    questionNumberLabel = scoreLabel(QStringLiteral("1"), central, true);
    scoreHeading = scoreLabel(QStringLiteral("Punkte:"), central);
    lastScoreLabel = scoreLabel(QStringLiteral("0"), central, true);
    triesOfLabel = scoreLabel(QStringLiteral("von"), central);
    triesLabel = scoreLabel(QStringLiteral("0"), central, true);
    totalHeading = scoreLabel(QStringLiteral("Gesamtpunkte:"), central);
    totalCorrectLabel = scoreLabel(QStringLiteral("0"), central, true);
    totalOfLabel = scoreLabel(QStringLiteral("von"), central);
    totalAnsweredLabel = scoreLabel(QStringLiteral("0"), central, true);
    const auto group = [&](std::initializer_list<QLabel *> labels) {
        for (QLabel *label : labels)
            top->addWidget(label);
        z.addSpacing(top, 18);
    };
    group({questionNumberHeading, questionNumberLabel});
    group({scoreHeading, lastScoreLabel, triesOfLabel, triesLabel});
    group({totalHeading, totalCorrectLabel, totalOfLabel, totalAnsweredLabel});
    return top;
}

void FinalTestPage::buildQuestions(QWidget *central, QVBoxLayout *page) {
    // One below the other as they are shown; the button explanation follows.
    for (int k = 0; k < kTestQuestionCount; ++k) {
        questionFrames[static_cast<std::size_t>(k)] = buildQuestion(k, central);
        page->addWidget(questionFrames[static_cast<std::size_t>(k)]);
        questionFrames[static_cast<std::size_t>(k)]->setVisible(k == kFirstQuestion);
    }
    zoom().follow(this, [this](const Zoom &) { alignOptionColumns(questionFrames); });
    auto *explanationRow = new QHBoxLayout;
    explanationRow->addWidget(explanationPicture);
    explanationRow->addStretch(1);
    page->addLayout(explanationRow);
}

QGridLayout *FinalTestPage::buildFooter(QWidget *central) {
    Zoom &z = zoom();
    auto *bottom = new QGridLayout;
    z.follow(bottom, [bottom](const Zoom &zz) { bottom->setHorizontalSpacing(zz.px(8)); });
    instructionLabel = new CaptionLabel(kTestInstruction, kCaptionRuns, central);
    instructionLabel->setFrameShape(QFrame::Box);
    z.setMargin(instructionLabel, 4);
    bottom->addWidget(instructionLabel, 0, 0, 2, 1, Qt::AlignLeft | Qt::AlignBottom);
    // Instruction and result share their place: the one goes when the other comes.
    bottom->addLayout(buildResult(central), 0, 0, 2, 1, Qt::AlignLeft | Qt::AlignBottom);
    setTextColour(explanationHint, Theme::kResult);
    // Over the buttons, as wide as the room beside the instruction, in two lines where it needs
    // them.
    explanationHint->setWordWrap(true);
    explanationHint->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    bottom->addWidget(explanationHint, 0, 1);
    bottom->addLayout(buildButtons(central), 1, 1, Qt::AlignRight);
    bottom->setColumnStretch(1, 1);
    return bottom;
}

QVBoxLayout *FinalTestPage::buildResult(QWidget *central) {
    Zoom &z = zoom();
    auto *result = new QVBoxLayout;
    z.setSpacing(result, 6);
    gradeLabel = new QLabel(central);
    z.setFont(gradeLabel, 2.0, true);
    setTextColour(gradeLabel, Theme::kResult);
    gradeLabel->hide();
    result->addWidget(gradeLabel);
    printButton = new QPushButton(QStringLiteral("Ausdrucken und Lernprogramm beenden"), central);
    z.setMinimumHeight(printButton, 40);
    printButton->hide();
    result->addWidget(printButton);
    return result;
}

QHBoxLayout *FinalTestPage::buildButtons(QWidget *central) {
    Zoom &z = zoom();
    auto *buttons = new QHBoxLayout;
    previousPageButton = new QPushButton(QStringLiteral("<<"), central);
    previousPageButton->setAccessibleName(QStringLiteral("Zurück zu Seite 10"));
    previousPageButton->setToolTip(QStringLiteral("Zurück zu Seite 10"));
    z.setMinimumSize(previousPageButton, {50, 50});
    restartTestButton = pictureButton(QStringLiteral(":/button-repeat.svg"),
                                      QStringLiteral("Test neu beginnen"), central);
    gradeButton =
        pictureButton(QStringLiteral(":/button-grade.svg"), QStringLiteral("Zensierung"), central);
    endPageButton = pictureButton(QStringLiteral(":/button-next.svg"),
                                  QStringLiteral("Weiter zur Schlussseite"), central);
    for (QPushButton *b : {previousPageButton, restartTestButton, gradeButton, endPageButton})
        buttons->addWidget(b);
    z.addSpacing(buttons, 12);
    buttons->addWidget(endButton);
    setActive(endPageButton, false);
    setActive(restartTestButton, false);
    setActive(gradeButton, false);
    return buttons;
}

void FinalTestPage::nameControls() {
    setFormNames({{titleLabel, "Label1"},
                  {questionNumberHeading, "Label5"},
                  {questionNumberLabel, "Label6"},
                  {scoreHeading, "Label3"},
                  {lastScoreLabel, "Label10"},
                  {triesOfLabel, "Label8"},
                  {triesLabel, "Label12"},
                  {totalHeading, "Label4"},
                  {totalCorrectLabel, "Label7"},
                  {totalOfLabel, "Label11_1"},
                  {totalAnsweredLabel, "Label9"},
                  {instructionLabel, "Label17"},
                  {gradeLabel, "Label15"},
                  {endPageButton, "Command1"},
                  {previousPageButton, "Command2"},
                  {restartTestButton, "Command4"},
                  {gradeButton, "Command5"},
                  {printButton, "Command7"},
                  {halfChangeTimer, "Timer1"}});
}

void FinalTestPage::connectHandlers() {
    connect(endPageButton, &QPushButton::clicked, this, &FinalTestPage::toEndPage);
    connect(previousPageButton, &QPushButton::clicked, this, &FinalTestPage::previousPage);
    connect(restartTestButton, &QPushButton::clicked, this, &FinalTestPage::restartTest);
    connect(gradeButton, &QPushButton::clicked, this, &FinalTestPage::askForGrade);
    connect(printButton, &QPushButton::clicked, this, &FinalTestPage::printAndEnd);
    connect(halfChangeTimer, &QTimer::timeout, this, &FinalTestPage::showSecondHalf);
}

void FinalTestPage::onLoad() {
    for (QRadioButton *option : optionButtons)
        option->setChecked(false);
    course_.resetTestCounts();
    lastClickScore = 0;
    questionTries = 0;
    explanationTimer->start();
}

void FinalTestPage::onActivate() {
    course_.formStartFilePath();
    course_.formTestFilePaths();
    course_.setCurrentPage(11);
    questionHeaderWritten = 0;
}

void FinalTestPage::onOptionClicked(int index) {
    if (index < 0 || index >= kTestOptionCount)
        return;
    const auto i = static_cast<std::size_t>(index);
    const int k = index / 4;
    const auto q = static_cast<std::size_t>(k);

    std::optional<ResultLog::ResumeNext> resumeNext;

    verdictLabels[i]->setVisible(true);
    if (isRightOption(index)) {
        lastClickScore = 1;
        questionTries += 1;
        course_.countTestClick(true); // a click, and a right one
        logClick(index, resumeNext);
        ResultLog::writeEmptyLine();
        if (k == kLastQuestion) {
            // A question 10 that had wrong clicks gets a second empty line.
            if (questionHeaderWritten == 1)
                ResultLog::writeEmptyLine();
            ResultLog::writeTotals(course_.testCorrectCount(), course_.testAnsweredCount());
            ResultLog::writeDateLine();
        }
        questionHeaderWritten = 0;
        if (k == kFirstQuestion) {
            setActive(restartTestButton, true);
        } else if (k == kExplanationWithdrawnAfter) {
            withdrawExplanation();
        } else if (k == kLastOfFirstHalf) {
            halfChangeTimer->start();
        }
    } else {
        lastClickScore = 0;
        questionTries += 1;
        course_.countTestClick(false);
        logClick(index, resumeNext);
        questionHeaderWritten = 1;
    }

    // The score panel; its totals have followed the counters.
    questionNumberLabel->setText(QString::number(k + 1));
    lastScoreLabel->setText(QString::number(lastClickScore));
    triesLabel->setText(QString::number(questionTries));
    markerLabels[i]->setVisible(true);

    // A screen reader reads the verdict with the option.
    optionButtons[i]->setAccessibleDescription(verdictLabels[i]->text());

    // Solved or not goes by the answer key, as the counting above did. The verdict beside the
    // option is made from the same key, so it says "Richtig" for exactly these options.
    const bool right = isRightOption(index);
    // A screen reader says the verdict and the points at once: the option keeps the focus, or the
    // next question takes it.
    Accessibility::announce(page(),
                            verdictLabels[i]->text() +
                                (right ? QStringLiteral(", ") + kSolvedDescription : QString()) +
                                QStringLiteral(". Punkte: %1 von %2. Gesamtpunkte: %3 von %4.")
                                    .arg(lastScoreLabel->text(), triesLabel->text(),
                                         totalCorrectLabel->text(), totalAnsweredLabel->text()));
    // A pupil who answered from the keyboard goes on with the next question; the focus does not
    // fall to whatever control follows the solved one.
    const bool focusInQuestion = right && questionFrames[q]->isAncestorOf(focusWidget());
    if (focusInQuestion)
        focusWidget()->clearFocus();
    if (right)
        describeSolved(k);
    if (right && k < kLastQuestion) {
        questionFrames[q]->setEnabled(false);
        if (k != kLastOfFirstHalf)
            questionFrames[q + 1]->setVisible(true);
        questionTries = 0;
        if (focusInQuestion && k != kLastOfFirstHalf)
            focusQuestion(k + 1);
        focusToSecondHalf_ = focusInQuestion && k == kLastOfFirstHalf;
    }
    if (right && k == kLastQuestion) {
        questionFrames[q]->setEnabled(false);
        setActive(endPageButton, true);
        setActive(gradeButton, true);
        setActive(restartTestButton, true);
        gradeButton->setAccessibleDescription(
            QStringLiteral("Test beendet: %1 Punkte von %2 Punkten")
                .arg(course_.testCorrectCount())
                .arg(course_.testAnsweredCount()));
        gradeButton->setFocus();
        printButton->setVisible(true);
        instructionLabel->setVisible(false);
        ResultLog::close();
    }
}

void FinalTestPage::logClick(int index, std::optional<ResultLog::ResumeNext> &resumeNext) {
    const auto i = static_cast<std::size_t>(index);
    const auto q = static_cast<std::size_t>(index / 4);
    // The first logged click of question 1 creates the log, and the rest of its handler runs
    // under the resume-next policy.
    if (index / 4 == kFirstQuestion && questionHeaderWritten != 1) {
        resumeNext.emplace();
        ResultLog::create(course_.resultFilePath());
        ResultLog::writeFileHeading();
    }
    if (questionHeaderWritten != 1)
        ResultLog::writeQuestionHeading(questionFrames[q]->title(), questionLabels[q]->caption());
    ResultLog::writeClickLine(optionButtons[i]->text(), verdictLabels[i]->text());
}

void FinalTestPage::toEndPage() {
    Screens::show(ScreenId::EndPage);
    Screens::unload(this);
}

void FinalTestPage::previousPage() {
    Screens::show(ScreenId::Page10);
    Screens::unload(this);
}

void FinalTestPage::restartTest() {
    Screens::unload(this);
    Screens::show(ScreenId::FinalTest);
}

void FinalTestPage::askForGrade() {
    if (Seams::askYesNo(QStringLiteral("Punkttabelle anzeigen bzw. ändern?"),
                        QStringLiteral("Punktetabelle für Zensierung"))) {
        Screens::show(ScreenId::GradeScale);
    } else {
        gradeTest(course_);
        withdrawExplanation();
    }
}

void FinalTestPage::printAndEnd() {
    const QStringList lines = Printing::readLines(course_.resultFilePath());
    Printing::printLines(lines);
    Screens::endProgramme();
}

QList<int> FinalTestPage::numbersAfterRestart() const {
    return {0};
}

QList<int> FinalTestPage::numbersAfterResume() const {
    return {kFinalResumeValue};
}

void FinalTestPage::focusAfterExitFrame() {
    endButton->setFocus();
}

void FinalTestPage::showSecondHalf() {
    questionFrames[kLastOfFirstHalf + 1]->setVisible(true);
    for (std::size_t k = 0; k <= kLastOfFirstHalf; ++k)
        questionFrames[k]->setVisible(false);
    halfChangeTimer->stop();
    // Unless the pupil has moved on meanwhile, question 6 takes the focus.
    if (focusToSecondHalf_ && !focusWidget())
        focusQuestion(kLastOfFirstHalf + 1);
    focusToSecondHalf_ = false;
}

void FinalTestPage::showGrade(const QString &grade) {
    gradeLabel->setText(grade);
    gradeLabel->setVisible(true);
    // A screen reader says the grade with the button that takes the focus.
    endPageButton->setAccessibleDescription(grade.simplified());
    endPageButton->setFocus();
}

void FinalTestPage::describeSolved(int k) {
    questionFrames.at(static_cast<std::size_t>(k))->setAccessibleDescription(kSolvedDescription);
    for (int i = 4 * k; i < 4 * k + 4; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const bool clicked = !verdictLabels[at]->isHidden();
        optionButtons[at]->setAccessibleDescription(
            clicked ? verdictLabels[at]->text() + QStringLiteral(", ") + kSolvedDescription
                    : kSolvedDescription);
    }
}

void FinalTestPage::focusQuestion(int k) {
    optionButtons.at(4 * static_cast<std::size_t>(k))->setFocus(Qt::OtherFocusReason);
}

void registerFinalTestScreens(Course &course) {
    Screens::registerScreen(ScreenId::FinalTest,
                            [&course](double factor) { return new FinalTestPage(course, factor); });
    Screens::registerScreen(ScreenId::GradeScale, [&course](double factor) {
        return new GradeScaleScreen(course, factor);
    });
}
