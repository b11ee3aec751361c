// SPDX-License-Identifier: GPL-3.0-or-later
#include "screenfit.h"

#include "application.h"
#include "controlcentre.h"
#include "displaymodescreen.h"
#include "finaltestpage.h"
#include "form.h"
#include "lessonpage.h"
#include "picture.h"
#include "shell.h"
#include "testsupport.h"
#include "zoom.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

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

} // namespace

void setUpEveryScreen() {
    setUpApplication(*qobject_cast<QApplication *>(QCoreApplication::instance()));
    registerShellScreens();
    registerLessonPages();
    registerFinalTestScreens();
    registerDisplayScreens();
}

void resizeTo(Form *form, QSize size) {
    form->window()->resize(size);
    settle();
}

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
        found << u"page %1 for a design of %2 at %3"_s.arg(text(page.size()), text(design))
                     .arg(factor);
    if (std::abs(page.left() - (form->width() - page.right() - 1)) > 1 ||
        std::abs(page.top() - menu - (form->height() - page.bottom() - 1)) > 1)
        found << u"page not centred: %1 in %2"_s.arg(text(page), text(form->size()));

    const int basePixels = QFontInfo(QApplication::font()).pixelSize();
    const int pagePixels = QFontInfo(form->page()->font()).pixelSize();
    if (std::abs(double(pagePixels) / basePixels / factor - 1) > 0.1)
        found << u"page font %1 px at a factor of %2"_s.arg(pagePixels).arg(factor);

    const int indicator =
        QApplication::style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, nullptr);
    const auto widgets = form->findChildren<QWidget *>();
    for (QWidget *w : widgets) {
        if (w->window() != form->window() || !w->isVisibleTo(form))
            continue;
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
        const QRect rect(w->mapTo(form, QPoint()), w->size());
        if (!form->rect().contains(rect))
            found << u"%1 at %2 outside the window"_s.arg(where(w), text(rect));
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
