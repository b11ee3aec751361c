// SPDX-License-Identifier: GPL-3.0-or-later
// Page 1 as a pupil works it: typing, try again, pace note, menu switches, overview, exit frame.
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

QList<int> visibleFeedback(const LessonPage *page) {
    QList<int> shown;
    for (int i = 0; i < page->Image3.size(); ++i) {
        if (!page->Image3.at(i)->isHidden())
            shown.append(i);
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
    void paceNote_data();
    void paceNote();
    void menuSwitches();
    void overview_data();
    void overview();
    void exitFrame_data();
    void exitFrame();
};

void TestLessonPage::designState() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QCOMPARE(StartFilePath, programme.path(QStringLiteral("StartQelB.txt")));
    QCOMPARE(QuestionStartTime, 36000);
    QVERIFY(page->Label8->isHidden() && page->Label12->isHidden());
    QVERIFY(!page->Command1->isEnabled() && !page->Command5->isEnabled());
    QVERIFY(page->exitFrame.Frame10->isHidden() && !page->Timer1->isActive());
    QCOMPARE(page->Label3->text(), QStringLiteral("Auswahl-\nAntworten:"));
    QCOMPARE(kPaceNote.size(), 407);
    QCOMPARE(page->Label8->text(),
             QStringLiteral("Hinweis:\nDamit du dir bei diesem Lernprogramm viel merken kannst, "
                            "ist es notwendig, dass  du dir die Fragen gründlich durchliest, "
                            "bevor du sie beantwortest.\n\nDu arbeitest also zu hastig!"));
    // A click into the empty answer field leaves the focus there.
    page->Text1->setFocus();
    QTest::mouseClick(page->Text1, Qt::LeftButton);
    QCOMPARE(page->focusWidget(), page->Text1);
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
}

void TestLessonPage::typedLetters_data() {
    QTest::addColumn<QString>("typed"); // "!" stands for the try-again button
    QTest::addColumn<QString>("field");
    QTest::addColumn<QList<int>>("pictures");
    QTest::addColumn<QString>("points");
    QTest::addColumn<bool>("again"); // try-again button on
    const auto row = [](const char *typed, const char *field, QList<int> pictures,
                        const char *points, bool again) {
        QTest::newRow(typed) << QString::fromLatin1(typed) << QString::fromLatin1(field) << pictures
                             << QString::fromLatin1(points) << again;
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

void TestLessonPage::typedLetters() {
    QFETCH(QString, typed);
    QFETCH(QString, field);
    QFETCH(QList<int>, pictures);
    QFETCH(QString, points);
    QFETCH(bool, again);
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    const QStringList tries = typed.split(QLatin1Char('!'));
    for (qsizetype i = 0; i < tries.size(); ++i) {
        if (i > 0)
            QTest::mouseClick(page->Command5, Qt::LeftButton);
        QTest::keyClicks(page->Text1, tries[i]);
    }
    QCOMPARE(page->Text1->text(), field);
    QCOMPARE(visibleFeedback(page), pictures);
    QCOMPARE(page->Label9->text(), points);
    QCOMPARE(lightGreyAndEnabled(page->Command5), again);
    if (typed.endsWith(QLatin1Char('!')))
        QCOMPARE(page->focusWidget(), page->Text1);
    QCOMPARE(QuestionStartTime, 36000); // a new try does not restart the question's clock
}

void TestLessonPage::paceNote_data() {
    QTest::addColumn<int>("question");
    QTest::addColumn<double>("after");
    QTest::addColumn<bool>("tooFast");
    QTest::addRow("first question at 8.9 s") << 0 << 8.9 << true;
    QTest::addRow("first question at 9 s") << 0 << 9.0 << false;
    QTest::addRow("second question at 4.9 s") << 1 << 4.9 << true;
    QTest::addRow("second question at 5 s") << 1 << 5.0 << false;
}

// A verdict sooner than 9 seconds into the first question or 5 into a later one shows the pace
// note and locks the page buttons until Timer1 ticks; Timer1 keeps running afterwards.
void TestLessonPage::paceNote() {
    QFETCH(int, question);
    QFETCH(double, after);
    QFETCH(bool, tooFast);
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    if (question == 1) {
        programme.advance(20);
        answerRight(page, QStringLiteral("c"));
    }
    programme.advance(after);
    QTest::keyClicks(page->Text1, QStringLiteral("b"));
    QCOMPARE(visibleFeedback(page).size(), 1); // the verdict comes either way
    QCOMPARE(!page->Label8->isHidden(), tooFast);
    QCOMPARE(page->Timer1->isActive(), tooFast);
    QCOMPARE(page->Command2->isEnabled(), !tooFast);
    QCOMPARE(page->Command4->isEnabled(), !tooFast);
    QCOMPARE(page->Command3->isEnabled(), !tooFast);
    if (!tooFast)
        return;
    QCOMPARE(page->Timer1->interval(), 5000);
    QCOMPARE(page->Command3->palette().color(QPalette::Button), buttonFace());
    fireTimer(page->Timer1);
    QVERIFY(page->Label8->isHidden());
    QVERIFY(page->Command2->isEnabled() && page->Command4->isEnabled());
    QVERIFY(lightGreyAndEnabled(page->Command3));
    QVERIFY(page->Timer1->isActive());
}

// The button explanation: shown at first, withdrawn after ten seconds with a hint for ten more,
// switched by its menu entry, and withdrawn for good by a right answer to question 2. The points
// are switched by theirs.
void TestLessonPage::menuSwitches() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QVERIFY(page->Timer2->isActive() && page->Timer2->interval() == 10000);
    QCOMPARE(page->Timer3->interval(), 10000);
    QVERIFY(!page->Image4->isHidden());
    fireTimer(page->Timer2);
    QVERIFY(page->Image4->isHidden() && !page->menus.mnuSteuer->isChecked());
    QVERIFY(!page->Label12->isHidden());
    QVERIFY(page->Timer3->isActive());
    QVERIFY(!page->Timer2->isActive());
    fireTimer(page->Timer3);
    QVERIFY(page->Label12->isHidden());
    QVERIFY(!page->Timer3->isActive());

    page->menus.mnuSteuer->trigger();
    QVERIFY(!page->Image4->isHidden() && page->menus.mnuSteuer->isChecked());
    page->menus.mnuSteuer->trigger();
    QVERIFY(page->Image4->isHidden() && !page->menus.mnuSteuer->isChecked());

    page->menus.mnuSteuer->trigger();
    page->menus.mnuPunkt->trigger();
    QVERIFY(page->Label6->isHidden() && page->Label9->isHidden());
    QVERIFY(!page->menus.mnuPunkt->isChecked());
    answerRight(page, QStringLiteral("c"));
    QTest::keyClicks(page->Text1, QStringLiteral("a"));
    QTest::mouseClick(page->Command5, Qt::LeftButton);
    QVERIFY(!page->Image4->isHidden() && page->menus.mnuSteuer->isChecked());
    QTest::keyClicks(page->Text1, QStringLiteral("b"));
    QVERIFY(page->Image4->isHidden() && !page->menus.mnuSteuer->isChecked());
    page->menus.mnuPunkt->trigger();
    QVERIFY(!page->Label6->isHidden() && !page->Label9->isHidden());
    QVERIFY(page->menus.mnuPunkt->isChecked());
    QCOMPARE(page->Label9->text(), QStringLiteral(" 2 von 3"));
}

void TestLessonPage::overview_data() {
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("opened"); // empty: page 1 afresh
    QTest::addRow("page 1") << 0 << QString();
    QTest::addRow("page 2") << 1 << QStringLiteral("Qel2");
    QTest::addRow("page 11") << 10 << QStringLiteral("Qel11");
}

void TestLessonPage::overview() {
    QFETCH(int, line);
    QFETCH(QString, opened);
    TestProgramme programme;
    QPointer<LessonPage> page = openPage1(programme);
    answerRight(page, QStringLiteral("c"));
    QTest::keyClicks(page->Text1, QStringLiteral("a"));
    page->menus.mnuWo->trigger();
    QVERIFY(!page->overview.Frame2->isHidden() && !page->overview.Shape6->isHidden());
    QCOMPARE(page->overview.lines[0]->text(), QStringLiteral("Seite 1 (Frage 1 -  5)"));
    QTest::mouseClick(page->overview.lines[line], Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(page.isNull());
    QVERIFY(!Screens::programmeEnded());
    if (!opened.isEmpty()) {
        QCOMPARE(ProbeForm::log, QStringList({opened + QStringLiteral(":load"),
                                              opened + QStringLiteral(":activate")}));
        return;
    }
    auto *fresh = Screens::loaded<LessonPage>(ScreenId::Qel1);
    QVERIFY(fresh);
    QCOMPARE(fresh->Label9->text(), QStringLiteral(" 0 von 0"));
    QVERIFY(fresh->overview.Frame2->isHidden());
    fresh->menus.mnuWo->trigger();
    QTest::mouseClick(fresh->overview.Command6, Qt::LeftButton);
    QVERIFY(fresh->overview.Frame2->isHidden() && fresh->overview.Shape6->isHidden());
    QCOMPARE(fresh->focusWidget(), fresh->Text1);
}

void TestLessonPage::exitFrame_data() {
    QTest::addColumn<bool>("resumeHere");
    QTest::addColumn<bool>("writable");
    QTest::addColumn<QByteArray>("expected");
    QTest::addRow("hier weiterarbeiten") << true << true << QByteArray("\"1\"\r\n1\r\n1\r\n");
    QTest::addRow("von vorn beginnen") << false << true << QByteArray("\"50\"\r\n");
    QTest::addRow("hier weiterarbeiten, folder gone") << true << false << QByteArray();
    QTest::addRow("von vorn beginnen, folder gone") << false << false << QByteArray();
}

// "Abbrechen" closes the frame without saving; the other two save and end the programme.
void TestLessonPage::exitFrame() {
    QFETCH(bool, resumeHere);
    QFETCH(bool, writable);
    QFETCH(QByteArray, expected);
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QTest::mouseClick(page->Command3, Qt::LeftButton);
    QVERIFY(!page->exitFrame.Frame10->isHidden() && !page->exitFrame.Picture10->isHidden());
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

    if (!writable)
        StartFilePath = programme.path(QStringLiteral("gone/StartQelB.txt"));
    QTest::mouseClick(page->Command3, Qt::LeftButton);
    QTest::mouseClick(resumeHere ? page->exitFrame.Command11 : page->exitFrame.Command10,
                      Qt::LeftButton);
    QVERIFY(Screens::programmeEnded());
    QVERIFY(!Screens::anyLoaded());
    QCOMPARE(programme.read(QStringLiteral("StartQelB.txt")), expected);
}

QTEST_MAIN(TestLessonPage)
#include "test_lessonpage.moc"
