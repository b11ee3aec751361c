// SPDX-License-Identifier: GPL-3.0-or-later
#include "keyboard.h"

#include <QAbstractScrollArea>
#include <QBoxLayout>
#include <QGridLayout>
#include <QList>
#include <QMainWindow>
#include <QMenuBar>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace Keyboard {

namespace {

// The widgets of a layout and of the layouts inside it, in reading order.
void collect(QLayout *layout, QList<QWidget *> &widgets) {
    std::vector<int> order;
    const int count = layout->count();
    if (auto *grid = qobject_cast<QGridLayout *>(layout)) {
        // Row by row, each row from left to right; a control spanning rows is read in its top row.
        struct Cell {
            int row;
            int column;
            int index;
        };
        std::vector<Cell> cells;
        for (int i = 0; i < count; ++i) {
            int row = 0;
            int column = 0;
            int rowSpan = 0;
            int columnSpan = 0;
            grid->getItemPosition(i, &row, &column, &rowSpan, &columnSpan);
            cells.push_back({row, column, i});
        }
        std::stable_sort(cells.begin(), cells.end(), [](const Cell &a, const Cell &b) {
            return a.row != b.row ? a.row < b.row : a.column < b.column;
        });
        for (const Cell &cell : cells)
            order.push_back(cell.index);
    } else {
        for (int i = 0; i < count; ++i)
            order.push_back(i);
        const auto *box = qobject_cast<QBoxLayout *>(layout);
        if (box && (box->direction() == QBoxLayout::RightToLeft ||
                    box->direction() == QBoxLayout::BottomToTop))
            std::reverse(order.begin(), order.end());
    }
    for (int i : order) {
        QLayoutItem *item = layout->itemAt(i);
        if (QWidget *w = item->widget())
            widgets.append(w);
        else if (QLayout *inner = item->layout())
            collect(inner, widgets);
    }
}

// Orders the children of a container by its layout, and the children of those in turn. A child
// that takes the focus itself (a field, a list) keeps its own inner order.
void orderChildren(QWidget *container) {
    if (qobject_cast<QAbstractScrollArea *>(container))
        return;
    if (!container->layout()) {
        // Placed by hand (the frame that holds a zoomed page): the children keep their order, and
        // what is inside them is ordered in turn.
        for (QWidget *w : container->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            if (!w->isWindow() && w->focusPolicy() == Qt::NoFocus)
                orderChildren(w);
        }
        return;
    }
    QList<QWidget *> laidOut;
    collect(container->layout(), laidOut);
    const QList<QWidget *> children =
        container->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    QList<QWidget *> order;
    for (QWidget *w : laidOut) {
        if (w->parentWidget() == container && !order.contains(w))
            order.append(w);
    }
    for (QWidget *w : children) {
        if (!order.contains(w) && !w->isWindow())
            order.append(w);
    }
    // raise() moves a child to the end of its parent's children, which is the order screen
    // readers read; floating panels raise themselves again when they appear.
    for (QWidget *w : order)
        w->raise();
    for (QWidget *w : order) {
        if (w->focusPolicy() == Qt::NoFocus)
            orderChildren(w);
    }
}

// The controls Tab stops at, in the order of the children.
void collectTabStops(QWidget *parent, QList<QWidget *> &stops) {
    const QList<QWidget *> children = parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (QWidget *w : children) {
        if (w->isWindow())
            continue;
        if ((w->focusPolicy() & Qt::TabFocus) == Qt::TabFocus)
            stops.append(w);
        else
            collectTabStops(w, stops);
    }
}

} // namespace

namespace {

QWidget *contentsOf(QWidget *window) {
    if (auto *main = qobject_cast<QMainWindow *>(window))
        return main->centralWidget();
    return window;
}

QList<QWidget *> tabStops(QWidget *contents) {
    QList<QWidget *> stops;
    collectTabStops(contents, stops);
    return stops;
}

void focusFirst(QWidget *window, const QList<QWidget *> &stops) {
    for (QWidget *w : stops) {
        if (w->isEnabled() && w->isVisibleTo(window)) {
            w->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

} // namespace

void followReadingOrder(QWidget *window) {
    if (auto *main = qobject_cast<QMainWindow *>(window)) {
        if (QWidget *menu = main->menuWidget())
            menu->lower();
    }
    QWidget *contents = contentsOf(window);
    if (!contents)
        return;
    orderChildren(contents);
    const QList<QWidget *> stops = tabStops(contents);
    for (qsizetype i = 1; i < stops.size(); ++i)
        QWidget::setTabOrder(stops.at(i - 1), stops.at(i));
    // The chain of stops is a ring; where a window starts in it is its first control in reading
    // order that can take the focus.
    if (!window->focusWidget())
        focusFirst(window, stops);
}

void focusFirstControl(QWidget *window) {
    if (QWidget *contents = contentsOf(window))
        focusFirst(window, tabStops(contents));
}

bool moveAmongOptions(QWidget *option, int key) {
    int step = 0;
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        step = -1;
        break;
    case Qt::Key_Down:
    case Qt::Key_Right:
        step = 1;
        break;
    default:
        return false;
    }
    QList<QWidget *> options;
    for (QWidget *w : option->parentWidget()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (w->metaObject() == option->metaObject())
            options.append(w);
    }
    const qsizetype here = options.indexOf(option);
    if (here >= 0 && options.size() > 1) {
        const qsizetype count = options.size();
        options.at((here + step + count) % count)
            ->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
    return true;
}

} // namespace Keyboard
