// SPDX-License-Identifier: GPL-3.0-or-later
#include "grading.h"
#include "modul1.h"
#include "picture.h"
#include "qel11.h"
#include "qelzens.h"
#include "resultlog.h"
#include "screens.h"
#include "seams.h"
#include "testsupport.h"

#include <QAction>
#include <QGroupBox>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

using namespace Modul1;
using namespace Qt::StringLiterals;

namespace {

const QByteArray kFullRunWithWrongClicks =
    "               Test Kelvora\r\n"
    "\r\n"
    "Aufgabe 1\r\n"
    "Welche Ladungstr\xe4ger leiten in Metallen den Strom?\r\n"
    "    Ionen - Falsch\r\n"
    "    freie Elektronen - Richtig\r\n"
    "\r\n"
    "Aufgabe 2\r\n"
    "Welche Ladungstr\xe4ger leiten nach Sto\xdf-   ionisation in Gasen den Strom?\r\n"
    "    Ionen und freie Elektronen - Richtig\r\n"
    "\r\n"
    "Aufgabe 3\r\n"
    "Welche Ladungstr\xe4ger leiten in Halbleitern den Strom?\r\n"
    "    freie Elektronen - Falsch\r\n"
    "    Ionen - Falsch\r\n"
    "    freie Elektronen - Falsch\r\n"
    "    freie Elektronen und L\xf6"
    "cher - Richtig\r\n"
    "\r\n"
    "Aufgabe 4\r\n"
    "Wie hei\xdft der Vorgang, bei dem in einem Gas massenhaft und schnell Ladungs-    tr\xe4ger "
    "erzeugt werden?\r\n"
    "    Sto\xdfionisation - Richtig\r\n"
    "\r\n"
    "Aufgabe 5\r\n"
    "Selen sendet Elektronen aus, wenn es mit Licht bestrahlt wird. Wie hei\xdft dieser "
    "Vorgang?\r\n"
    "    Gl\xfchemission - Falsch\r\n"
    "    Fotoemission - Richtig\r\n"
    "\r\n"
    "Aufgabe 6\r\n"
    "Durch welchen Vorgang werden in einer Braunschen R\xf6hre Ladungs- tr\xe4ger erzeugt?\r\n"
    "    Gl\xfchemission - Richtig\r\n"
    "\r\n"
    "Aufgabe 7\r\n"
    "Wie \xe4ndert sich der Widerstand von Halbleitern, wenn sie erw\xe4rmt werden?\r\n"
    "    wird um ein Vielfaches gr\xf6\xdf"
    "er - Falsch\r\n"
    "    wird kleiner - Richtig\r\n"
    "\r\n"
    "Aufgabe 8\r\n"
    "Welche Leitungsart entsteht in Halb- leitern, wenn Atome mit gr\xf6\xdf"
    "erer An- zahl an Au\xdf"
    "enelektronen eingebaut werden?\r\n"
    "    n-Leitung - Richtig\r\n"
    "\r\n"
    "Aufgabe 9\r\n"
    "Welche Funktion hat eine Halbleiterdiode?\r\n"
    "    Gleichrichten von Wechselstrom - Richtig\r\n"
    "\r\n"
    "Aufgabe 10\r\n"
    "Welche Funktion hat ein Transistor?\r\n"
    "    Erzeugen von Wechselstrom - Falsch\r\n"
    "    Schalter - Richtig\r\n"
    "\r\n"
    "\r\n"
    " 10 Punkte von 17 Punkten\r\n"
    "22.11.2026 14:05:09\r\n";

const QByteArray kPerfectRun =
    "               Test Kelvora\r\n"
    "\r\n"
    "Aufgabe 1\r\n"
    "Welche Ladungstr\xe4ger leiten in Metallen den Strom?\r\n"
    "    freie Elektronen - Richtig\r\n"
    "\r\n"
    "Aufgabe 2\r\n"
    "Welche Ladungstr\xe4ger leiten nach Sto\xdf-   ionisation in Gasen den Strom?\r\n"
    "    Ionen und freie Elektronen - Richtig\r\n"
    "\r\n"
    "Aufgabe 3\r\n"
    "Welche Ladungstr\xe4ger leiten in Halbleitern den Strom?\r\n"
    "    freie Elektronen und L\xf6"
    "cher - Richtig\r\n"
    "\r\n"
    "Aufgabe 4\r\n"
    "Wie hei\xdft der Vorgang, bei dem in einem Gas massenhaft und schnell Ladungs-    tr\xe4ger "
    "erzeugt werden?\r\n"
    "    Sto\xdfionisation - Richtig\r\n"
    "\r\n"
    "Aufgabe 5\r\n"
    "Selen sendet Elektronen aus, wenn es mit Licht bestrahlt wird. Wie hei\xdft dieser "
    "Vorgang?\r\n"
    "    Fotoemission - Richtig\r\n"
    "\r\n"
    "Aufgabe 6\r\n"
    "Durch welchen Vorgang werden in einer Braunschen R\xf6hre Ladungs- tr\xe4ger erzeugt?\r\n"
    "    Gl\xfchemission - Richtig\r\n"
    "\r\n"
    "Aufgabe 7\r\n"
    "Wie \xe4ndert sich der Widerstand von Halbleitern, wenn sie erw\xe4rmt werden?\r\n"
    "    wird kleiner - Richtig\r\n"
    "\r\n"
    "Aufgabe 8\r\n"
    "Welche Leitungsart entsteht in Halb- leitern, wenn Atome mit gr\xf6\xdf"
    "erer An- zahl an Au\xdf"
    "enelektronen eingebaut werden?\r\n"
    "    n-Leitung - Richtig\r\n"
    "\r\n"
    "Aufgabe 9\r\n"
    "Welche Funktion hat eine Halbleiterdiode?\r\n"
    "    Gleichrichten von Wechselstrom - Richtig\r\n"
    "\r\n"
    "Aufgabe 10\r\n"
    "Welche Funktion hat ein Transistor?\r\n"
    "    Verst\xe4rken von Signalen - Richtig\r\n"
    "\r\n"
    " 10 Punkte von 10 Punkten\r\n"
    "22.11.2026 14:05:09\r\n";

const QByteArray kHeadingAndQuestion1 = "               Test Kelvora\r\n"
                                        "\r\n"
                                        "Aufgabe 1\r\n"
                                        "Welche Ladungstr\xe4ger leiten in Metallen den Strom?\r\n";

} // namespace

class TestFinalTest : public QObject {
    Q_OBJECT

private:
    // Opens page 11 as the pupil reaches it, with the grade scale of a programme start.
    Qel11 *openPage() {
        GradeMin5 = 20;
        GradeMin4 = 40;
        GradeMin3 = 60;
        GradeMin2 = 80;
        GradeMin1 = 96;
        auto *page = Screens::show<Qel11>(ScreenId::Qel11);
        [&] {
            QVERIFY(page && QTest::qWaitForWindowExposed(page));
        }();
        return page;
    }

    // Runs a script of steps: an option number is a click on that option button, "a" opens an
    // information screen and returns to the page (a re-activation), "r" restarts the test.
    Qel11 *run(Qel11 *page, const QString &steps) {
        for (const QString &step : steps.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            if (step == QStringLiteral("a")) {
                page->menus.mnuAWeise->trigger();
                [&] {
                    QCOMPARE(Screens::activeScreen()->screenId(), ScreenId::ArbWei);
                }();
                Screens::show(ScreenId::Qel11);
            } else if (step == QStringLiteral("r")) {
                QTest::mouseClick(page->Command4, Qt::LeftButton);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                page = Screens::loaded<Qel11>(ScreenId::Qel11);
            } else {
                const auto i = static_cast<std::size_t>(step.toInt());
                // The second half of the test comes 3 s after question 5.
                if (!page->Option1[i]->isVisible() && page->Timer1->isActive())
                    page->Timer1_Timer();
                [&] {
                    QVERIFY2(page->Option1[i]->isVisible(), qPrintable(step));
                }();
                QTest::mouseClick(page->Option1[i], Qt::LeftButton);
                [&] {
                    QVERIFY2(page->Label16[i]->isVisible(), qPrintable(step));
                }();
            }
        }
        return page;
    }

private Q_SLOTS:
    void initTestCase() {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        registerFinalTestScreens();
        for (ScreenId id : {ScreenId::Qel10, ScreenId::Qel50, ScreenId::ArbWei, ScreenId::Qel1})
            Screens::registerScreen(id, [id] { return new Form(id); });
    }

    void resultLog_data() {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<QString>("totals"); // Label7 "von" Label9 after the last step

        QTest::newRow("wrong clicks, a return to an option, two right options in question 10")
            << QStringLiteral("2 0 7 8 10 8 9 14 16 17 20 24 26 29 33 36 39")
            << kFullRunWithWrongClicks << QStringLiteral("10/17");
        QTest::newRow("no wrong click") << QStringLiteral("0 7 9 14 17 20 26 29 33 38")
                                        << kPerfectRun << QStringLiteral("10/10");
        QTest::newRow("re-activation in question 1 creates the log anew")
            << QStringLiteral("2 a 3 0")
            << kHeadingAndQuestion1 + "    Ionen und freie Elektronen - Falsch\r\n"
                                      "    freie Elektronen - Richtig\r\n"
                                      "\r\n"
            << QStringLiteral("1/3");
        QTest::newRow("re-activation in question 2 repeats its heading")
            << QStringLiteral("0 4 a 7")
            << kHeadingAndQuestion1 + "    freie Elektronen - Richtig\r\n"
                                      "\r\n"
                                      "Aufgabe 2\r\n"
                                      "Welche Ladungstr\xe4ger leiten nach Sto\xdf-   ionisation "
                                      "in Gasen den Strom?\r\n"
                                      "    freie Elektronen - Falsch\r\n"
                                      "Aufgabe 2\r\n"
                                      "Welche Ladungstr\xe4ger leiten nach Sto\xdf-   ionisation "
                                      "in Gasen den Strom?\r\n"
                                      "    Ionen und freie Elektronen - Richtig\r\n"
                                      "\r\n"
            << QStringLiteral("2/3");
        QTest::newRow("restart truncates the log at the first click")
            << QStringLiteral("2 0 4 r 1 0")
            << kHeadingAndQuestion1 + "    freie Elektronen und L\xf6"
                                      "cher - Falsch\r\n"
                                      "    freie Elektronen - Richtig\r\n"
                                      "\r\n"
            << QStringLiteral("1/2");
    }

    void resultLog() {
        QFETCH(QString, steps);
        QFETCH(QByteArray, expected);
        QFETCH(QString, totals);
        TestProgramme programme;
        Qel11 *page = run(openPage(), steps);
        QVERIFY(page);
        QCOMPARE(programme.read(QStringLiteral("TestergebnisQel.doc")), expected);
        QCOMPARE(page->Label7->text() + QLatin1Char('/') + page->Label9->text(), totals);
        // The log is on disk as each line is written, also while it is still open.
        QCOMPARE(ResultLog::isOpen(), !expected.contains("Punkte von"));
        ResultLog::close();
    }

    void finishedTestOffersTheWayOut() {
        TestProgramme programme;
        Qel11 *page = openPage();
        QVERIFY(!page->Command1->isEnabled());
        QVERIFY(!page->Command4->isEnabled());
        QVERIFY(page->Command7->isHidden());
        run(page, QStringLiteral("0 7 9 14 16"));
        QCOMPARE(page->Label6->text(), QStringLiteral("5"));
        QCOMPARE(page->Label10->text(), QStringLiteral("0"));
        QCOMPARE(page->Label12->text(), QStringLiteral("1"));
        QVERIFY(page->Command4->isEnabled());
        QVERIFY(page->Label14[16]->isVisible());
        QVERIFY(page->Label16[17]->isHidden());
        run(page, QStringLiteral("17"));
        QVERIFY(page->Frame1[5]->isHidden());
        QCOMPARE(page->Timer1->interval(), 3000);
        QVERIFY(page->Timer1->isActive());
        page->Timer1_Timer();
        QVERIFY(!page->Timer1->isActive());
        QVERIFY(page->Frame1[5]->isVisible());
        QVERIFY(page->Frame1[4]->isHidden());
        QVERIFY(page->Frame1[0]->isHidden());
        run(page, QStringLiteral("20 26 29 33 39"));
        QVERIFY(!page->Frame1[9]->isEnabled());
        QVERIFY(!page->Frame1[8]->isEnabled());
        for (QPushButton *b : {page->Command1, page->Command4, page->Command5})
            QVERIFY(b->isEnabled());
        QVERIFY(page->Command7->isVisible());
        QVERIFY(page->Label17->isHidden());
        QVERIFY(!ResultLog::isOpen());
        QCOMPARE(page->Label15->isVisible(), false);

        QTest::mouseClick(page->Command1, Qt::LeftButton);
        QCOMPARE(Screens::activeScreen()->screenId(), ScreenId::Qel50);
        QVERIFY(!Screens::loaded(ScreenId::Qel11));
    }

    void grading_data() {
        QTest::addColumn<int>("correct");
        QTest::addColumn<int>("answered");
        QTest::addColumn<QList<int>>("scale"); // GradeMin5 .. GradeMin1
        QTest::addColumn<QString>("grade");

        const QList<int> usual{20, 40, 60, 80, 96};
        QTest::newRow("10 of 12") << 10 << 12 << usual << QStringLiteral("Zensur:   2");
        QTest::newRow("10 of 10") << 10 << 10 << usual << QStringLiteral("Zensur:   1");
        QTest::newRow("10 of 13") << 10 << 13 << usual << QStringLiteral("Zensur:   3");
        QTest::newRow("10 of 50 is exactly 20 %")
            << 10 << 50 << usual << QStringLiteral("Zensur:   5");
        QTest::newRow("10 of 51") << 10 << 51 << usual << QStringLiteral("Zensur:   6");
        QTest::newRow("10 of 25 is exactly 40 %")
            << 10 << 25 << usual << QStringLiteral("Zensur:   4");
        QTest::newRow("scale in reverse order: the last hit wins")
            << 10 << 33 << QList<int>{50, 40, 30, 20, 10} << QStringLiteral("Zensur:   1");
    }

    void grading() {
        QFETCH(int, correct);
        QFETCH(int, answered);
        QFETCH(QList<int>, scale);
        QFETCH(QString, grade);
        TestProgramme programme;
        Qel11 *page = openPage();
        GradeMin5 = static_cast<std::int16_t>(scale[0]);
        GradeMin4 = static_cast<std::int16_t>(scale[1]);
        GradeMin3 = static_cast<std::int16_t>(scale[2]);
        GradeMin2 = static_cast<std::int16_t>(scale[3]);
        GradeMin1 = static_cast<std::int16_t>(scale[4]);
        TestCorrectCount = static_cast<std::int16_t>(correct);
        TestAnsweredCount = static_cast<std::int16_t>(answered);
        page->Image1->show();
        programme.answers << false;
        page->Command5_Click();

        QCOMPARE(programme.questionsAsked.size(), 1);
        QCOMPARE(programme.questionsAsked[0].first,
                 QStringLiteral("Punkttabelle anzeigen bzw. \u00e4ndern?"));
        QCOMPARE(programme.questionsAsked[0].second,
                 QStringLiteral("Punktetabelle f\u00fcr Zensierung"));
        QCOMPARE(page->Label15->text(), grade);
        QVERIFY(page->Label15->isVisible());
        QVERIFY(page->Image1->isHidden());
        QVERIFY(!page->menus.mnuSteuer->isChecked());
        QCOMPARE(programme.read(QStringLiteral("ZensurQel.txt")),
                 "Programm Kelvora:           " + grade.toLatin1() +
                     "\r\n\r\n22.11.2026 14:05:09\r\n");
    }

    void noGradeBeforeTheFirstClick() {
        TestProgramme programme;
        Qel11 *page = openPage();
        programme.answers << false;
        page->Command5_Click();
        QVERIFY(page->Label15->isHidden());
        QVERIFY(!QFile::exists(programme.path(QStringLiteral("ZensurQel.txt"))));
    }

    void gradeScaleScreen() {
        TestProgramme programme;
        Qel11 *page = run(openPage(), QStringLiteral("0 7 9 14 17 20 26 29 33 36 38"));
        programme.answers << true;
        QTest::mouseClick(page->Command5, Qt::LeftButton);
        auto *zens = Screens::loaded<QelZens>(ScreenId::QelZens);
        QVERIFY(zens);
        QCOMPARE(zens->windowTitle(), QStringLiteral("Kelvora - Punktetabelle und Zensierung  "));
        QStringList shown;
        for (QLineEdit *box : zens->Text2)
            shown << box->text();
        QCOMPARE(shown, (QStringList{u"20"_s, u"40"_s, u"60"_s, u"80"_s, u"96"_s}));

        // A scale of 50 % for grade 5: 10 of 11 is still a 2; 95 % for grade 1 makes it a 1.
        QTest::mouseClick(zens->Command4, Qt::LeftButton);
        QVERIFY(!zens->Command4->isEnabled());
        QVERIFY(zens->Text2[0]->text().isEmpty());
        QVERIFY(zens->Text2[0]->hasFocus() || !zens->isActiveWindow());
        const QStringList typed{u"50%"_s, u"60"_s, u"70"_s, u"80%"_s, u"90"_s};
        for (int i = 0; i < 5; ++i) {
            const auto at = static_cast<std::size_t>(i);
            QTest::keyClicks(zens->Text2[at], typed[i]);
            QVERIFY(zens->Command2[at]->isEnabled());
            QTest::mouseClick(zens->Command2[at], Qt::LeftButton);
            QVERIFY(!zens->Command2[at]->isEnabled());
            QVERIFY(zens->Command4->isEnabled());
        }
        QCOMPARE(zens->Text2[0]->text(), QStringLiteral("50"));
        QCOMPARE(zens->Text2[3]->text(), QStringLiteral("80"));
        QCOMPARE((QList<int>{GradeMin5, GradeMin4, GradeMin3, GradeMin2, GradeMin1}),
                 (QList<int>{50, 60, 70, 80, 90}));

        QTest::mouseClick(zens->Command1, Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!Screens::loaded(ScreenId::QelZens));
        QCOMPARE(page->Label15->text(), QStringLiteral("Zensur:   1"));
        QCOMPARE(
            programme.read(QStringLiteral("ZensurQel.txt")),
            QByteArray("Programm Kelvora:           Zensur:   1\r\n\r\n22.11.2026 14:05:09\r\n"));
    }

    void typingIntoTheScale_data() {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("box");
        QTest::addColumn<bool>("nonsenseHint");
        QTest::addColumn<bool>("blankHint");
        QTest::addColumn<bool>("ok");

        QTest::newRow("digits and percent") << u"80%"_s << u"80%"_s << false << false << true;
        QTest::newRow("percent inside passes") << u"5%3"_s << u"5%3"_s << false << false << true;
        QTest::newRow("a letter empties the box") << u"8a"_s << u""_s << true << false << false;
        QTest::newRow("a blank shows both hints") << u"8 "_s << u""_s << true << true << false;
        QTest::newRow("a letter after good input, then digits")
            << u"4x2"_s << u"2"_s << true << false << true;
    }

    void typingIntoTheScale() {
        QFETCH(QString, keys);
        QFETCH(QString, box);
        QFETCH(bool, nonsenseHint);
        QFETCH(bool, blankHint);
        QFETCH(bool, ok);
        TestProgramme programme;
        auto *zens = Screens::show<QelZens>(ScreenId::QelZens);
        QTest::mouseClick(zens->Command4, Qt::LeftButton);
        QVERIFY(zens->Label3[0]->isHidden());
        QTest::keyClicks(zens->Text2[2], keys);
        QCOMPARE(zens->Text2[2]->text(), box);
        QCOMPARE(zens->Label3[0]->isVisible(), nonsenseHint);
        QCOMPARE(zens->Label3[1]->isVisible(), blankHint);
        QCOMPARE(zens->Command2[2]->isEnabled(), ok);
        QCOMPARE(zens->Command2[2]->palette().color(QPalette::Button),
                 ok ? lightGrey() : buttonFace());
        // The hints stay until the scale is opened for editing again, which an OK allows.
        QTest::keyClicks(zens->Text2[0], u"5"_s);
        QTest::mouseClick(zens->Command2[0], Qt::LeftButton);
        QVERIFY(zens->Label3[0]->isVisible() == nonsenseHint);
        QTest::mouseClick(zens->Command4, Qt::LeftButton);
        QVERIFY(zens->Label3[0]->isHidden() && zens->Label3[1]->isHidden());
    }

    void conversionFailures_data() {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("failure");

        QTest::newRow("percent sign inside")
            << u"5%3"_s << QStringLiteral("Typen unvertr\u00e4glich");
        QTest::newRow("percent sign alone") << u"%"_s << QStringLiteral("Typen unvertr\u00e4glich");
        QTest::newRow("empty box") << u""_s << QStringLiteral("Typen unvertr\u00e4glich");
        QTest::newRow("above 32767") << u"32768"_s << QStringLiteral("\u00dcberlauf");
        QTest::newRow("far above") << u"100000%"_s << QStringLiteral("\u00dcberlauf");
    }

    void conversionFailures() {
        QFETCH(QString, keys);
        QFETCH(QString, failure);
        TestProgramme programme;
        auto *zens = Screens::show<QelZens>(ScreenId::QelZens);
        QTest::mouseClick(zens->Command4, Qt::LeftButton);
        QTest::keyClicks(zens->Text2[0], keys);
        try {
            zens->Command2_Click(0);
            QFAIL("the conversion did not fail");
        } catch (const ProgrammeFailure &e) {
            QCOMPARE(QString::fromStdString(e.what()), failure);
        }
        QCOMPARE(GradeMin5, std::int16_t(0));
    }

    void largestThresholdIsTaken() {
        TestProgramme programme;
        auto *zens = Screens::show<QelZens>(ScreenId::QelZens);
        QTest::mouseClick(zens->Command4, Qt::LeftButton);
        QTest::keyClicks(zens->Text2[4], QStringLiteral("32767"));
        QTest::mouseClick(zens->Command2[4], Qt::LeftButton);
        QCOMPARE(GradeMin1, std::int16_t(32767));
    }

    void logThatCannotBeCreated() {
        TestProgramme programme;
        Seams::setProgrammeFolder([&] { return programme.folder() + QStringLiteral("/fehlt"); });
        Qel11 *page = openPage();
        // The creating click passes without a word, the next write ends the programme.
        QTest::mouseClick(page->Option1[1], Qt::LeftButton);
        QCOMPARE(page->Label9->text(), QStringLiteral("1"));
        QVERIFY(!ResultLog::isOpen());
        try {
            page->Option1_Click(0);
            QFAIL("writing to a log that is not open did not fail");
        } catch (const ProgrammeFailure &e) {
            QVERIFY2(QString::fromStdString(e.what()).contains(QStringLiteral("No such file")),
                     e.what());
        }
    }

    void exitFrame_data() {
        QTest::addColumn<int>("button");
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("page");
        QTest::newRow("von vorn beginnen") << 10 << QByteArray("\"50\"\r\n0\r\n") << 50;
        QTest::newRow("hier weiterarbeiten") << 11 << QByteArray("\"11\"\r\n0\r\n") << 11;
    }

    void exitFrame() {
        QFETCH(int, button);
        QFETCH(QByteArray, file);
        QFETCH(int, page);
        TestProgramme programme;
        Qel11 *qel11 = openPage();
        QCOMPARE(CurrentPage, std::int16_t(11));
        QTest::mouseClick(qel11->Command3, Qt::LeftButton);
        QVERIFY(qel11->exitFrame.Frame10->isVisible());
        QTest::mouseClick(qel11->exitFrame.Command12, Qt::LeftButton);
        QVERIFY(qel11->exitFrame.Frame10->isHidden());
        QTest::mouseClick(qel11->Command3, Qt::LeftButton);
        QTest::mouseClick(button == 10 ? qel11->exitFrame.Command10 : qel11->exitFrame.Command11,
                          Qt::LeftButton);
        QVERIFY(Screens::programmeEnded());
        QCOMPARE(programme.read(QStringLiteral("StartQelB.txt")), file);
        QCOMPARE(CurrentPage, std::int16_t(page));
    }

    void overviewAndNavigation() {
        TestProgramme programme;
        Qel11 *page = openPage();
        QCOMPARE(page->overview.lines[10]->text(), QStringLiteral("Seite 11 (Abschlusstest)"));
        page->menus.mnuWo->trigger();
        QVERIFY(page->overview.Frame2->isVisible());
        QTest::mouseClick(page->overview.Command6, Qt::LeftButton);
        QVERIFY(page->overview.Frame2->isHidden());
        page->menus.mnuWo->trigger();
        QTest::mouseClick(page->overview.lines[0], Qt::LeftButton);
        QVERIFY(!Screens::loaded(ScreenId::Qel11));
        QCOMPARE(Screens::activeScreen()->screenId(), ScreenId::Qel1);

        page = openPage();
        QTest::mouseClick(page->Command2, Qt::LeftButton);
        QVERIFY(!Screens::loaded(ScreenId::Qel11));
        QCOMPARE(Screens::activeScreen()->screenId(), ScreenId::Qel10);
    }

    void buttonExplanation() {
        TestProgramme programme;
        Qel11 *page = openPage();
        QStringList entries;
        for (QAction *a : page->menus.mnuAns->actions())
            entries << a->text();
        QCOMPARE(entries, (QStringList{QStringLiteral("&Erkl\u00e4rung Steuerbuttons"),
                                       QStringLiteral("&Wo bin ich?")}));
        QVERIFY(page->Image1->isVisible());
        QVERIFY(page->menus.mnuSteuer->isChecked());
        QVERIFY(page->Timer2->isActive());
        QCOMPARE(page->Timer2->interval(), 8000);
        page->Timer2_Timer();
        QVERIFY(page->Image1->isHidden());
        QVERIFY(!page->menus.mnuSteuer->isChecked());
        QVERIFY(page->Label21->isVisible());
        QVERIFY(!page->Timer2->isActive());
        QVERIFY(page->Timer3->isActive());
        QCOMPARE(page->Timer3->interval(), 8000);
        page->Timer3_Timer();
        QVERIFY(page->Label21->isHidden());
        QVERIFY(!page->Timer3->isActive());
        page->menus.mnuSteuer->trigger();
        QVERIFY(page->Image1->isVisible());
        QVERIFY(page->menus.mnuSteuer->isChecked());
        // Solving question 2 withdraws the explanation.
        run(page, QStringLiteral("0 7"));
        QVERIFY(page->Image1->isHidden());
        QVERIFY(!page->menus.mnuSteuer->isChecked());
    }

    void captions_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("caption");
        const QString instruction =
            QStringLiteral("  \u00dcberlege und klicke dann die richtige") +
            QString(15, QLatin1Char(' ')) + QStringLiteral("L\u00f6sung an.") +
            QString(52, QLatin1Char(' ')) +
            QStringLiteral("\u00dcberlege bei falscher L\u00f6sung noch einmal.");
        QTest::newRow("caption") << u"caption"_s
                                 << QStringLiteral("Kelvora") + QString(114, QLatin1Char(' ')) +
                                        QStringLiteral("Seite 11");
        QTest::newRow("Label1") << u"Label1"_s << QStringLiteral("Abschlusstest");
        QTest::newRow("Label17") << u"Label17"_s << instruction;
        QTest::newRow("Frame1(9)") << u"Frame1_9"_s << QStringLiteral("Aufgabe 10");
        QTest::newRow("Label2(3)")
            << u"Label2_3"_s
            << QStringLiteral("Wie hei\u00dft der Vorgang, bei dem in einem Gas massenhaft und "
                              "schnell Ladungs-    tr\u00e4ger erzeugt werden?");
        QTest::newRow("Option1(5)")
            << u"Option1_5"_s << QStringLiteral("freie Elektronen und L\u00f6cher");
        QTest::newRow("Option1(24)")
            << u"Option1_24"_s << QStringLiteral("wird um ein Vielfaches gr\u00f6\u00dfer");
        QTest::newRow("Label16(38)") << u"Label16_38"_s << QStringLiteral("Richtig");
        QTest::newRow("Label16(37)") << u"Label16_37"_s << QStringLiteral("Falsch");
        QTest::newRow("Command7") << u"Command7"_s
                                  << QStringLiteral("Ausdrucken und Lernprogramm beenden");
        QTest::newRow("Command1 name")
            << u"Command1"_s << QStringLiteral("Weiter zur Schlussseite");
        QTest::newRow("Command4 name") << u"Command4"_s << QStringLiteral("Test neu beginnen");
        QTest::newRow("Command5 name") << u"Command5"_s << QStringLiteral("Zensierung");
        QTest::newRow("Command3 name") << u"Command3"_s << QStringLiteral("Beenden");
        QTest::newRow("Label21") << u"Label21"_s
                                 << QStringLiteral("Erkl\u00e4rung der Buttons ein- und "
                                                   "ausschalten: Men\u00fc: Ansicht / "
                                                   "Erkl\u00e4rung Steuerbuttons");
    }

    void captions() {
        QFETCH(QString, control);
        QFETCH(QString, caption);
        TestProgramme programme;
        Qel11 *page = openPage();
        QString actual;
        if (control == QStringLiteral("caption"))
            actual = page->windowTitle();
        else if (control == QStringLiteral("Label17"))
            actual = page->Label17->caption();
        else if (control.startsWith(QStringLiteral("Label2_")))
            actual = page->Label2[control.mid(7).toUInt()]->caption();
        else if (auto *box = page->findChild<QGroupBox *>(control))
            actual = box->title();
        else if (auto *button = page->findChild<QPushButton *>(control);
                 button && button->text().isEmpty())
            actual = button->accessibleName();
        else if (auto *b = page->findChild<QAbstractButton *>(control))
            actual = b->text();
        else if (control == QStringLiteral("Label1"))
            actual = page->Label1->text();
        else if (control == QStringLiteral("Label21"))
            actual = page->Label21->text();
        else if (auto *label = page->findChild<QLabel *>(control))
            actual = label->text();
        QCOMPARE(actual, caption);
    }

    void dateLine_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("text");
        QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany)
                                << QStringLiteral("22.11.2026 14:05:09");
        QTest::newRow("American") << QLocale(QLocale::English, QLocale::UnitedStates)
                                  << QStringLiteral("11/22/2026 2:05:09 PM");
        QTest::newRow("British") << QLocale(QLocale::English, QLocale::UnitedKingdom)
                                 << QStringLiteral("22/11/2026 14:05:09");
    }

    void dateLine() {
        QFETCH(QLocale, locale);
        QFETCH(QString, text);
        QLocale::setDefault(locale);
        const QString actual = dateTimeText(QDateTime(QDate(2026, 11, 22), QTime(14, 5, 9)));
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(actual, text);
    }
};

QTEST_MAIN(TestFinalTest)
#include "test_finaltest.moc"
