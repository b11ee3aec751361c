// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "displaybackend.h"

#include <optional>

// The modes of the X server's primary output through the RandR extension. Nothing when the
// display cannot be opened or the server lacks RandR 1.2.
std::unique_ptr<DisplayBackend> makeX11DisplayBackend();

// The steps of a mode change, in their order: the output is switched off when the desktop
// shrinks, the desktop takes its new size, the output is lit with the new mode. A step that the
// server refuses puts back the mode, the desktop size and the output as they were.
enum class X11ModeStep { OutputOff, ScreenSize, NewMode };

// For tests: until it is cleared, every mode change sends this step in a form the server
// refuses.
void refuseX11ModeStep(std::optional<X11ModeStep> step);

// Brings the front window of the process to the front of the desktop through the window
// manager: true when the process has a window there and the manager was asked. False without a
// window manager that takes such requests.
bool bringX11WindowToFront(long long processId);
