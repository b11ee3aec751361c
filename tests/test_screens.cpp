// SPDX-License-Identifier: GPL-3.0-or-later
// The screen layer: default instances, load and activation, unloading and the end of the
// programme.
#include "screens.h"
#include "testsupport.h"
#include "theme.h"
#include "widgets.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

const QList<QPair<ScreenId, QString>> kProbes = {
    {ScreenId::Page1, QStringLiteral("Qel1")},
    {ScreenId::Page2, QStringLiteral("Qel2")},
    {ScreenId::WorkingMethod, QStringLiteral("ArbWei")},
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
    Form *first = Screens::show(ScreenId::Page1);
    QVERIFY(first);
    QCOMPARE(Screens::show(ScreenId::Page1), first);
    QCOMPARE(ProbeForm::log,
             QStringList({QStringLiteral("Qel1:load"), QStringLiteral("Qel1:activate")}));
    QCOMPARE(Screens::activeScreen(), first);
    QVERIFY(!first->isHidden());
}

void TestScreens::unloadThenShowKeepsTheProgramme() {
    TestProgramme programme;
    QPointer<Form> old = Screens::show(ScreenId::Page1);
    Screens::unload(ScreenId::Page1);
    Form *fresh = Screens::show(ScreenId::Page1);
    settle();
    QVERIFY(!Screens::programmeEnded());
    QVERIFY(old.isNull());
    QCOMPARE(Screens::loaded(ScreenId::Page1), fresh);
    QCOMPARE(ProbeForm::log.count(QStringLiteral("Qel1:load")), 2);
}

void TestScreens::lastUnloadEndsTheProgramme() {
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

void TestScreens::closeBoxUnloads() {
    TestProgramme programme;
    Form *page = Screens::show(ScreenId::Page1);
    page->close();
    QVERIFY(!Screens::loaded(ScreenId::Page1));
    settle();
    QVERIFY(Screens::programmeEnded());
}

void TestScreens::closingAnInformationScreenActivatesThePage() {
    TestProgramme programme;
    Screens::show(ScreenId::Page1);
    Screens::show(ScreenId::WorkingMethod);
    Screens::show(ScreenId::WorkingMethod); // chosen twice: still one screen, not activated again
    ProbeForm::log.clear();
    Screens::unload(ScreenId::WorkingMethod);
    settle();
    QCOMPARE(ProbeForm::log, QStringList{QStringLiteral("Qel1:activate")});
    QCOMPARE(Screens::activeScreen(), Screens::loaded(ScreenId::Page1));
}

void TestScreens::endProgrammeEndsAtOnce() {
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

void TestScreens::buttonColoursFollowTheEnabledState() {
    QPushButton button;
    setActive(&button, true);
    QVERIFY(button.isEnabled());
    QCOMPARE(button.palette().color(QPalette::Button), QColor(224, 224, 224));
    setActive(&button, false);
    QVERIFY(!button.isEnabled());
    QCOMPARE(button.palette().color(QPalette::Button), Theme::buttonFace());
}

QTEST_MAIN(TestScreens)
#include "test_screens.moc"
