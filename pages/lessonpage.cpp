// SPDX-License-Identifier: GPL-3.0-or-later
#include "lessonpage.h"

#include "modul1.h"
#include "picture.h"
#include "questionbank.h"
#include "screens.h"
#include "seams.h"
#include "textfiles.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

#include <cmath>

using namespace Modul1;

const QString kPaceNote = QStringLiteral("  Hinweis:") + QString(64, QLatin1Char(' ')) +
                          QStringLiteral("Damit du dir bei diesem Lernprogramm viel merken "
                                         "kannst, ist es") +
                          QString(10, QLatin1Char(' ')) +
                          QStringLiteral("notwendig, dass  du dir die Fragen gründlich "
                                         "durchliest, bevor du sie") +
                          QString(4, QLatin1Char(' ')) + QStringLiteral("beantwortest.") +
                          QString(146, QLatin1Char(' ')) +
                          QStringLiteral("Du arbeitest also zu hastig!");

QString paceNoteLines(const QString &caption) {
    // The long runs end the heading and the paragraph; the short ones only fill a line.
    static const QRegularExpression paragraph(QStringLiteral(" {100,}"));
    static const QRegularExpression line(QStringLiteral(" {40,}"));
    static const QRegularExpression filler(QStringLiteral(" {3,}"));
    QString shown = caption.trimmed();
    shown.replace(paragraph, QStringLiteral("\n\n"));
    shown.replace(line, QStringLiteral("\n"));
    shown.replace(filler, QStringLiteral(" "));
    return shown;
}

namespace {

constexpr int kExplanationMs = 10000;
constexpr int kPaceNoteMs = 5000;
constexpr int kPaceNoteWidth = 236;
constexpr int kDrawingHeight = 110;
constexpr int kDrawingMinHeight = 72;

QLabel *heading(const QString &caption, QWidget *parent) {
    auto *label = new QLabel(captionOnScreen(caption.trimmed(), 3, 100), parent);
    label->setAccessibleName(caption.simplified());
    QFont f = label->font();
    f.setBold(true);
    label->setFont(f);
    label->setAlignment(Qt::AlignRight | Qt::AlignTop);
    return label;
}

// Forwards a click into the answer field to the page.
class ClickFilter : public QObject {
public:
    ClickFilter(QObject *parent, std::function<void()> onClick)
        : QObject(parent)
        , onClick_(std::move(onClick)) {}

protected:
    bool eventFilter(QObject *, QEvent *e) override {
        if (e->type() == QEvent::MouseButtonRelease)
            onClick_();
        return false;
    }

private:
    std::function<void()> onClick_;
};

QString explanationHtml() {
    const auto cell = [](const QString &what, const QString &text) {
        return QStringLiteral("<td align=\"center\" valign=\"middle\">%1</td>"
                              "<td valign=\"middle\">%2&nbsp;&nbsp;&nbsp;</td>")
            .arg(what, text);
    };
    const auto icon = [](const char *file) {
        return QStringLiteral("<img src=\":/%1\" width=\"26\" height=\"26\">")
            .arg(QLatin1String(file));
    };
    return QStringLiteral("<div style=\"font-size:10pt;\"><b>Die Steuerbuttons:</b>"
                          "<table cellspacing=\"0\" cellpadding=\"1\"><tr>") +
           cell(icon("button-next.svg"),
                QStringLiteral("Nächste Frage (nach einer richtigen Antwort)")) +
           cell(QStringLiteral("<b>&lt;&lt;</b>"), QStringLiteral("eine Seite zurück")) +
           QStringLiteral("</tr><tr>") +
           cell(icon("button-repeat.svg"),
                QStringLiteral("Aufgabe wiederholen (nach einer falschen Antwort)")) +
           cell(QStringLiteral("<b>&gt;&gt;</b>"), QStringLiteral("eine Seite weiter")) +
           QStringLiteral("</tr><tr>") +
           cell(icon("button-end.svg"), QStringLiteral("Lernprogramm beenden")) +
           QStringLiteral("<td></td><td></td></tr></table></div>");
}

} // namespace

LessonPage::LessonPage(int page, QWidget *parent)
    : Form(pageScreen(page), parent)
    , info_(pageInfo(page)) {
    buildControls();
}

void LessonPage::buildControls() {
    setWindowTitle(
        windowCaption(info_.captionBlanks, QStringLiteral("Seite %1").arg(info_.number)));
    resize(800, 600);
    menus = PageFrame::buildMenus(this, true);

    auto *central = new QWidget(this);
    setCentralWidget(central);
    auto *grid = new QGridLayout(central);
    grid->setContentsMargins(14, 10, 14, 10);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);

    const PageBank &bank = pageBank(info_.number);

    Label2 = heading(QStringLiteral("Frage:"), central);
    grid->addWidget(Label2, 0, 0);
    for (std::size_t i = 0; i < Image1.size(); ++i) {
        Image1[i] = new Picture(questionHtml(bank.questions[i]), central);
        if (!bank.questions[i].drawing.isEmpty()) {
            Image1[i]->setDrawing(bank.questions[i].drawing, bank.questions[i].drawingDescription);
            // The drawing stands beside the question text, 72 to 110 pixels high, so that
            // the page still fits a screen of 800 x 600 pixels.
            if (auto *box = qobject_cast<QBoxLayout *>(Image1[i]->layout()))
                box->setDirection(QBoxLayout::LeftToRight);
            if (auto *view = Image1[i]->findChild<SvgView *>()) {
                const QSize full = view->sizeHint();
                view->setMinimumSize(
                    full.scaled(QSize(QWIDGETSIZE_MAX, kDrawingMinHeight), Qt::KeepAspectRatio));
                view->setMaximumSize(
                    full.scaled(QSize(QWIDGETSIZE_MAX, kDrawingHeight), Qt::KeepAspectRatio));
            }
        }
        Image1[i]->setObjectName(QStringLiteral("Image1_%1").arg(i));
        grid->addWidget(Image1[i], 0, 1, 1, 2);
        Image1[i]->setVisible(i == 0);
    }

    Label3 = heading(QStringLiteral("Auswahl-      Antworten:"), central);
    grid->addWidget(Label3, 1, 0);
    for (std::size_t i = 0; i < Image2.size(); ++i) {
        Image2[i] = new Picture(optionsHtml(bank.questions[i]), central);
        Image2[i]->setObjectName(QStringLiteral("Image2_%1").arg(i));
        grid->addWidget(Image2[i], 1, 1, 1, 2);
        Image2[i]->setVisible(i == 0);
    }

    Label4 = heading(QStringLiteral("Antwort:"), central);
    grid->addWidget(Label4, 2, 0, Qt::AlignVCenter);
    auto *answerRow = new QHBoxLayout;
    Text1 = new QLineEdit(central);
    Text1->setAccessibleName(QStringLiteral("Antwort"));
    Text1->setFixedWidth(56);
    Text1->setAlignment(Qt::AlignCenter);
    QFont answerFont = Text1->font();
    answerFont.setPointSize(18);
    answerFont.setBold(true);
    Text1->setFont(answerFont);
    answerRow->addWidget(Text1);
    Label7 = new QLabel(
        QStringLiteral(" Antworte mit A, B oder C; du kannst auch a, b oder c eingeben."), central);
    answerRow->addWidget(Label7, 1);
    grid->addLayout(answerRow, 2, 1);

    Label8 = new QLabel(paceNoteLines(kPaceNote), central);
    Label8->setAccessibleName(kPaceNote.simplified());
    Label8->setWordWrap(true);
    Label8->setFrameShape(QFrame::Box);
    Label8->setAutoFillBackground(true);
    QPalette notePalette = Label8->palette();
    notePalette.setColor(QPalette::Window, QColor(255, 236, 160));
    notePalette.setColor(QPalette::WindowText, QColor(120, 0, 0));
    Label8->setPalette(notePalette);
    Label8->setMargin(6);
    // The note floats in a column kept free for it beside the answer and the remarks, so that
    // showing it does not lay the page out again while the pupil waits for the verdict.
    grid->setColumnMinimumWidth(2, kPaceNoteWidth);
    Label8->setFixedWidth(kPaceNoteWidth);
    PageFrame::placeOver(central, Label8, [this](const QRect &, QSize) {
        const QPoint topLeft(Label7->geometry().right() + 12, Text1->geometry().top());
        return QRect(topLeft, QSize(kPaceNoteWidth, Label8->heightForWidth(kPaceNoteWidth)));
    });
    Label8->hide();

    Label5 = heading(QStringLiteral("Bemer-      kungen:"), central);
    grid->addWidget(Label5, 3, 0);
    const int pictures = info_.highestFeedbackIndex + 1;
    for (int i = 0; i < pictures; ++i) {
        const BankFeedback &f = bank.feedback.at(static_cast<std::size_t>(i));
        auto *picture = new Picture(feedbackHtml(f, info_.number), central);
        picture->setObjectName(QStringLiteral("Image3_%1").arg(i));
        grid->addWidget(picture, 3, 1);
        picture->hide();
        Image3.append(picture);
    }
    grid->setRowStretch(3, 1);

    Image4 = new Picture(explanationHtml(), central);
    Image4->setObjectName(QStringLiteral("Image4"));
    grid->addWidget(Image4, 4, 1, 1, 2);
    if (info_.firstPage) {
        Label12 = new QLabel(QStringLiteral("Erklärung der Buttons ein- und ausschalten: Menü: "
                                            "Ansicht / Erklärung Steuerbuttons"),
                             central);
        Label12->setWordWrap(true);
        grid->addWidget(Label12, 4, 1, 1, 2);
        Label12->hide();
    }

    auto *buttons = new QHBoxLayout;
    Command2 = new QPushButton(QStringLiteral("<<"), central);
    Command2->setAccessibleName(QStringLiteral("Eine Seite zurück (<<)"));
    Command2->setToolTip(QStringLiteral("Eine Seite zurück"));
    Command2->setMinimumSize(56, 56);
    Command1 = pictureButton(QStringLiteral(":/button-next.svg"), QStringLiteral("Nächste Frage"),
                             central, 40);
    Command5 = pictureButton(QStringLiteral(":/button-repeat.svg"),
                             QStringLiteral("Aufgabe wiederholen"), central, 40);
    Command4 = new QPushButton(QStringLiteral(">>"), central);
    Command4->setAccessibleName(QStringLiteral("Eine Seite weiter (>>)"));
    Command4->setToolTip(QStringLiteral("Eine Seite weiter"));
    Command4->setMinimumSize(56, 56);
    Command3 =
        pictureButton(QStringLiteral(":/button-end.svg"), QStringLiteral("Beenden"), central, 40);
    Label6 = new QLabel(QStringLiteral("Punkte:"), central);
    Label9 = new QLabel(central);
    QFont pointsFont = Label9->font();
    pointsFont.setPointSize(14);
    pointsFont.setBold(true);
    Label9->setFont(pointsFont);
    Label9->setMinimumWidth(110);
    buttons->addWidget(Command2);
    buttons->addWidget(Command1);
    buttons->addWidget(Command5);
    buttons->addWidget(Command4);
    buttons->addStretch(1);
    buttons->addWidget(Label6);
    buttons->addWidget(Label9);
    buttons->addSpacing(16);
    buttons->addWidget(Command3);
    grid->addLayout(buttons, 5, 0, 1, 3);
    setActive(Command1, false);
    setActive(Command5, false);
    setActive(Command3, true);
    // The design order of the tab chain: answer, step buttons, pages, end.
    setTabOrder(Text1, Command1);
    setTabOrder(Command1, Command5);
    setTabOrder(Command5, Command2);
    setTabOrder(Command2, Command4);
    setTabOrder(Command4, Command3);

    exitFrame = PageFrame::buildExitFrame(central);
    overview = PageFrame::buildOverview(central);

    Timer1 = new QTimer(this);
    if (info_.firstPage) {
        Timer2 = new QTimer(this);
        Timer2->setInterval(kExplanationMs);
        Timer3 = new QTimer(this);
        Timer3->setInterval(kExplanationMs);
    }

    connect(Text1, &QLineEdit::textChanged, this, &LessonPage::Text1_Change);
    Text1->installEventFilter(new ClickFilter(this, [this] { Text1_Click(); }));
    connect(Command1, &QPushButton::clicked, this, &LessonPage::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &LessonPage::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &LessonPage::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &LessonPage::Command4_Click);
    connect(Command5, &QPushButton::clicked, this, &LessonPage::Command5_Click);
    connect(overview.Command6, &QPushButton::clicked, this, &LessonPage::Command6_Click);
    connect(exitFrame.Command10, &QPushButton::clicked, this, &LessonPage::Command10_Click);
    connect(exitFrame.Command11, &QPushButton::clicked, this, &LessonPage::Command11_Click);
    connect(exitFrame.Command12, &QPushButton::clicked, this, &LessonPage::Command12_Click);
    for (std::size_t i = 0; i < overview.lines.size(); ++i) {
        connect(overview.lines[i], &QPushButton::clicked, this,
                [this, i] { Label11_Click(static_cast<int>(i)); });
    }
    connect(Timer1, &QTimer::timeout, this, &LessonPage::Timer1_Timer);
    if (Timer2) {
        connect(Timer2, &QTimer::timeout, this, &LessonPage::Timer2_Timer);
        connect(Timer3, &QTimer::timeout, this, &LessonPage::Timer3_Timer);
    }
    PageFrame::connectCheckEntry(menus.mnuPunkt, this, [this] { mnuPunkt_Click(); });
    PageFrame::connectCheckEntry(menus.mnuSteuer, this, [this] { mnuSteuer_Click(); });
    connect(menus.mnuWo, &QAction::triggered, this, &LessonPage::mnuWo_Click);
}

void LessonPage::Form_Load() {
    if (info_.firstPage) {
        CorrectCount = 0;
        AnsweredCount = 0;
    }
    AnswerCorrectFlag = 0;
    AnswerEvaluated = 0;
    QuestionStartTime = static_cast<std::int32_t>(std::lround(Seams::secondsSinceMidnight()));
    if (Timer2)
        Timer2->start();
}

void LessonPage::Form_Activate() {
    FileName = QStringLiteral("StartQelB.txt");
    StartFilePath = TextFiles::programmePath(FileName);
    CurrentPage = static_cast<std::int16_t>(info_.number);
    Label9->setText(PointsText());
}

void LessonPage::FindCurrentQuestion() {
    for (std::size_t i = 0; i < Image1.size(); ++i) {
        if (!Image1[i]->isHidden()) {
            QuestionIndex = static_cast<std::int16_t>(i);
            return;
        }
    }
}

void LessonPage::EvaluateAnswer() {
    AnswerEvaluated = 1;
    const QString answer = Text1->text();
    AnsweredCount += 1;
    FindCurrentQuestion();
    CheckAnswerPace(QuestionIndex == 0 ? 9 : 5);

    const AnswerKey &key = info_.key.at(static_cast<std::size_t>(QuestionIndex));
    const std::array<QString, 3> letters = {QStringLiteral("A"), QStringLiteral("B"),
                                            QStringLiteral("C")};
    for (std::size_t letter = 0; letter < letters.size(); ++letter) {
        if (answer != letters[letter])
            continue;
        Image3.at(key.shows[letter])->show();
        if (key.scores[letter]) {
            AnswerCorrectFlag = key.flagValue;
            CorrectCount += 1;
            // Once question 2 of page 1 is right, the buttons are understood.
            if (info_.firstPage && QuestionIndex == 1) {
                Image4->hide();
                menus.mnuSteuer->setChecked(false);
            }
        } else {
            AnswerCorrectFlag = 0;
        }
    }

    if (AnswerCorrectFlag != 0) {
        setActive(Command1, true);
        Command1->setFocus();
        setActive(Command5, false);
    } else {
        setActive(Command5, true);
        Command5->setFocus();
        setActive(Command1, false);
    }
    Label9->setText(PointsText());
}

void LessonPage::Command1_Click() {
    QuestionStartTime = static_cast<std::int32_t>(std::lround(Seams::secondsSinceMidnight()));
    AnswerEvaluated = 0;
    if (QuestionIndex >= 0 && QuestionIndex <= 3) {
        const auto i = static_cast<std::size_t>(QuestionIndex);
        Image1[i + 1]->show();
        Image1[i]->hide();
        Image2[i + 1]->show();
        Image2[i]->hide();
    }
    Text1->clear();
    Text1->setFocus();
    setActive(Command5, false);
    for (int i = 0; i <= info_.highestFeedbackIndex; ++i)
        Image3.at(i)->hide();
    if (QuestionIndex >= 4) {
        Screens::show(info_.next);
        Screens::unload(this);
    } else {
        setActive(Command1, false);
    }
    AnswerCorrectFlag = 0;
}

void LessonPage::Command2_Click() {
    Screens::show(info_.previous);
    Screens::unload(this);
}

void LessonPage::Command3_Click() {
    exitFrame.Frame10->show();
    exitFrame.Picture10->show();
}

void LessonPage::Command4_Click() {
    Screens::show(info_.next);
    Screens::unload(this);
}

void LessonPage::Command5_Click() {
    Text1->clear();
    Text1->setFocus();
    for (int i = 0; i <= info_.highestFeedbackIndex; ++i)
        Image3.at(i)->hide();
    setActive(Command5, false);
    AnswerEvaluated = 0;
}

void LessonPage::Command6_Click() {
    overview.Shape6->hide();
    overview.Frame2->hide();
    if (!Text1->text().isEmpty())
        Command1->setFocus();
    else
        Text1->setFocus();
}

void LessonPage::Command10_Click() {
    CurrentPage = 50;
    QuotedItemFile file(StartFilePath);
    file.write(QString::number(CurrentPage));
    file.close();
    Screens::endProgramme();
}

void LessonPage::Command11_Click() {
    QuotedItemFile file(StartFilePath);
    file.write(QString::number(CurrentPage));
    if (info_.firstPage) {
        file.write(CorrectCount);
        file.write(AnsweredCount);
    }
    file.close();
    Screens::endProgramme();
}

void LessonPage::Command12_Click() {
    exitFrame.Frame10->hide();
    exitFrame.Picture10->hide();
    if (!Text1->text().isEmpty())
        Command3->setFocus();
    else
        Text1->setFocus();
}

void LessonPage::Label11_Click(int Index) {
    Screens::unload(this);
    if (Index >= 0 && Index <= 10)
        Screens::show(pageScreen(Index + 1));
}

void LessonPage::Text1_Change() {
    const QString text = Text1->text();
    if (text == QStringLiteral("A") || text == QStringLiteral("a")) {
        Text1->setText(QStringLiteral("A"));
    } else if (text == QStringLiteral("B") || text == QStringLiteral("b")) {
        Text1->setText(QStringLiteral("B"));
    } else if (text == QStringLiteral("C") || text == QStringLiteral("c")) {
        Text1->setText(QStringLiteral("C"));
    } else {
        Text1->setText(QString());
        return;
    }
    if (AnswerEvaluated == 0)
        EvaluateAnswer();
}

bool LessonPage::anyVisible(const std::vector<int> &pictures) const {
    // A listed index the page does not have counts as a picture that is not visible.
    for (int i : pictures) {
        if (i >= 0 && i < Image3.size() && !Image3.at(i)->isHidden())
            return true;
    }
    return false;
}

void LessonPage::Text1_Click() {
    if (anyVisible(info_.wrongGroup))
        Command5->setFocus();
    else if (anyVisible(info_.rightGroup))
        Command1->setFocus();
}

void LessonPage::CheckAnswerPace(int minimumSeconds) {
    if (Seams::secondsSinceMidnight() < QuestionStartTime + minimumSeconds) {
        Label8->show();
        Timer1->setInterval(kPaceNoteMs);
        Timer1->start();
        Command2->setEnabled(false);
        Command4->setEnabled(false);
        setActive(Command3, false);
    }
}

void LessonPage::Timer1_Timer() {
    // Timer1 keeps running: its later ticks repeat these harmless steps.
    Label8->hide();
    Command2->setEnabled(true);
    Command4->setEnabled(true);
    setActive(Command3, true);
}

void LessonPage::Timer2_Timer() {
    menus.mnuSteuer->setChecked(false);
    Image4->hide();
    Label12->show();
    Timer3->start();
    Timer2->stop();
}

void LessonPage::Timer3_Timer() {
    Label12->hide();
    Timer3->stop();
}

void LessonPage::mnuPunkt_Click() {
    if (menus.mnuPunkt->isChecked()) {
        Label6->hide();
        Label9->hide();
        menus.mnuPunkt->setChecked(false);
    } else {
        Label6->show();
        Label9->show();
        menus.mnuPunkt->setChecked(true);
    }
}

void LessonPage::mnuSteuer_Click() {
    if (menus.mnuSteuer->isChecked()) {
        Image4->hide();
        menus.mnuSteuer->setChecked(false);
    } else {
        Image4->show();
        menus.mnuSteuer->setChecked(true);
    }
}

void LessonPage::mnuWo_Click() {
    overview.Shape6->show();
    overview.Frame2->show();
}

void LessonPage::Tempo() {
    // Nothing on the page calls this; it checks the pace of the current question.
    CheckAnswerPace(QuestionIndex == 0 ? 9 : 5);
}

void registerLessonPages() {
    for (int page = 1; page <= 10; ++page)
        Screens::registerScreen(pageScreen(page), [page] { return new LessonPage(page); });
}
