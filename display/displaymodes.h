// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "displaybackend.h"

#include <QString>

class QListWidget;

// The routines that talk to the display. A mode is shown as its width, " x " and its height,
// for example "1024 x 768".
namespace DisplayModes {

// The current screen size in physical pixels as a mode text.
QString resolutionText();
// Appends every distinct mode text the display offers, in the display's own order.
void fillModeList(QListWidget *list);
// True when the text is not a whole entry of the list (case does not matter).
bool isNotInList(QListWidget *list, const QString &text);
// Index of the entry that is the whole text (case does not matter), or -1.
int findListEntry(QListWidget *list, const QString &text);
// Switches the display to width x height pixels at once, without storing it; a refusal is silent.
void setResolution(int width, int height);

// The size a mode text stands for, read the way the display-mode screen reads the chosen entry:
// the number left of the first "x" is the width, the number right of it the height. Each number
// is read from the start of its side, blanks skipped, up to the first character that cannot
// belong to it ("1024 x 768" gives 1024 and 768), and rounded to whole pixels from 0 to a
// million. A side without a number gives 0.
DisplaySize modeSize(const QString &text);

// The display the routines talk to: the platform's own unless one was put in its place. An empty
// pointer goes back to the platform's own, made when it is next needed.
DisplayBackend &displayBackend();
void setDisplayBackend(std::unique_ptr<DisplayBackend> backend);

} // namespace DisplayModes
