// SPDX-License-Identifier: GPL-3.0-or-later
// The zoom on a real X server (the Xorg dummy of the system tests): screens in every state and
// with the message boxes over them at a few window sizes with the server's own fonts, the window
// kept across a page change.
#include "lessonpage.h"
#include "screenfit.h"
#include "screens.h"
#include "testsupport.h"
#include "zoom.h"

#include <QApplication>
#include <QPushButton>

using namespace Qt::StringLiterals;

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
};

QTEST_MAIN(TestZoomX11)
#include "test_zoom_x11.moc"
