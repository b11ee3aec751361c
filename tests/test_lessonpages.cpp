// SPDX-License-Identifier: GPL-3.0-or-later
// The ten lesson pages as a pupil works them: every letter of every question, typing and trying
// again, the pace note, menu switches, overview and exit frame, pictures as they are read.
#include "appearing.h"
#include "captionlabel.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "seams.h"
#include "testsupport.h"
#include "theme.h"

#include <QAccessible>
#include <QAction>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

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
        if (Appearing::isVisible(pictures[i]))
            shown.append(i);
    return shown;
}

bool lightGreyAndEnabled(const QPushButton *b) {
    return b->isEnabled() && b->palette().color(QPalette::Button) == QColor(224, 224, 224);
}

} // namespace

class TestLessonPages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        TestProgramme::screens = registerLessonPages;
        registerProbes({{ScreenId::ControlCentre, u"Steuerzentrum"_s},
                        {ScreenId::FinalTest, u"Qel11"_s},
                        {ScreenId::WorkingMethod, u"ArbWei"_s}});
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
    // and the focus, the points display, where a click into the answer field then sends the focus,
    // and where "Nächste Frage" leads.
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
        // A screen reader says the page and the question with the answer field.
        QVERIFY(p->answerEdit->accessibleDescription().startsWith(
            u"Seite %1. %2. "_s.arg(page).arg(page * 5 - 5 + question)));

        type(prog, p, letter.toLower());

        QCOMPARE(p->answerEdit->text(), QString(letter));
        const QList<int> shown = visible(p->feedbackPictures);
        QCOMPARE(shown.size(), 1);
        for (int i = 0; i < int(p->feedbackPictures.size()); ++i) // a screen reader sees it alone
            QCOMPARE(
                QAccessible::queryAccessibleInterface(p->feedbackPictures.at(i))->state().invisible,
                i != shown[0]);
        // "Unvollständig und deshalb falsch!" counts as "Falsch!".
        const QString text = p->feedbackPictures.at(shown[0])->plainText();
        const bool wrong =
            text.startsWith(u"Falsch!") || text.startsWith(u"Unvollständig und deshalb falsch!");
        QVERIFY2(scores ? text.startsWith(u"Richtig!") != noVerdict && !wrong : wrong,
                 qPrintable(text));
        QCOMPARE(p->pointsLabel->text(), u" %1 von %2"_s.arg(question - 1 + scores).arg(question));
        QCOMPARE(p->nextQuestionButton->isEnabled(), scores);
        QCOMPARE(p->retryButton->isEnabled(), !scores);
        QCOMPARE(p->focusWidget(), scores ? p->nextQuestionButton : p->retryButton);

        // A click into the answer field sends the focus to the button of the verdict, a right
        // click does not. Page 8's scoring C of question 38 sends it to "try again", which is off:
        // it stays in the field.
        QWidget *expected = !scores ? p->retryButton : p->nextQuestionButton;
        if (page == 8 && question == 3 && letter == u'C')
            expected = p->answerEdit;
        p->answerEdit->setFocus();
        QTest::mouseClick(p->answerEdit, Qt::RightButton);
        QCOMPARE(p->focusWidget(), p->answerEdit);
        QTest::mouseClick(p->answerEdit, Qt::LeftButton);
        QCOMPARE(p->focusWidget(), expected);

        // Only page 1 withdraws the button explanation, with a right answer to question 2. After
        // a right answer "Nächste Frage" leads on, after question 5 to the next page.
        const bool withdrawn = page == 1 && (question > 2 || (question == 2 && scores));
        QCOMPARE(p->explanationPicture->isHidden(), withdrawn);
        QCOMPARE(p->explanationEntry->isChecked(), !withdrawn);
        if (!scores)
            return;
        QTest::mouseClick(p->nextQuestionButton, Qt::LeftButton);
        const ScreenId next = pageScreen(question == 5 ? page + 1 : page);
        QVERIFY(Screens::loaded(next) && Screens::activeScreen() == Screens::loaded(next));
        QCOMPARE(Screens::loaded(pageScreen(page)) == nullptr, question == 5);
    }

    void pageRules_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<bool>("restart");     // "von vorn beginnen", else "hier weiterarbeiten"
        QTest::addColumn<bool>("moved");       // the programme folder, before the exit frame
        QTest::addColumn<QByteArray>("saved"); // StartQelB.txt then
        for (int page = 1; page <= 8; ++page)
            QTest::addRow("page %d", page)
                << page << false << false
                << (page == 1 ? QByteArray("\"1\"\r\n1\r\n2\r\n")
                              : "\"" + QByteArray::number(page) + "\"\r\n");
        QTest::addRow("page 9, programme folder moved")
            << 9 << false << true << QByteArray("\"9\"\r\n");
        QTest::addRow("page 10, von vorn beginnen")
            << 10 << true << false << QByteArray("\"50\"\r\n");
    }

    // What differs between pages: the overview reloading the page, the hide loops of "try again"
    // and "next question", and what the exit frame saves after one wrong and one right answer.
    void pageRules() {
        QFETCH(int, page);
        QFETCH(bool, restart);
        QFETCH(bool, moved);
        QFETCH(QByteArray, saved);

        // The line of this page in the overview loads the page afresh at question 1, page 1 with
        // its counts at 0, the others with the counts carried on.
        TestProgramme prog;
        LessonPage *p = openPage(prog, page);
        const QString right = rightLetter(page, 1);
        const QString wrong = right == u"A" ? u"B"_s : u"A"_s;
        type(prog, p, wrong);
        QTest::mouseClick(p->retryButton, Qt::LeftButton);
        goToQuestion(prog, p, 2);
        const QString points = p->pointsLabel->text();
        p->openOverview();
        QTest::mouseClick(p->overview->lines[std::size_t(page - 1)], Qt::LeftButton);
        auto *reloaded = Screens::loaded<LessonPage>(pageScreen(page));
        QVERIFY(reloaded && reloaded != p && reloaded->overview->isHidden());
        settle();
        p = reloaded;
        QCOMPARE(visible(p->questionPictures), QList<int>{0});
        QCOMPARE(p->pointsLabel->text(), page == 1 ? u" 0 von 0"_s : points);

        // With every picture up to the highest index shown, "try again" and "next question" hide
        // all.
        type(prog, p, wrong);
        for (Picture *picture : p->feedbackPictures)
            Appearing::show(picture);
        QTest::mouseClick(p->retryButton, Qt::LeftButton);
        QCOMPARE(visible(p->feedbackPictures), QList<int>());
        type(prog, p, right);
        for (Picture *picture : p->feedbackPictures)
            Appearing::show(picture);
        QTest::mouseClick(p->nextQuestionButton, Qt::LeftButton);
        QCOMPARE(visible(p->feedbackPictures), QList<int>());

        if (moved) { // the file goes where the last activation found the folder
            Seams::setProgrammeFolder([&prog] { return prog.path(u"moved"_s); });
            Screens::show(ScreenId::WorkingMethod);
            Screens::show(pageScreen(page));
        }
        QTest::mouseClick(p->endButton, Qt::LeftButton);
        QTest::mouseClick(restart ? p->exitFrame->restartButton : p->exitFrame->resumeButton,
                          Qt::LeftButton);
        QVERIFY(Screens::programmeEnded() && !Screens::anyLoaded());
        QCOMPARE(prog.read(moved ? u"moved/StartQelB.txt"_s : u"StartQelB.txt"_s), saved);
    }

    void typing_data() {
        QTest::addColumn<int>("question");
        QTest::addColumn<double>("pause");  // seconds before each try
        QTest::addColumn<QString>("typed"); // "!" stands for the try-again button
        QTest::addColumn<QString>("field");
        QTest::addColumn<QList<int>>("pictures");
        QTest::addColumn<QString>("points");
        QTest::addColumn<bool>("again"); // try-again button on
        QTest::addColumn<bool>("note");  // the pace note shows
        const auto row = [](const char *name, int question, double pause, const char *typed,
                            const char *field, const QList<int> &pictures, const char *points,
                            bool again, bool note) {
            QTest::newRow(name) << question << pause << QString::fromLatin1(typed)
                                << QString::fromLatin1(field) << pictures
                                << QString::fromLatin1(points) << again << note;
        };
        row("a blank", 1, 10, " ", "", {}, " 0 von 0", false, false);
        row("a letter other than A, B, C first", 1, 10, "xc", "C", {2}, " 1 von 1", false, false);
        row("letters over a verdict", 1, 10, "abc", "C", {0}, " 0 von 1", true, false);
        row("trying again", 1, 1, "a!b!c", "C", {2}, " 1 von 3", false, true);
        row("question 1 at 8.9 s", 1, 8.9, "b", "B", {1}, " 0 von 1", true, true);
        row("question 1 at 9 s", 1, 9, "b", "B", {1}, " 0 von 1", true, false);
        row("question 2 at 4.9 s", 2, 4.9, "b", "B", {4}, " 2 von 2", false, true);
        row("question 2 at 5 s", 2, 5, "b", "B", {4}, " 2 von 2", false, false);
    }

    // Typing into page 1, with and without trying again. A verdict sooner than 9 seconds into the
    // first question or 5 into a later one shows the pace note and locks the page buttons until
    // Timer1 ticks; Timer1 keeps running afterwards. A new try does not restart the clock.
    void typing() {
        QFETCH(int, question);
        QFETCH(double, pause);
        QFETCH(QString, typed);
        QFETCH(QString, field);
        QFETCH(QList<int>, pictures);
        QFETCH(QString, points);
        QFETCH(bool, again);
        QFETCH(bool, note);
        TestProgramme prog;
        LessonPage *page = openPage(prog, 1);
        goToQuestion(prog, page, question);
        const QStringList tries = typed.split(u'!');
        for (qsizetype i = 0; i < tries.size(); ++i) {
            if (i > 0)
                QTest::mouseClick(page->retryButton, Qt::LeftButton);
            prog.advance(pause);
            QTest::keyClicks(page->answerEdit, tries[i]);
        }
        QCOMPARE(page->answerEdit->text(), field);
        QCOMPARE(visible(page->feedbackPictures), pictures);
        QCOMPARE(page->pointsLabel->text(), points);
        QCOMPARE(lightGreyAndEnabled(page->retryButton), again);
        QCOMPARE(page->questionStartTime, 36000 + 10 * (question - 1));
        QCOMPARE(Appearing::isVisible(page->paceNote), note);
        QCOMPARE(page->paceTimer->isActive(), note);
        for (QPushButton *button :
             {page->previousPageButton, page->nextPageButton, page->endButton})
            QCOMPARE(button->isEnabled(), !note);
        if (pictures.isEmpty()) { // a click into the empty field leaves the focus there
            QTest::mouseClick(page->answerEdit, Qt::LeftButton);
            QCOMPARE(page->focusWidget(), page->answerEdit);
        }
        if (!note)
            return;
        QCOMPARE(page->endButton->palette().color(QPalette::Button), Theme::buttonFace());
        const auto noteSaid = [page] { // with the verdict, by the button that has the focus
            return page->focusWidget()->accessibleDescription().contains(
                page->paceNote->accessibleName());
        };
        QVERIFY(noteSaid());
        fireTimer(page->paceTimer);
        QVERIFY(!Appearing::isVisible(page->paceNote) && page->paceTimer->isActive() &&
                !noteSaid());
        QVERIFY(page->previousPageButton->isEnabled() && page->nextPageButton->isEnabled());
        QVERIFY(lightGreyAndEnabled(page->endButton));
    }

    // The button explanation: shown at first, withdrawn by its timer with a hint until the next
    // timer, switched by its menu entry, which leaves the hint alone (a right answer to question
    // 2 withdraws it for good, see letters). The points are switched by theirs.
    void menuSwitches() {
        TestProgramme prog;
        LessonPage *page = openPage(prog, 1);
        QVERIFY(page->explanationTimer->isActive() && !page->explanationPicture->isHidden());
        fireTimer(page->explanationTimer);
        QVERIFY(page->explanationPicture->isHidden() && !page->explanationEntry->isChecked());
        QVERIFY(!page->explanationHint->isHidden() && page->hintTimer->isActive());
        QVERIFY(!page->explanationTimer->isActive());

        page->explanationEntry->trigger();
        QVERIFY(!page->explanationPicture->isHidden() && page->explanationEntry->isChecked());
        QVERIFY(!page->explanationHint->isHidden() && page->hintTimer->isActive());
        page->explanationEntry->trigger();
        QVERIFY(page->explanationPicture->isHidden() && !page->explanationEntry->isChecked());
        fireTimer(page->hintTimer);
        QVERIFY(page->explanationHint->isHidden() && !page->hintTimer->isActive());

        page->pointsEntry->trigger();
        QVERIFY(page->pointsHeading->isHidden() && page->pointsLabel->isHidden());
        QVERIFY(!page->pointsEntry->isChecked());
        goToQuestion(prog, page, 3);
        page->pointsEntry->trigger();
        QVERIFY(!page->pointsHeading->isHidden() && !page->pointsLabel->isHidden());
        QVERIFY(page->pointsEntry->isChecked());
        QCOMPARE(page->pointsLabel->text(), u" 2 von 2"_s);
    }

    void pictures_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("picture"); // Image1_<question>, Image2_<question>, Image3_<n>
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("markup");      // a piece of the picture's rich text, or empty
        QTest::addColumn<QString>("description"); // the opening of a drawing's description
        const auto row = [](const char *name, int page, const char *picture, const char16_t *text,
                            const char *markup, const char16_t *description = u"") {
            QTest::newRow(name) << page << QString::fromLatin1(picture) << QString::fromUtf16(text)
                                << QString::fromUtf8(markup) << QString::fromUtf16(description);
        };
        row("question 3 A names the repeat button", 1, "Image3_6",
            u"Falsch! Antworte noch einmal. (Schaltknopf „Aufgabe wiederholen“ )",
            ":/button-repeat.svg");
        row("question 42 comparison signs", 9, "Image2_1", u"A) IB > IC B) IB = IC C) IB < IC",
            "I<sub>C</sub>");
        row("question 50 with its lead-in", 10, "Image2_4",
            u"Sie arbeiten als A) als Verstärker B) als Gleichrichter C) als Schalter", "");
        row("drawing: diode in a circuit", 8, "Image1_0",
            u"36. Fließt Strom durch die abgebildete Halbleiterdiode?", "", u"Schaltplan:");
        row("drawing: transistor symbol", 9, "Image1_0", u"41. Was zeigt das Bild?", "",
            u"Schaltzeichen in einem Kreis:");
    }

    // Single pictures as the page shows them and a screen reader reads them: what the page adds
    // to the question bank's texts, and its markup. A drawn question is read with the description
    // of its drawing, and the drawing is painted on the page at a readable size.
    void pictures() {
        QFETCH(int, page);
        QFETCH(QString, picture);
        QFETCH(QString, text);
        QFETCH(QString, markup);
        QFETCH(QString, description);
        TestProgramme prog;
        LessonPage *p = openPage(prog, page);
        const Picture *shown = p->findChild<Picture *>(picture);
        QVERIFY(shown);
        QCOMPARE(shown->plainText(), text);
        const QString read = description.isEmpty() ? text : text + u' ' + description;
        QCOMPARE(shown->accessibleName().left(description.isEmpty() ? -1 : read.size()), read);
        QVERIFY2(shown->html().contains(markup), qPrintable(shown->html()));
        if (description.isEmpty())
            return;
        goToQuestion(prog, p, picture.mid(7).toInt() + 1);
        p->show();
        QVERIFY(QTest::qWaitForWindowExposed(p));
        auto *view = shown->findChild<SvgView *>();
        QVERIFY(view && view->height() >= 72 && view->height() <= 110 && p->height() <= 600);
        const QImage image = view->grab().toImage();
        int dark = 0;
        for (int i = 0; i < image.width() * image.height(); ++i)
            dark += qGray(image.pixel(i % image.width(), i / image.width())) < 96 ? 1 : 0;
        // Ink of the drawing: the sparest, the transistor, has some 390 dark pixels on Windows.
        QVERIFY2(dark > 300, qPrintable(QString::number(dark)));
    }
};

QTEST_MAIN(TestLessonPages)
#include "test_lessonpages.moc"
