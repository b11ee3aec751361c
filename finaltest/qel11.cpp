// SPDX-License-Identifier: GPL-3.0-or-later
#include "qel11.h"

#include "grading.h"
#include "modul1.h"
#include "picture.h"
#include "printing.h"
#include "qelzens.h"
#include "resultlog.h"
#include "screens.h"
#include "seams.h"
#include "textfiles.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>
#include <QVBoxLayout>

#include <optional>

using namespace Modul1;

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

CaptionLabel::CaptionLabel(const QString &caption, QWidget *parent)
    : QLabel(parent) {
    setCaption(caption);
}

void CaptionLabel::setCaption(const QString &caption) {
    caption_ = caption;
    setText(captionOnScreen(caption.trimmed(), 2, 40));
    setAccessibleName(caption.simplified());
}

namespace {

constexpr int kHalfChangeMs = 3000;
constexpr int kExplanationMs = 8000;

QLabel *scoreLabel(const QString &caption, QWidget *parent, bool number = false) {
    auto *label = new QLabel(caption, parent);
    if (number) {
        QFont f = label->font();
        f.setBold(true);
        f.setPointSize(f.pointSize() + 2);
        label->setFont(f);
        label->setMinimumWidth(24);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return label;
}

QString explanationHtml() {
    const auto row = [](const QString &what, const QString &text) {
        return QStringLiteral("<tr><td align=\"center\" valign=\"middle\">%1</td>"
                              "<td valign=\"middle\">%2</td></tr>")
            .arg(what, text);
    };
    const auto icon = [](const char *file) {
        return QStringLiteral("<img src=\":/%1\" width=\"26\" height=\"26\">")
            .arg(QLatin1String(file));
    };
    return QStringLiteral("<div style=\"font-size:10pt;\"><b>Die Steuerbuttons:</b>"
                          "<table cellspacing=\"0\" cellpadding=\"2\">") +
           row(QStringLiteral("<b>&lt;&lt;</b>"), QStringLiteral("zurück zu Seite 10")) +
           row(icon("button-repeat.svg"),
               QStringLiteral("Test neu beginnen (nach der ersten Aufgabe)")) +
           row(icon("button-grade.svg"), QStringLiteral("Zensierung (am Ende des Tests)")) +
           row(icon("button-next.svg"), QStringLiteral("weiter zur Schlussseite")) +
           row(icon("button-end.svg"), QStringLiteral("Lernprogramm beenden")) +
           QStringLiteral("</table></div>");
}

// Verdicts and markers appear beside their options without moving the other options.
void keepPlaceWhenHidden(QWidget *w) {
    QSizePolicy policy = w->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    w->setSizePolicy(policy);
}

QString verdictStyle(bool right) {
    return right ? QStringLiteral("color: #1b6e2a; font-weight: bold;")
                 : QStringLiteral("color: #b3141e; font-weight: bold;");
}

} // namespace

Qel11::Qel11(QWidget *parent)
    : Form(ScreenId::Qel11, parent) {
    buildControls();
}

QGroupBox *Qel11::buildQuestion(int k, QWidget *parent) {
    const TestQuestion &question = kTestQuestions.at(static_cast<std::size_t>(k));
    auto *frame = new QGroupBox(question.frame, parent);
    frame->setObjectName(QStringLiteral("Frame1_%1").arg(k));
    auto *grid = new QGridLayout(frame);
    grid->setContentsMargins(8, 4, 8, 4);
    grid->setHorizontalSpacing(3);
    grid->setVerticalSpacing(2);

    auto *text = new CaptionLabel(question.text, frame);
    text->setText(questionOnScreen(question.text));
    text->setAccessibleName(questionOnScreen(question.text).remove(QChar(0x00AD)));
    text->setObjectName(QStringLiteral("Label2_%1").arg(k));
    text->setWordWrap(true);
    text->setFixedWidth(196);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Label2[static_cast<std::size_t>(k)] = text;
    grid->addWidget(text, 0, 0, 2, 1);
    grid->setColumnMinimumWidth(1, 6);
    // The same columns in every frame, so the options of all questions line up.
    for (int column : {2, 6})
        grid->setColumnMinimumWidth(column, 196);
    for (int column : {3, 7})
        grid->setColumnMinimumWidth(column, 8);
    for (int column : {4, 8})
        grid->setColumnMinimumWidth(column, 50);

    // The four options in two columns; the radio buttons are direct children of the frame, so
    // each frame is an option group of its own.
    for (int j = 0; j < 4; ++j) {
        const int i = 4 * k + j;
        const auto at = static_cast<std::size_t>(i);
        auto *option = new QRadioButton(question.options.at(static_cast<std::size_t>(j)), frame);
        option->setObjectName(QStringLiteral("Option1_%1").arg(i));
        Option1[at] = option;

        auto *marker = new QLabel(frame);
        marker->setObjectName(QStringLiteral("Label14_%1").arg(i));
        marker->setFixedSize(8, 8);
        marker->setAutoFillBackground(true);
        QPalette mark = marker->palette();
        mark.setColor(QPalette::Window,
                      isRightOption(i) ? QColor(27, 110, 42) : QColor(179, 20, 30));
        marker->setPalette(mark);
        keepPlaceWhenHidden(marker);
        marker->hide();
        Label14[at] = marker;

        auto *verdict = new QLabel(verdictCaption(i), frame);
        verdict->setObjectName(QStringLiteral("Label16_%1").arg(i));
        verdict->setStyleSheet(verdictStyle(verdict->text() == QStringLiteral("Richtig")));
        keepPlaceWhenHidden(verdict);
        verdict->hide();
        Label16[at] = verdict;

        const int row = j / 2;
        const int column = 2 + 4 * (j % 2);
        grid->addWidget(option, row, column, Qt::AlignLeft);
        grid->addWidget(marker, row, column + 1, Qt::AlignVCenter);
        grid->addWidget(verdict, row, column + 2, Qt::AlignLeft);
        connect(option, &QRadioButton::toggled, this, [this, i](bool checked) {
            if (checked)
                Option1_Click(i);
        });
    }
    grid->setColumnStretch(8, 1);
    return frame;
}

void Qel11::buildControls() {
    setWindowTitle(windowCaption(114, QStringLiteral("Seite 11")));
    resize(800, 600);
    menus = PageFrame::buildMenus(this, false);

    auto *central = new QWidget(this);
    setCentralWidget(central);
    auto *page = new QVBoxLayout(central);
    page->setContentsMargins(12, 6, 12, 8);
    page->setSpacing(4);

    // Title and score panel.
    auto *top = new QHBoxLayout;
    Label1 = new QLabel(QStringLiteral("Abschlusstest"), central);
    QFont titleFont = Label1->font();
    titleFont.setPointSize(16);
    titleFont.setBold(true);
    Label1->setFont(titleFont);
    top->addWidget(Label1);
    top->addStretch(1);
    Label5 = scoreLabel(QStringLiteral("Aufgabe"), central);
    Label6 = scoreLabel(QStringLiteral("1"), central, true);
    Label3 = scoreLabel(QStringLiteral("Punkte:"), central);
    Label10 = scoreLabel(QStringLiteral("0"), central, true);
    Label8 = scoreLabel(QStringLiteral("von"), central);
    Label12 = scoreLabel(QStringLiteral("0"), central, true);
    Label4 = scoreLabel(QStringLiteral("Gesamtpunkte:"), central);
    Label7 = scoreLabel(QStringLiteral("0"), central, true);
    Label11_1 = scoreLabel(QStringLiteral("von"), central);
    Label9 = scoreLabel(QStringLiteral("0"), central, true);
    const auto group = [&](std::initializer_list<QLabel *> labels) {
        for (QLabel *label : labels)
            top->addWidget(label);
        top->addSpacing(18);
    };
    group({Label5, Label6});
    group({Label3, Label10, Label8, Label12});
    group({Label4, Label7, Label11_1, Label9});
    page->addLayout(top);

    // The questions, one below the other as they are shown; the button explanation follows.
    for (int k = 0; k < kTestQuestionCount; ++k) {
        Frame1[static_cast<std::size_t>(k)] = buildQuestion(k, central);
        page->addWidget(Frame1[static_cast<std::size_t>(k)]);
        Frame1[static_cast<std::size_t>(k)]->setVisible(k == 0);
    }
    auto *explanationRow = new QHBoxLayout;
    Image1 = new Picture(explanationHtml(), central);
    Image1->setObjectName(QStringLiteral("Image1"));
    explanationRow->addWidget(Image1);
    explanationRow->addStretch(1);
    page->addLayout(explanationRow);
    page->addStretch(1);

    // Instruction or grade, hint, and the buttons.
    auto *bottom = new QGridLayout;
    bottom->setHorizontalSpacing(8);
    Label17 = new CaptionLabel(kTestInstruction, central);
    Label17->setFrameShape(QFrame::Box);
    Label17->setMargin(4);
    bottom->addWidget(Label17, 0, 0, 2, 1, Qt::AlignLeft | Qt::AlignBottom);
    auto *result = new QVBoxLayout;
    result->setSpacing(6);
    Label15 = new QLabel(central);
    Label15->setObjectName(QStringLiteral("Label15"));
    QFont gradeFont = Label15->font();
    gradeFont.setPointSize(18);
    gradeFont.setBold(true);
    Label15->setFont(gradeFont);
    Label15->setStyleSheet(QStringLiteral("color: #1a3f8a;"));
    Label15->hide();
    result->addWidget(Label15);
    Command7 = new QPushButton(QStringLiteral("Ausdrucken und Lernprogramm beenden"), central);
    Command7->setMinimumHeight(40);
    Command7->hide();
    result->addWidget(Command7);
    // Instruction and result share their place: the one goes when the other comes.
    bottom->addLayout(result, 0, 0, 2, 1, Qt::AlignLeft | Qt::AlignBottom);
    Label21 = new QLabel(QStringLiteral("Erklärung der Buttons ein- und ausschalten: Menü: "
                                        "Ansicht / Erklärung Steuerbuttons"),
                         central);
    Label21->setStyleSheet(QStringLiteral("color: #1a3f8a;"));
    Label21->hide();
    bottom->addWidget(Label21, 0, 1, 1, 1, Qt::AlignRight);

    auto *buttons = new QHBoxLayout;
    Command2 = new QPushButton(QStringLiteral("<<"), central);
    Command2->setAccessibleName(QStringLiteral("Zurück zu Seite 10 (<<)"));
    Command2->setToolTip(QStringLiteral("Zurück zu Seite 10"));
    Command2->setMinimumSize(50, 50);
    Command4 = pictureButton(QStringLiteral(":/button-repeat.svg"),
                             QStringLiteral("Test neu beginnen"), central);
    Command5 =
        pictureButton(QStringLiteral(":/button-grade.svg"), QStringLiteral("Zensierung"), central);
    Command1 = pictureButton(QStringLiteral(":/button-next.svg"),
                             QStringLiteral("Weiter zur Schlussseite"), central);
    Command3 =
        pictureButton(QStringLiteral(":/button-end.svg"), QStringLiteral("Beenden"), central);
    for (QPushButton *b : {Command2, Command4, Command5, Command1})
        buttons->addWidget(b);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3->setObjectName(QStringLiteral("Command3"));
    Command4->setObjectName(QStringLiteral("Command4"));
    Command5->setObjectName(QStringLiteral("Command5"));
    Command7->setObjectName(QStringLiteral("Command7"));
    buttons->addSpacing(12);
    buttons->addWidget(Command3);
    bottom->addLayout(buttons, 1, 1, Qt::AlignRight);
    bottom->setColumnStretch(0, 1);
    page->addLayout(bottom);

    setActive(Command1, false);
    setActive(Command4, false);
    setActive(Command5, false);
    setActive(Command3, true);

    exitFrame = PageFrame::buildExitFrame(central);
    overview = PageFrame::buildOverview(central);
    for (std::size_t i = 0; i < overview.lines.size(); ++i)
        overview.lines[i]->setObjectName(QStringLiteral("Label20_%1").arg(i));

    Timer1 = new QTimer(this);
    Timer1->setInterval(kHalfChangeMs);
    Timer2 = new QTimer(this);
    Timer2->setInterval(kExplanationMs);
    Timer3 = new QTimer(this);
    Timer3->setInterval(kExplanationMs);

    connect(Command1, &QPushButton::clicked, this, &Qel11::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &Qel11::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &Qel11::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &Qel11::Command4_Click);
    connect(Command5, &QPushButton::clicked, this, &Qel11::Command5_Click);
    connect(Command7, &QPushButton::clicked, this, &Qel11::Command7_Click);
    connect(overview.Command6, &QPushButton::clicked, this, &Qel11::Command6_Click);
    connect(exitFrame.Command10, &QPushButton::clicked, this, &Qel11::Command10_Click);
    connect(exitFrame.Command11, &QPushButton::clicked, this, &Qel11::Command11_Click);
    connect(exitFrame.Command12, &QPushButton::clicked, this, &Qel11::Command12_Click);
    for (std::size_t i = 0; i < overview.lines.size(); ++i) {
        connect(overview.lines[i], &QPushButton::clicked, this,
                [this, i] { Label20_Click(static_cast<int>(i)); });
    }
    connect(Timer1, &QTimer::timeout, this, &Qel11::Timer1_Timer);
    connect(Timer2, &QTimer::timeout, this, &Qel11::Timer2_Timer);
    connect(Timer3, &QTimer::timeout, this, &Qel11::Timer3_Timer);
    PageFrame::connectCheckEntry(menus.mnuSteuer, this, [this] { mnuSteuer_Click(); });
    connect(menus.mnuWo, &QAction::triggered, this, &Qel11::mnuWo_Click);
}

void Qel11::Form_Load() {
    for (TempPos = 0; TempPos <= 39; ++TempPos)
        Option1[static_cast<std::size_t>(TempPos)]->setChecked(false);
    TestCorrectCount = 0;
    TestAnsweredCount = 0;
    LastClickScore = 0;
    QuestionTries = 0;
    Timer2->start();
}

void Qel11::Form_Activate() {
    FileName = QStringLiteral("StartQelB.txt");
    StartFilePath = TextFiles::programmePath(FileName);
    FileName = QStringLiteral("ZensurQel.txt");
    GradeFilePath = TextFiles::programmePath(FileName);
    FileName = QStringLiteral("TestergebnisQel.doc");
    ResultFilePath = TextFiles::programmePath(FileName);
    CurrentPage = 11;
    QuestionHeaderWritten = 0;
}

void Qel11::Option1_Click(int Index) {
    if (Index < 0 || Index >= kTestOptionCount)
        return;
    const auto i = static_cast<std::size_t>(Index);
    const int k = Index / 4;
    const auto q = static_cast<std::size_t>(k);

    // The click that creates the log runs from there on under the resume-next policy.
    std::optional<ResultLog::ResumeNext> resumeNext;

    Label16[i]->setVisible(true);
    if (isRightOption(Index)) {
        LastClickScore = 1;
        QuestionTries += 1;
        TestCorrectCount += 1;
        TestAnsweredCount += 1;
        if (k == 0 && QuestionHeaderWritten != 1) {
            resumeNext.emplace();
            ResultLog::create(ResultFilePath);
            ResultLog::writeFileHeading();
        }
        if (QuestionHeaderWritten != 1)
            ResultLog::writeQuestionHeading(Frame1[q]->title(), Label2[q]->caption());
        ResultLog::writeClickLine(Option1[i]->text(), Label16[i]->text());
        ResultLog::writeEmptyLine();
        if (k == 9) {
            // A question 10 that had wrong clicks gets a second empty line.
            if (QuestionHeaderWritten == 1)
                ResultLog::writeEmptyLine();
            ResultLog::writeTotals(TestCorrectCount, TestAnsweredCount);
            ResultLog::writeDateLine();
        }
        QuestionHeaderWritten = 0;
        if (k == 0) {
            setActive(Command4, true);
        } else if (k == 1) {
            Image1->setVisible(false);
            menus.mnuSteuer->setChecked(false);
        } else if (k == 4) {
            Timer1->start();
        }
    } else {
        LastClickScore = 0;
        QuestionTries += 1;
        TestAnsweredCount += 1;
        if (k == 0 && QuestionHeaderWritten != 1) {
            resumeNext.emplace();
            ResultLog::create(ResultFilePath);
            ResultLog::writeFileHeading();
        }
        if (QuestionHeaderWritten != 1)
            ResultLog::writeQuestionHeading(Frame1[q]->title(), Label2[q]->caption());
        ResultLog::writeClickLine(Option1[i]->text(), Label16[i]->text());
        QuestionHeaderWritten = 1;
    }

    Label6->setText(QString::number(k + 1));
    Label10->setText(QString::number(LastClickScore));
    Label12->setText(QString::number(QuestionTries));
    Label7->setText(QString::number(TestCorrectCount));
    Label9->setText(QString::number(TestAnsweredCount));
    Label14[i]->setVisible(true);

    const bool right = Label16[i]->text() == QStringLiteral("Richtig");
    if (right && k < 9) {
        Frame1[q]->setEnabled(false);
        if (k != 4)
            Frame1[q + 1]->setVisible(true);
        QuestionTries = 0;
    }
    if (right && k == 9) {
        Frame1[9]->setEnabled(false);
        setActive(Command1, true);
        setActive(Command5, true);
        setActive(Command4, true);
        Command5->setFocus();
        Command7->setVisible(true);
        Label17->setVisible(false);
        ResultLog::close();
    }
}

void Qel11::Command1_Click() {
    Screens::show(ScreenId::Qel50);
    Screens::unload(this);
}

void Qel11::Command2_Click() {
    Screens::show(ScreenId::Qel10);
    Screens::unload(this);
}

void Qel11::Command3_Click() {
    exitFrame.Frame10->show();
    exitFrame.Picture10->show();
}

void Qel11::Command4_Click() {
    Screens::unload(this);
    Screens::show(ScreenId::Qel11);
}

void Qel11::Command5_Click() {
    if (Seams::askYesNo(QStringLiteral("Punkttabelle anzeigen bzw. ändern?"),
                        QStringLiteral("Punktetabelle für Zensierung"))) {
        Screens::show(ScreenId::QelZens);
    } else {
        GradeTest();
        menus.mnuSteuer->setChecked(false);
        Image1->setVisible(false);
    }
}

void Qel11::Command6_Click() {
    overview.Shape6->hide();
    overview.Frame2->hide();
}

void Qel11::Command7_Click() {
    const QStringList lines = Printing::readLines(ResultFilePath);
    Printing::printLines(lines);
    Screens::endProgramme();
}

void Qel11::Command10_Click() {
    CurrentPage = 50;
    QuotedItemFile file(StartFilePath);
    file.write(QString::number(CurrentPage));
    file.write(0);
    file.close();
    Screens::endProgramme();
}

void Qel11::Command11_Click() {
    QuotedItemFile file(StartFilePath);
    file.write(QString::number(CurrentPage));
    file.write(FinalResumeValue);
    file.close();
    Screens::endProgramme();
}

void Qel11::Command12_Click() {
    exitFrame.Frame10->hide();
    exitFrame.Picture10->hide();
    Command3->setFocus();
}

void Qel11::Label20_Click(int Index) {
    Screens::unload(this);
    if (Index >= 0 && Index <= 10)
        Screens::show(pageScreen(Index + 1));
}

void Qel11::mnuSteuer_Click() {
    if (menus.mnuSteuer->isChecked()) {
        Image1->setVisible(false);
        menus.mnuSteuer->setChecked(false);
    } else {
        Image1->setVisible(true);
        menus.mnuSteuer->setChecked(true);
    }
}

void Qel11::mnuWo_Click() {
    overview.Shape6->show();
    overview.Frame2->show();
}

void Qel11::Timer1_Timer() {
    Frame1[5]->setVisible(true);
    for (std::size_t k = 0; k <= 4; ++k)
        Frame1[k]->setVisible(false);
    Timer1->stop();
}

void Qel11::Timer2_Timer() {
    menus.mnuSteuer->setChecked(false);
    Image1->setVisible(false);
    Label21->setVisible(true);
    Timer3->start();
    Timer2->stop();
}

void Qel11::Timer3_Timer() {
    Label21->setVisible(false);
    Timer3->stop();
}

void registerFinalTestScreens() {
    Screens::registerScreen(ScreenId::Qel11, [] { return new Qel11; });
    Screens::registerScreen(ScreenId::QelZens, [] { return new QelZens; });
}
