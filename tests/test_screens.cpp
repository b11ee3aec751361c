// SPDX-License-Identifier: GPL-3.0-or-later
// The screen layer: default instances, load and activation, unloading and the end of the
// programme.
#include "screens.h"
#include "testsupport.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

const QList<QPair<ScreenId, QString>> kProbes = {
    {ScreenId::Qel1, QStringLiteral("Qel1")},
    {ScreenId::Qel2, QStringLiteral("Qel2")},
    {ScreenId::ArbWei, QStringLiteral("ArbWei")},
};

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TestScreens : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { registerProbes(kProbes); }
    void showLoadsOnceAndActivates();
    void unloadThenShowKeepsTheProgramme();
    void lastUnloadEndsTheProgramme();
    void closeBoxUnloads();
    void closingAnInformationScreenActivatesThePage();
    void endProgrammeEndsAtOnce();
    void buttonColoursFollowTheEnabledState();
};

void TestScreens::showLoadsOnceAndActivates() {
    TestProgramme programme;
    Form *first = Screens::show(ScreenId::Qel1);
    QVERIFY(first);
    QCOMPARE(Screens::show(ScreenId::Qel1), first);
    QCOMPARE(ProbeForm::log,
             QStringList({QStringLiteral("Qel1:load"), QStringLiteral("Qel1:activate")}));
    QCOMPARE(Screens::activeScreen(), first);
    QVERIFY(!first->isHidden());
}

void TestScreens::unloadThenShowKeepsTheProgramme() {
    TestProgramme programme;
    QPointer<Form> old = Screens::show(ScreenId::Qel1);
    Screens::unload(ScreenId::Qel1);
    Form *fresh = Screens::show(ScreenId::Qel1);
    settle();
    QVERIFY(!Screens::programmeEnded());
    QVERIFY(old.isNull());
    QCOMPARE(Screens::loaded(ScreenId::Qel1), fresh);
    QCOMPARE(ProbeForm::log.count(QStringLiteral("Qel1:load")), 2);
}

void TestScreens::lastUnloadEndsTheProgramme() {
    TestProgramme programme;
    Screens::show(ScreenId::Qel1);
    Screens::show(ScreenId::Qel2);
    Screens::unload(ScreenId::Qel1);
    settle();
    QVERIFY(!Screens::programmeEnded());
    Screens::unload(ScreenId::Qel2);
    QVERIFY(!Screens::programmeEnded()); // not before the handler has returned
    settle();
    QVERIFY(Screens::programmeEnded());
    QVERIFY(!Screens::show(ScreenId::Qel1));
}

void TestScreens::closeBoxUnloads() {
    TestProgramme programme;
    Form *page = Screens::show(ScreenId::Qel1);
    page->close();
    QVERIFY(!Screens::loaded(ScreenId::Qel1));
    settle();
    QVERIFY(Screens::programmeEnded());
}

void TestScreens::closingAnInformationScreenActivatesThePage() {
    TestProgramme programme;
    Screens::show(ScreenId::Qel1);
    Screens::show(ScreenId::ArbWei);
    Screens::show(ScreenId::ArbWei); // chosen twice: still one screen, not activated again
    ProbeForm::log.clear();
    Screens::unload(ScreenId::ArbWei);
    settle();
    QCOMPARE(ProbeForm::log, QStringList{QStringLiteral("Qel1:activate")});
    QCOMPARE(Screens::activeScreen(), Screens::loaded(ScreenId::Qel1));
}

void TestScreens::endProgrammeEndsAtOnce() {
    TestProgramme programme;
    Form *page = Screens::show(ScreenId::Qel1);
    Screens::show(ScreenId::ArbWei);
    auto *timer = new QTimer(page);
    timer->start(10);
    Screens::endProgramme();
    QVERIFY(Screens::programmeEnded());
    QVERIFY(!Screens::anyLoaded());
    QVERIFY(!timer->isActive());
    QVERIFY(page->isHidden());
    QVERIFY(!Screens::show(ScreenId::Qel2));
}

void TestScreens::buttonColoursFollowTheEnabledState() {
    QPushButton button;
    setActive(&button, true);
    QVERIFY(button.isEnabled());
    QCOMPARE(button.palette().color(QPalette::Button), QColor(224, 224, 224));
    setActive(&button, false);
    QVERIFY(!button.isEnabled());
    QCOMPARE(button.palette().color(QPalette::Button), buttonFace());
}

QTEST_MAIN(TestScreens)
#include "test_screens.moc"
