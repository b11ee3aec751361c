// SPDX-License-Identifier: GPL-3.0-or-later
// The screen layer: default instances, load and activation, unloading and the end of the
// programme.
#include "screens.h"
#include "testsupport.h"

using namespace Qt::StringLiterals;

class TestScreens : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        registerProbes({{ScreenId::Page1, u"Qel1"_s},
                        {ScreenId::Page2, u"Qel2"_s},
                        {ScreenId::WorkingMethod, u"ArbWei"_s}});
    }

    // A screen shown twice is loaded and activated once; the page under a screen that closes
    // becomes active again once the handler has returned.
    void showAndUnload() {
        TestProgramme programme;
        Form *page = Screens::show(ScreenId::Page1);
        QVERIFY(page && !page->isHidden());
        QCOMPARE(Screens::show(ScreenId::Page1), page);
        Screens::show(ScreenId::WorkingMethod);
        Screens::show(ScreenId::WorkingMethod);
        Screens::unload(ScreenId::WorkingMethod);
        settle();
        QCOMPARE(ProbeForm::log, QStringList({u"Qel1:load"_s, u"Qel1:activate"_s, u"ArbWei:load"_s,
                                              u"ArbWei:activate"_s, u"Qel1:activate"_s}));
        QCOMPARE(Screens::activeScreen(), page);
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

    void endProgrammeEndsAtOnce() {
        TestProgramme programme;
        Form *page = Screens::show(ScreenId::Page1);
        Screens::show(ScreenId::WorkingMethod);
        auto *timer = new QTimer(page);
        timer->start(10);
        Screens::endProgramme();
        QVERIFY(Screens::programmeEnded() && !Screens::anyLoaded());
        QVERIFY(!timer->isActive() && page->isHidden());
        QVERIFY(!Screens::show(ScreenId::Page2));
    }
};

QTEST_MAIN(TestScreens)
#include "test_screens.moc"
