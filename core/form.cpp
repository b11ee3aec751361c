// SPDX-License-Identifier: GPL-3.0-or-later
#include "form.h"

#include "keyboard.h"
#include "screens.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

#include <array>

ScreenId pageScreen(int page) {
    if (page >= 1 && page <= 11)
        return static_cast<ScreenId>(static_cast<int>(ScreenId::Page1) + page - 1);
    return ScreenId::EndPage;
}

QString formName(ScreenId id) {
    static constexpr std::array<const char *, 19> kNames = {
        "Start",   "Steuerzentrum", "Qel1",  "Qel2",   "Qel3",     "Qel4",  "Qel5",
        "Qel6",    "Qel7",          "Qel8",  "Qel9",   "Qel10",    "Qel11", "Qel50",
        "QelZens", "ArbWei",        "Autor", "Voraus", "Auflösung"};
    static_assert(kNames.size() == static_cast<std::size_t>(ScreenId::DisplayMode) + 1);
    return QString::fromUtf8(kNames.at(static_cast<std::size_t>(id)));
}

Form::Form(ScreenId id, QWidget *parent)
    : QMainWindow(parent)
    , id_(id) {
    setAttribute(Qt::WA_DeleteOnClose, false);
    setObjectName(formName(id));
}

bool Form::event(QEvent *e) {
    if (e->type() == QEvent::WindowActivate)
        Screens::activated(this);
    // Before the screen first shows, its controls are complete: they take their reading order.
    if (e->type() == QEvent::Polish)
        Keyboard::followReadingOrder(this);
    return QMainWindow::event(e);
}

void Form::keyPressEvent(QKeyEvent *e) {
    switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        // As on Windows, Enter presses the button that has the focus. The event comes here when
        // the focused control left it alone; message boxes are no screens and keep their own
        // default button.
        auto *button = qobject_cast<QPushButton *>(focusWidget());
        if (button && button->isEnabled()) {
            if (!e->isAutoRepeat()) // a key held down presses once
                button->click();
            return;
        }
        break;
    }
    case Qt::Key_Escape:
        // An open panel or a screen that Escape closes comes first; what Escape means beyond
        // that belongs here too, after it.
        if (closeOnEscape())
            return;
        break;
    default:
        break;
    }
    QMainWindow::keyPressEvent(e);
}

void Form::closeEvent(QCloseEvent *e) {
    // The close box unloads the screen; the screen layer ends the programme once none is left.
    e->ignore();
    Screens::unload(this);
}
