// SPDX-License-Identifier: GPL-3.0-or-later
// The display-mode screen against a display whose modes and answers the test decides.
#include "displaymodes.h"
#include "displaymodescreen.h"
#include "screens.h"
#include "testsupport.h"
#include "theme.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// A display that takes any of its modes but 640 x 480.
class FakeDisplay : public DisplayBackend {
public:
    QList<QSize> modes;
    QSize current;
    QStringList changes; // each as "800 x 600"

    std::optional<DisplaySize> mode(int index) override {
        const QSize m = modes.value(index);
        return m.isEmpty() ? std::nullopt : std::optional(DisplaySize{m.width(), m.height()});
    }
    void change(int width, int height) override {
        changes.append(QString::number(width) + u" x "_s + QString::number(height));
        if (modes.contains(QSize(width, height)) && QSize(width, height) != QSize(640, 480))
            current = {width, height};
    }
    DisplaySize currentSize() override { return {current.width(), current.height()}; }
};

// A display offering 800 x 600, 1024 x 768 and 640 x 480 at several depths and rates.
const QList<QSize> kOffice{{800, 600},  {800, 600},   {1024, 768}, {640, 480},
                           {1024, 768}, {1280, 1024}, {800, 600},  {640, 480}};

} // namespace

class TestDisplay : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TestProgramme> programme_;
    FakeDisplay *display_ = nullptr;

    DisplayModeScreen *open(const QList<QSize> &modes, QSize current) {
        display_->modes = modes;
        display_->current = current;
        return Screens::show<DisplayModeScreen>(ScreenId::DisplayMode);
    }

private Q_SLOTS:
    void init() {
        programme_ = std::make_unique<TestProgramme>();
        registerDisplayScreens();
        DisplayModes::setDisplayBackend(
            std::unique_ptr<DisplayBackend>(display_ = new FakeDisplay));
    }
    void cleanup() {
        programme_.reset();
        DisplayModes::setDisplayBackend(nullptr);
    }

    void opening_data() {
        QTest::addColumn<QList<QSize>>("modes");
        QTest::addColumn<QSize>("current");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("selected");
        const QStringList office{u"800 x 600"_s, u"1024 x 768"_s, u"640 x 480"_s, u"1280 x 1024"_s};
        QTest::addRow("depths and rates listed once") << kOffice << QSize(1024, 768) << office << 1;
        QTest::addRow("current first") << kOffice << QSize(800, 600) << office << 0;
        QTest::addRow("part of an entry") << kOffice << QSize(1024, 76) << office << -1;
        QTest::addRow("current last") << kOffice << QSize(1280, 1024) << office << 3;
        QTest::addRow("current not offered") << kOffice << QSize(1366, 768) << office << -1;
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
        DisplayModeScreen *screen = open(modes, current);
        QCOMPARE(entryTexts(screen->modeList), expected);
        QCOMPARE(screen->modeList->currentRow(), selected);
        QCOMPARE(screen->modeList->selectedItems().size(), selected == -1 ? 0 : 1);
        QVERIFY(!screen->changeButton->isEnabled());
        QCOMPARE(screen->changeButton->palette().color(QPalette::Button), Theme::buttonFace());
    }

    void choosing_data() {
        QTest::addColumn<QSize>("current");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("sends");    // false: the button stays off, nothing is sent
        QTest::addColumn<QString>("after"); // the screen size afterwards
        const QSize xga(1024, 768);
        QTest::addRow("current again") << xga << "1024 x 768" << false << "1024 x 768";
        QTest::addRow("smaller") << xga << "800 x 600" << true << "800 x 600";
        QTest::addRow("five digits") << xga << "10240 x 4320" << true << "10240 x 4320";
        QTest::addRow("current not offered")
            << QSize(1366, 768) << "1024 x 768" << true << "1024 x 768";
        QTest::addRow("refused") << xga << "640 x 480" << true << "1024 x 768";
    }
    void choosing() {
        QFETCH(QSize, current);
        QFETCH(QString, entry);
        QFETCH(bool, sends);
        QFETCH(QString, after);
        DisplayModeScreen *screen = open(kOffice + QList<QSize>{{10240, 4320}}, current);
        QVERIFY(clickEntry(screen->modeList, entry));
        QCOMPARE(screen->changeButton->isEnabled(), sends);
        QCOMPARE(screen->changeButton->palette().color(QPalette::Button), Theme::activeButton());
        QTest::mouseClick(screen->changeButton, Qt::LeftButton);
        QCOMPARE(display_->changes, sends ? QStringList{entry} : QStringList());
        QCOMPARE(DisplayModes::resolutionText(), after);
        QVERIFY(!screen->changeButton->isEnabled());
        if (sends)
            QCOMPARE(screen->changeButton->palette().color(QPalette::Button), Theme::buttonFace());
        QVERIFY(screen->modeList->currentItem()->isSelected());
        // Choosing the entry again: the button is on only when it is not the current size.
        QVERIFY(clickEntry(screen->modeList, entry));
        QCOMPARE(screen->changeButton->isEnabled(), after != entry);
    }

    // "Auflösung ändern" follows the selection, however the selection came: a mouse pressed on
    // one entry and dragged off the list, a selection made without moving the current entry, a
    // key.
    void buttonFollowsTheSelection() {
        DisplayModeScreen *screen = open(kOffice, {800, 600});
        QWidget *view = screen->modeList->viewport();
        const QRect entry = screen->modeList->visualItemRect(screen->modeList->item(1));
        QTest::mousePress(view, Qt::LeftButton, {}, entry.center());
        QTest::mouseMove(view, QPoint(entry.center().x(), view->height() + 40));
        QTest::mouseRelease(view, Qt::LeftButton, {},
                            QPoint(entry.center().x(), view->height() + 40));
        const QList<QListWidgetItem *> chosen = screen->modeList->selectedItems();
        QCOMPARE(chosen.size(), 1);
        QCOMPARE(screen->changeButton->isEnabled(), chosen.first()->text() != u"800 x 600"_s);

        for (int row : {0, 3, 0}) {
            screen->modeList->selectionModel()->select(screen->modeList->model()->index(row, 0),
                                                       QItemSelectionModel::ClearAndSelect);
            QCOMPARE(screen->changeButton->isEnabled(), row != 0);
        }
        // By keyboard: End chooses the last entry, Tab leads on to the button, Space presses it.
        QApplication::setActiveWindow(screen);
        screen->modeList->setFocus();
        QTest::keyClick(screen->modeList, Qt::Key_End);
        QTest::keyClick(screen->modeList, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), screen->changeButton);
        QTest::keyClick(screen->changeButton, Qt::Key_Space);
        QCOMPARE(display_->changes, QStringList{u"1280 x 1024"_s});
        // Its picture button closes the screen.
        QTest::mouseClick(screen->closeButton, Qt::LeftButton);
        QCOMPARE(Screens::loaded(ScreenId::DisplayMode), nullptr);
    }

    // How "Auflösung ändern" reads the chosen entry: width left of the first "x", height right
    // of it, each from its leading number with blanks skipped, whole pixels up to a million.
    void modeSize_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QSize>("size");
        QTest::addRow("no blanks") << "800x600" << QSize(800, 600);
        QTest::addRow("blanks inside numbers") << " 1 0 2 4 x 7 6 8 " << QSize(1024, 768);
        QTest::addRow("second x ends the height") << "800 x 600 x 4" << QSize(800, 600);
        QTest::addRow("capital X is no x") << "1280 X 1024" << QSize(0, 1280);
        QTest::addRow("nothing left of x") << "x768" << QSize(0, 768);
        QTest::addRow("nothing right of x") << "1024 x" << QSize(1024, 0);
        QTest::addRow("sign, rounding") << "-5 x 2.6" << QSize(0, 3);
        QTest::addRow("letter ends the number") << "1e3 x 7" << QSize(1, 7);
        QTest::addRow("beyond a million") << "2000000 x 5" << QSize(1000000, 5);
        QTest::addRow("empty") << "" << QSize(0, 0);
    }
    void modeSize() {
        QFETCH(QString, text);
        QFETCH(QSize, size);
        const DisplaySize read = DisplayModes::modeSize(text);
        QCOMPARE(QSize(read.width, read.height), size);
    }
};

QTEST_MAIN(TestDisplay)
#include "test_display.moc"
