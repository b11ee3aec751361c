// SPDX-License-Identifier: GPL-3.0-or-later
// The display-mode screen against a display whose modes and answers the test decides.
#include "aufloesung.h"
#include "modul1.h"
#include "modul2.h"
#include "pageframe.h"
#include "screens.h"
#include "testsupport.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class FakeDisplay : public DisplayBackend {
public:
    QList<DisplaySize> modes;
    DisplaySize current;
    bool accepts = true;
    QList<DisplaySize> changes;

    std::optional<DisplaySize> mode(int index) override {
        if (index < 0 || index >= modes.size())
            return std::nullopt;
        return modes.at(index);
    }
    void change(int width, int height) override {
        changes.append({width, height});
        if (accepts && modes.contains(DisplaySize{width, height}))
            current = {width, height};
    }
    DisplaySize currentSize() override { return current; }
};

QList<DisplaySize> sizes(const QList<QSize> &list) {
    QList<DisplaySize> result;
    for (const QSize &s : list)
        result.append({s.width(), s.height()});
    return result;
}

QStringList entries(const QListWidget *list) {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts.append(list->item(i)->text());
    return texts;
}

// A display offering 800 x 600, 1024 x 768 and 640 x 480 at several depths and rates.
const QList<QSize> kOffice{{800, 600},  {800, 600},   {1024, 768}, {640, 480},
                           {1024, 768}, {1280, 1024}, {800, 600},  {640, 480}};

} // namespace

class TestDisplay : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestProgramme> programme_;
    FakeDisplay *display_ = nullptr;

    Auflösung *open(const QList<QSize> &modes, QSize current) {
        display_->modes = sizes(modes);
        display_->current = {current.width(), current.height()};
        return Screens::show<Auflösung>(ScreenId::Auflösung);
    }
    void click(Auflösung *screen, const QString &entry) {
        const QList<QListWidgetItem *> found = screen->List1->findItems(entry, Qt::MatchExactly);
        QVERIFY2(found.size() == 1, qPrintable(entry));
        const QRect rect = screen->List1->visualItemRect(found.first());
        QTest::mouseClick(screen->List1->viewport(), Qt::LeftButton, {}, rect.center());
    }

private Q_SLOTS:
    void init() {
        programme_ = std::make_unique<TestProgramme>();
        registerDisplayScreens();
        auto display = std::make_unique<FakeDisplay>();
        display_ = display.get();
        Modul2::setDisplayBackend(std::move(display));
    }
    void cleanup() {
        programme_.reset();
        Modul2::setDisplayBackend(nullptr);
        display_ = nullptr;
    }

    void texts_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("text");
        QTest::addRow("caption") << "caption"
                                 << QString(QStringLiteral("Kelvora") + QString(97, u' ') +
                                            QStringLiteral("Bildschirmauflösung"));
        QTest::addRow("Label1")
            << "Label1"
            << "Wenn dir die Bildschirmanzeige zu groß oder zu klein ist, solltest du "
               "kontrollieren, "
               "ob die Bildschirmauflösung optimal ist. Deine gegenwärtige Bildschirmauflösung "
               "wird angezeigt:";
        QTest::addRow("Label5") << "Label5"
                                << "Bildschirmauflösung";
        QTest::addRow("Label2")
            << "Label2"
            << "Beträgt die Bildschirmauflösung nicht 800 x 600, dann klicke den Eintrag \"800 x "
               "600\" an. Klicke nun die Schaltfläche \"Auflösung ändern\". Es ist auch möglich, "
               "mit der Auflösung \"1024 x 768\" zu arbeiten.";
        QTest::addRow("Label4") << "Label4"
                                << "Kleine Schrift";
        QTest::addRow("Label3") << "Label3"
                                << "Große Schrift";
        QTest::addRow("Command1") << "Command1"
                                  << "Auflösung ändern";
        QTest::addRow("Command2 has no caption") << "Command2"
                                                 << "";
        QTest::addRow("Command2 name") << "Command2 name"
                                       << "Schließen";
        QTest::addRow("Command2 tip") << "Command2 tip"
                                      << "Schließen";
    }
    void texts() {
        QFETCH(QString, control);
        QFETCH(QString, text);
        Auflösung *screen = open(kOffice, {800, 600});
        const QHash<QString, QString> shown{
            {QStringLiteral("caption"), screen->windowTitle()},
            {QStringLiteral("Label1"), screen->Label1->text()},
            {QStringLiteral("Label5"), screen->Label5->text()},
            {QStringLiteral("Label2"), screen->Label2->text()},
            {QStringLiteral("Label4"), screen->Label4->text()},
            {QStringLiteral("Label3"), screen->Label3->text()},
            {QStringLiteral("Command1"), screen->Command1->text()},
            {QStringLiteral("Command2"), screen->Command2->text()},
            {QStringLiteral("Command2 name"), screen->Command2->accessibleName()},
            {QStringLiteral("Command2 tip"), screen->Command2->toolTip()},
        };
        QCOMPARE(shown.value(control).toUtf8(), text.toUtf8());
    }

    void opening_data() {
        QTest::addColumn<QList<QSize>>("modes");
        QTest::addColumn<QSize>("current");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("selected");
        const QStringList office{u"800 x 600"_s, u"1024 x 768"_s, u"640 x 480"_s, u"1280 x 1024"_s};
        QTest::addRow("depths and rates listed once") << kOffice << QSize(1024, 768) << office << 1;
        QTest::addRow("current first") << kOffice << QSize(800, 600) << office << 0;
        QTest::addRow("current last") << kOffice << QSize(1280, 1024) << office << 3;
        QTest::addRow("current not offered") << kOffice << QSize(1366, 768) << office << -1;
        QTest::addRow("same width only") << kOffice << QSize(800, 768) << office << -1;
        QTest::addRow("no modes") << QList<QSize>{} << QSize(800, 600) << QStringList{} << -1;
        QTest::addRow("not sorted by size")
            << QList<QSize>{{3840, 2160}, {640, 480}, {2560, 1440}, {3840, 2160}}
            << QSize(2560, 1440) << QStringList{u"3840 x 2160"_s, u"640 x 480"_s, u"2560 x 1440"_s}
            << 2;
    }
    void opening() {
        QFETCH(QList<QSize>, modes);
        QFETCH(QSize, current);
        QFETCH(QStringList, expected);
        QFETCH(int, selected);
        Auflösung *screen = open(modes, current);
        QVERIFY(screen->isVisible());
        QCOMPARE(entries(screen->List1), expected);
        QCOMPARE(screen->List1->currentRow(), selected);
        QCOMPARE(screen->List1->selectedItems().size(), selected == -1 ? 0 : 1);
        QVERIFY(!screen->Command1->isEnabled());
        QCOMPARE(screen->Command1->palette().color(QPalette::Button), buttonFace());
        QCOMPARE(Modul2::ResolutionText(),
                 QString::number(current.width()) + u" x "_s + QString::number(current.height()));
    }

    void clicking_data() {
        QTest::addColumn<QSize>("current");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("enabled");
        QTest::addRow("current mode again") << QSize(1024, 768) << "1024 x 768" << false;
        QTest::addRow("smaller mode") << QSize(1024, 768) << "800 x 600" << true;
        QTest::addRow("larger mode") << QSize(1024, 768) << "1280 x 1024" << true;
        QTest::addRow("current not offered") << QSize(1366, 768) << "1024 x 768" << true;
    }
    void clicking() {
        QFETCH(QSize, current);
        QFETCH(QString, entry);
        QFETCH(bool, enabled);
        Auflösung *screen = open(kOffice, current);
        click(screen, entry);
        QCOMPARE(screen->List1->currentItem()->text(), entry);
        QCOMPARE(screen->Command1->isEnabled(), enabled);
        QCOMPARE(screen->Command1->palette().color(QPalette::Button), lightGrey());
        QVERIFY(display_->changes.isEmpty());
    }

    void changing_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QSize>("sent");
        QTest::addColumn<int>("tempPos");
        QTest::addRow("800 x 600") << "800 x 600" << QSize(800, 600) << 5;
        QTest::addRow("1280 x 1024") << "1280 x 1024" << QSize(1280, 1024) << 6;
        QTest::addRow("640 x 480") << "640 x 480" << QSize(640, 480) << 5;
        QTest::addRow("five digits") << "10240 x 4320" << QSize(10240, 4320) << 7;
    }
    void changing() {
        QFETCH(QString, entry);
        QFETCH(QSize, sent);
        QFETCH(int, tempPos);
        QList<QSize> modes = kOffice;
        modes.append({10240, 4320});
        Auflösung *screen = open(modes, {1024, 768});
        click(screen, entry);
        QVERIFY(screen->Command1->isEnabled());
        QTest::mouseClick(screen->Command1, Qt::LeftButton);

        QCOMPARE(display_->changes.size(), 1);
        QCOMPARE(display_->changes.first().width, sent.width());
        QCOMPARE(display_->changes.first().height, sent.height());
        QCOMPARE(int(Modul1::TempPos), tempPos);
        QCOMPARE(Modul2::ResolutionText(), entry);
        QVERIFY(!screen->Command1->isEnabled());
        QCOMPARE(screen->Command1->palette().color(QPalette::Button), buttonFace());
        QCOMPARE(screen->List1->currentItem()->text(), entry);
        QVERIFY(screen->List1->currentItem()->isSelected());
        // The new mode is now the current one: choosing it again changes nothing.
        click(screen, entry);
        QVERIFY(!screen->Command1->isEnabled());
    }

    void refusedChange() {
        display_->accepts = false;
        Auflösung *screen = open(kOffice, {1024, 768});
        click(screen, QStringLiteral("640 x 480"));
        QTest::mouseClick(screen->Command1, Qt::LeftButton);
        QCOMPARE(display_->changes.size(), 1);
        QCOMPARE(Modul2::ResolutionText(), QStringLiteral("1024 x 768"));
        QVERIFY(!screen->Command1->isEnabled());
        click(screen, QStringLiteral("640 x 480"));
        QVERIFY(screen->Command1->isEnabled());
    }

    void keyboard() {
        Auflösung *screen = open(kOffice, {800, 600});
        QApplication::setActiveWindow(screen);
        screen->List1->setFocus();
        QTest::keyClick(screen->List1, Qt::Key_Down);
        QCOMPARE(screen->List1->currentItem()->text(), u"1024 x 768"_s);
        QVERIFY(screen->Command1->isEnabled());
        QTest::keyClick(screen->List1, Qt::Key_Up);
        QVERIFY(!screen->Command1->isEnabled());
        QTest::keyClick(screen->List1, Qt::Key_End);
        QVERIFY(screen->Command1->isEnabled());
        // Tab leads from the list to the button, the space bar presses it.
        QTest::keyClick(screen->List1, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), screen->Command1);
        QTest::keyClick(screen->Command1, Qt::Key_Space);
        QCOMPARE(display_->changes.size(), 1);
        QCOMPARE(display_->changes.first().width, 1280);
        QCOMPARE(display_->changes.first().height, 1024);
        // Escape closes the screen.
        QTest::keyClick(screen, Qt::Key_Escape);
        QCOMPARE(Screens::loaded(ScreenId::Auflösung), nullptr);
    }

    void closing() {
        Auflösung *screen = open(kOffice, {800, 600});
        QVERIFY(!screen->Command2->icon().isNull());
        QTest::mouseClick(screen->Command2, Qt::LeftButton);
        QCOMPARE(Screens::loaded(ScreenId::Auflösung), nullptr);
        QVERIFY(display_->changes.isEmpty());
    }

    void openedFromMenu() {
        display_->modes = sizes(kOffice);
        display_->current = {640, 480};
        QMainWindow page;
        const PageFrame::Menus menus = PageFrame::buildMenus(&page, true);
        menus.mnuAuflösung->trigger();
        auto *first = Screens::loaded<Auflösung>(ScreenId::Auflösung);
        QVERIFY(first);
        QCOMPARE(first->List1->currentItem()->text(), QStringLiteral("640 x 480"));
        menus.mnuAuflösung->trigger();
        QCOMPARE(Screens::loaded<Auflösung>(ScreenId::Auflösung), first);
        QCOMPARE(first->List1->count(), 4);
    }

    void exactMatch_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("index");
        QTest::addRow("first") << "800 x 600" << 0;
        QTest::addRow("other case") << "1024 X 768" << 1;
        QTest::addRow("part of an entry") << "1024 x 76" << -1;
        QTest::addRow("leading blank") << " 800 x 600" << -1;
        QTest::addRow("longer") << "800 x 6000" << -1;
        QTest::addRow("empty") << "" << -1;
        QTest::addRow("later duplicate is not reached") << "640 x 480" << 2;
    }
    void exactMatch() {
        QFETCH(QString, text);
        QFETCH(int, index);
        QListWidget list;
        list.addItems({u"800 x 600"_s, u"1024 x 768"_s, u"640 x 480"_s, u"640 x 480"_s});
        QCOMPARE(Modul2::FindListEntry(&list, text), index);
        QCOMPARE(Modul2::IsNotInList(&list, text), index == -1);
    }

    void loadingAgainRefills() {
        Auflösung *screen = open(kOffice, {800, 600});
        display_->modes = sizes({{640, 480}, {800, 600}, {640, 480}});
        screen->Form_Load();
        QCOMPARE(entries(screen->List1), QStringList({u"640 x 480"_s, u"800 x 600"_s}));
        QCOMPARE(screen->List1->currentRow(), 1);
        QVERIFY(!screen->Command1->isEnabled());
    }
};

QTEST_MAIN(TestDisplay)
#include "test_display.moc"
