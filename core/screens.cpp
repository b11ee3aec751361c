// SPDX-License-Identifier: GPL-3.0-or-later
#include "screens.h"

#include "zoom.h"

#include <QApplication>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMap>
#include <QPointer>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWindow>

#include <cmath>

namespace {

// How long a new page is left alone before the screens likely to follow it are built.
constexpr int kPrepareDelayMs = 40;

// Where a window stands: the geometry it returns to when restored, its current size (maximised,
// or full screen, or the same) and its state.
struct WindowPlace {
    QRect normal;
    QSize size;
    Qt::WindowStates state;
    QScreen *screen = nullptr;
    bool valid = false;
};

struct Layer {
    QMap<ScreenId, Screens::Factory> factories;
    QMap<ScreenId, QPointer<Form>> loaded;
    QMap<ScreenId, QPointer<Form>> spares; // built ahead, not loaded
    QList<QPointer<Form>> activationOrder; // most recently activated last
    QPointer<Form> active;
    WindowPlace lastPlace; // of the last screen that others take the place of
    bool ended = false;
    bool settlePending = false;
    bool preparePending = false;
    int generation = 0; // a reset forgets settling and preparing that was still queued
};

Layer &layer() {
    static Layer l;
    return l;
}

void stopTimers(Form *form) {
    const auto timers = form->findChildren<QTimer *>();
    for (QTimer *t : timers)
        t->stop();
}

WindowPlace placeOf(const Form *form) {
    const Qt::WindowStates state =
        form->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    QRect normal = state ? form->normalGeometry() : form->geometry();
    if (normal.isEmpty())
        normal = form->geometry();
    return {normal, form->size(), state, form->screen(), true};
}

// The most recently active loaded screen that pages replace, other than `except`.
Form *currentPage(const Form *except = nullptr) {
    const Layer &l = layer();
    for (auto it = l.activationOrder.crbegin(); it != l.activationOrder.crend(); ++it) {
        Form *form = *it;
        if (form && form != except && replacesScreen(form->screenId()) && !form->isHidden())
            return form;
    }
    return nullptr;
}

// Room the window system's frame takes above the window's inside, as far as it can be known.
int titleRoom(const Form *model) {
    if (model && model->isVisible()) {
        const int top = model->geometry().top() - model->frameGeometry().top();
        if (top > 0)
            return top;
    }
    return QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight) + 4;
}

// The inside of the largest window the screen can show: the available area less the frame.
QRect usableArea(QScreen *screen, const Form *model) {
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return {0, 0, 800, 600};
    return screen->availableGeometry().adjusted(0, titleRoom(model), 0, 0);
}

// No window smaller than its page at the smallest zoom, unless the screen is smaller still.
void limitMinimum(Form *form, const QRect &usable) {
    const QSize smallest = form->designSize() * Zoom::kSmallest;
    form->setMinimumSize(smallest.boundedTo(usable.size()));
}

// The window's size at `factor`, made smaller to fit the area with its proportions kept.
QSize fitted(const Form *form, double factor, const QRect &area) {
    const QSize design = form->designSize();
    factor = std::min(
        {factor, double(area.width()) / design.width(), double(area.height()) / design.height()});
    return {int(std::lround(design.width() * factor)), int(std::lround(design.height() * factor))};
}

QRect centredIn(const QRect &area, QSize size) {
    return {area.center().x() - size.width() / 2 + 1, area.center().y() - size.height() / 2 + 1,
            size.width(), size.height()};
}

QRect keptInside(QRect rect, const QRect &area) {
    rect.moveLeft(std::max(area.left(), std::min(rect.left(), area.right() - rect.width() + 1)));
    rect.moveTop(std::max(area.top(), std::min(rect.top(), area.bottom() - rect.height() + 1)));
    return rect;
}

// Puts a screen that is about to be shown in its window's place, zoomed and laid out for it.
void placeWindow(Form *form) {
    Layer &l = layer();
    Form *page = currentPage(form);
    if (replacesScreen(form->screenId())) {
        const WindowPlace from = page ? placeOf(page) : l.lastPlace;
        if (from.valid) {
            // Laid out at the size it will have, then given the geometry it returns to when
            // restored: the window system maximises it again without a second layout.
            limitMinimum(form, usableArea(from.screen, page));
            form->zoomFor(from.size);
            form->setGeometry(from.normal);
            form->setWindowState(from.state);
            return;
        }
        // The first window: centred on the screen, the page at four fifths of its height.
        const QRect usable = usableArea(nullptr, nullptr);
        const int title = titleRoom(nullptr);
        const QRect available = usable.adjusted(0, -title, 0, 0);
        limitMinimum(form, usable);
        const double factor = 0.8 * available.height() / form->designSize().height();
        const QSize size = fitted(form, factor, usable).expandedTo(form->minimumSize());
        form->zoomFor(size);
        const QRect outside = keptInside(centredIn(available, size + QSize(0, title)), available);
        form->setGeometry(outside.adjusted(0, title, 0, 0));
        return;
    }
    // A screen over a page: at the page's zoom, centred over it, kept on the screen.
    const QRect usable = usableArea(page ? page->screen() : nullptr, page);
    limitMinimum(form, usable);
    const double factor = page ? page->zoom().factor() : 1.0;
    const QSize size = fitted(form, factor, usable).expandedTo(form->minimumSize());
    form->zoomFor(size);
    const QRect over = page ? page->geometry() : usable;
    form->setGeometry(keptInside(centredIn(over, size), usable));
}

// Builds the next of the screens the active page names that is neither loaded nor prepared; one
// each time, so that a key the pupil presses meanwhile waits for one screen at most.
bool prepareOne() {
    Layer &l = layer();
    Form *page = currentPage();
    if (l.ended || !page)
        return false;
    const QList<ScreenId> likely = page->likelyNext();
    // Instances prepared for a page left behind go.
    for (auto it = l.spares.begin(); it != l.spares.end();) {
        if (!likely.contains(it.key()) || !it.value()) {
            delete it.value().data();
            it = l.spares.erase(it);
        } else {
            ++it;
        }
    }
    for (ScreenId id : likely) {
        if (l.loaded.contains(id) || l.spares.contains(id) || !l.factories.value(id))
            continue;
        // Laid out for the window it will take over; its place and state, and with them its
        // window in the window system, it gets when shown.
        Form *spare = l.factories.value(id)();
        l.spares.insert(id, spare);
        spare->zoomFor(page->size());
        spare->layOutNow();
        return true;
    }
    return false;
}

void schedulePrepare() {
    Layer &l = layer();
    if (l.preparePending)
        return;
    l.preparePending = true;
    QTimer::singleShot(kPrepareDelayMs, qApp, [generation = l.generation] {
        Layer &now = layer();
        if (generation != now.generation)
            return;
        now.preparePending = false;
        if (prepareOne())
            schedulePrepare();
    });
}

void makeActive(Form *form) {
    Layer &l = layer();
    l.activationOrder.removeAll(form);
    l.activationOrder.append(form);
    if (l.active == form)
        return;
    l.active = form;
    form->onActivate();
    if (replacesScreen(form->screenId()))
        schedulePrepare();
}

// Runs once the handler that unloaded a screen has returned: with no screen left the programme
// ends; otherwise the screen used last becomes active again.
void settle() {
    Layer &l = layer();
    l.settlePending = false;
    if (l.ended)
        return;
    if (l.loaded.isEmpty()) {
        l.ended = true;
        QCoreApplication::exit(0);
        return;
    }
    if (l.active)
        return;
    l.activationOrder.removeAll(nullptr);
    if (l.activationOrder.isEmpty())
        return;
    Form *next = l.activationOrder.last();
    next->raise();
    next->activateWindow();
    makeActive(next);
}

void scheduleSettle() {
    Layer &l = layer();
    if (l.settlePending)
        return;
    l.settlePending = true;
    QTimer::singleShot(0, qApp, [generation = l.generation] {
        if (generation == layer().generation)
            settle();
    });
}

void dropSpares() {
    Layer &l = layer();
    const auto spares = l.spares.values();
    l.spares.clear();
    for (const QPointer<Form> &spare : spares)
        delete spare.data();
}

} // namespace

void Screens::registerScreen(ScreenId id, const Factory &factory) {
    Layer &l = layer();
    l.factories.insert(id, factory);
    delete l.spares.take(id).data();
}

Form *Screens::show(ScreenId id) {
    Layer &l = layer();
    if (l.ended)
        return nullptr;
    Form *form = l.loaded.value(id);
    if (!form) {
        form = l.spares.take(id);
        if (!form) {
            const Factory factory = l.factories.value(id);
            if (!factory)
                return nullptr;
            form = factory();
        }
        placeWindow(form);
        l.loaded.insert(id, form);
        form->onLoad();
        if (l.ended || l.loaded.value(id) != form)
            return nullptr;
    }
    form->show();
    form->raise();
    form->activateWindow();
    makeActive(form);
    return form;
}

void Screens::unload(ScreenId id) {
    unload(loaded(id));
}

void Screens::unload(Form *form) {
    Layer &l = layer();
    if (!form || l.loaded.value(form->screenId()) != form)
        return;
    if (replacesScreen(form->screenId()) && !form->isHidden())
        l.lastPlace = placeOf(form);
    l.loaded.remove(form->screenId());
    l.activationOrder.removeAll(form);
    if (l.active == form)
        l.active = nullptr;
    stopTimers(form);
    form->hide();
    form->deleteLater();
    scheduleSettle();
}

Form *Screens::loaded(ScreenId id) {
    return layer().loaded.value(id);
}

bool Screens::anyLoaded() {
    return !layer().loaded.isEmpty();
}

Form *Screens::activeScreen() {
    return layer().active;
}

void Screens::activated(Form *form) {
    // Activation events can arrive late, after a handler has already shown another screen.
    // Only the screen that still holds the focus once the queue has settled becomes active.
    QPointer<Form> candidate(form);
    QTimer::singleShot(0, form, [candidate] {
        Layer &l = layer();
        if (!candidate || l.ended || l.loaded.value(candidate->screenId()) != candidate)
            return;
        if (QGuiApplication::focusWindow() != candidate->windowHandle())
            return;
        makeActive(candidate);
    });
}

void Screens::prepareLikelyNext() {
    while (prepareOne()) {
    }
}

bool Screens::prepared(ScreenId id) {
    return layer().spares.value(id) != nullptr;
}

void Screens::endProgramme() {
    Layer &l = layer();
    if (l.ended)
        return;
    l.ended = true;
    const auto forms = l.loaded.values();
    l.loaded.clear();
    l.activationOrder.clear();
    l.active = nullptr;
    dropSpares();
    for (const QPointer<Form> &form : forms) {
        if (!form)
            continue;
        stopTimers(form);
        form->hide();
        form->deleteLater();
    }
    QCoreApplication::exit(0);
}

bool Screens::programmeEnded() {
    return layer().ended;
}

void Screens::reset() {
    Layer &l = layer();
    const auto forms = l.loaded.values();
    l.loaded.clear();
    l.activationOrder.clear();
    l.active = nullptr;
    for (const QPointer<Form> &form : forms)
        delete form.data();
    dropSpares();
    l.lastPlace = {};
    l.ended = false;
    l.settlePending = false;
    l.preparePending = false;
    ++l.generation;
}
