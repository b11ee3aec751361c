// SPDX-License-Identifier: GPL-3.0-or-later
// The zoom on a real X server (the Xorg dummy of the system tests): screens in every state and
// with the message boxes over them at a few window sizes with the server's own fonts, the window's
// image made ready for full screen.
#include "lessonpage.h"
#include "screenfit.h"
#include "screens.h"
#include "testsupport.h"
#include "zoom.h"

#include <QApplication>
#include <QBackingStore>
#include <QFile>
#include <QPushButton>
#include <QScreen>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// The first address and the size of the memory mapping that holds `address`.
std::pair<quintptr, quintptr> mappingOf(const void *address) {
    QFile maps(u"/proc/self/maps"_s);
    const auto wanted = reinterpret_cast<quintptr>(address);
    maps.open(QIODevice::ReadOnly);
    for (QByteArray line = maps.readLine(); !line.isEmpty(); line = maps.readLine()) {
        unsigned long long first = 0, end = 0;
        if (std::sscanf(line.constData(), "%llx-%llx", &first, &end) == 2 && first <= wanted &&
            wanted < end)
            return {first, end - first};
    }
    return {};
}

} // namespace

class TestZoomX11 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QCOMPARE(QGuiApplication::platformName(), u"xcb"_s);
        setUpEveryScreen();
    }

    void screenFits_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QSize>("size");
        for (QSize size : {QSize(640, 480), QSize(1280, 720), QSize(1920, 1080)}) {
            for (ScreenId id : {ScreenId::Start, ScreenId::ControlCentre, ScreenId::Page1,
                                ScreenId::Page8, ScreenId::FinalTest, ScreenId::GradeScale,
                                ScreenId::Requirements, ScreenId::DisplayMode}) {
                QTest::addRow("%s %dx%d", qPrintable(formName(id)), size.width(), size.height())
                    << int(id) << size;
            }
        }
    }
    void screenFits() {
        QFETCH(int, screen);
        QFETCH(QSize, size);
        TestProgramme programme;
        VERIFY_NO_MISFITS(misfitsShownAt(ScreenId(screen), size));
    }

    // While the pupil reads, a window over half the screen's size gets an image as large as the
    // screen, its picture unchanged; enlarged to full screen, it draws into that image.
    void windowImageReady() {
        TestProgramme programme;
        QApplication::setCursorFlashTime(0);
        auto *page = Screens::show<LessonPage>(ScreenId::Page1);
        QVERIFY(QTest::qWaitForWindowExposed(page));
        QWidget *window = page->window();
        const auto image = [window] {
            return *static_cast<QImage *>(window->backingStore()->paintDevice());
        };
        const QSize full = window->screen()->geometry().size();
        window->setGeometry(QRect(QPoint(60, 50), full * 3 / 4));
        QTRY_COMPARE(window->backingStore()->size(), full * 3 / 4);
        settle();
        const QImage before = image().copy();
        Screens::prepareLikelyNext();
        settle();
        QVERIFY(image() == before);
        const auto [first, size] = mappingOf(image().constBits());
        QCOMPARE_GE(qint64(size), qint64(full.width()) * full.height() * 4);

        window->setGeometry(QRect(QPoint(), full));
        QTRY_COMPARE(window->backingStore()->size(), full);
        QCOMPARE(mappingOf(image().constBits()).first, first);
    }
};

QTEST_MAIN(TestZoomX11)
#include "test_zoom_x11.moc"
