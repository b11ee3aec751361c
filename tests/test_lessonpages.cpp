// SPDX-License-Identifier: GPL-3.0-or-later
// The ten lesson pages as a pupil works them: every letter of every question, typing and trying
// again, the pace note, menu switches, overview, exit frame, picture texts, the run to the end.
#include "captionlabel.h"
#include "course.h"
#include "lessonpage.h"
#include "picture.h"
#include "questionbank.h"
#include "screens.h"
#include "testsupport.h"
#include "theme.h"

#include <QAction>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// The scoring letters of each page's five questions.
// clang-format off
const char *const kScoring[10][5] = {
    {"C", "B", "A", "A", "A"}, {"C", "C", "B", "A", "A"}, {"B", "B", "A", "C", "C"},
    {"C", "A", "C", "A", "B"}, {"BC", "C", "A", "C", "C"}, {"A", "B", "B", "C", "C"},
    {"C", "A", "B", "A", "B"}, {"C", "A", "BC", "B", "B"}, {"A", "C", "B", "B", "C"},
    {"BC", "B", "A", "A", "C"}};
// clang-format on

// Opens a page at 10:00:00 on the test clock.
LessonPage *openPage(TestProgramme &prog, int page) {
    prog.setTime(10 * 3600);
    return Screens::show<LessonPage>(pageScreen(page));
}

// Types the letter as a pupil does, after a pause long enough not to be thought hasty.
void type(TestProgramme &prog, LessonPage *page, const QString &letter) {
    prog.advance(10);
    QTest::keyClicks(page->answerEdit, letter);
}

QString rightLetter(int page, int question) {
    return QString(QLatin1Char(kScoring[page - 1][question - 1][0]));
}

// Answers the questions before `question` right and moves on with the next-question button.
void goToQuestion(TestProgramme &prog, LessonPage *page, int question) {
    for (int q = 1; q < question; ++q) {
        type(prog, page, rightLetter(page->info().number, q));
        QTest::mouseClick(page->nextQuestionButton, Qt::LeftButton);
    }
}

template <class Pictures> QList<int> visible(const Pictures &pictures) {
    QList<int> shown;
    for (int i = 0; i < int(pictures.size()); ++i)
        if (!pictures[i]->isHidden())
            shown.append(i);
    return shown;
}

// The verdict a feedback picture opens with; "Unvollständig und deshalb falsch!" counts as
// "Falsch!".
QString verdict(const QString &text) {
    if (text.startsWith(u"Richtig!"))
        return u"Richtig!"_s;
    if (text.startsWith(u"Falsch!") || text.startsWith(u"Unvollständig und deshalb falsch!"))
        return u"Falsch!"_s;
    return {};
}

bool lightGreyAndEnabled(const QPushButton *b) {
    return b->isEnabled() && b->palette().color(QPalette::Button) == QColor(224, 224, 224);
}

} // namespace

class TestLessonPages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        registerLessonPages();
        registerProbes(
            {{ScreenId::ControlCentre, u"Steuerzentrum"_s}, {ScreenId::FinalTest, u"Qel11"_s}});
    }

    void letters_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("question");
        QTest::addColumn<QChar>("letter");
        for (int page = 1; page <= 10; ++page)
            for (int q = 1; q <= 5; ++q)
                for (char l : {'A', 'B', 'C'})
                    QTest::addRow("page %d question %d %c", page, q, l)
                        << page << q << QChar(QLatin1Char(l));
    }

    // Every letter of every question: the verdict of the picture shown, the point, the step buttons
    // and the focus, the points display and where a click into the answer field then sends the
    // focus.
    void letters() {
        QFETCH(int, page);
        QFETCH(int, question);
        QFETCH(QChar, letter);
        const bool scores =
            QByteArray(kScoring[page - 1][question - 1]).contains(letter.toLatin1());
        // Two scoring answers show an explanation without a verdict line: 21 B and 46 C.
        const bool noVerdict = (page == 5 && question == 1 && letter == u'B') ||
                               (page == 10 && question == 1 && letter == u'C');

        TestProgramme prog;
        LessonPage *p = openPage(prog, page);
        goToQuestion(prog, p, question);
        QCOMPARE(visible(p->questionPictures), QList<int>{question - 1});
        QCOMPARE(visible(p->optionPictures), QList<int>{question - 1});

        type(prog, p, letter.toLower());

        QCOMPARE(p->answerEdit->text(), QString(letter));
        const QList<int> shown = visible(p->feedbackPictures);
        QCOMPARE(shown.size(), 1);
        const QString text = p->feedbackPictures.at(shown[0])->plainText();
        QVERIFY2(verdict(text) == (!scores     ? u"Falsch!"_s
                                   : noVerdict ? QString()
                                               : u"Richtig!"_s),
                 qPrintable(text));
        QCOMPARE(p->pointsLabel->text(), u" %1 von %2"_s.arg(question - 1 + scores).arg(question));
        QCOMPARE(p->nextQuestionButton->isEnabled(), scores);
        QCOMPARE(p->retryButton->isEnabled(), !scores);
        QCOMPARE(p->focusWidget(), scores ? p->nextQuestionButton : p->retryButton);
        QCOMPARE(int(course.answerCorrectFlag), !scores ? 0 : page == 6 && question == 4 ? 10 : 1);

        // A click into the answer field sends the focus to the button of the verdict. Page 8's
        // scoring C of question 38 sends it to "try again", which is off: it stays in the field.
        QWidget *expected = !scores ? p->retryButton : p->nextQuestionButton;
        if (page == 8 && question == 3 && letter == u'C')
            expected = p->answerEdit;
        p->answerEdit->setFocus();
        QTest::mouseClick(p->answerEdit, Qt::LeftButton);
        QCOMPARE(p->focusWidget(), expected);
    }

    void pageRules_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("blanks");
        QTest::addColumn<QByteArray>("saved"); // StartQelB.txt after "hier weiterarbeiten"
        for (int page = 1; page <= 10; ++page) {
            QTest::addRow("page %d", page)
                << page << (page == 10 ? 114 : 116)
                << (page == 1 ? QByteArray("\"1\"\r\n1\r\n2\r\n")
                              : "\"" + QByteArray::number(page) + "\"\r\n");
        }
    }

    // What a page shows at first and what differs between pages: ">>" and "<<", caption, counts at
    // load, timers, texts, the hide loops of "try again" and "next question", and what "hier
    // weiterarbeiten" saves after one wrong and one right answer.
    void pageRules() {
        QFETCH(int, page);
        QFETCH(int, blanks);
        QFETCH(QByteArray, saved);
        const bool first = page == 1;

        TestProgramme prog;
        // ">>" opens the next screen and unloads the page; "<<" from a fresh copy the previous one.
        QTest::mouseClick(openPage(prog, page)->nextPageButton, Qt::LeftButton);
        QVERIFY(Screens::loaded(pageScreen(page + 1)) && !Screens::loaded(pageScreen(page)));
        settle();
        QTest::mouseClick(openPage(prog, page)->previousPageButton, Qt::LeftButton);
        QVERIFY(Screens::loaded(first ? ScreenId::ControlCentre : pageScreen(page - 1)) &&
                !Screens::loaded(pageScreen(page)));
        settle();

        course.correctCount = 7;
        course.answeredCount = 9;
        LessonPage *p = openPage(prog, page);
        QCOMPARE(p->windowTitle(), u"Kelvora"_s + QString(blanks, u' ') + u"Seite %1"_s.arg(page));
        QCOMPARE(p->pointsLabel->text(), first ? u" 0 von 0"_s : u" 7 von 9"_s);
        QVERIFY(p->paceNote->isHidden() && !p->paceTimer->isActive() && p->exitFrame->isHidden());
        QVERIFY(!p->nextQuestionButton->isEnabled() && !p->retryButton->isEnabled());
        QCOMPARE(p->optionsHeading->text(), u"Auswahl-\nAntworten:"_s);
        QCOMPARE(p->paceNote->text(),
                 u"Hinweis:\nDamit du dir bei diesem Lernprogramm viel merken kannst, ist es "
                 u"notwendig, dass  du dir die Fragen gründlich durchliest, bevor du sie "
                 u"beantwortest.\n\nDu arbeitest also zu hastig!"_s);
        QCOMPARE(p->answerEdit->accessibleName(), u"Antwort"_s);
        for (QPushButton *button : {p->nextQuestionButton, p->retryButton, p->endButton}) {
            QVERIFY(!button->icon().isNull());
            QCOMPARE(button->toolTip(), button->accessibleName());
        }
        QCOMPARE(p->nextQuestionButton->accessibleName() + u'|' + p->retryButton->accessibleName() +
                     u'|' + p->endButton->accessibleName(),
                 u"Nächste Frage|Aufgabe wiederholen|Beenden"_s);
        // A click into the empty answer field leaves the focus there.
        p->answerEdit->setFocus();
        QTest::mouseClick(p->answerEdit, Qt::LeftButton);
        QCOMPARE(p->focusWidget(), p->answerEdit);

        // Page 1 alone introduces the control buttons with two timers and a hint label.
        QCOMPARE(p->findChildren<QTimer *>().size(), first ? 3 : 1);
        QCOMPARE(p->explanationHint != nullptr, first);
        if (first)
            QCOMPARE(p->explanationHint->text(), u"Erklärung der Buttons ein- und ausschalten: "
                                                 u"Menü: Ansicht / Erklärung Steuerbuttons"_s);

        // Five numbered questions with three options, the last two pictures for bad input, a
        // closing line for every wrong answer, and the button line on pages 1 and 2 only.
        const QRegularExpression options(u"^(.+ )?A\\) .+ B\\) .+ C\\) .+$"_s);
        for (int q = 0; q < 5; ++q) {
            QVERIFY(
                p->questionPictures[q]->plainText().startsWith(u"%1. "_s.arg(page * 5 - 4 + q)));
            QVERIFY(options.match(p->optionPictures[q]->plainText()).hasMatch());
        }
        const QString closing = page <= 2 ? u"Antworte noch einmal. (Schaltknopf "
                                            u"„Aufgabe wiederholen“ )"_s
                                          : u"Antworte noch einmal."_s;
        const int inputErrors = int(p->feedbackPictures.size()) - 2;
        QCOMPARE(p->feedbackPictures.at(inputErrors)->plainText(),
                 u"Du hast vergessen, etwas einzugeben. "_s + closing);
        QCOMPARE(p->feedbackPictures.at(inputErrors + 1)->plainText(),
                 u"Falsch! Du darfst nur mit A, B oder C (oder a, b oder c) antworten. "_s +
                     closing);

        // Every picture an answer shows: "Richtig!" pictures never ask again, "Falsch!" pictures do
        // (bar page 2's question 10), and only pages 1 and 2 name the repeat button.
        for (int i = 0; i < inputErrors; ++i) {
            const QString text = p->feedbackPictures.at(i)->plainText();
            QVERIFY2(!text.isEmpty(), qPrintable(QString::number(i)));
            if (text.startsWith(u"Richtig!"))
                QVERIFY2(!text.contains(u"Antworte noch einmal."), qPrintable(text));
            if (text.startsWith(u"Falsch!") && !(page == 2 && i >= 13))
                QVERIFY2(text.endsWith(closing), qPrintable(text));
            QCOMPARE(text.contains(u"Schaltknopf"),
                     page <= 2 && text.contains(u"Antworte noch einmal."));
        }

        // With every picture up to the highest index shown, "try again" and "next question" hide
        // all.
        const QString right = rightLetter(page, 1);
        type(prog, p, right == u"A" ? u"B"_s : u"A"_s);
        for (Picture *picture : p->feedbackPictures)
            picture->show();
        QTest::mouseClick(p->retryButton, Qt::LeftButton);
        QCOMPARE(visible(p->feedbackPictures), QList<int>());
        type(prog, p, right);
        for (Picture *picture : p->feedbackPictures)
            picture->show();
        QTest::mouseClick(p->nextQuestionButton, Qt::LeftButton);
        QCOMPARE(visible(p->feedbackPictures), QList<int>());

        QTest::mouseClick(p->endButton, Qt::LeftButton);
        QVERIFY(!p->exitFrame->isHidden());
        QTest::mouseClick(p->resumeButton, Qt::LeftButton);
        QVERIFY(Screens::programmeEnded());
        QCOMPARE(prog.read(u"StartQelB.txt"_s), saved);
    }

    void typedLetters_data() {
        QTest::addColumn<QString>("typed"); // "!" stands for the try-again button
        QTest::addColumn<QString>("field");
        QTest::addColumn<QList<int>>("pictures");
        QTest::addColumn<QString>("points");
        QTest::addColumn<bool>("again"); // try-again button on
        const auto row = [](const char *typed, const char *field, const QList<int> &pictures,
                            const char *points, bool again) {
            QTest::newRow(typed) << QString::fromLatin1(typed) << QString::fromLatin1(field)
                                 << pictures << QString::fromLatin1(points) << again;
        };
        row("A", "A", {0}, " 0 von 1", true);
        row("b", "B", {1}, " 0 von 1", true);
        row("C", "C", {2}, " 1 von 1", false);
        row(" ", "", {}, " 0 von 0", false);
        row("d", "", {}, " 0 von 0", false);
        row("xc", "C", {2}, " 1 von 1", false);
        row("abc", "C", {0}, " 0 von 1", true); // letters over a verdict are not evaluated again
        row("a!", "", {}, " 0 von 1", false);
        row("a!b!c", "C", {2}, " 1 von 3", false);
    }

    // Page 1's first question typed into, with and without trying again.
    void typedLetters() {
        QFETCH(QString, typed);
        QFETCH(QString, field);
        QFETCH(QList<int>, pictures);
        QFETCH(QString, points);
        QFETCH(bool, again);
        TestProgramme prog;
        LessonPage *page = openPage(prog, 1);
        const QStringList tries = typed.split(u'!');
        for (qsizetype i = 0; i < tries.size(); ++i) {
            if (i > 0)
                QTest::mouseClick(page->retryButton, Qt::LeftButton);
            prog.advance(1);
            QTest::keyClicks(page->answerEdit, tries[i]);
        }
        QCOMPARE(page->answerEdit->text(), field);
        QCOMPARE(visible(page->feedbackPictures), pictures);
        QCOMPARE(page->pointsLabel->text(), points);
        QCOMPARE(lightGreyAndEnabled(page->retryButton), again);
        if (typed.endsWith(u'!'))
            QCOMPARE(page->focusWidget(), page->answerEdit);
        QCOMPARE(course.questionStartTime,
                 36000); // a new try does not restart the question's clock
    }

    void paceNote_data() {
        QTest::addColumn<int>("question");
        QTest::addColumn<double>("after");
        QTest::addColumn<bool>("tooFast");
        QTest::addRow("first question at 8.9 s") << 1 << 8.9 << true;
        QTest::addRow("first question at 9 s") << 1 << 9.0 << false;
        QTest::addRow("second question at 4.9 s") << 2 << 4.9 << true;
        QTest::addRow("second question at 5 s") << 2 << 5.0 << false;
    }

    // A verdict sooner than 9 seconds into the first question or 5 into a later one shows the pace
    // note and locks the page buttons until Timer1 ticks; Timer1 keeps running afterwards.
    void paceNote() {
        QFETCH(int, question);
        QFETCH(double, after);
        QFETCH(bool, tooFast);
        TestProgramme prog;
        LessonPage *page = openPage(prog, 1);
        goToQuestion(prog, page, question);
        prog.advance(after);
        QTest::keyClicks(page->answerEdit, u"b"_s);
        QCOMPARE(visible(page->feedbackPictures).size(), 1); // the verdict comes either way
        QCOMPARE(!page->paceNote->isHidden(), tooFast);
        QCOMPARE(page->paceTimer->isActive(), tooFast);
        QCOMPARE(page->previousPageButton->isEnabled(), !tooFast);
        QCOMPARE(page->nextPageButton->isEnabled(), !tooFast);
        QCOMPARE(page->endButton->isEnabled(), !tooFast);
        if (!tooFast)
            return;
        QCOMPARE(page->endButton->palette().color(QPalette::Button), Theme::buttonFace());
        fireTimer(page->paceTimer);
        QVERIFY(page->paceNote->isHidden());
        QVERIFY(page->previousPageButton->isEnabled() && page->nextPageButton->isEnabled());
        QVERIFY(lightGreyAndEnabled(page->endButton));
        QVERIFY(page->paceTimer->isActive());
    }

    // The button explanation: shown at first, withdrawn by its timer with a hint until the next
    // timer, switched by its menu entry, and withdrawn for good by a right answer to question 2.
    // The points are switched by theirs.
    void menuSwitches() {
        TestProgramme prog;
        LessonPage *page = openPage(prog, 1);
        QVERIFY(page->explanationTimer->isActive() && !page->explanationPicture->isHidden());
        fireTimer(page->explanationTimer);
        QVERIFY(page->explanationPicture->isHidden() && !page->explanationEntry->isChecked());
        QVERIFY(!page->explanationHint->isHidden() && page->hintTimer->isActive());
        QVERIFY(!page->explanationTimer->isActive());
        fireTimer(page->hintTimer);
        QVERIFY(page->explanationHint->isHidden() && !page->hintTimer->isActive());

        page->explanationEntry->trigger();
        QVERIFY(!page->explanationPicture->isHidden() && page->explanationEntry->isChecked());
        page->explanationEntry->trigger();
        QVERIFY(page->explanationPicture->isHidden() && !page->explanationEntry->isChecked());

        page->explanationEntry->trigger();
        page->pointsEntry->trigger();
        QVERIFY(page->pointsHeading->isHidden() && page->pointsLabel->isHidden());
        QVERIFY(!page->pointsEntry->isChecked());
        goToQuestion(prog, page, 2);
        QTest::keyClicks(page->answerEdit, u"a"_s);
        QTest::mouseClick(page->retryButton, Qt::LeftButton);
        QVERIFY(!page->explanationPicture->isHidden() && page->explanationEntry->isChecked());
        QTest::keyClicks(page->answerEdit, u"b"_s);
        QVERIFY(page->explanationPicture->isHidden() && !page->explanationEntry->isChecked());
        page->pointsEntry->trigger();
        QVERIFY(!page->pointsHeading->isHidden() && !page->pointsLabel->isHidden());
        QVERIFY(page->pointsEntry->isChecked());
        QCOMPARE(page->pointsLabel->text(), u" 2 von 3"_s);
    }

    void overview_data() {
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("opened");
        QTest::addRow("page 1 stays") << 0 << int(ScreenId::Page1);
        QTest::addRow("page 2") << 1 << int(ScreenId::Page2);
        QTest::addRow("page 11") << 10 << int(ScreenId::FinalTest);
    }

    // A line of the overview unloads the page and opens the chosen one; the line of this very
    // page only closes the overview, and the page keeps its question and its counts.
    void overview() {
        QFETCH(int, line);
        QFETCH(int, opened);
        TestProgramme prog;
        QPointer<LessonPage> page = openPage(prog, 1);
        goToQuestion(prog, page, 2);
        QTest::keyClicks(page->answerEdit, u"a"_s);
        page->overviewEntry->trigger();
        QVERIFY(!page->overviewFrame->isHidden() && !page->overviewBorder->isHidden());
        QCOMPARE(page->overviewLines[0]->text(), u"Seite 1 (Frage 1 -  5)"_s);
        QTest::mouseClick(page->overviewLines[line], Qt::LeftButton);
        settle();
        QCOMPARE(page.isNull(), line != 0);
        QVERIFY(!Screens::programmeEnded());
        QCOMPARE(Screens::activeScreen(), Screens::loaded(ScreenId(opened)));
        if (!page)
            return;
        QCOMPARE(page->pointsLabel->text(), u" 1 von 2"_s);
        QVERIFY(!page->questionPictures[1]->isHidden() && !page->feedbackPictures[3]->isHidden());
        QVERIFY(page->overviewFrame->isHidden() && page->overviewBorder->isHidden());
        QTest::mouseClick(page->retryButton, Qt::LeftButton);
        page->overviewEntry->trigger();
        QTest::mouseClick(page->overviewCloseButton, Qt::LeftButton);
        QVERIFY(page->overviewFrame->isHidden() && page->overviewBorder->isHidden());
        QCOMPARE(page->focusWidget(), page->answerEdit);
    }

    void exitFrame_data() {
        QTest::addColumn<bool>("resumeHere");
        QTest::addColumn<bool>("writable");
        QTest::addColumn<QByteArray>("expected");
        QTest::addRow("hier weiterarbeiten") << true << true << QByteArray("\"1\"\r\n1\r\n1\r\n");
        QTest::addRow("von vorn beginnen") << false << true << QByteArray("\"50\"\r\n");
        QTest::addRow("hier weiterarbeiten, folder gone") << true << false << QByteArray();
        QTest::addRow("von vorn beginnen, folder gone") << false << false << QByteArray();
    }

    // "Ich möchte nicht beenden" closes the frame without saving; the other two save and end the
    // programme.
    void exitFrame() {
        QFETCH(bool, resumeHere);
        QFETCH(bool, writable);
        QFETCH(QByteArray, expected);
        TestProgramme prog;
        LessonPage *page = openPage(prog, 1);
        QTest::mouseClick(page->endButton, Qt::LeftButton);
        QVERIFY(!page->exitFrame->isHidden() && !page->exitCover->isHidden());
        QTest::mouseClick(page->stayButton, Qt::LeftButton);
        QVERIFY(page->exitFrame->isHidden() && page->exitCover->isHidden());
        QCOMPARE(page->focusWidget(), page->answerEdit);
        type(prog, page, u"c"_s);
        QTest::mouseClick(page->endButton, Qt::LeftButton);
        QTest::mouseClick(page->stayButton, Qt::LeftButton);
        QCOMPARE(page->focusWidget(), page->endButton);
        QVERIFY(prog.read(u"StartQelB.txt"_s).isNull());
        QVERIFY(!Screens::programmeEnded());

        if (!writable)
            course.startFilePath = prog.path(u"gone/StartQelB.txt"_s);
        QTest::mouseClick(page->endButton, Qt::LeftButton);
        QTest::mouseClick(resumeHere ? page->resumeButton : page->restartButton, Qt::LeftButton);
        QVERIFY(Screens::programmeEnded());
        QVERIFY(!Screens::anyLoaded());
        QCOMPARE(prog.read(u"StartQelB.txt"_s), expected);
    }

    void pictureTexts_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("picture"); // Image1_<question>, Image2_<question>, Image3_<n>
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("markup"); // a piece of the picture's rich text, or empty

        const auto row = [](const char *name, int page, const char *picture, const char16_t *text,
                            const char *markup = "") {
            QTest::newRow(name) << page << QString::fromLatin1(picture) << QString::fromUtf16(text)
                                << QString::fromUtf8(markup);
        };
        row("question 3 A names the repeat button", 1, "Image3_6",
            u"Falsch! Antworte noch einmal. (Schaltknopf „Aufgabe wiederholen“ )",
            ":/button-repeat.svg");
        row("bebündelt", 6, "Image3_2",
            u"Falsch! Durch die Heizung können die Elektronen nicht bebündelt werden. Antworte "
            u"noch "
            u"einmal.");
        row("Ladungsträgerr", 7, "Image3_4",
            u"Falsch! In p-leitendem Halbleitermaterial sind positive Ladungsträger in der "
            u"Überzahl. "
            u"Um welche Ladungsträgerr handelt es sich? Antworte noch einmal.");
        row("Sperrrichtung", 8, "Image3_0",
            u"Falsch! Die Halbleiterdiode ist in Sperrrichtung gepolt. Antworte noch einmal.");
        row("Sperrichtung", 8, "Image3_2",
            u"Richtig! Die Halbleiterdiode ist in Sperrichtung gepolt und lässt deshalb keinen "
            u"Strom "
            u"fließen.",
            "color:#0a6e1e");
        row("Transisistors", 9, "Image2_0",
            u"A) Das ist das Schaltzeichen eines npn-Transisistors. B) Das ist das Schaltzeichen "
            u"eines "
            u"pnp-Transistors. C) Das ist das Schaltzeichen einer Halbleiterdiode.");
        row("question 42 subscripts", 9, "Image1_1",
            u"42. Vergleiche bei einem Transistor den Basisstrom IB mit dem Kollektorstrom IC.",
            "I<sub>B</sub>");
        row("question 42 comparison signs", 9, "Image2_1", u"A) IB > IC B) IB = IC C) IB < IC",
            "I<sub>C</sub>");
        row("question 47 gain factor", 10, "Image1_1",
            u"47. Wie berechnet man den Stromverstärkungsfaktor β eines Transistors?", "<i>β</i>");
        row("question 50 with its lead-in", 10, "Image2_4",
            u"Sie arbeiten als A) als Verstärker B) als Gleichrichter C) als Schalter");
    }

    // Texts of single pictures as the page shows them and a screen reader reads them, slips of the
    // pen included.
    void pictureTexts() {
        QFETCH(int, page);
        QFETCH(QString, picture);
        QFETCH(QString, text);
        QFETCH(QString, markup);
        TestProgramme prog;
        const Picture *shown = openPage(prog, page)->findChild<Picture *>(picture);
        QVERIFY(shown);
        QCOMPARE(shown->plainText(), text);
        QCOMPARE(shown->accessibleName(), text);
        QVERIFY2(shown->html().contains(markup), qPrintable(shown->html()));
    }

    void drawings_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("question");
        QTest::addColumn<QString>("text");
        QTest::newRow("diode in a circuit")
            << 8 << 1 << u"36. Fließt Strom durch die abgebildete Halbleiterdiode?"_s;
        QTest::newRow("two lamps") << 8 << 4 << u"39. Welche Lampe leuchtet?"_s;
        QTest::newRow("transistor symbol") << 9 << 1 << u"41. Was zeigt das Bild?"_s;
    }

    // The three drawn questions: the drawing is painted on the page, at a readable size, and a
    // screen reader hears the question together with the description of the drawing.
    void drawings() {
        QFETCH(int, page);
        QFETCH(int, question);
        QFETCH(QString, text);
        TestProgramme prog;
        LessonPage *p = openPage(prog, page);
        goToQuestion(prog, p, question);
        Picture *picture = p->questionPictures[question - 1];
        QCOMPARE(picture->accessibleName(),
                 text + u' ' + pageBank(page).questions[question - 1].drawingDescription);

        p->show();
        QVERIFY(QTest::qWaitForWindowExposed(p));
        auto *view = picture->findChild<SvgView *>();
        QVERIFY(view);
        QVERIFY(view->height() >= 72 && view->height() <= 110);
        QVERIFY(p->height() <= 600);
        const QImage image = view->grab().toImage();
        int dark = 0;
        for (int i = 0; i < image.width() * image.height(); ++i)
            dark += qGray(image.pixel(i % image.width(), i / image.width())) < 96 ? 1 : 0;
        QVERIFY2(dark > 400, qPrintable(QString::number(dark)));
    }

    // Every question answered right, page after page: each step clears the way for the next one,
    // the counts run on, only page 1 withdraws the button explanation, page 10 leads to the final
    // test.
    void runThroughAllPages() {
        TestProgramme prog;
        LessonPage *p = openPage(prog, 1);
        for (int page = 1; page <= 10; ++page) {
            QVERIFY(p);
            QCOMPARE(p->pointsLabel->text(), u" %1 von %1"_s.arg((page - 1) * 5));
            for (int q = 1; q <= 5; ++q) {
                type(prog, p, rightLetter(page, q));
                if (q == 5)
                    QCOMPARE(p->explanationPicture->isHidden(), page == 1);
                QTest::mouseClick(p->nextQuestionButton, Qt::LeftButton);
                if (q < 5) {
                    QVERIFY(!p->nextQuestionButton->isEnabled());
                    QCOMPARE(p->focusWidget(), p->answerEdit);
                }
            }
            QVERIFY(!Screens::loaded(pageScreen(page)));
            settle();
            if (page < 10)
                p = Screens::loaded<LessonPage>(pageScreen(page + 1));
        }
        QVERIFY(Screens::loaded(ScreenId::FinalTest) &&
                Screens::activeScreen() == Screens::loaded(ScreenId::FinalTest));
        QCOMPARE(int(course.correctCount), 50);
        QCOMPARE(int(course.answeredCount), 50);
    }
};

QTEST_MAIN(TestLessonPages)
#include "test_lessonpages.moc"
