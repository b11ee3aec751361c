// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QRect>

#include <functional>

class QWidget;

// Controls that come and go while the pupil works on a page: the verdicts and the pace note.
// Showing a widget lays its parent out again and asks the window system where the pointer is, and
// hiding it lays the parent out once more; the pupil would wait for that after each letter. An
// appearing control is shown with its page and stays shown: while it is not visible it waits at
// its size out of sight, just beside its parent, and appearing only moves it into its place and
// in front of its siblings. Whether it is visible is a flag of its own, which the programme reads
// and which screen readers are told as they are told of a widget that is shown or hidden.
namespace Appearing {

// Makes `control` appear in the place `place` gives it in its parent, and keeps it there whenever
// its parent or one of `anchors` is moved or resized. It starts not visible.
void attach(QWidget *control, const QList<QWidget *> &anchors, std::function<QRect()> place);
bool isAppearing(const QWidget *control);

void setVisible(QWidget *control, bool visible);
inline void show(QWidget *control) {
    setVisible(control, true);
}
inline void hide(QWidget *control) {
    setVisible(control, false);
}
// Whether the pupil sees the control on its page: an appearing control's flag, the widget's own
// visibility for any other.
bool isVisible(const QWidget *control);

// Told of every control that appears or goes, after the change (the screen-reader support).
void setObserver(std::function<void(QWidget *control, bool visible)> observer);

} // namespace Appearing
