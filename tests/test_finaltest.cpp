// SPDX-License-Identifier: GPL-3.0-or-later
#include "captionlabel.h"
#include "finaltestpage.h"
#include "gradescale.h"
#include "picture.h"
#include "resultlog.h"
#include "screens.h"
#include "seams.h"
#include "testsupport.h"
#include "theme.h"

#include <QAccessible>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// How the log heads questions 1, 2 and 10. The end-to-end test compares the log of a whole test.
const QByteArray kQuestion[] = {
    "Aufgabe 1\r\nWelche Ladungstr\xe4ger leiten in Metallen den Strom?\r\n",
    "Aufgabe 2\r\nWelche Ladungstr\xe4ger leiten nach Sto\xdf-   ionisation in Gasen den "
    "Strom?\r\n"};
const QByteArray kLastQuestion = "Aufgabe 10\r\nWelche Funktion hat ein Transistor?\r\n";

// The whole log: the heading, each question with its click lines and an empty line, then `tail`.
QByteArray logOf(const QByteArrayList &clicks, const QByteArray &tail = {}) {
    QByteArray log = "               Test Kelvora\r\n\r\n";
    for (qsizetype k = 0; k < clicks.size(); ++k)
        log += kQuestion[k] + clicks[k] + "\r\n";
    return log + tail;
}

// The page at a glance: the questions on view (solved ones in brackets), then the controls on
// view, the check mark of the button explanation, the usable buttons and the running timers.
QString glance(FinalTestPage *p) {
    QStringList on;
    for (std::size_t k = 0; k < p->questionFrames.size(); ++k) {
        if (p->questionFrames[k]->isVisible())
            on << (p->questionFrames[k]->isEnabled() ? u"%1"_s : u"(%1)"_s).arg(k + 1);
    }
    const bool set[] = {p->explanationPicture->isVisible(), p->gradeLabel->isVisible(),
                        p->instructionLabel->isVisible(),   p->explanationHint->isVisible(),
                        p->printButton->isVisible(),        p->explanationEntry->isChecked(),
                        p->endPageButton->isEnabled(),      p->restartTestButton->isEnabled(),
                        p->gradeButton->isEnabled(),        p->halfChangeTimer->isActive(),
                        p->explanationTimer->isActive(),    p->hintTimer->isActive()};
    const QStringList names =
        u"Image1 Label15 Label17 Label21 Command7 mnuSteuer Command1 Command4 "
        u"Command5 Timer1 Timer2 Timer3"_s.split(u' ');
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (set[i])
            on << names[i];
    }
    return on.join(u' ');
}

const QByteArray kDate = "03.04.2026 09:05:07\r\n"; // leading zeros, whatever the locale

// What screen readers say by itself, where no control takes the focus: the notifications shown.
QString announced(QWidget *screen) {
    QStringList said;
    for (QWidget *w : screen->findChildren<QWidget *>()) {
        QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(w);
        if (iface->role() == QAccessible::Notification && !w->isHidden())
            said << iface->text(QAccessible::Name);
    }
    return said.join(u' ');
}

} // namespace

class TestFinalTest : public QObject {
    Q_OBJECT
    std::optional<TestProgramme> programme;

    // Opens page 11 as the pupil reaches it, with the grade scale of a programme start.
    FinalTestPage *openPage() {
        programme->course.setGradeScale(kDefaultGradeScale);
        auto *page = Screens::show<FinalTestPage>(ScreenId::FinalTest);
        return QTest::qWaitForWindowExposed(page) ? page : nullptr;
    }

    // Runs a script of steps: an option number is a click on that option button, "a" opens an
    // information screen and returns to the page (a re-activation), "r" restarts the test, "o"
    // chooses the line of this page in the overview.
    FinalTestPage *run(FinalTestPage *page, const QString &steps) {
        for (const QString &step : steps.split(u' ')) {
            if (step == u"a"_s) {
                page->workingMethodEntry->trigger();
                Screens::show(ScreenId::FinalTest);
            } else if (step == u"r"_s || step == u"o"_s) {
                if (step == u"o"_s)
                    page->openOverview();
                QTest::mouseClick(step == u"r"_s ? page->restartTestButton
                                                 : page->overview->lines[10],
                                  Qt::LeftButton);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                page = Screens::loaded<FinalTestPage>(ScreenId::FinalTest);
            } else {
                clickOptions(page, {step.toInt()});
            }
        }
        return page;
    }

private Q_SLOTS:
    void initTestCase() {
        TestProgramme::screens = registerFinalTestScreens;
        for (ScreenId id :
             {ScreenId::Page10, ScreenId::EndPage, ScreenId::WorkingMethod, ScreenId::Page1})
            Screens::registerScreen(id, [id](double factor) { return new Form(id, factor); });
    }
    void init() { programme.emplace(); }
    void cleanup() {
        ResultLog::close();
        programme.reset();
    }

    // NOLINTBEGIN(bugprone-suspicious-missing-comma): long log lines go on in a second literal
    void resultLog_data() {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<QString>("totals");    // Label7 "von" Label9 after the last step
        QTest::addColumn<QString>("announced"); // after the last click

        // The end of the log: the totals after an empty line (after wrong clicks in question
        // 10, two: the end-to-end test).
        QTest::newRow("question 10 without a wrong click, its second right option")
            << u"0 7 9 14 17 20 26 29 33 39"_s
            << kLastQuestion + "    Schalter - Richtig\r\n\r\n 10 Punkte von 10 Punkten\r\n" + kDate
            << u"10/10"_s
            << u"Richtig, Aufgabe gelöst. Punkte: 1 von 1. Gesamtpunkte: 10 von 10."_s;
        QTest::newRow("re-activation in question 1 creates the log anew")
            << u"2 a 3 0"_s
            << logOf({"    Ionen und freie Elektronen - Falsch\r\n"
                      "    freie Elektronen - Richtig\r\n"})
            << u"1/3"_s << u"Richtig, Aufgabe gelöst. Punkte: 1 von 3. Gesamtpunkte: 1 von 3."_s;
        QTest::newRow("a return to an option; re-activation in question 2 repeats its heading")
            << u"0 4 5 4 a 7"_s
            << logOf({"    freie Elektronen - Richtig\r\n",
                      "    freie Elektronen - Falsch\r\n    freie Elektronen und L\xf6"
                      "cher - Falsch\r\n    freie Elektronen - Falsch\r\n" +
                          kQuestion[1] + "    Ionen und freie Elektronen - Richtig\r\n"})
            << u"2/5"_s << u"Richtig, Aufgabe gelöst. Punkte: 1 von 4. Gesamtpunkte: 2 von 5."_s;
        QTest::newRow("restart truncates the log at the first click")
            << u"2 0 4 r 1 0"_s
            << logOf({"    freie Elektronen und L\xf6"
                      "cher - Falsch\r\n    freie Elektronen - Richtig\r\n"})
            << u"1/2"_s << u"Richtig, Aufgabe gelöst. Punkte: 1 von 2. Gesamtpunkte: 1 von 2."_s;
        QTest::newRow("a wrong click")
            << u"0 5"_s
            << kQuestion[1] + "    freie Elektronen und L\xf6"
                              "cher - Falsch\r\n"
            << u"1/2"_s << u"Falsch. Punkte: 0 von 1. Gesamtpunkte: 1 von 2."_s;
        QTest::newRow("this page's line in the overview starts a new test too")
            << u"2 0 4 o 1 0"_s
            << logOf({"    freie Elektronen und L\xf6"
                      "cher - Falsch\r\n    freie Elektronen - Richtig\r\n"})
            << u"1/2"_s << u"Richtig, Aufgabe gelöst. Punkte: 1 von 2. Gesamtpunkte: 1 von 2."_s;
    }

    // NOLINTEND(bugprone-suspicious-missing-comma)

    void resultLog() {
        QFETCH(QString, steps);
        QFETCH(QByteArray, expected);
        QFETCH(QString, totals);
        QFETCH(QString, announced);
        FinalTestPage *page = openPage();
        QVERIFY(page);
        page = run(page, steps);
        const QByteArray log = programme->read(u"TestergebnisQel.doc"_s);
        QCOMPARE(expected.startsWith("Aufgabe") ? log.right(expected.size()) : log, expected);
        QCOMPARE(page->totalCorrectLabel->text() + u'/' + page->totalAnsweredLabel->text(), totals);
        QCOMPARE(::announced(page), announced);
    }

    // The button explanation until question 2 is solved (its timers as on page 1, tested there;
    // Timer2 runs on), then the pupil works through the test and leaves.
    void pageAtAGlance() {
        FinalTestPage *page = openPage();
        QCOMPARE(page->viewMenu->actions().size(), 2); // no "Punktanzeige"
        QCOMPARE(glance(page), u"1 Image1 Label17 mnuSteuer Timer2"_s);
        // A screen reader reads the options with their question, the word broken by hand whole.
        QCOMPARE(
            page->questionFrames[1]->accessibleName(),
            u"Aufgabe 2: Welche Ladungsträger leiten nach Stoßionisation in Gasen den Strom?"_s);
        run(page, u"0 7"_s);
        QCOMPARE(glance(page), u"(1) (2) 3 Label17 Command4 Timer2"_s);
        run(page, u"9 14 16"_s);
        QCOMPARE(glance(page), u"(1) (2) (3) (4) 5 Label17 Command4 Timer2"_s);
        QTest::mouseClick(page->optionButtons[17], Qt::LeftButton);
        QCOMPARE(glance(page), u"(1) (2) (3) (4) (5) Label17 Command4 Timer1 Timer2"_s);
        page->showSecondHalf();
        QCOMPARE(glance(page), u"6 Label17 Command4 Timer2"_s);
        run(page, u"20 26 29 33 39"_s);
        QCOMPARE(glance(page),
                 u"(6) (7) (8) (9) (10) Command7 Command1 Command4 Command5 Timer2"_s);
        QCOMPARE(page->gradeButton->accessibleDescription(),
                 u"Test beendet: 10 Punkte von 11 Punkten"_s);
        QVERIFY_THROWS_EXCEPTION(ProgrammeFailure, ResultLog::writeEmptyLine()); // closed
        QTest::mouseClick(page->endPageButton, Qt::LeftButton);
        QCOMPARE(Screens::activeScreen()->screenId(), ScreenId::EndPage);
        QVERIFY(!Screens::loaded(ScreenId::FinalTest));
    }

    void grading_data() {
        QTest::addColumn<int>("correct");
        QTest::addColumn<int>("answered");
        QTest::addColumn<QString>("typed"); // typed box by box on the scale screen
        QTest::addColumn<QString>("grade"); // empty: no grade shown, no file written

        // The grade itself by the scale: test_course.
        QTest::newRow("10 of 12") << 10 << 12 << u""_s << u"Zensur:   2"_s;
        QTest::newRow("before the first click") << 0 << 0 << u""_s << QString();
        QTest::newRow("scale changed on its screen: 10 of 11 is a 1 by 90 %")
            << 10 << 11 << u"50% 60 70 80% 90"_s << u"Zensur:   1"_s;
    }

    void grading() {
        QFETCH(int, correct);
        QFETCH(int, answered);
        QFETCH(QString, typed);
        QFETCH(QString, grade);
        FinalTestPage *page = openPage();
        for (int click = 0; click < answered; ++click)
            programme->course.countTestClick(click < correct);
        page->explanationPicture->show();
        programme->answers << !typed.isEmpty();
        page->askForGrade();
        if (auto *zens = Screens::loaded<GradeScaleScreen>(ScreenId::GradeScale)) {
            // The default scale in words, blanks and all.
            QVERIFY(zens->explanationLabel->caption().endsWith(
                u"festgelegt:        bis unter 20%:  Zensur 6,        mindestens 20% bis unter "
                u"40%:  Zensur 5,        mindestens 40% bis unter 60%:  Zensur 4,        "
                u"mindestens 60% bis unter 80%:  Zensur 3,        mindestens 80% bis unter 96%:  "
                u"Zensur 2,        mindestens 96%:  Zensur 1."_s));
            QTest::mouseClick(zens->changeScaleButton, Qt::LeftButton);
            QVERIFY(!zens->changeScaleButton->isEnabled() &&
                    zens->thresholdEdits[0]->text().isEmpty());
            QVERIFY(zens->thresholdEdits[0]->hasFocus() || !zens->isActiveWindow());
            for (std::size_t i = 0; i < 5; ++i) {
                QTest::keyClicks(zens->thresholdEdits[i], typed.split(u' ')[qsizetype(i)]);
                QTest::mouseClick(zens->okButtons[i], Qt::LeftButton);
                QVERIFY(!zens->okButtons[i]->isEnabled() && zens->changeScaleButton->isEnabled());
            }
            QCOMPARE(programme->course.gradeScale(), (GradeScale{50, 60, 70, 80, 90}));
            QCOMPARE(zens->thresholdEdits[0]->text() + zens->thresholdEdits[3]->text(), u"5080"_s);
            // A screen reader reads a box's text as one run: "50", not "5".
            QAccessibleTextInterface *box =
                QAccessible::queryAccessibleInterface(zens->thresholdEdits[0])->textInterface();
            int start = -1;
            int end = -1;
            box->attributes(1, &start, &end);
            QCOMPARE(box->text(start, end), u"50"_s);
            QTest::mouseClick(zens->gradeButton, Qt::LeftButton);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(!Screens::loaded(ScreenId::GradeScale));
        }
        QCOMPARE(page->explanationPicture->isHidden(), typed.isEmpty());
        QCOMPARE(page->explanationEntry->isChecked(), !typed.isEmpty());
        QCOMPARE(page->gradeLabel->isVisible(), !grade.isEmpty());
        QCOMPARE(page->gradeLabel->text(), grade);
        QCOMPARE(page->endPageButton->accessibleDescription(), grade.simplified());
        if (grade.isEmpty())
            QVERIFY(!QFile::exists(programme->path(u"ZensurQel.txt"_s)));
        else
            QCOMPARE(programme->read(u"ZensurQel.txt"_s),
                     "Programm Kelvora:           " + grade.toLatin1() + "\r\n\r\n" + kDate);
    }

    // What box 0 of the scale shows after typing, with its hints and its OK button when usable,
    // then what its OK takes: the threshold or the failure that ends the programme.
    void scaleBox_data() {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("seen");
        QTest::addColumn<QString>("taken");
        const QString mismatch = u"Typen unvertr\u00e4glich"_s, overflow = u"\u00dcberlauf"_s;
        QTest::newRow("digits and percent") << u"80%"_s << u"80% OK"_s << u"80"_s;
        QTest::newRow("percent inside") << u"5%3"_s << u"5%3 OK"_s << mismatch;
        QTest::newRow("percent sign alone") << u"%"_s << u"% OK"_s << mismatch;
        QTest::newRow("a letter empties the box") << u"8a"_s << u" nonsense"_s << mismatch;
        QTest::newRow("a blank: both hints") << u"8 "_s << u" nonsense blank"_s << mismatch;
        QTest::newRow("a letter, then digits") << u"4x2"_s << u"2 nonsense OK"_s << u"2"_s;
        QTest::newRow("largest") << u"32767"_s << u"32767 OK"_s << u"32767"_s;
        QTest::newRow("above 32767") << u"32768"_s << u"32768 OK"_s << overflow;
        QTest::newRow("far above") << u"100000%"_s << u"100000% OK"_s << overflow;
    }

    void scaleBox() {
        QFETCH(QString, keys);
        QFETCH(QString, seen);
        QFETCH(QString, taken);
        auto *zens = Screens::show<GradeScaleScreen>(ScreenId::GradeScale);
        QTest::mouseClick(zens->changeScaleButton, Qt::LeftButton);
        const auto shown = [zens] {
            const bool ok = zens->okButtons[0]->isEnabled();
            const bool grey =
                zens->okButtons[0]->palette().color(QPalette::Button) == Theme::activeButton();
            return zens->thresholdEdits[0]->text() +
                   (zens->hintLabels[0]->isVisible() ? u" nonsense"_s : u""_s) +
                   (zens->hintLabels[1]->isVisible() ? u" blank"_s : u""_s) +
                   (ok && grey   ? u" OK"_s
                    : ok || grey ? u" half usable"_s
                                 : u""_s);
        };
        QCOMPARE(shown(), u""_s);
        QTest::keyClicks(zens->thresholdEdits[0], keys);
        QCOMPARE(shown(), seen);
        // The focus stays in the box; a screen reader says the hints by themselves.
        const QString nonsense =
            u"Hinweis: Diese Eingabe war unsinnig und wurde automatisch gelöscht."_s;
        const QString blank =
            u"Hinweis: Diese Eingabe wurde automatisch gelöscht. Bitte keine Leerzeichen eingeben."_s;
        QCOMPARE(announced(zens), seen.contains(u"blank")      ? nonsense + u' ' + blank
                                  : seen.contains(u"nonsense") ? nonsense
                                                               : QString());
        // The hints stay until the scale is opened for editing again, which an OK allows.
        QTest::keyClicks(zens->thresholdEdits[1], u"5"_s);
        QTest::mouseClick(zens->okButtons[1], Qt::LeftButton);
        QCOMPARE(shown(), seen);
        try {
            zens->takeThreshold(0);
            QCOMPARE(QString::number(programme->course.gradeScale()[0]), taken);
        } catch (const ProgrammeFailure &e) {
            QCOMPARE(QString::fromStdString(e.what()), taken);
            QCOMPARE(programme->course.gradeScale()[0], std::int16_t(0));
        }
        QTest::mouseClick(zens->changeScaleButton, Qt::LeftButton);
        QVERIFY(zens->hintLabels[0]->isHidden() && zens->hintLabels[1]->isHidden());
    }

    void logThatCannotBeCreated() {
        // A file stands where the programme folder should be, so no folder can be made there.
        programme->write(u"Datei"_s, "x");
        Seams::setProgrammeFolder([this] { return programme->path(u"Datei"_s); });
        FinalTestPage *page = openPage();
        // The creating click passes without a word, the next write ends the programme.
        QTest::mouseClick(page->optionButtons[1], Qt::LeftButton);
        QCOMPARE(page->totalAnsweredLabel->text(), u"1"_s);
        try {
            page->onOptionClicked(0);
            QFAIL("writing to a log that is not open did not fail");
        } catch (const ProgrammeFailure &e) {
            QCOMPARE(
                QString::fromStdString(e.what()),
                openFailure(programme->path(u"Datei/TestergebnisQel.doc"_s), QIODevice::WriteOnly));
        }
    }

    // The ways off page 11 that other tests do not take: "<<", and "von vorn beginnen" in the
    // exit frame after "Ich möchte nicht beenden", which saves page 50 with page 11's zero.
    void leaving_data() {
        QTest::addColumn<QString>("clicks");  // controls clicked in turn, "mnuWo" the menu entry
        QTest::addColumn<QString>("after");   // the screen then active; "-": the programme ended
        QTest::addColumn<QByteArray>("file"); // StartQelB.txt
        QTest::newRow("<<") << u"Command2"_s << u"Qel10"_s << QByteArray();
        QTest::newRow("von vorn beginnen") << u"Command3 Command12 Command3 Command10"_s << u"-"_s
                                           << QByteArray("\"50\"\r\n0\r\n");
    }
    void leaving() {
        QFETCH(QString, clicks);
        QFETCH(QString, after);
        QFETCH(QByteArray, file);
        FinalTestPage *page = openPage();
        QVERIFY(work(page, clicks));
        settle();
        QCOMPARE(Screens::programmeEnded() ? u"-"_s : Screens::activeScreen()->objectName(), after);
        QVERIFY(!Screens::loaded(ScreenId::FinalTest));
        QCOMPARE(programme->read(u"StartQelB.txt"_s), file);
    }
};

QTEST_MAIN(TestFinalTest)
#include "test_finaltest.moc"
