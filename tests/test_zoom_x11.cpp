// SPDX-License-Identifier: GPL-3.0-or-later
// The zoom on a real X server (the Xorg dummy of the system tests): screens in every state and
// with the message boxes over them at a few window sizes with the server's own fonts, the window
// kept across a page change, its image made ready for full screen.
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

using namespace Qt::StringLiterals;

namespace {

const QImage &storeImage(QWidget *window) {
    return *static_cast<QImage *>(window->backingStore()->paintDevice());
}

// The first and last address of the memory mapping that holds `address`, from /proc/self/maps.
std::pair<quintptr, quintptr> mappingOf(const void *address) {
    QFile maps(u"/proc/self/maps"_s);
    if (!maps.open(QIODevice::ReadOnly))
        return {};
    const auto wanted = reinterpret_cast<quintptr>(address);
    const QList<QByteArray> lines = maps.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> range = line.split(' ').value(0).split('-');
        const quintptr first = range.value(0).toULongLong(nullptr, 16);
        const quintptr end = range.value(1).toULongLong(nullptr, 16);
        if (first <= wanted && wanted < end)
            return {first, end};
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
        Form *form = Screens::show(ScreenId(screen));
        QVERIFY(QTest::qWaitForWindowExposed(form));
        resizeTo(form, size);
        QTRY_COMPARE(form->window()->size(), size);
        QTRY_COMPARE(form->zoom().factor(), form->factorFor(form->size()));
        settle();
        const QStringList found = misfitsThroughout(form);
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));
    }

    // ">>" shows page 4 in page 3's window, where it was and as large as it was.
    void windowKept() {
        TestProgramme programme;
        auto *page = Screens::show<LessonPage>(ScreenId::Page3);
        QVERIFY(QTest::qWaitForWindowExposed(page));
        QWidget *window = page->window();
        const QRect place(60, 50, 1000, 750);
        window->setGeometry(place);
        QTRY_COMPARE(window->geometry(), place);
        settle();
        QTest::mouseClick(page->nextPageButton, Qt::LeftButton);
        settle();
        auto *next = Screens::loaded<LessonPage>(ScreenId::Page4);
        QVERIFY(next && next->window() == window && window->isVisible());
        QVERIFY(QTest::qWaitForWindowExposed(next));
        QCOMPARE(window->geometry(), place);
        QCOMPARE(window->windowTitle(), next->windowTitle());
        VERIFY_FITS(next);
    }

    // While the pupil reads, a window over half the screen's size gets an image as large as the
    // screen, its picture unchanged; enlarged to full screen, it draws into that image.
    void windowImageReady() {
        TestProgramme programme;
        QApplication::setCursorFlashTime(0);
        auto *page = Screens::show<LessonPage>(ScreenId::Page1);
        QVERIFY(QTest::qWaitForWindowExposed(page));
        QWidget *window = page->window();
        const QSize full = window->screen()->geometry().size();
        const QSize own(full.width() * 3 / 4, full.height() * 3 / 4);
        window->resize(own);
        QTRY_COMPARE(window->backingStore()->size(), own);
        settle();
        const QImage before = storeImage(window).copy();

        Screens::prepareLikelyNext();
        settle();
        QCOMPARE(storeImage(window).size(), own);
        QVERIFY(storeImage(window) == before);
        const auto [first, end] = mappingOf(storeImage(window).constBits());
        QCOMPARE_GE(qint64(end - first), qint64(full.width()) * full.height() * 4);

        window->resize(full);
        QTRY_COMPARE(window->backingStore()->size(), full);
        QCOMPARE(mappingOf(storeImage(window).constBits()).first, first);
    }
};

QTEST_MAIN(TestZoomX11)
#include "test_zoom_x11.moc"
