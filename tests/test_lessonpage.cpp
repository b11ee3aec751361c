// SPDX-License-Identifier: GPL-3.0-or-later
// Page 1 as a pupil works it: typing, try again, pace note, menu switches, overview, exit frame.
#include "captionlabel.h"
#include "course.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "testsupport.h"
#include "theme.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

// Page 1 opened as the programme opens it, at 10:00:00 on the test clock.
LessonPage *openPage1(TestProgramme &programme) {
    QList<QPair<ScreenId, QString>> probes{
        {ScreenId::ControlCentre, QStringLiteral("Steuerzentrum")}};
    for (int page = 2; page <= 11; ++page)
        probes.append({pageScreen(page), QStringLiteral("Qel%1").arg(page)});
    registerProbes(probes);
    Screens::registerScreen(ScreenId::Page1, [] { return new LessonPage(1); });
    programme.setTime(10 * 3600);
    return Screens::show<LessonPage>(ScreenId::Page1);
}

QList<int> visibleFeedback(const LessonPage *page) {
    QList<int> shown;
    for (int i = 0; i < page->feedbackPictures.size(); ++i) {
        if (!page->feedbackPictures.at(i)->isHidden())
            shown.append(i);
    }
    return shown;
}

// Answers the current question with its scoring letter and moves on.
void answerRight(LessonPage *page, const QString &letter) {
    QTest::keyClicks(page->answerEdit, letter);
    QTest::mouseClick(page->nextQuestionButton, Qt::LeftButton);
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
    QCOMPARE(course.startFilePath, programme.path(QStringLiteral("StartQelB.txt")));
    QCOMPARE(course.questionStartTime, 36000);
    QVERIFY(page->paceNote->isHidden() && page->explanationHint->isHidden());
    QVERIFY(!page->nextQuestionButton->isEnabled() && !page->retryButton->isEnabled());
    QVERIFY(page->exitFrame->isHidden() && !page->paceTimer->isActive());
    QCOMPARE(page->optionsHeading->text(), QStringLiteral("Auswahl-\nAntworten:"));
    QCOMPARE(kPaceNote.size(), 407);
    QCOMPARE(page->paceNote->text(),
             QStringLiteral("Hinweis:\nDamit du dir bei diesem Lernprogramm viel merken kannst, "
                            "ist es notwendig, dass  du dir die Fragen gründlich durchliest, "
                            "bevor du sie beantwortest.\n\nDu arbeitest also zu hastig!"));
    // A click into the empty answer field leaves the focus there.
    page->answerEdit->setFocus();
    QTest::mouseClick(page->answerEdit, Qt::LeftButton);
    QCOMPARE(page->focusWidget(), page->answerEdit);
    QCOMPARE(page->answerEdit->accessibleName(), QStringLiteral("Antwort"));
    const QList<QPair<QPushButton *, QString>> buttons = {
        {page->nextQuestionButton, QStringLiteral("Nächste Frage")},
        {page->retryButton, QStringLiteral("Aufgabe wiederholen")},
        {page->endButton, QStringLiteral("Beenden")}};
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
            QTest::mouseClick(page->retryButton, Qt::LeftButton);
        QTest::keyClicks(page->answerEdit, tries[i]);
    }
    QCOMPARE(page->answerEdit->text(), field);
    QCOMPARE(visibleFeedback(page), pictures);
    QCOMPARE(page->pointsLabel->text(), points);
    QCOMPARE(lightGreyAndEnabled(page->retryButton), again);
    if (typed.endsWith(QLatin1Char('!')))
        QCOMPARE(page->focusWidget(), page->answerEdit);
    QCOMPARE(course.questionStartTime, 36000); // a new try does not restart the question's clock
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
    QTest::keyClicks(page->answerEdit, QStringLiteral("b"));
    QCOMPARE(visibleFeedback(page).size(), 1); // the verdict comes either way
    QCOMPARE(!page->paceNote->isHidden(), tooFast);
    QCOMPARE(page->paceTimer->isActive(), tooFast);
    QCOMPARE(page->previousPageButton->isEnabled(), !tooFast);
    QCOMPARE(page->nextPageButton->isEnabled(), !tooFast);
    QCOMPARE(page->endButton->isEnabled(), !tooFast);
    if (!tooFast)
        return;
    QCOMPARE(page->paceTimer->interval(), 5000);
    QCOMPARE(page->endButton->palette().color(QPalette::Button), Theme::buttonFace());
    fireTimer(page->paceTimer);
    QVERIFY(page->paceNote->isHidden());
    QVERIFY(page->previousPageButton->isEnabled() && page->nextPageButton->isEnabled());
    QVERIFY(lightGreyAndEnabled(page->endButton));
    QVERIFY(page->paceTimer->isActive());
}

// The button explanation: shown at first, withdrawn after ten seconds with a hint for ten more,
// switched by its menu entry, and withdrawn for good by a right answer to question 2. The points
// are switched by theirs.
void TestLessonPage::menuSwitches() {
    TestProgramme programme;
    LessonPage *page = openPage1(programme);
    QVERIFY(page->explanationTimer->isActive() && page->explanationTimer->interval() == 10000);
    QCOMPARE(page->hintTimer->interval(), 10000);
    QVERIFY(!page->explanationPicture->isHidden());
    fireTimer(page->explanationTimer);
    QVERIFY(page->explanationPicture->isHidden() && !page->explanationEntry->isChecked());
    QVERIFY(!page->explanationHint->isHidden());
    QVERIFY(page->hintTimer->isActive());
    QVERIFY(!page->explanationTimer->isActive());
    fireTimer(page->hintTimer);
    QVERIFY(page->explanationHint->isHidden());
    QVERIFY(!page->hintTimer->isActive());

    page->explanationEntry->trigger();
    QVERIFY(!page->explanationPicture->isHidden() && page->explanationEntry->isChecked());
    page->explanationEntry->trigger();
    QVERIFY(page->explanationPicture->isHidden() && !page->explanationEntry->isChecked());

    page->explanationEntry->trigger();
    page->pointsEntry->trigger();
    QVERIFY(page->pointsHeading->isHidden() && page->pointsLabel->isHidden());
    QVERIFY(!page->pointsEntry->isChecked());
    answerRight(page, QStringLiteral("c"));
    QTest::keyClicks(page->answerEdit, QStringLiteral("a"));
    QTest::mouseClick(page->retryButton, Qt::LeftButton);
    QVERIFY(!page->explanationPicture->isHidden() && page->explanationEntry->isChecked());
    QTest::keyClicks(page->answerEdit, QStringLiteral("b"));
    QVERIFY(page->explanationPicture->isHidden() && !page->explanationEntry->isChecked());
    page->pointsEntry->trigger();
    QVERIFY(!page->pointsHeading->isHidden() && !page->pointsLabel->isHidden());
    QVERIFY(page->pointsEntry->isChecked());
    QCOMPARE(page->pointsLabel->text(), QStringLiteral(" 2 von 3"));
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
    QTest::keyClicks(page->answerEdit, QStringLiteral("a"));
    page->overviewEntry->trigger();
    QVERIFY(!page->overviewFrame->isHidden() && !page->overviewBorder->isHidden());
    QCOMPARE(page->overviewLines[0]->text(), QStringLiteral("Seite 1 (Frage 1 -  5)"));
    QTest::mouseClick(page->overviewLines[line], Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(page.isNull());
    QVERIFY(!Screens::programmeEnded());
    if (!opened.isEmpty()) {
        QCOMPARE(ProbeForm::log, QStringList({opened + QStringLiteral(":load"),
                                              opened + QStringLiteral(":activate")}));
        return;
    }
    auto *fresh = Screens::loaded<LessonPage>(ScreenId::Page1);
    QVERIFY(fresh);
    QCOMPARE(fresh->pointsLabel->text(), QStringLiteral(" 0 von 0"));
    QVERIFY(fresh->overviewFrame->isHidden());
    fresh->overviewEntry->trigger();
    QTest::mouseClick(fresh->overviewCloseButton, Qt::LeftButton);
    QVERIFY(fresh->overviewFrame->isHidden() && fresh->overviewBorder->isHidden());
    QCOMPARE(fresh->focusWidget(), fresh->answerEdit);
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
    QTest::mouseClick(page->endButton, Qt::LeftButton);
    QVERIFY(!page->exitFrame->isHidden() && !page->exitCover->isHidden());
    QTest::mouseClick(page->stayButton, Qt::LeftButton);
    QVERIFY(page->exitFrame->isHidden() && page->exitCover->isHidden());
    QCOMPARE(page->focusWidget(), page->answerEdit);
    programme.advance(20);
    QTest::keyClicks(page->answerEdit, QStringLiteral("c"));
    QTest::mouseClick(page->endButton, Qt::LeftButton);
    QTest::mouseClick(page->stayButton, Qt::LeftButton);
    QCOMPARE(page->focusWidget(), page->endButton);
    QVERIFY(programme.read(QStringLiteral("StartQelB.txt")).isNull());
    QVERIFY(!Screens::programmeEnded());

    if (!writable)
        course.startFilePath = programme.path(QStringLiteral("gone/StartQelB.txt"));
    QTest::mouseClick(page->endButton, Qt::LeftButton);
    QTest::mouseClick(resumeHere ? page->resumeButton : page->restartButton, Qt::LeftButton);
    QVERIFY(Screens::programmeEnded());
    QVERIFY(!Screens::anyLoaded());
    QCOMPARE(programme.read(QStringLiteral("StartQelB.txt")), expected);
}

QTEST_MAIN(TestLessonPage)
#include "test_lessonpage.moc"
