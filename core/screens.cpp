// SPDX-License-Identifier: GPL-3.0-or-later
#include "screens.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMap>
#include <QPointer>
#include <QTimer>
#include <QWindow>

namespace {

struct Layer {
    QMap<ScreenId, Screens::Factory> factories;
    QMap<ScreenId, QPointer<Form>> loaded;
    QList<QPointer<Form>> activationOrder; // most recently activated last
    QPointer<Form> active;
    bool ended = false;
    bool settlePending = false;
    int generation = 0; // a reset forgets settling that was still queued
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

void makeActive(Form *form) {
    Layer &l = layer();
    l.activationOrder.removeAll(form);
    l.activationOrder.append(form);
    if (l.active == form)
        return;
    l.active = form;
    form->onActivate();
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

} // namespace

void Screens::registerScreen(ScreenId id, const Factory &factory) {
    layer().factories.insert(id, factory);
}

Form *Screens::show(ScreenId id) {
    Layer &l = layer();
    if (l.ended)
        return nullptr;
    Form *form = l.loaded.value(id);
    if (!form) {
        const Factory factory = l.factories.value(id);
        if (!factory)
            return nullptr;
        form = factory();
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

void Screens::endProgramme() {
    Layer &l = layer();
    if (l.ended)
        return;
    l.ended = true;
    const auto forms = l.loaded.values();
    l.loaded.clear();
    l.activationOrder.clear();
    l.active = nullptr;
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
    l.ended = false;
    l.settlePending = false;
    ++l.generation;
}
