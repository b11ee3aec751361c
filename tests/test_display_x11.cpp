// SPDX-License-Identifier: GPL-3.0-or-later
// The display-mode screen against a real X server with several modes. CTest starts an X server
// with the dummy video driver for it and sets DISPLAY; the server is asked through xrandr.
#include "backend_x11.h"
#include "displaymodes.h"
#include "displaymodescreen.h"
#include "screens.h"
#include "testsupport.h"

#include <QGuiApplication>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>

namespace {

QString xrandr(const QStringList &arguments) {
    return runProgram(QStringLiteral("xrandr"), arguments);
}

// The screen size the server reports, as "1024 x 768".
QString serverSize() {
    static const QRegularExpression current(QStringLiteral(R"(current (\d+) x (\d+))"));
    const QRegularExpressionMatch m = current.match(xrandr({QStringLiteral("--query")}));
    return m.hasMatch() ? m.captured(1) + QStringLiteral(" x ") + m.captured(2) : QString();
}

// The sizes of the primary output's modes in the server's order, each once.
QStringList serverModes() {
    static const QRegularExpression mode(QStringLiteral(R"(^\s+(\d+)x(\d+)\s)"));
    QStringList modes;
    bool primary = false;
    for (const QString &line : xrandr({QStringLiteral("--query")}).split(u'\n')) {
        if (!line.isEmpty() && !line.front().isSpace())
            primary = line.contains(QStringLiteral(" connected primary"));
        else if (const auto m = mode.match(line); primary && m.hasMatch())
            modes.append(m.captured(1) + QStringLiteral(" x ") + m.captured(2));
    }
    modes.removeDuplicates();
    return modes;
}

} // namespace

Q_DECLARE_METATYPE(X11ModeStep)

class TestDisplayX11 : public QObject {
    Q_OBJECT

private:
    QString original_;

    // The pupil clicks the entry, then "Auflösung ändern".
    static bool chooseAndChange(DisplayModeScreen *screen, const QString &entry) {
        if (!clickEntry(screen->modeList, entry) || !screen->changeButton->isEnabled())
            return false;
        QTest::mouseClick(screen->changeButton, Qt::LeftButton);
        return true;
    }

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
        const QStringList listed = entryTexts(screen->modeList);
        QCOMPARE(listed, serverModes());
        // The sizes of the server's configuration, each at one or two rates, are listed once.
        for (const char *mode : {"1024 x 768", "800 x 600", "1280 x 1024", "640 x 480"})
            QCOMPARE(listed.count(QString::fromLatin1(mode)), 1);
        QCOMPARE(screen->modeList->currentItem()->text(), original_);
        QVERIFY(!screen->changeButton->isEnabled());
    }

    // A step of the change that the server refuses: the mode with its rate, the desktop size
    // and the output's place are as they were, as the server reports them. The next change, with
    // no step refused, goes through.
    void refusedStep_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<X11ModeStep>("step");
        QTest::addRow("smaller: output off") << "800 x 600" << X11ModeStep::OutputOff;
        QTest::addRow("smaller: desktop size") << "800 x 600" << X11ModeStep::ScreenSize;
        QTest::addRow("smaller: new mode") << "800 x 600" << X11ModeStep::NewMode;
        QTest::addRow("larger: desktop size") << "1280 x 1024" << X11ModeStep::ScreenSize;
        QTest::addRow("larger: new mode") << "1280 x 1024" << X11ModeStep::NewMode;
    }
    void refusedStep() {
        QFETCH(QString, entry);
        QFETCH(X11ModeStep, step);
        TestProgramme programme;
        auto *screen = Screens::show<DisplayModeScreen>(ScreenId::DisplayMode);
        const QString before = xrandr({QStringLiteral("--query")});
        QVERIFY(before.contains(QStringLiteral(" connected primary ")));

        refuseX11ModeStep(step);
        const bool chosen = chooseAndChange(screen, entry);
        refuseX11ModeStep(std::nullopt);
        QVERIFY(chosen);

        QCOMPARE(xrandr({QStringLiteral("--query")}), before);
        QCOMPARE(DisplayModes::resolutionText(), original_);
        QVERIFY(!screen->changeButton->isEnabled());
        QVERIFY(chooseAndChange(screen, entry));
        QCOMPARE(serverSize(), entry);
        QCOMPARE(DisplayModes::resolutionText(), entry);
        QVERIFY(!screen->changeButton->isEnabled());
        restore();
    }
};

QTEST_MAIN(TestDisplayX11)
#include "test_display_x11.moc"
