// SPDX-License-Identifier: GPL-3.0-or-later
// The screen layer: default instances, load and activation, unloading and the end of the
// programme.
#include "screens.h"
#include "testsupport.h"

#include <QPointer>
#include <QTest>
#include <QTimer>

class TestScreens : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        registerProbes({{ScreenId::Page1, QStringLiteral("Qel1")},
                        {ScreenId::Page2, QStringLiteral("Qel2")},
                        {ScreenId::WorkingMethod, QStringLiteral("ArbWei")}});
    }

    void showLoadsOnceAndActivates() {
        TestProgramme programme;
        Form *first = Screens::show(ScreenId::Page1);
        QVERIFY(first);
        QCOMPARE(Screens::show(ScreenId::Page1), first);
        QCOMPARE(ProbeForm::log,
                 QStringList({QStringLiteral("Qel1:load"), QStringLiteral("Qel1:activate")}));
        QCOMPARE(Screens::activeScreen(), first);
        QVERIFY(!first->isHidden());
    }

    void lastUnloadEndsTheProgramme() {
        TestProgramme programme;
        Screens::show(ScreenId::Page1);
        Screens::show(ScreenId::Page2);
        Screens::unload(ScreenId::Page1);
        settle();
        QVERIFY(!Screens::programmeEnded());
        Screens::unload(ScreenId::Page2);
        QVERIFY(!Screens::programmeEnded()); // not before the handler has returned
        settle();
        QVERIFY(Screens::programmeEnded());
        QVERIFY(!Screens::show(ScreenId::Page1));
    }

    void closingAnInformationScreenActivatesThePage() {
        TestProgramme programme;
        Screens::show(ScreenId::Page1);
        Screens::show(ScreenId::WorkingMethod);
        Screens::show(
            ScreenId::WorkingMethod); // chosen twice: still one screen, not activated again
        ProbeForm::log.clear();
        Screens::unload(ScreenId::WorkingMethod);
        settle();
        QCOMPARE(ProbeForm::log, QStringList{QStringLiteral("Qel1:activate")});
        QCOMPARE(Screens::activeScreen(), Screens::loaded(ScreenId::Page1));
    }

    void endProgrammeEndsAtOnce() {
        TestProgramme programme;
        Form *page = Screens::show(ScreenId::Page1);
        Screens::show(ScreenId::WorkingMethod);
        auto *timer = new QTimer(page);
        timer->start(10);
        Screens::endProgramme();
        QVERIFY(Screens::programmeEnded());
        QVERIFY(!Screens::anyLoaded());
        QVERIFY(!timer->isActive());
        QVERIFY(page->isHidden());
        QVERIFY(!Screens::show(ScreenId::Page2));
    }
};

QTEST_MAIN(TestScreens)
#include "test_screens.moc"
