// SPDX-License-Identifier: GPL-3.0-or-later
// The display-mode screen against a real X server with several modes. CTest starts an X server
// with the dummy video driver for it and sets DISPLAY; the server is asked through xrandr.
#include "displaymodes.h"
#include "displaymodescreen.h"
#include "screens.h"
#include "testsupport.h"

#include <QGuiApplication>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

namespace {

QString xrandr(const QStringList &arguments) {
    QProcess process;
    process.start(QStringLiteral("xrandr"), arguments);
    const bool ran = process.waitForFinished(20000) && process.exitCode() == 0;
    return ran ? QString::fromLocal8Bit(process.readAllStandardOutput()) : QString();
}

// The screen size the server reports, as "1024 x 768".
QString serverSize() {
    static const QRegularExpression current(QStringLiteral(R"(current (\d+) x (\d+))"));
    const QRegularExpressionMatch m = current.match(xrandr({QStringLiteral("--query")}));
    return m.hasMatch() ? m.captured(1) + QStringLiteral(" x ") + m.captured(2) : QString();
}

// Every mode of the primary output in the server's order, each size once.
QStringList serverModes() {
    const QStringList lines = xrandr({QStringLiteral("--verbose")}).split(u'\n');
    static const QRegularExpression width(QStringLiteral(R"(^\s+h: width\s+(\d+))"));
    static const QRegularExpression height(QStringLiteral(R"(^\s+v: height\s+(\d+))"));
    QStringList modes;
    bool inOutput = false;
    QString pendingWidth;
    for (const QString &line : lines) {
        if (!line.isEmpty() && !line.front().isSpace())
            inOutput = line.contains(QStringLiteral(" connected primary"));
        else if (!inOutput)
            continue;
        if (const auto m = width.match(line); m.hasMatch())
            pendingWidth = m.captured(1);
        else if (const auto h = height.match(line); h.hasMatch() && !pendingWidth.isEmpty())
            modes.append(std::exchange(pendingWidth, {}) + QStringLiteral(" x ") + h.captured(1));
    }
    modes.removeDuplicates(); // keeps the first of each
    return modes;
}

} // namespace

class TestDisplayX11 : public QObject {
    Q_OBJECT

private:
    QString original_;

    void restore() {
        DisplayModes::setResolution(original_.section(u' ', 0, 0).toInt(),
                                    original_.section(u' ', 2).toInt());
        QCOMPARE(serverSize(), original_);
    }

private Q_SLOTS:
    void initTestCase() {
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
        registerDisplayScreens();
        original_ = serverSize();
        QVERIFY2(!original_.isEmpty(), "xrandr cannot reach the X server");
    }
    void cleanupTestCase() { restore(); }

    void listMatchesServer() {
        TestProgramme programme;
        auto *screen = Screens::show<DisplayModeScreen>(ScreenId::DisplayMode);
        QStringList listed;
        for (int i = 0; i < screen->modeList->count(); ++i)
            listed.append(screen->modeList->item(i)->text());
        QCOMPARE(listed, serverModes());
        // The sizes of the server's configuration, each at one or two rates, are listed once.
        for (const char *mode : {"1024 x 768", "800 x 600", "1280 x 1024", "640 x 480"})
            QCOMPARE(listed.count(QString::fromLatin1(mode)), 1);
        QCOMPARE(screen->modeList->currentItem()->text(), original_);
        QVERIFY(!screen->changeButton->isEnabled());
    }

    void change_data() {
        QTest::addColumn<QString>("entry");
        QTest::addRow("smaller") << "800 x 600";
        QTest::addRow("larger") << "1280 x 1024";
    }
    void change() {
        QFETCH(QString, entry);
        TestProgramme programme;
        auto *screen = Screens::show<DisplayModeScreen>(ScreenId::DisplayMode);
        const QList<QListWidgetItem *> found = screen->modeList->findItems(entry, Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        QTest::mouseClick(screen->modeList->viewport(), Qt::LeftButton, {},
                          screen->modeList->visualItemRect(found.first()).center());
        QTest::mouseClick(screen->changeButton, Qt::LeftButton);

        QCOMPARE(serverSize(), entry);
        QCOMPARE(DisplayModes::resolutionText(), entry);
        QVERIFY(!screen->changeButton->isEnabled());
        restore();
    }
};

QTEST_MAIN(TestDisplayX11)
#include "test_display_x11.moc"
