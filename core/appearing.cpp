// SPDX-License-Identifier: GPL-3.0-or-later
#include "appearing.h"

#include <QAccessible>
#include <QEvent>
#include <QHash>
#include <QObject>
#include <QWidget>

namespace {

// What makes a control an appearing one: its flag and its place. It belongs to the control.
class Appearance : public QObject {
public:
    Appearance(QWidget *control, const QList<QWidget *> &anchors, std::function<QRect()> place);
    ~Appearance() override;

    bool visible = false;
    // Puts the control in its place, or out of sight beside it.
    void apply() {
        QRect where = place_();
        if (!visible)
            where.moveRight(-1);
        control_->setGeometry(where);
    }

protected:
    bool eventFilter(QObject *, QEvent *e) override {
        if (e->type() == QEvent::Resize || e->type() == QEvent::Move)
            apply();
        return false;
    }

private:
    QWidget *control_;
    std::function<QRect()> place_;
};

QHash<const QWidget *, Appearance *> &appearances() {
    static QHash<const QWidget *, Appearance *> all;
    return all;
}

std::function<void(QWidget *, bool)> &observer() {
    static std::function<void(QWidget *, bool)> told;
    return told;
}

Appearance::Appearance(QWidget *control, const QList<QWidget *> &anchors,
                       std::function<QRect()> place)
    : QObject(control)
    , control_(control)
    , place_(std::move(place)) {
    appearances().insert(control, this);
    control->parentWidget()->installEventFilter(this);
    for (QWidget *anchor : anchors)
        anchor->installEventFilter(this);
    apply();
}

Appearance::~Appearance() {
    appearances().remove(control_);
}

} // namespace

namespace Appearing {

void attach(QWidget *control, const QList<QWidget *> &anchors, std::function<QRect()> place) {
    new Appearance(control, anchors, std::move(place));
    // Screen readers are given it anew, as the appearing control it now is.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(control)));
}

bool isAppearing(const QWidget *control) {
    return appearances().contains(control);
}

void setVisible(QWidget *control, bool visible) {
    Appearance *appearance = appearances().value(control);
    if (!appearance) {
        control->setVisible(visible);
        return;
    }
    if (appearance->visible == visible)
        return;
    appearance->visible = visible;
    appearance->apply();
    if (visible)
        control->raise();
    if (observer())
        observer()(control, visible);
}

bool isVisible(const QWidget *control) {
    const Appearance *appearance = appearances().value(control);
    return appearance ? appearance->visible : !control->isHidden();
}

void setObserver(std::function<void(QWidget *, bool)> told) {
    observer() = std::move(told);
}

} // namespace Appearing
