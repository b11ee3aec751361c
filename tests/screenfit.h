// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

#include <QSize>
#include <QStringList>
#include <QTest>

class QWidget;

// What the zoom tests check of a screen as it stands in its window.

// The programme's style, once per test run, and every screen registered with each programme.
void setUpEveryScreen();
// Shows a screen in a window of `size` (its own, or the one the pages share), waits until the
// window has that size and the zoom has followed, and returns the screen's misfits throughout.
QStringList misfitsShownAt(ScreenId id, QSize size);
// Everything that is wrong with a screen or a message box as it stands: controls outside the
// window, texts that do not fit the room they are drawn in or run into another control, fonts,
// menus and pictures not grown with the window, the style's own sizes not zoomed, a page out of
// proportion or off centre. Empty when all is well.
QStringList misfits(QWidget *screen);
// The misfits of a screen in every state it can be in, one part at a time (each question and
// verdict, the pace note, the panels, the explanation and its hint, page 11's questions judged and
// graded, the grade scale being edited), each after the state it was found in; with the
// programme's two message boxes over it. Leaves the screen in its last state.
QStringList misfitsThroughout(Form *form);
// Fails the test with every misfit found, one per line.
#define VERIFY_NO_MISFITS(found)                                                                   \
    do {                                                                                           \
        const QStringList found_ = (found);                                                        \
        QVERIFY2(found_.isEmpty(), qPrintable(found_.join(QLatin1Char('\n'))));                    \
    } while (false)
