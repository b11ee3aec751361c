// SPDX-License-Identifier: GPL-3.0-or-later
#include "lessonpage.h"

#include "appearing.h"
#include "captionlabel.h"
#include "course.h"
#include "picture.h"
#include "questionbank.h"
#include "runcache.h"
#include "screens.h"
#include "seams.h"
#include "theme.h"
#include "topics.h"
#include "widgets.h"
#include "zoom.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>

const QString kPaceNote = QStringLiteral("  Hinweis:") + QString(64, QLatin1Char(' ')) +
                          QStringLiteral("Damit du dir bei diesem Lernprogramm viel merken "
                                         "kannst, ist es") +
                          QString(10, QLatin1Char(' ')) +
                          QStringLiteral("notwendig, dass  du dir die Fragen gründlich "
                                         "durchliest, bevor du sie") +
                          QString(4, QLatin1Char(' ')) + QStringLiteral("beantwortest.") +
                          QString(146, QLatin1Char(' ')) +
                          QStringLiteral("Du arbeitest also zu hastig!");

namespace {

constexpr int kExplanationMs = 10000;
// Headings break at their runs of blanks; the pace note has a heading, a paragraph filled up
// with blanks to its line ends, and a closing line.
constexpr BlankRuns kHeadingRuns{.line = 3, .paragraph = 100};
constexpr BlankRuns kPaceNoteRuns{.line = 40, .paragraph = 100, .collapse = 3};
constexpr int kPaceNoteMs = 5000;
constexpr int kPaceNoteWidth = 236;
constexpr int kDrawingHeight = 110;
constexpr int kDrawingMinHeight = 72;

CaptionLabel *heading(const QString &caption, QWidget *parent) {
    auto *label = new CaptionLabel(caption, kHeadingRuns, parent);
    Zoom::on(parent).setBold(label);
    label->setAlignment(Qt::AlignRight | Qt::AlignTop);
    return label;
}

// Forwards a click into the answer field to the page. Only the left button clicks: a right
// click asks for the field's context menu.
class ClickFilter : public QObject {
public:
    ClickFilter(QObject *parent, std::function<void()> onClick)
        : QObject(parent)
        , onClick_(std::move(onClick)) {}

protected:
    bool eventFilter(QObject *, QEvent *e) override {
        if (e->type() == QEvent::MouseButtonRelease &&
            static_cast<QMouseEvent *>(e)->button() == Qt::LeftButton)
            onClick_();
        return false;
    }

private:
    std::function<void()> onClick_;
};

// The remarks: the verdicts lie one over the other, each in the whole room, which is as large as
// the largest verdict of the question shown needs. A verdict that appears or goes leaves the
// page's layout as it is; the room changes with the question.
class Remarks : public QWidget {
public:
    Remarks(QWidget *parent, std::function<QList<QWidget *>()> verdictsOfQuestion)
        : QWidget(parent)
        , verdictsOfQuestion_(std::move(verdictsOfQuestion)) {
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }
    // The room follows `question` whenever it is shown or hidden.
    void follow(QWidget *question) { question->installEventFilter(this); }

    QSize sizeHint() const override { return largest(&QWidget::sizeHint); }
    QSize minimumSizeHint() const override { return largest(&QWidget::minimumSizeHint); }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override {
        int height = 0;
        for (const QWidget *verdict : verdictsOfQuestion_())
            height = std::max(height, verdict->heightForWidth(width));
        return height;
    }

protected:
    bool eventFilter(QObject *, QEvent *e) override {
        if (e->type() == QEvent::ShowToParent || e->type() == QEvent::HideToParent)
            updateGeometry();
        return false;
    }

private:
    QSize largest(QSize (QWidget::*hint)() const) const {
        QSize size(0, 0);
        for (const QWidget *verdict : verdictsOfQuestion_())
            size = size.expandedTo((verdict->*hint)());
        return size;
    }

    std::function<QList<QWidget *>()> verdictsOfQuestion_;
};

// The points display. Its size depends on the font and on how many digits each count has, the
// digits of the programme's fonts all being equally wide: it is measured once for each such shape
// and kept for the run, so that the layout that follows each answer measures no text.
class PointsLabel : public QLabel {
public:
    using QLabel::QLabel;
    QSize sizeHint() const override { return measured(false); }
    QSize minimumSizeHint() const override { return measured(true); }

private:
    QSize measured(bool minimum) const {
        static RunCache<QString, QSize> sizes;
        QString shape = text();
        for (QChar &c : shape) {
            if (c.isDigit())
                c = u'0';
        }
        QSize &size =
            sizes[QString::number(int(minimum)) + font().key() + QLatin1Char('\n') + shape];
        if (size.isEmpty())
            size = minimum ? QLabel::minimumSizeHint() : QLabel::sizeHint();
        return size;
    }
};

// The room the points display takes in the row of buttons. A label whose text changes has the
// whole page laid out again, each time the pupil answers; in its own room only the room hears of
// it, and the page is laid out again only when the display needs another size (a count that
// gains a digit, another font).
class PointsRoom : public QWidget {
public:
    PointsRoom(QLabel *display, QWidget *parent)
        : QWidget(parent)
        , display_(display) {
        display->setParent(this);
        display->installEventFilter(this);
    }

    void setText(const QString &text) {
        const std::pair<QSize, QSize> given = known_;
        display_->setText(text);
        if (hints() != given)
            updateGeometry();
    }

    QSize sizeHint() const override { return hints().first; }
    QSize minimumSizeHint() const override { return hints().second; }

protected:
    void resizeEvent(QResizeEvent *) override { display_->setGeometry(rect()); }
    bool eventFilter(QObject *, QEvent *e) override {
        if (e->type() == QEvent::FontChange)
            updateGeometry();
        // The room comes and goes with the display.
        if (e->type() == QEvent::ShowToParent || e->type() == QEvent::HideToParent)
            setVisible(e->type() == QEvent::ShowToParent);
        return false;
    }

private:
    std::pair<QSize, QSize> hints() const {
        const QSize least = display_->minimumSize();
        known_ = {display_->sizeHint().expandedTo(least),
                  display_->minimumSizeHint().expandedTo(least)};
        return known_;
    }

    QLabel *display_;
    mutable std::pair<QSize, QSize> known_; // the hints the layout was last given
};

const QList<ExplanationItem> kExplanation = {
    {QStringLiteral(":/button-next.svg"),
     {},
     QStringLiteral("Nächste Frage (nach einer richtigen Antwort)")},
    {{}, QStringLiteral("<<"), QStringLiteral("eine Seite zurück")},
    {QStringLiteral(":/button-repeat.svg"),
     {},
     QStringLiteral("Aufgabe wiederholen (nach einer falschen Antwort)")},
    {{}, QStringLiteral(">>"), QStringLiteral("eine Seite weiter")},
    {QStringLiteral(":/button-end.svg"), {}, QStringLiteral("Lernprogramm beenden")},
};

} // namespace

LessonPage::LessonPage(int page, Course &course, double zoomFactor)
    : PageBase(pageScreen(page), page, course, zoomFactor)
    , info_(pageInfo(page)) {
    buildControls();
    // The points display follows the points as they are counted.
    connect(&course_, &Course::pointsChanged, this, &LessonPage::showPoints);
}

void LessonPage::buildControls() {
    setWindowTitle(Topics::pageCaption(info_.number));
    auto *grid = new QGridLayout(page());
    Zoom &z = zoom();
    z.setMargins(grid, 14, 10, 14, 10);
    z.setSpacing(grid, 12, 8);
    grid->setColumnStretch(1, 1);
    setupPageParts();

    // The rows from top to bottom: question, options, answer, remarks, the button explanation and
    // the buttons; the pace note floats beside the answer.
    const PageBank &bank = pageBank(info_.number);
    setupQuestions(grid, bank);
    setupOptions(grid, bank);
    setupAnswer(grid);
    setupPaceNote(grid);
    setupRemarks(grid, bank);
    setupExplanation(grid);
    setupButtons(grid);
    answerEdit->setAccessibleDescription(spokenQuestion());

    paceTimer = new QTimer(this);

    setFormNames({{answerEdit, "Text1"},
                  {questionHeading, "Label2"},
                  {optionsHeading, "Label3"},
                  {answerHeading, "Label4"},
                  {remarksHeading, "Label5"},
                  {pointsHeading, "Label6"},
                  {instructionLabel, "Label7"},
                  {paceNote, "Label8"},
                  {pointsLabel, "Label9"},
                  {nextQuestionButton, "Command1"},
                  {previousPageButton, "Command2"},
                  {nextPageButton, "Command4"},
                  {retryButton, "Command5"},
                  {paceTimer, "Timer1"}});

    connectHandlers();
}

void LessonPage::setupPageParts() {
    buildPageParts(page(), {.withPointsEntry = true,
                            .explanation = explanationHtml(kExplanation, 2),
                            .explanationName = QStringLiteral("Image4"),
                            .overviewLineName = QStringLiteral("Label11"),
                            .iconSize = 40});
    overview->note->setObjectName(QStringLiteral("Label1"));
    if (info_.firstPage)
        addExplanationTimers(kExplanationMs, QStringLiteral("Label12"));
}

void LessonPage::setupQuestions(QGridLayout *grid, const PageBank &bank) {
    QWidget *central = page();
    Zoom &z = zoom();
    questionHeading = heading(QStringLiteral("Frage:"), central);
    grid->addWidget(questionHeading, 0, 0);
    for (std::size_t i = 0; i < questionPictures.size(); ++i) {
        questionPictures[i] = new Picture(questionHtml(bank.questions[i]), central);
        if (!bank.questions[i].drawing.isEmpty()) {
            questionPictures[i]->setDrawing(bank.questions[i].drawing,
                                            bank.questions[i].drawingDescription);
            // The drawing stands beside the question text, 72 to 110 design units high, so
            // that the page keeps its design size.
            if (auto *box = qobject_cast<QBoxLayout *>(questionPictures[i]->layout()))
                box->setDirection(QBoxLayout::LeftToRight);
            if (auto *view = questionPictures[i]->findChild<SvgView *>()) {
                const QSize full = view->designSize();
                z.setMinimumSize(view, full.scaled(QSize(QWIDGETSIZE_MAX, kDrawingMinHeight),
                                                   Qt::KeepAspectRatio));
                z.setMaximumSize(
                    view, full.scaled(QSize(QWIDGETSIZE_MAX, kDrawingHeight), Qt::KeepAspectRatio));
            }
        }
        questionPictures[i]->setObjectName(QStringLiteral("Image1_%1").arg(i));
        grid->addWidget(questionPictures[i], 0, 1, 1, 2);
        questionPictures[i]->setVisible(i == 0);
    }
}

void LessonPage::setupOptions(QGridLayout *grid, const PageBank &bank) {
    QWidget *central = page();
    optionsHeading = heading(QStringLiteral("Auswahl-      Antworten:"), central);
    grid->addWidget(optionsHeading, 1, 0);
    for (std::size_t i = 0; i < optionPictures.size(); ++i) {
        optionPictures[i] = new Picture(optionsHtml(bank.questions[i]), central);
        optionPictures[i]->setObjectName(QStringLiteral("Image2_%1").arg(i));
        grid->addWidget(optionPictures[i], 1, 1, 1, 2);
        optionPictures[i]->setVisible(i == 0);
    }
}

void LessonPage::setupAnswer(QGridLayout *grid) {
    QWidget *central = page();
    Zoom &z = zoom();
    answerHeading = heading(QStringLiteral("Antwort:"), central);
    grid->addWidget(answerHeading, 2, 0, Qt::AlignVCenter);
    auto *answerRow = new QHBoxLayout;
    answerEdit = new QLineEdit(central);
    answerEdit->setAccessibleName(QStringLiteral("Antwort"));
    z.setFixedWidth(answerEdit, 56);
    answerEdit->setAlignment(Qt::AlignCenter);
    z.setFont(answerEdit, 2.0, true);
    answerRow->addWidget(answerEdit);
    const QString instruction =
        QStringLiteral(" Antworte mit A, B oder C; du kannst auch a, b oder c eingeben.");
    instructionLabel = new WrappingLabel(instruction.mid(1), central);
    instructionLabel->setAccessibleName(instruction);
    // Where a zoomed font needs a little more room than the design gave it, a second line. The
    // caption's leading blank, which keeps it off the field, becomes an indent of the same width,
    // so that the second line keeps off the field too.
    instructionLabel->setWordWrap(true);
    z.follow(instructionLabel, [label = instructionLabel](const Zoom &) {
        label->setIndent(label->fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    });
    answerRow->addWidget(instructionLabel, 1);
    grid->addLayout(answerRow, 2, 1);
}

void LessonPage::setupPaceNote(QGridLayout *grid) {
    QWidget *central = page();
    Zoom &z = zoom();
    paceNote = new CaptionLabel(kPaceNote, kPaceNoteRuns, central);
    paceNote->setWordWrap(true);
    paceNote->setFrameShape(QFrame::Box);
    paceNote->setAutoFillBackground(true);
    QPalette notePalette = paceNote->palette();
    notePalette.setColor(QPalette::Window, Theme::kPaceNote);
    notePalette.setColor(QPalette::WindowText, Theme::kPaceNoteText);
    paceNote->setPalette(notePalette);
    z.setMargin(paceNote, 6);
    // The note floats in a column kept free for it beside the answer and the remarks, so that
    // it appears without laying the page out again while the pupil waits for the verdict.
    z.setColumnMinimumWidth(grid, 2, kPaceNoteWidth);
    z.setFixedWidth(paceNote, kPaceNoteWidth);
    // Its height is the label's own, which the label measures once for each width and font.
    Appearing::attach(paceNote, {instructionLabel, answerEdit}, [this, &z] {
        const int width = z.px(kPaceNoteWidth);
        return QRect(instructionLabel->geometry().right() + z.px(12), answerEdit->geometry().top(),
                     width, paceNote->heightForWidth(width));
    });
}

void LessonPage::setupRemarks(QGridLayout *grid, const PageBank &bank) {
    QWidget *central = page();
    remarksHeading = heading(QStringLiteral("Bemer-      kungen:"), central);
    grid->addWidget(remarksHeading, 3, 0);
    // The room for the verdicts of the question shown.
    auto *remarks = new Remarks(central, [this] {
        QList<QWidget *> verdicts;
        for (std::size_t q = 0; q < questionPictures.size(); ++q) {
            if (!questionPictures[q]->isHidden()) {
                for (int i : info_.key.at(q).shows) {
                    if (i < feedbackPictures.size()) // while the page is built, the ones made
                        verdicts << feedbackPictures.at(i);
                }
            }
        }
        return verdicts;
    });
    for (Picture *question : questionPictures)
        remarks->follow(question);
    grid->addWidget(remarks, 3, 1);
    const int pictures = info_.highestFeedbackIndex + 1;
    for (int i = 0; i < pictures; ++i) {
        const BankFeedback &f = bank.feedback.at(static_cast<std::size_t>(i));
        auto *picture = new Picture(feedbackHtml(f, info_.number), remarks);
        picture->setObjectName(QStringLiteral("Image3_%1").arg(i));
        Appearing::attach(picture, {}, [remarks] { return remarks->rect(); });
        feedbackPictures.append(picture);
    }
    grid->setRowStretch(3, 1);
}

void LessonPage::setupExplanation(QGridLayout *grid) {
    Zoom &z = zoom();
    // The hint below the explanation: the pupil may call the explanation back while the hint
    // still shows.
    auto *explanationColumn = new QVBoxLayout;
    z.setSpacing(explanationColumn, 4);
    explanationColumn->addWidget(explanationPicture);
    if (explanationHint) {
        explanationHint->setWordWrap(true);
        explanationColumn->addWidget(explanationHint);
    }
    grid->addLayout(explanationColumn, 4, 1, 1, 2);
}

void LessonPage::setupButtons(QGridLayout *grid) {
    QWidget *central = page();
    Zoom &z = zoom();
    auto *buttons = new QHBoxLayout;
    previousPageButton = new QPushButton(QStringLiteral("<<"), central);
    previousPageButton->setAccessibleName(QStringLiteral("Eine Seite zurück"));
    previousPageButton->setToolTip(QStringLiteral("Eine Seite zurück"));
    z.setMinimumSize(previousPageButton, {56, 56});
    nextQuestionButton = pictureButton(QStringLiteral(":/button-next.svg"),
                                       QStringLiteral("Nächste Frage"), central, 40);
    retryButton = pictureButton(QStringLiteral(":/button-repeat.svg"),
                                QStringLiteral("Aufgabe wiederholen"), central, 40);
    nextPageButton = new QPushButton(QStringLiteral(">>"), central);
    nextPageButton->setAccessibleName(QStringLiteral("Eine Seite weiter"));
    nextPageButton->setToolTip(QStringLiteral("Eine Seite weiter"));
    z.setMinimumSize(nextPageButton, {56, 56});
    pointsHeading = new QLabel(QStringLiteral("Punkte:"), central);
    pointsLabel = new PointsLabel(central);
    z.setFont(pointsLabel, 1.55, true);
    z.setMinimumWidth(pointsLabel, 110);
    buttons->addWidget(previousPageButton);
    buttons->addWidget(nextQuestionButton);
    buttons->addWidget(retryButton);
    buttons->addWidget(nextPageButton);
    buttons->addStretch(1);
    buttons->addWidget(pointsHeading);
    buttons->addWidget(new PointsRoom(pointsLabel, central));
    z.addSpacing(buttons, 16);
    buttons->addWidget(endButton);
    grid->addLayout(buttons, 5, 0, 1, 3);
    setActive(nextQuestionButton, false);
    setActive(retryButton, false);
}

void LessonPage::connectHandlers() {
    connect(answerEdit, &QLineEdit::textChanged, this, &LessonPage::onAnswerChanged);
    answerEdit->installEventFilter(new ClickFilter(this, [this] { onAnswerClicked(); }));
    connect(nextQuestionButton, &QPushButton::clicked, this, &LessonPage::nextQuestion);
    connect(previousPageButton, &QPushButton::clicked, this, &LessonPage::previousPage);
    connect(nextPageButton, &QPushButton::clicked, this, &LessonPage::nextPage);
    connect(retryButton, &QPushButton::clicked, this, &LessonPage::retry);
    connect(paceTimer, &QTimer::timeout, this, &LessonPage::endPaceNote);
    connectCheckEntry(pointsEntry, this, [this] { togglePoints(); });
}

void LessonPage::onLoad() {
    if (info_.firstPage)
        course_.resetLessonCounts();
    answerCorrectFlag = 0;
    answerEvaluated = 0;
    questionStartTime = static_cast<std::int32_t>(std::lround(Seams::secondsSinceMidnight()));
    if (explanationTimer)
        explanationTimer->start();
}

void LessonPage::onActivate() {
    course_.formStartFilePath();
    course_.setCurrentPage(static_cast<std::int16_t>(info_.number));
    showPoints();
}

void LessonPage::showPoints() {
    static_cast<PointsRoom *>(pointsLabel->parentWidget())->setText(course_.pointsText());
}

void LessonPage::findCurrentQuestion() {
    for (std::size_t i = 0; i < questionPictures.size(); ++i) {
        if (!questionPictures[i]->isHidden()) {
            questionIndex = static_cast<std::int16_t>(i);
            return;
        }
    }
}

void LessonPage::evaluateAnswer() {
    answerEvaluated = 1;
    const QString answer = answerEdit->text();
    course_.countAnswer();
    findCurrentQuestion();
    checkAnswerPace(questionIndex == 0 ? 9 : 5);

    const AnswerKey &key = info_.key.at(static_cast<std::size_t>(questionIndex));
    const std::array<QString, 3> letters = {QStringLiteral("A"), QStringLiteral("B"),
                                            QStringLiteral("C")};
    for (std::size_t letter = 0; letter < letters.size(); ++letter) {
        if (answer != letters[letter])
            continue;
        Appearing::show(feedbackPictures.at(key.shows[letter]));
        if (key.scores[letter]) {
            answerCorrectFlag = key.flagValue;
            course_.countCorrect();
            // Once question 2 of page 1 is right, the buttons are understood.
            if (info_.firstPage && questionIndex == 1)
                withdrawExplanation();
        } else {
            answerCorrectFlag = 0;
        }
    }

    // A screen reader says the verdict, the pace note and the points with the button that takes
    // the focus now.
    describeVerdict();
    if (answerCorrectFlag != 0) {
        setActive(nextQuestionButton, true);
        nextQuestionButton->setFocus();
        setActive(retryButton, false);
    } else {
        setActive(retryButton, true);
        retryButton->setFocus();
        setActive(nextQuestionButton, false);
    }
    // The points display has followed the counts above.
}

void LessonPage::nextQuestion() {
    questionStartTime = static_cast<std::int32_t>(std::lround(Seams::secondsSinceMidnight()));
    answerEvaluated = 0;
    if (questionIndex >= 0 && questionIndex <= 3) {
        const auto i = static_cast<std::size_t>(questionIndex);
        questionPictures[i + 1]->show();
        questionPictures[i]->hide();
        optionPictures[i + 1]->show();
        optionPictures[i]->hide();
    }
    answerEdit->setAccessibleDescription(spokenQuestion());
    // The field takes the focus before it is emptied: a screen reader then says the question.
    answerEdit->setFocus();
    answerEdit->clear();
    setActive(retryButton, false);
    for (int i = 0; i <= info_.highestFeedbackIndex; ++i)
        Appearing::hide(feedbackPictures.at(i));
    if (questionIndex >= 4) {
        Screens::show(info_.next);
        Screens::unload(this);
    } else {
        setActive(nextQuestionButton, false);
    }
    answerCorrectFlag = 0;
}

void LessonPage::previousPage() {
    Screens::show(info_.previous);
    Screens::unload(this);
}

void LessonPage::nextPage() {
    Screens::show(info_.next);
    Screens::unload(this);
}

void LessonPage::retry() {
    answerEdit->setFocus();
    answerEdit->clear();
    for (int i = 0; i <= info_.highestFeedbackIndex; ++i)
        Appearing::hide(feedbackPictures.at(i));
    setActive(retryButton, false);
    answerEvaluated = 0;
}

QString LessonPage::spokenQuestion() const {
    for (std::size_t i = 0; i < questionPictures.size(); ++i) {
        if (!questionPictures[i]->isHidden()) {
            return QStringLiteral("Seite %1. %2 %3")
                .arg(QString::number(info_.number), questionPictures[i]->plainText(),
                     optionPictures[i]->plainText());
        }
    }
    return {};
}

void LessonPage::describeVerdict() {
    const QString verdict = spokenVerdict();
    nextQuestionButton->setAccessibleDescription(answerCorrectFlag != 0 ? verdict : QString());
    retryButton->setAccessibleDescription(answerCorrectFlag != 0 ? QString() : verdict);
}

QString LessonPage::spokenVerdict() const {
    QStringList parts;
    for (const Picture *picture : feedbackPictures) {
        if (Appearing::isVisible(picture))
            parts << picture->plainText();
    }
    parts << QStringLiteral("Punkte:") + course_.pointsText() + QLatin1Char('.');
    if (Appearing::isVisible(paceNote))
        parts << paceNote->accessibleName();
    return parts.join(QLatin1Char(' '));
}

void LessonPage::focusAfterOverview() {
    // After a wrong answer the next-question button is off; the focus goes back to where it was.
    if (!answerEdit->text().isEmpty() && !nextQuestionButton->isEnabled())
        PageBase::focusAfterOverview();
    else if (!answerEdit->text().isEmpty())
        nextQuestionButton->setFocus();
    else
        answerEdit->setFocus();
}

QList<int> LessonPage::numbersAfterResume() const {
    // Page 1 alone keeps its counts in the file too; nothing ever reads them back.
    if (info_.firstPage)
        return {course_.correctCount(), course_.answeredCount()};
    return {};
}

void LessonPage::focusAfterExitFrame() {
    if (!answerEdit->text().isEmpty())
        endButton->setFocus();
    else
        answerEdit->setFocus();
}

void LessonPage::onAnswerChanged() {
    const QString text = answerEdit->text();
    if (text == QStringLiteral("A") || text == QStringLiteral("a")) {
        answerEdit->setText(QStringLiteral("A"));
    } else if (text == QStringLiteral("B") || text == QStringLiteral("b")) {
        answerEdit->setText(QStringLiteral("B"));
    } else if (text == QStringLiteral("C") || text == QStringLiteral("c")) {
        answerEdit->setText(QStringLiteral("C"));
    } else {
        answerEdit->setText(QString());
        return;
    }
    if (answerEvaluated == 0)
        evaluateAnswer();
}

bool LessonPage::anyVisible(const std::vector<int> &pictures) const {
    // A listed index the page does not have counts as a picture that is not visible.
    for (int i : pictures) {
        if (i >= 0 && i < feedbackPictures.size() && Appearing::isVisible(feedbackPictures.at(i)))
            return true;
    }
    return false;
}

void LessonPage::onAnswerClicked() {
    if (anyVisible(info_.wrongGroup))
        retryButton->setFocus();
    else if (anyVisible(info_.rightGroup))
        nextQuestionButton->setFocus();
}

void LessonPage::checkAnswerPace(int minimumSeconds) {
    if (Seams::secondsSinceMidnight() < questionStartTime + minimumSeconds) {
        Appearing::show(paceNote);
        paceTimer->setInterval(kPaceNoteMs);
        paceTimer->start();
        previousPageButton->setEnabled(false);
        nextPageButton->setEnabled(false);
        setActive(endButton, false);
    }
}

void LessonPage::endPaceNote() {
    // paceTimer keeps running: its later ticks repeat these harmless steps.
    Appearing::hide(paceNote);
    // The button that holds the verdict no longer speaks of the note.
    if (answerEvaluated != 0)
        describeVerdict();
    previousPageButton->setEnabled(true);
    nextPageButton->setEnabled(true);
    setActive(endButton, true);
}

void LessonPage::togglePoints() {
    if (pointsEntry->isChecked()) {
        pointsHeading->hide();
        pointsLabel->hide();
        pointsEntry->setChecked(false);
    } else {
        pointsHeading->show();
        pointsLabel->show();
        pointsEntry->setChecked(true);
    }
}

void registerLessonPages(Course &course) {
    for (int page = 1; page <= 10; ++page)
        Screens::registerScreen(pageScreen(page), [page, &course](double factor) {
            return new LessonPage(page, course, factor);
        });
}
