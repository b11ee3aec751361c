// SPDX-License-Identifier: GPL-3.0-or-later
// Page 1 worked as a pupil works it: typing, verdicts, points, pace note, try again, the button
// explanation, the overview and the exit frame.
#include "lessonpage.h"
#include "modul1.h"
#include "picture.h"
#include "screens.h"
#include "testsupport.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Modul1;

namespace {

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Page 1 opened as the programme opens it, at 10:00:00 on the test clock.
LessonPage *openPage1(TestProgramme &programme) {
    QList<QPair<ScreenId, QString>> probes{
        {ScreenId::Steuerzentrum, QStringLiteral("Steuerzentrum")}};
    for (int page = 2; page <= 11; ++page)
        probes.append({pageScreen(page), QStringLiteral("Qel%1").arg(page)});
    registerProbes(probes);
    Screens::registerScreen(ScreenId::Qel1, [] { return new LessonPage(1); });
    programme.setTime(10 * 3600);
    return Screens::show<LessonPage>(ScreenId::Qel1);
}

int visibleFeedback(const LessonPage *page) {
    int shown = -1;
    for (int i = 0; i < page->Image3.size(); ++i) {
        if (!page->Image3.at(i)->isHidden()) {
            if (shown >= 0)
                return -2; // more than one
            shown = i;
        }
    }
    return shown;
}

// Answers the current question with its scoring letter and moves on.
void answerRight(LessonPage *page, const QString &letter) {
    QTest::keyClicks(page->Text1, letter);
    QTest::mouseClick(page->Command1, Qt::LeftButton);
}

bool lightGreyAndEnabled(const QPushButton *b) {
    return b->isEnabled() && b->palette().color(QPalette::Button) == QColor(224, 224, 224);
}

} // namespace

class TestLessonPage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void designState();
    void typedLetters_data();
    void typedLetters();
    void answerKey_data();
    void answerKey();
    void tryAgainCountsAgain();
    void paceNote_data();
    void paceNote();
    void paceNoteTimerKeepsRunning();
    void focusRules();
    void buttonExplanation();
    void pointsDisplay();
    void navigation_data();
    void navigation();
    void lastQuestionOpensPage2WithTheCounts();
    void overviewReloadsPage1();
    void exitFrame();
    void exitButtons_data();
    void exitButtons();
    void accessibleNames();
};

void TestLessonPage::designState() {
    TestProgramme programme;
    CorrectCount = 7;
    AnsweredCount = 9;
    LessonPage *page = openPage1(programme);
    QCOMPARE(page->windowTitle(), QStringLiteral("Kelvora") + QString(116, QLatin1Char(' ')) +
                                      QStringLiteral("Seite 1"));
    QCOMPARE(page->Label9->text(), QStringLiteral(" 0 von 0"));
    QCOMPARE(CurrentPage, std::int16_t(1));
    QCOMPARE(StartFilePath, programme.path(QStringLiteral("StartQelB.txt")));
    QCOMPARE(QuestionStartTime, 36000);
    QVERIFY(!page->Image1[0]->isHidden());
    QVERIFY(!page->Image2[0]->isHidden());
    for (int i = 1; i < 5; ++i)
        QVERIFY(page->Image1[i]->isHidden() && page->Image2[i]->isHidden());
    QCOMPARE(visibleFeedback(page), -1);
    QCOMPARE(page->Image3.size(), 16);
    QVERIFY(page->Label8->isHidden());
    QVERIFY(page->Label12->isHidden());
    QVERIFY(!page->Command1->isEnabled());
    QVERIFY(!page->Command5->isEnabled());
    QVERIFY(page->exitFrame.Frame10->isHidden());
    QVERIFY(page->overview.Frame2->isHidden());
    QVERIFY(!page->Timer1->isActive());
    QVERIFY(page->Timer2->isActive());
    QVERIFY(!page->Timer3->isActive());
    QVERIFY(page->menus.mnuSteuer->isChecked());
    QVERIFY(page->menus.mnuPunkt->isChecked());
    QCOMPARE(kPaceNote.size(), 407);
    QCOMPARE(page->Label3->text(), QStringLiteral("Auswahl-\nAntworten:"));
}

void TestLessonPage::typedLetters_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("answered");
    QTest::addColumn<int>("picture");
    QTest::addRow("a") << QStringLiteral("a") << QStringLiteral("A") << 1 << 0;
    QTest::addRow("A") << QStringLiteral("A") << QStringLiteral("A") << 1 << 0;
    QTest::addRow("b") << QStringLiteral("b") << QStringLiteral("B") << 1 << 1;
    QTest::addRow("C") << QStringLiteral("C") << QStringLiteral("C") << 1 << 2;
    QTest::addRow("x") << QStringLiteral("x") << QString() << 0 << -1;
    QTest::addRow("1") << QStringLiteral("1") << QString() << 0 << -1;
    QTest::addRow("blank") << QStringLiteral(" ") << QString() << 0 << -1;
    QTest::addRow("d") << QStringLiteral("d") << QString() << 0 << -1;
}

void TestLessonPage::typedLetters() {
    QFETCH(QString, typed);
    QFETCH(QString, field);
    QFETCH(int, answered);
    QFETCH(int, picture);
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QTest::keyClicks(page->Text1, typed);
    QCOMPARE(page->Text1->text(), field);
    QCOMPARE(int(AnsweredCount), answered);
    QCOMPARE(visibleFeedback(page), picture);
    QCOMPARE(page->Label9->text(),
             QStringLiteral(" %1 von %2").arg(picture == 2 ? 1 : 0).arg(answered));
}

void TestLessonPage::answerKey_data() {
    QTest::addColumn<int>("question");
    QTest::addColumn<QString>("letter");
    QTest::addColumn<int>("picture");
    QTest::addColumn<bool>("scores");
    const QStringList scoring = {QStringLiteral("C"), QStringLiteral("B"), QStringLiteral("A"),
                                 QStringLiteral("A"), QStringLiteral("A")};
    const int pictures[5][3] = {{0, 1, 2}, {3, 4, 3}, {5, 6, 7}, {8, 9, 10}, {11, 12, 13}};
    for (int q = 0; q < 5; ++q) {
        for (int l = 0; l < 3; ++l) {
            const QString letter(QChar(u'A' + l));
            QTest::addRow("question %d %s", q + 1, qPrintable(letter))
                << q << letter << pictures[q][l] << (letter == scoring[q]);
        }
    }
}

void TestLessonPage::answerKey() {
    QFETCH(int, question);
    QFETCH(QString, letter);
    QFETCH(int, picture);
    QFETCH(bool, scores);
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    const QStringList right = {QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a"),
                               QStringLiteral("a")};
    for (int q = 0; q < question; ++q)
        answerRight(page, right[q]);
    QVERIFY(!page->Image1[question]->isHidden());
    QCOMPARE(visibleFeedback(page), -1);

    QTest::keyClicks(page->Text1, letter.toLower());
    QCOMPARE(visibleFeedback(page), picture);
    QCOMPARE(int(CorrectCount), question + (scores ? 1 : 0));
    QCOMPARE(int(AnsweredCount), question + 1);
    QCOMPARE(lightGreyAndEnabled(page->Command1), scores);
    QCOMPARE(lightGreyAndEnabled(page->Command5), !scores);
    QCOMPARE(page->focusWidget(), scores ? page->Command1 : page->Command5);
    // Question 2 right on page 1 also withdraws the button explanation.
    const bool withdrawn = question > 1 || (question == 1 && scores);
    QCOMPARE(page->Image4->isHidden(), withdrawn);
    QCOMPARE(page->menus.mnuSteuer->isChecked(), !withdrawn);
}

void TestLessonPage::tryAgainCountsAgain() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QTest::keyClicks(page->Text1, QStringLiteral("A"));
    QTest::keyClicks(page->Text1, QStringLiteral("b")); // a second letter is not evaluated
    QCOMPARE(int(AnsweredCount), 1);
    QTest::mouseClick(page->Command5, Qt::LeftButton);
    QCOMPARE(page->Text1->text(), QString());
    QCOMPARE(visibleFeedback(page), -1);
    QVERIFY(!page->Command5->isEnabled());
    QCOMPARE(page->focusWidget(), page->Text1);
    QTest::keyClicks(page->Text1, QStringLiteral("b"));
    QTest::mouseClick(page->Command5, Qt::LeftButton);
    QTest::keyClicks(page->Text1, QStringLiteral("c"));
    QCOMPARE(page->Label9->text(), QStringLiteral(" 1 von 3"));
    QCOMPARE(visibleFeedback(page), 2);
    QVERIFY(lightGreyAndEnabled(page->Command1));
    QCOMPARE(QuestionStartTime, 36000); // a new try does not restart the question's clock
}

void TestLessonPage::paceNote_data() {
    QTest::addColumn<int>("question");
    QTest::addColumn<double>("after");
    QTest::addColumn<bool>("tooFast");
    QTest::addRow("first question at 8.9 s") << 0 << 8.9 << true;
    QTest::addRow("first question at 9 s") << 0 << 9.0 << false;
    QTest::addRow("third question at 4.9 s") << 2 << 4.9 << true;
    QTest::addRow("third question at 6 s") << 2 << 6.0 << false;
}

void TestLessonPage::paceNote() {
    QFETCH(int, question);
    QFETCH(double, after);
    QFETCH(bool, tooFast);
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    const QStringList right = {QStringLiteral("c"), QStringLiteral("b")};
    for (int q = 0; q < question; ++q) {
        programme.advance(20);
        answerRight(page, right[q]);
    }
    page->Timer1->stop();
    page->Label8->hide();
    fireTimer(page->Timer1); // the note of the earlier answers is gone
    programme.advance(after);
    QTest::keyClicks(page->Text1, QStringLiteral("x"));
    QTest::keyClicks(page->Text1, QStringLiteral("b"));
    QCOMPARE(visibleFeedback(page) >= 0, true); // the verdict comes either way
    QCOMPARE(!page->Label8->isHidden(), tooFast);
    QCOMPARE(page->Timer1->isActive(), tooFast);
    QCOMPARE(page->Command2->isEnabled(), !tooFast);
    QCOMPARE(page->Command4->isEnabled(), !tooFast);
    QCOMPARE(page->Command3->isEnabled(), !tooFast);
    if (tooFast) {
        QCOMPARE(page->Timer1->interval(), 5000);
        QCOMPARE(page->Command3->palette().color(QPalette::Button), buttonFace());
    }
}

void TestLessonPage::paceNoteTimerKeepsRunning() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QTest::keyClicks(page->Text1, QStringLiteral("a"));
    QVERIFY(!page->Label8->isHidden());
    // The overview still works while the note is shown.
    page->menus.mnuWo->trigger();
    QVERIFY(!page->overview.Frame2->isHidden());
    fireTimer(page->Timer1);
    QVERIFY(page->Label8->isHidden());
    QVERIFY(page->Command2->isEnabled() && page->Command4->isEnabled());
    QVERIFY(lightGreyAndEnabled(page->Command3));
    QVERIFY(page->Timer1->isActive());
}

void TestLessonPage::focusRules() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    page->Text1->setFocus();
    QTest::mouseClick(page->Text1, Qt::LeftButton);
    QCOMPARE(page->focusWidget(), page->Text1);
    QTest::keyClicks(page->Text1, QStringLiteral("a"));
    page->Text1->setFocus();
    QTest::mouseClick(page->Text1, Qt::LeftButton);
    QCOMPARE(page->focusWidget(), page->Command5);
    QTest::mouseClick(page->Command5, Qt::LeftButton);
    QTest::keyClicks(page->Text1, QStringLiteral("c"));
    page->Text1->setFocus();
    QTest::mouseClick(page->Text1, Qt::LeftButton);
    QCOMPARE(page->focusWidget(), page->Command1);
}

void TestLessonPage::buttonExplanation() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QCOMPARE(page->Timer2->interval(), 10000);
    QCOMPARE(page->Timer3->interval(), 10000);
    QVERIFY(!page->Image4->isHidden());
    fireTimer(page->Timer2);
    QVERIFY(page->Image4->isHidden());
    QVERIFY(!page->menus.mnuSteuer->isChecked());
    QVERIFY(!page->Label12->isHidden());
    QVERIFY(page->Timer3->isActive());
    QVERIFY(!page->Timer2->isActive());
    fireTimer(page->Timer3);
    QVERIFY(page->Label12->isHidden());
    QVERIFY(!page->Timer3->isActive());

    page->menus.mnuSteuer->trigger();
    QVERIFY(!page->Image4->isHidden());
    QVERIFY(page->menus.mnuSteuer->isChecked());
    page->menus.mnuSteuer->trigger();
    QVERIFY(page->Image4->isHidden());
    QVERIFY(!page->menus.mnuSteuer->isChecked());
}

void TestLessonPage::pointsDisplay() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    page->menus.mnuPunkt->trigger();
    QVERIFY(page->Label6->isHidden() && page->Label9->isHidden());
    QVERIFY(!page->menus.mnuPunkt->isChecked());
    QTest::keyClicks(page->Text1, QStringLiteral("c"));
    page->menus.mnuPunkt->trigger();
    QVERIFY(!page->Label6->isHidden() && !page->Label9->isHidden());
    QVERIFY(page->menus.mnuPunkt->isChecked());
    QCOMPARE(page->Label9->text(), QStringLiteral(" 1 von 1"));
}

void TestLessonPage::navigation_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("opened");
    QTest::addRow("<<") << QStringLiteral("Command2") << QStringLiteral("Steuerzentrum");
    QTest::addRow(">>") << QStringLiteral("Command4") << QStringLiteral("Qel2");
    QTest::addRow("overview page 2") << QStringLiteral("Label11_1") << QStringLiteral("Qel2");
    QTest::addRow("overview page 11") << QStringLiteral("Label11_10") << QStringLiteral("Qel11");
}

void TestLessonPage::navigation() {
    QFETCH(QString, button);
    QFETCH(QString, opened);
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    page->menus.mnuWo->trigger();
    auto *target = page->findChild<QPushButton *>(button);
    if (!target) {
        target = button == QStringLiteral("Command2") ? page->Command2 : page->Command4;
    }
    QTest::mouseClick(target, Qt::LeftButton);
    settle();
    QCOMPARE(ProbeForm::log,
             QStringList({opened + QStringLiteral(":load"), opened + QStringLiteral(":activate")}));
    QVERIFY(!Screens::loaded(ScreenId::Qel1));
    QVERIFY(!Screens::programmeEnded());
}

void TestLessonPage::lastQuestionOpensPage2WithTheCounts() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QTest::keyClicks(page->Text1, QStringLiteral("a")); // wrong first
    QTest::mouseClick(page->Command5, Qt::LeftButton);
    const QStringList right = {QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a"),
                               QStringLiteral("a"), QStringLiteral("a")};
    for (int q = 0; q < 4; ++q) {
        answerRight(page, right[q]);
        QVERIFY(!page->Image1[q + 1]->isHidden());
        QVERIFY(page->Image1[q]->isHidden());
        QVERIFY(!page->Image2[q + 1]->isHidden());
        QVERIFY(!page->Command1->isEnabled());
        QCOMPARE(page->focusWidget(), page->Text1);
        QCOMPARE(visibleFeedback(page), -1);
    }
    QVERIFY(ProbeForm::log.isEmpty());
    answerRight(page, right[4]);
    settle();
    QCOMPARE(ProbeForm::log,
             QStringList({QStringLiteral("Qel2:load"), QStringLiteral("Qel2:activate")}));
    QVERIFY(!Screens::loaded(ScreenId::Qel1));
    QCOMPARE(PointsText(), QStringLiteral(" 5 von 6"));
}

void TestLessonPage::overviewReloadsPage1() {
    TestProgramme programme;
    QPointer<LessonPage> page = openPage1(programme);
    answerRight(page, QStringLiteral("c"));
    QTest::keyClicks(page->Text1, QStringLiteral("a"));
    QCOMPARE(page->Label9->text(), QStringLiteral(" 1 von 2"));
    page->menus.mnuWo->trigger();
    QVERIFY(!page->overview.Frame2->isHidden());
    QVERIFY(!page->overview.Shape6->isHidden());
    QCOMPARE(page->overview.lines[0]->text(), QStringLiteral("Seite 1 (Frage 1 -  5)"));
    QTest::mouseClick(page->overview.lines[0], Qt::LeftButton);
    settle();
    QVERIFY(page.isNull());
    auto *fresh = Screens::loaded<LessonPage>(ScreenId::Qel1);
    QVERIFY(fresh);
    QCOMPARE(fresh->Label9->text(), QStringLiteral(" 0 von 0"));
    QVERIFY(!fresh->Image1[0]->isHidden());
    QVERIFY(fresh->overview.Frame2->isHidden());

    fresh->menus.mnuWo->trigger();
    QTest::mouseClick(fresh->overview.Command6, Qt::LeftButton);
    QVERIFY(fresh->overview.Frame2->isHidden() && fresh->overview.Shape6->isHidden());
    QCOMPARE(fresh->focusWidget(), fresh->Text1);
}

void TestLessonPage::exitFrame() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QTest::mouseClick(page->Command3, Qt::LeftButton);
    QVERIFY(!page->exitFrame.Frame10->isHidden());
    QVERIFY(!page->exitFrame.Picture10->isHidden());
    QTest::mouseClick(page->exitFrame.Command12, Qt::LeftButton);
    QVERIFY(page->exitFrame.Frame10->isHidden() && page->exitFrame.Picture10->isHidden());
    QCOMPARE(page->focusWidget(), page->Text1);
    programme.advance(20);
    QTest::keyClicks(page->Text1, QStringLiteral("c"));
    QTest::mouseClick(page->Command3, Qt::LeftButton);
    QTest::mouseClick(page->exitFrame.Command12, Qt::LeftButton);
    QCOMPARE(page->focusWidget(), page->Command3);
    QVERIFY(programme.read(QStringLiteral("StartQelB.txt")).isNull());
    QVERIFY(!Screens::programmeEnded());
}

void TestLessonPage::exitButtons_data() {
    QTest::addColumn<bool>("resumeHere");
    QTest::addColumn<bool>("writable");
    QTest::addColumn<QByteArray>("expected");
    QTest::addRow("hier weiterarbeiten") << true << true << QByteArray("\"1\"\r\n3\r\n4\r\n");
    QTest::addRow("von vorn beginnen") << false << true << QByteArray("\"50\"\r\n");
    QTest::addRow("hier weiterarbeiten, folder gone") << true << false << QByteArray();
    QTest::addRow("von vorn beginnen, folder gone") << false << false << QByteArray();
}

void TestLessonPage::exitButtons() {
    QFETCH(bool, resumeHere);
    QFETCH(bool, writable);
    QFETCH(QByteArray, expected);
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    programme.advance(60);
    answerRight(page, QStringLiteral("c"));
    answerRight(page, QStringLiteral("b"));
    QTest::keyClicks(page->Text1, QStringLiteral("c"));
    QTest::mouseClick(page->Command5, Qt::LeftButton);
    QTest::keyClicks(page->Text1, QStringLiteral("a"));
    QCOMPARE(PointsText(), QStringLiteral(" 3 von 4"));
    if (!writable)
        StartFilePath = programme.path(QStringLiteral("gone/StartQelB.txt"));
    QTest::mouseClick(page->Command3, Qt::LeftButton);
    QTest::mouseClick(resumeHere ? page->exitFrame.Command11 : page->exitFrame.Command10,
                      Qt::LeftButton);
    QVERIFY(Screens::programmeEnded());
    QVERIFY(!Screens::anyLoaded());
    QCOMPARE(programme.read(QStringLiteral("StartQelB.txt")), expected);
    QCOMPARE(int(CurrentPage), resumeHere ? 1 : 50);
}

void TestLessonPage::accessibleNames() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QCOMPARE(page->Text1->accessibleName(), QStringLiteral("Antwort"));
    const QList<QPair<QPushButton *, QString>> buttons = {
        {page->Command1, QStringLiteral("Nächste Frage")},
        {page->Command5, QStringLiteral("Aufgabe wiederholen")},
        {page->Command3, QStringLiteral("Beenden")}};
    for (const auto &[button, name] : buttons) {
        QCOMPARE(button->accessibleName(), name);
        QCOMPARE(button->toolTip(), name);
        QVERIFY(!button->icon().isNull());
    }
    QCOMPARE(page->Image1[1]->accessibleName(), QStringLiteral("2. Wie sind Elektronen geladen?"));
    QCOMPARE(page->Image2[1]->accessibleName(),
             QStringLiteral("A) positiv B) negativ C) elektrisch neutral"));
    QCOMPARE(page->Image3[14]->accessibleName(),
             QStringLiteral("Du hast vergessen, etwas einzugeben. Antworte noch einmal. "
                            "(Schaltknopf „Aufgabe wiederholen“ )"));
    QCOMPARE(page->Image3[15]->accessibleName(),
             QStringLiteral("Falsch! Du darfst nur mit A, B oder C (oder a, b oder c) antworten. "
                            "Antworte noch einmal. (Schaltknopf „Aufgabe wiederholen“ )"));
    QVERIFY(page->Image3[6]->html().contains(QStringLiteral(":/button-repeat.svg")));
    QVERIFY(!page->Image3[2]->html().contains(QStringLiteral("Antworte")));
}

QTEST_MAIN(TestLessonPage)
#include "test_lessonpage.moc"
