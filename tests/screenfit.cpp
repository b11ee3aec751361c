// SPDX-License-Identifier: GPL-3.0-or-later
#include "screenfit.h"

#include "appearing.h"
#include "application.h"
#include "captionlabel.h"
#include "controlcentre.h"
#include "displaymodescreen.h"
#include "finaltestpage.h"
#include "form.h"
#include "gradescale.h"
#include "lessonpage.h"
#include "messagebox.h"
#include "picture.h"
#include "screens.h"
#include "shell.h"
#include "testsupport.h"
#include "zoom.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString where(const QWidget *w) {
    QString name = w->objectName();
    if (name.isEmpty() && w->parentWidget())
        name = w->parentWidget()->objectName() + u"/"_s +
               QString::fromLatin1(w->metaObject()->className());
    return name;
}

QString text(QSize size) {
    return u"%1 x %2"_s.arg(size.width()).arg(size.height());
}

QString text(QRect rect) {
    return u"%1,%2 %3"_s.arg(rect.x()).arg(rect.y()).arg(text(rect.size()));
}

// How a control's text is cut, measured against the room it is drawn in rather than against
// the control's own (cached) size hint; empty when the text fits.
QString cut(const QWidget *w) {
    const auto shortOf = [w](QSize need, QSize room) {
        if (need.width() <= room.width() && need.height() <= room.height())
            return QString();
        return u"%1 needs %2, has %3"_s.arg(where(w), text(need), text(room));
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

bool inLayout(const QLayout *layout, const QWidget *w) {
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (item->widget() == w || (item->layout() && inLayout(item->layout(), w)))
            return true;
    }
    return false;
}

// What a control lies in: the nearest panel that floats over its parent outside the parent's
// layout (the exit frame, the overview, their cover and border), or its window. A floating label
// (the pace note) lies in its parent's layer and must keep off what is there.
const QWidget *layerOf(const QWidget *w) {
    for (; !w->isWindow(); w = w->parentWidget()) {
        const QLayout *layout = w->parentWidget()->layout();
        if (!qobject_cast<const QLabel *>(w) && layout && !inLayout(layout, w))
            return w;
    }
    return w;
}

// Where a label draws its text, in the window's coordinates; empty for a label without text.
QRect textArea(const QLabel *label) {
    if (label->text().isEmpty())
        return {};
    const int margin = label->margin();
    QRect room = label->contentsRect().adjusted(margin, margin, -margin, -margin);
    const Qt::Alignment align =
        QStyle::visualAlignment(label->layoutDirection(), label->alignment());
    int indent = label->indent();
    if (indent < 0 && label->frameWidth() > 0)
        indent = label->fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2;
    if (indent > 0) {
        if (align & Qt::AlignLeft)
            room.setLeft(room.left() + indent);
        if (align & Qt::AlignRight)
            room.setRight(room.right() - indent);
        if (align & Qt::AlignTop)
            room.setTop(room.top() + indent);
        if (align & Qt::AlignBottom)
            room.setBottom(room.bottom() - indent);
    }
    const int flags = int(align) | (label->wordWrap() ? Qt::TextWordWrap : 0) |
                      (label->buddy() ? Qt::TextShowMnemonic : 0);
    const QRect drawn = Qt::mightBeRichText(label->text())
                            ? room
                            : label->fontMetrics().boundingRect(room, flags, label->text());
    return {label->mapTo(label->window(), drawn.topLeft()), drawn.size()};
}

// A plain widget that only holds controls and draws nothing of its own: its controls are what a
// text may run into.
bool isHolder(const QWidget *w) {
    return w->metaObject() == &QWidget::staticMetaObject && !w->autoFillBackground() &&
           !w->findChildren<QWidget *>(Qt::FindDirectChildrenOnly).isEmpty();
}

// Every control a label's text runs into or touches, other than its own parents; of another
// label, its text.
QStringList crowding(const QLabel *label, const QList<QWidget *> &shown) {
    const QRect area = textArea(label);
    if (area.isEmpty())
        return {};
    QStringList found;
    const QWidget *layer = layerOf(label);
    for (const QWidget *w : shown) {
        if (w == label || w->isAncestorOf(label) || label->isAncestorOf(w) || layerOf(w) != layer ||
            isHolder(w))
            continue;
        const auto *other = qobject_cast<const QLabel *>(w);
        QRect rect = other ? textArea(other) : QRect();
        if (rect.isEmpty())
            rect = QRect(w->mapTo(w->window(), QPoint()), w->size()).adjusted(-1, -1, 1, 1);
        if (area.intersects(rect))
            found << u"%1 text at %2 runs into %3 at %4"_s.arg(where(label), text(area), where(w),
                                                               text(rect));
    }
    return found;
}

// A font not grown with the window, or nothing.
QStringList grownFont(const QWidget *w, double factor) {
    const double grown =
        double(QFontInfo(w->font()).pixelSize()) / QFontInfo(Zoom::designFont(w)).pixelSize();
    if (std::abs(grown / factor - 1) <= 0.1)
        return {};
    return {u"%1 font grown %2 times at a factor of %3"_s.arg(where(w)).arg(grown).arg(factor)};
}

// Shows `count` widgets of a list from `from` on and hides the others.
template <class List> void showOnly(const List &widgets, qsizetype from, qsizetype count = 1) {
    for (qsizetype i = 0; i < qsizetype(widgets.size()); ++i)
        Appearing::setVisible(widgets[std::size_t(i)], i >= from && i < from + count);
}

// Where a widget stands in its window.
QRect placeOf(const QWidget *w) {
    return {w->mapTo(w->window(), QPoint()), w->size()};
}

// How far apart two rectangles stand, across and down.
int gap(const QRect &a, const QRect &b) {
    return std::max({0, b.left() - a.right(), a.left() - b.right()}) +
           std::max({0, b.top() - a.bottom(), a.top() - b.bottom()});
}

} // namespace

void setUpEveryScreen() {
    setUpApplication(*qobject_cast<QApplication *>(QCoreApplication::instance()));
    TestProgramme::screens = [](Course &course) {
        registerShellScreens(course);
        registerLessonPages(course);
        registerFinalTestScreens(course);
        registerDisplayScreens();
    };
}

QStringList misfitsShownAt(ScreenId id, QSize size) {
    Form *form = Screens::show(id);
    if (!form || !QTest::qWaitForWindowExposed(form))
        return {u"%1 not shown"_s.arg(formName(id))};
    form->window()->resize(size);
    if (!QTest::qWaitFor([&] {
            return form->window()->size() == size &&
                   form->zoom().factor() == form->factorFor(form->size());
        }))
        return {u"window %1 for %2"_s.arg(text(form->window()->size()), text(size))};
    settle();
    return misfitsThroughout(form);
}

QStringList misfits(QWidget *screen) {
    QStringList found;
    auto *form = qobject_cast<Form *>(screen);
    const double factor = form ? form->factorFor(form->size()) : Zoom::factorOf(screen);
    if (form) {
        const QSize design = form->designSize();
        if (std::abs(form->zoom().factor() - factor) > 1e-9)
            found << u"zoom %1 for a factor of %2"_s.arg(form->zoom().factor()).arg(factor);

        // The page keeps its proportions, centred with even bands.
        const QRect page(form->page()->mapTo(form, QPoint()), form->page()->size());
        const int menu = form->menuWidget() ? form->menuWidget()->height() : 0;
        if (std::abs(page.width() - design.width() * factor) > 1.5 ||
            std::abs(page.height() + menu - design.height() * factor) > 1.5)
            found << u"page %1 for a design of %2 at %3"_s.arg(text(page.size()), text(design))
                         .arg(factor);
        if (std::abs(page.left() - (form->width() - page.right() - 1)) > 1 ||
            std::abs(page.top() - menu - (form->height() - page.bottom() - 1)) > 1)
            found << u"page not centred: %1 in %2"_s.arg(text(page), text(form->size()));

        const int basePixels = QFontInfo(QApplication::font()).pixelSize();
        const int pagePixels = QFontInfo(form->page()->font()).pixelSize();
        if (std::abs(double(pagePixels) / basePixels / factor - 1) > 0.1)
            found << u"page font %1 px at a factor of %2"_s.arg(pagePixels).arg(factor);
    } else if (const QWidget *over = screen->parentWidget()) {
        // A message box stands centred over the screen that asks, as far as the screen has room.
        QRect centred = screen->frameGeometry();
        centred.moveCenter(over->window()->frameGeometry().center());
        const QPoint offset = screen->frameGeometry().center() - centred.center();
        if (screen->screen()->availableGeometry().contains(centred) && offset.manhattanLength() > 4)
            found << u"%1 off the centre of %2 by %3,%4"_s.arg(where(screen), where(over))
                         .arg(offset.x())
                         .arg(offset.y());
    }

    const int indicator =
        QApplication::style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, nullptr);
    QList<QWidget *> shown;
    for (QWidget *w : screen->findChildren<QWidget *>()) {
        if (w->window() == screen->window() && seen(w, screen))
            shown << w;
        // The drop-down menus are windows of their own, in the page's font too.
        if (qobject_cast<QMenu *>(w))
            found << grownFont(w, factor);
    }
    for (QWidget *w : std::as_const(shown)) {
        // Everything on the screen is drawn at its zoom: pictures, and the style's own sizes.
        if (Zoom::factorOf(w) != factor)
            found << u"%1 drawn at a zoom of %2"_s.arg(where(w)).arg(Zoom::factorOf(w));
        if (qobject_cast<QRadioButton *>(w)) {
            const int drawn =
                w->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, w);
            if (std::abs(double(drawn) / indicator / factor - 1) > 0.15)
                found << u"%1 indicator %2 px at a factor of %3"_s.arg(where(w)).arg(drawn).arg(
                    factor);
        }
        const QRect rect(w->mapTo(screen, QPoint()), w->size());
        if (!screen->rect().contains(rect))
            found << u"%1 at %2 outside the window"_s.arg(where(w), text(rect));
        else if (!w->parentWidget()->rect().contains(w->geometry()))
            found << u"%1 at %2 cut off by %3"_s.arg(where(w), text(w->geometry()),
                                                     where(w->parentWidget()));
        if (const QString text = cut(w); !text.isEmpty())
            found << text;
        // The layout gave every control at least what it asks for.
        if (qobject_cast<QAbstractButton *>(w) && (w->width() < w->minimumSizeHint().width() ||
                                                   w->height() < w->minimumSizeHint().height()))
            found << u"%1 squeezed below its smallest size"_s.arg(where(w));
        if (const auto *label = qobject_cast<const QLabel *>(w))
            found << crowding(label, shown);
        if (qobject_cast<QLabel *>(w) || qobject_cast<QAbstractButton *>(w))
            found << grownFont(w, factor);
        // A message box's icon as large as its text: at least a line and a half of it.
        if (const auto *label = qobject_cast<const QLabel *>(w);
            label && !label->pixmap().isNull() &&
            label->pixmap().deviceIndependentSize().height() < 1.5 * label->fontMetrics().height())
            found << u"%1 picture %2 px high beside a text of %3 px"_s.arg(where(w))
                         .arg(label->pixmap().deviceIndependentSize().height())
                         .arg(label->fontMetrics().height());
    }
    return found;
}

QStringList misfitsThroughout(Form *form) {
    QStringList found = misfits(form);
    const auto check = [&](const QString &state) {
        form->layOutNow();
        settle();
        for (const QString &misfit : misfits(form))
            found << state + u": "_s + misfit;
    };
    if (auto *page = qobject_cast<LessonPage *>(form)) {
        for (int q = 0; q < 5; ++q) {
            showOnly(page->questionPictures, q);
            showOnly(page->optionPictures, q);
            check(u"question %1"_s.arg(q + 1));
        }
        // Page 1's explanation called back while its hint shows: both, with every verdict.
        if (page->explanationHint) {
            page->endExplanation();
            page->toggleExplanation();
        }
        // Each verdict with its question, as the pupil sees it.
        Appearing::show(page->paceNote);
        for (int q = 0; q < 5; ++q) {
            showOnly(page->questionPictures, q);
            showOnly(page->optionPictures, q);
            for (int f : page->info().key.at(std::size_t(q)).shows) {
                showOnly(page->feedbackPictures, f);
                check(u"question %1, feedback %2 with the pace note"_s.arg(q + 1).arg(f));
            }
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
        for (QLabel *label : page->verdictLabels)
            label->show();
        for (QLabel *label : page->markerLabels)
            label->show();
        // The questions of each half as they come, the solved ones staying on view.
        for (int k = 0; k < 10; ++k) {
            const int first = k < 5 ? 0 : 5;
            showOnly(page->questionFrames, first, k - first + 1);
            check(u"questions %1 to %2 judged"_s.arg(first + 1).arg(k + 1));
            // A marker stands nearer its own option than any other of the question.
            const auto near = [&](int marker, int option) {
                return gap(placeOf(page->markerLabels[std::size_t(marker)]),
                           placeOf(page->optionButtons[std::size_t(option)]));
            };
            for (int i = 4 * k; i < 4 * k + 4; ++i) {
                for (int j = 4 * k; j < 4 * k + 4; ++j) {
                    if (j != i && near(i, j) <= near(i, i))
                        found << u"marker of option %1 as near option %2"_s.arg(i).arg(j);
                }
            }
        }
        page->instructionLabel->hide();
        page->gradeLabel->setText(u"Zensur: 2"_s);
        page->gradeLabel->show();
        page->printButton->show();
        check(u"graded"_s);
    }
    if (auto *scale = qobject_cast<GradeScaleScreen *>(form)) {
        scale->openScaleForEditing();
        scale->thresholdEdits[0]->setText(u"x"_s);
        scale->thresholdEdits[1]->setText(u"8 "_s);
        check(u"editing, with both hints"_s);
    }
    // The programme's message boxes over the screen: a question and a failure.
    for (const auto &[icon, text] :
         {std::pair(QMessageBox::Question, u"Möchtest du wirklich die gesamte Arbeit beenden?"_s),
          std::pair(QMessageBox::Critical, u"Dateiname oder -nummer falsch"_s)}) {
        const auto box = Seams::messageBox(
            icon, u"Kelvora"_s, text,
            icon == QMessageBox::Critical ? QMessageBox::Ok : QMessageBox::Yes | QMessageBox::No);
        box->show();
        if (!QTest::qWaitForWindowExposed(box.get()))
            found << u"message box not shown"_s;
        for (const QString &misfit : misfits(box.get()))
            found << u"message box: "_s + misfit;
    }
    return found;
}
