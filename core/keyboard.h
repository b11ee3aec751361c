// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

// How a pupil who works with the keyboard or a screen reader moves through a screen. Every screen
// (Form) uses these; no screen lists its own tab order.
namespace Keyboard {

// Puts the controls of a window in the order in which they are read: its menu bar first, then
// the contents of every layout row by row, each row from left to right. Screen readers read the
// controls in this order, and Tab and Shift+Tab follow it. Controls outside any layout (the
// panels that float over a page) come after the others, in the order they were made.
void followReadingOrder(QWidget *window);

// Gives the focus to the window's first control in reading order that can take it. A screen that
// comes into the window of the pages starts here, as a new window would.
void focusFirstControl(QWidget *window);

// Option buttons that the arrow keys move between without choosing one (Space chooses): Up and
// Left go to the previous option among `option`'s siblings of the same kind, Down and Right to the
// next, round the ends. Returns false for any other key.
bool moveAmongOptions(QWidget *option, int key);

} // namespace Keyboard
