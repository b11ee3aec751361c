// SPDX-License-Identifier: GPL-3.0-or-later
// Every screen at every window size from 640 x 480 to 3840 x 2160: the whole page in the window
// in its designed proportions, no text cut, the fonts grown with the window; the window's place
// carried from screen to screen; F11.
#include "application.h"
#include "captionlabel.h"
#include "controlcentre.h"
#include "displaymodescreen.h"
#include "finaltestpage.h"
#include "lessonpage.h"
#include "picture.h"
#include "screens.h"
#include "shell.h"
#include "testsupport.h"
#include "zoom.h"

#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QTest>

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

QTEST_MAIN(TestZoom)
#include "test_zoom.moc"
