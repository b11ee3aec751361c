// SPDX-License-Identifier: GPL-3.0-or-later
// Every screen at every window size from 640 x 480 to 3840 x 2160: the whole page in the window
// in its designed proportions, no text cut, the fonts grown with the window; the window's place
// carried from screen to screen; F11.
#include "application.h"
#include "captionlabel.h"
#include "controlcentre.h"
#include "displaymodescreen.h"
#include "endpage.h"
#include "finaltestpage.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "seams.h"
#include "shell.h"
#include "startscreen.h"
#include "testsupport.h"
#include "zoom.h"

#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QList<QSize> kSizes = {{640, 480},  {800, 600},   {1093, 614},
                             {1280, 720}, {1920, 1080}, {3840, 2160}};

// Lets a resize reach the page: the zoom follows on the next pass of the event loop.
void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

QString where(const QWidget *w) {
    QString name = w->objectName();
    if (name.isEmpty() && w->parentWidget())
        name = w->parentWidget()->objectName() + u"/"_s +
               QString::fromLatin1(w->metaObject()->className());
    return name;
}

// How a control's text is cut, measured against the room it is drawn in rather than against
// the control's own (cached) size hint; empty when the text fits.
QString cut(const QWidget *w) {
    const auto shortOf = [w](QSize need, QSize room) {
        if (need.width() <= room.width() && need.height() <= room.height())
            return QString();
        return u"%1 needs %2 x %3, has %4 x %5"_s.arg(where(w))
            .arg(need.width())
            .arg(need.height())
            .arg(room.width())
            .arg(room.height());
    };
    const QFontMetrics metrics = w->fontMetrics();
    if (const auto *label = qobject_cast<const QLabel *>(w)) {
        if (label->text().isEmpty())
            return {};
        const QSize room =
            label->contentsRect()
                .adjusted(label->margin(), label->margin(), -label->margin(), -label->margin())
                .size();
        if (label->wordWrap())
            return shortOf({0, label->heightForWidth(label->width())}, label->size());
        return shortOf(metrics.size(0, label->text()), room);
    }
    if (const auto *view = qobject_cast<const RichTextView *>(w)) {
        if (view->html().isEmpty())
            return {};
        if (view->hasHeightForWidth())
            return shortOf({0, view->heightForWidth(view->width())}, view->size());
        return shortOf(view->sizeHint(), view->size());
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(w)) {
        QStyleOptionButton option;
        option.initFrom(button);
        option.text = button->text();
        const bool radio = qobject_cast<const QRadioButton *>(w);
        QRect room = w->style()->subElementRect(
            radio ? QStyle::SE_RadioButtonContents : QStyle::SE_PushButtonContents, &option, w);
        QString text = button->text();
        if (const auto *topic = qobject_cast<const TopicOption *>(w)) {
            // The page reference stands in its own column.
            room.setRight(w->width() - 1);
            room.setLeft(topic->referenceColumn());
            text = topic->pageReference();
        }
        if (text.isEmpty())
            return shortOf(button->iconSize(), room.size());
        return shortOf(metrics.size(Qt::TextShowMnemonic, text), room.size());
    }
    if (const auto *edit = qobject_cast<const QLineEdit *>(w))
        return shortOf({0, metrics.height()}, edit->contentsRect().size());
    if (const auto *box = qobject_cast<const QGroupBox *>(w))
        return shortOf(box->minimumSizeHint(), box->size());
    if (const auto *bar = qobject_cast<const QMenuBar *>(w))
        return shortOf(bar->sizeHint(), bar->size());
    return {};
}

// Everything that is wrong with the screen as it stands: controls outside the window, texts that
// do not fit their controls, fonts that did not grow with the window, a page out of proportion.
QStringList misfits(Form *form) {
    QStringList found;
    const double factor = form->factorFor(form->size());
    const QSize design = form->designSize();
    if (std::abs(form->zoom().factor() - factor) > 1e-9)
        found << u"zoom %1 for a factor of %2"_s.arg(form->zoom().factor()).arg(factor);

    // The page keeps its proportions, centred with even bands.
    const QRect page(form->page()->mapTo(form, QPoint()), form->page()->size());
    const int menu = form->menuWidget() ? form->menuWidget()->height() : 0;
    if (std::abs(page.width() - design.width() * factor) > 1.5 ||
        std::abs(page.height() + menu - design.height() * factor) > 1.5)
        found << u"page %1 x %2 for a design of %3 x %4 at %5"_s.arg(page.width())
                     .arg(page.height())
                     .arg(design.width())
                     .arg(design.height())
                     .arg(factor);
    if (std::abs(page.left() - (form->width() - page.right() - 1)) > 1 ||
        std::abs(page.top() - menu - (form->height() - page.bottom() - 1)) > 1)
        found << u"page not centred: %1 in %2 x %3"_s
                     .arg(QString::fromLatin1(QByteArray::number(page.x()) + ',' +
                                              QByteArray::number(page.y())))
                     .arg(form->width())
                     .arg(form->height());

    const int basePixels = QFontInfo(QApplication::font()).pixelSize();
    const int pagePixels = QFontInfo(form->page()->font()).pixelSize();
    if (std::abs(double(pagePixels) / basePixels / factor - 1) > 0.1)
        found << u"page font %1 px at a factor of %2"_s.arg(pagePixels).arg(factor);

    const auto widgets = form->findChildren<QWidget *>();
    for (QWidget *w : widgets) {
        if (w->window() != form || !w->isVisibleTo(form))
            continue;
        const QRect rect(w->mapTo(form, QPoint()), w->size());
        if (!form->rect().contains(rect))
            found << u"%1 at %2,%3 %4 x %5 outside the window"_s.arg(where(w))
                         .arg(rect.x())
                         .arg(rect.y())
                         .arg(rect.width())
                         .arg(rect.height());
        if (const QString text = cut(w); !text.isEmpty())
            found << text;
        // The layout gave every control at least what it asks for.
        if (qobject_cast<QAbstractButton *>(w) && (w->width() < w->minimumSizeHint().width() ||
                                                   w->height() < w->minimumSizeHint().height()))
            found << u"%1 squeezed below its smallest size"_s.arg(where(w));
        if (qobject_cast<QLabel *>(w) || qobject_cast<QAbstractButton *>(w)) {
            const double grown = double(QFontInfo(w->font()).pixelSize()) /
                                 QFontInfo(Zoom::designFont(w)).pixelSize();
            if (std::abs(grown / factor - 1) > 0.1)
                found << u"%1 font grown %2 times at a factor of %3"_s.arg(where(w)).arg(grown).arg(
                    factor);
        }
    }
    return found;
}

void resizeTo(Form *form, QSize size) {
    form->resize(size);
    settle();
}

} // namespace

class TestZoom : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        setUpApplication(*qobject_cast<QApplication *>(QCoreApplication::instance()));
    }
    void init() {
        registerShellScreens();
        registerLessonPages();
        registerFinalTestScreens();
        registerDisplayScreens();
    }

    void everyScreenFits_data();
    void everyScreenFits();
    void firstWindow();
    void windowCarriedAcross_data();
    void windowCarriedAcross();
    void overAPage_data();
    void overAPage();
    void questionOverThePage();
    void fullScreenKey_data();
    void fullScreenKey();
};

void TestZoom::everyScreenFits_data() {
    QTest::addColumn<int>("screen");
    QTest::addColumn<QSize>("size");
    for (const QSize size : kSizes) {
        for (int id = int(ScreenId::Start); id <= int(ScreenId::DisplayMode); ++id) {
            QTest::addRow("%s %dx%d", qPrintable(formName(ScreenId(id))), size.width(),
                          size.height())
                << id << size;
        }
    }
}

// Every screen with everything it can show, one part at a time.
void TestZoom::everyScreenFits() {
    QFETCH(int, screen);
    QFETCH(QSize, size);
    TestProgramme programme;
    Form *form = Screens::show(ScreenId(screen));
    QVERIFY(form);
    form->show();
    QVERIFY(QTest::qWaitForWindowExposed(form));
    resizeTo(form, size);
    QStringList found = misfits(form);

    const auto check = [&](const QString &state) {
        form->layOutNow();
        settle();
        for (const QString &misfit : misfits(form))
            found << state + u": "_s + misfit;
    };
    if (auto *page = qobject_cast<LessonPage *>(form)) {
        for (std::size_t q = 0; q < page->questionPictures.size(); ++q) {
            for (std::size_t i = 0; i < page->questionPictures.size(); ++i) {
                page->questionPictures[i]->setVisible(i == q);
                page->optionPictures[i]->setVisible(i == q);
            }
            check(u"question %1"_s.arg(q + 1));
        }
        page->paceNote->show();
        for (qsizetype f = 0; f < page->feedbackPictures.size(); ++f) {
            for (qsizetype i = 0; i < page->feedbackPictures.size(); ++i)
                page->feedbackPictures[i]->setVisible(i == f);
            check(u"feedback %1 with the pace note"_s.arg(f));
        }
    }
    if (auto *page = qobject_cast<PageBase *>(form)) {
        page->openExitFrame();
        check(u"exit frame"_s);
        page->closeExitFrame();
        page->openOverview();
        check(u"overview"_s);
        page->closeOverview();
        if (page->explanationHint) {
            page->endExplanation();
            check(u"explanation hint"_s);
        }
    }
    if (auto *page = qobject_cast<FinalTestPage *>(form)) {
        for (auto *frame : page->questionFrames)
            frame->show();
        for (auto *label : page->verdictLabels)
            label->show();
        for (auto *label : page->markerLabels)
            label->show();
        for (int k = 0; k < 10; ++k) {
            for (int i = 0; i < 10; ++i)
                page->questionFrames[std::size_t(i)]->setVisible(i == k || i == k + 1);
            check(u"questions %1 and %2 judged"_s.arg(k + 1).arg(k + 2));
        }
        page->instructionLabel->hide();
        page->gradeLabel->setText(u"Zensur: 2"_s);
        page->gradeLabel->show();
        page->printButton->show();
        check(u"graded"_s);
    }
    QVERIFY2(found.isEmpty(), qPrintable(found.join(u"\n"_s)));
}

// The first window: centred on the screen's available area, the 4:3 page at four fifths of its
// height; a page opened from the start-position file at once takes that place.
void TestZoom::firstWindow() {
    TestProgramme programme;
    programme.write(u"StartQelB.txt"_s, "\"3\"\r\n");
    Screens::show(ScreenId::Start);
    settle();
    Form *page = Screens::loaded(ScreenId::Page3);
    QVERIFY(page && !Screens::loaded(ScreenId::Start));
    const QRect available = page->screen()->availableGeometry();
    QVERIFY(available.height() > 600); // the test's screen is 1920 x 1080
    QVERIFY2(std::abs(page->height() - 0.8 * available.height()) <= 2,
             qPrintable(QString::number(page->height())));
    QVERIFY(std::abs(page->width() * 3 - page->height() * 4) <= 4);
    QVERIFY(available.contains(page->frameGeometry()));
    QVERIFY(std::abs(page->frameGeometry().center().x() - available.center().x()) <= 2);
    // The frame's height is only known once it is there: centred as far as it was foreseen.
    QVERIFY(std::abs(page->frameGeometry().center().y() - available.center().y()) <= 16);
    QCOMPARE(page->zoom().factor(), page->height() / 600.0);
    QVERIFY(misfits(page).isEmpty());
}

namespace {

// Each kind of page change, by the control the pupil uses.
enum class Change {
    NextPage,
    PreviousPage,
    BackToCentre,
    OverviewLine,
    Topic,
    CourseStart,
    ToFinalTest,
    FinalTestBack,
    ToEndPage,
    EndPageBack,
    TestRestart,
    StartToCentre,
};

void perform(Change change, Form *from) {
    auto *lesson = qobject_cast<LessonPage *>(from);
    auto *test = qobject_cast<FinalTestPage *>(from);
    switch (change) {
    case Change::NextPage:
    case Change::ToFinalTest:
        QTest::mouseClick(lesson->nextPageButton, Qt::LeftButton);
        break;
    case Change::PreviousPage:
    case Change::BackToCentre:
        QTest::mouseClick(lesson->previousPageButton, Qt::LeftButton);
        break;
    case Change::OverviewLine: {
        auto *page = qobject_cast<PageBase *>(from);
        page->openOverview();
        QTest::mouseClick(page->overviewLines[6], Qt::LeftButton);
        break;
    }
    case Change::Topic:
        QTest::mouseClick(qobject_cast<ControlCentre *>(from)->topics[4], Qt::LeftButton, {},
                          QPoint(10, 8));
        break;
    case Change::CourseStart:
        QTest::mouseClick(qobject_cast<ControlCentre *>(from)->startButton, Qt::LeftButton);
        break;
    case Change::FinalTestBack:
        QTest::mouseClick(test->previousPageButton, Qt::LeftButton);
        break;
    case Change::ToEndPage:
        test->toEndPage();
        break;
    case Change::EndPageBack:
        QTest::mouseClick(qobject_cast<EndPage *>(from)->backButton, Qt::LeftButton);
        break;
    case Change::TestRestart:
        test->restartTest();
        break;
    case Change::StartToCentre:
        QTest::mouseClick(qobject_cast<StartScreen *>(from)->continueButton, Qt::LeftButton);
        break;
    }
}

} // namespace

void TestZoom::windowCarriedAcross_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("prepared"); // built while the pupil read the page
    const struct {
        const char *name;
        ScreenId from;
        Change change;
        ScreenId to;
    } changes[] = {
        {">>", ScreenId::Page3, Change::NextPage, ScreenId::Page4},
        {"<<", ScreenId::Page3, Change::PreviousPage, ScreenId::Page2},
        {"page 1 <<", ScreenId::Page1, Change::BackToCentre, ScreenId::ControlCentre},
        {"overview line", ScreenId::Page3, Change::OverviewLine, ScreenId::Page7},
        {"final test overview line", ScreenId::FinalTest, Change::OverviewLine, ScreenId::Page7},
        {"topic", ScreenId::ControlCentre, Change::Topic, ScreenId::Page5},
        {"Lernprogramm-Start", ScreenId::ControlCentre, Change::CourseStart, ScreenId::Page1},
        {"page 10 >>", ScreenId::Page10, Change::ToFinalTest, ScreenId::FinalTest},
        {"final test <<", ScreenId::FinalTest, Change::FinalTestBack, ScreenId::Page10},
        {"to the end page", ScreenId::FinalTest, Change::ToEndPage, ScreenId::EndPage},
        {"Zurück", ScreenId::EndPage, Change::EndPageBack, ScreenId::FinalTest},
        {"test restarted", ScreenId::FinalTest, Change::TestRestart, ScreenId::FinalTest},
        {"Weiter", ScreenId::Start, Change::StartToCentre, ScreenId::ControlCentre},
    };
    const struct {
        const char *name;
        Qt::WindowStates state;
    } states[] = {{"normal", Qt::WindowNoState},
                  {"maximised", Qt::WindowMaximized},
                  {"full screen", Qt::WindowFullScreen}};
    for (const auto &c : changes) {
        for (const auto &s : states) {
            for (bool prepared : {false, true}) {
                QTest::addRow("%s %s%s", c.name, s.name, prepared ? " prepared" : "")
                    << int(c.from) << int(c.change) << int(c.to) << int(s.state) << prepared;
            }
        }
    }
}

// The screen that comes takes the place, size and state of the one it replaces, zoomed alike;
// restored, it returns to the geometry the other would have returned to.
void TestZoom::windowCarriedAcross() {
    QFETCH(int, from);
    QFETCH(int, change);
    QFETCH(int, to);
    QFETCH(int, state);
    QFETCH(bool, prepared);
    TestProgramme programme;
    Form *before = Screens::show(ScreenId(from));
    QVERIFY(QTest::qWaitForWindowExposed(before));
    // A screen prepared while the pupil read the page at another size is zoomed afresh.
    if (prepared) {
        Screens::prepareLikelyNext();
        if (before->likelyNext().contains(ScreenId(to)) && to != from)
            QVERIFY(Screens::prepared(ScreenId(to)));
    }
    const QRect normal(150, 110, 1000, 700);
    before->setGeometry(normal);
    before->setWindowState(Qt::WindowStates(state));
    QTRY_COMPARE(int(before->windowState()), state);
    settle();
    if (state)
        QVERIFY(before->width() > 1800);
    const QSize size = before->size();
    const double factor = before->zoom().factor();

    perform(Change(change), before);
    settle();
    Form *after = Screens::loaded(ScreenId(to));
    QVERIFY(after && after != before && !after->isHidden());
    QCOMPARE(Screens::activeScreen(), after);
    QTRY_COMPARE(int(after->windowState()), state);
    QTRY_COMPARE(after->size(), size);
    QCOMPARE(after->normalGeometry(), normal);
    QCOMPARE(after->zoom().factor(), factor);
    const QStringList found = misfits(after);
    QVERIFY2(found.isEmpty(), qPrintable(found.join(u"\n"_s)));

    // Restored, it has the normal window's place and size.
    after->setWindowState(Qt::WindowNoState);
    QTRY_COMPARE(after->geometry(), normal);
    settle();
    QCOMPARE(after->zoom().factor(), after->factorFor(normal.size()));
}

void TestZoom::overAPage_data() {
    QTest::addColumn<int>("screen");
    QTest::addColumn<QSize>("page");
    for (QSize page : {QSize(1280, 960), QSize(700, 525)}) {
        for (ScreenId id : {ScreenId::WorkingMethod, ScreenId::Author, ScreenId::Requirements,
                            ScreenId::DisplayMode, ScreenId::GradeScale}) {
            QTest::addRow("%s over %dx%d", qPrintable(formName(id)), page.width(), page.height())
                << int(id) << page;
        }
    }
}

// Information screens, the grade scale and the display-mode screen open centred over the page
// at the page's zoom, as far as the screen has room for them.
void TestZoom::overAPage() {
    QFETCH(int, screen);
    QFETCH(QSize, page);
    TestProgramme programme;
    Form *below = Screens::show(ScreenId::Page6);
    QVERIFY(QTest::qWaitForWindowExposed(below));
    below->setGeometry(QRect(QPoint(300, 60), page));
    settle();
    Form *over = Screens::show(ScreenId(screen));
    QVERIFY(QTest::qWaitForWindowExposed(over));
    settle();
    QVERIFY(Screens::loaded(ScreenId::Page6));
    const QRect available = over->screen()->availableGeometry();
    QVERIFY(available.contains(over->frameGeometry()));
    const double room = std::min(double(available.width()) / over->designSize().width(),
                                 double(available.height() - 8) / over->designSize().height());
    QVERIFY2(std::abs(over->zoom().factor() - std::min(below->zoom().factor(), room)) < 0.01,
             qPrintable(u"%1 over %2"_s.arg(over->zoom().factor()).arg(below->zoom().factor())));
    // Centred over the page, unless that would reach beyond the screen.
    QRect centred(QPoint(), over->frameGeometry().size());
    centred.moveCenter(below->geometry().center());
    const QPoint offset = over->geometry().center() - below->geometry().center();
    if (available.contains(centred))
        QVERIFY2(offset.manhattanLength() <= 2,
                 qPrintable(u"%1,%2"_s.arg(offset.x()).arg(offset.y())));
    const QStringList found = misfits(over);
    QVERIFY2(found.isEmpty(), qPrintable(found.join(u"\n"_s)));
}

// The end page's question box: centred over the end page, in its page's font.
void TestZoom::questionOverThePage() {
    TestProgramme programme;
    auto *end = Screens::show<EndPage>(ScreenId::EndPage);
    QVERIFY(QTest::qWaitForWindowExposed(end));
    end->setGeometry(QRect(200, 100, 1280, 960));
    settle();
    Seams::setYesNo({});
    QPoint offset(1000, 1000);
    int fontPixels = 0;
    QTimer::singleShot(0, qApp, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        offset = box->geometry().center() - end->geometry().center();
        fontPixels = QFontInfo(box->font()).pixelSize();
        box->button(QMessageBox::No)->click();
    });
    end->askToEnd();
    QVERIFY2(offset.manhattanLength() <= 4, qPrintable(u"%1,%2"_s.arg(offset.x()).arg(offset.y())));
    QCOMPARE(fontPixels, QFontInfo(end->font()).pixelSize());
    QVERIFY(fontPixels > QFontInfo(QApplication::font()).pixelSize());
}

void TestZoom::fullScreenKey_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("leave"); // the key that leaves the whole screen
    QTest::addRow("normal, F11") << int(Qt::WindowNoState) << int(Qt::Key_F11);
    QTest::addRow("normal, Escape") << int(Qt::WindowNoState) << int(Qt::Key_Escape);
    QTest::addRow("maximised, F11") << int(Qt::WindowMaximized) << int(Qt::Key_F11);
    QTest::addRow("maximised, Escape") << int(Qt::WindowMaximized) << int(Qt::Key_Escape);
}

// F11 shows the page on the whole screen, zoomed to it; F11 or Escape returns to the window as it
// was. Escape does nothing else to a page that is not full screen.
void TestZoom::fullScreenKey() {
    QFETCH(int, state);
    QFETCH(int, leave);
    TestProgramme programme;
    auto *page = Screens::show<LessonPage>(ScreenId::Page2);
    QVERIFY(QTest::qWaitForWindowExposed(page));
    const QRect normal(100, 80, 900, 675);
    page->setGeometry(normal);
    page->setWindowState(Qt::WindowStates(state));
    QTRY_COMPARE(int(page->windowState()), state);
    settle();
    const QSize size = page->size();
    page->answerEdit->setFocus();
    QTest::keyClick(page->answerEdit, Qt::Key_Escape);
    settle();
    QCOMPARE(int(page->windowState()), state);

    QTest::keyClick(page->answerEdit, Qt::Key_F11);
    QTRY_VERIFY(page->windowState() & Qt::WindowFullScreen);
    QTRY_COMPARE(page->frameGeometry(), page->screen()->geometry());
    settle();
    QCOMPARE(page->zoom().factor(), page->factorFor(page->size()));
    QVERIFY(misfits(page).isEmpty());

    QTest::keyClick(page->answerEdit, Qt::Key(leave));
    QTRY_COMPARE(int(page->windowState()), state);
    QTRY_COMPARE(page->size(), size);
    if (!state)
        QCOMPARE(page->geometry(), normal);
    QCOMPARE(page->answerEdit->text(), QString());
}

QTEST_MAIN(TestZoom)
#include "test_zoom.moc"
