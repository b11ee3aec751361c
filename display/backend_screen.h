// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "displaybackend.h"

// Where the programme cannot talk to the display settings (offscreen, Wayland): the primary
// screen's size in physical pixels, offered as the one mode; a change does nothing.
std::unique_ptr<DisplayBackend> makeScreenSizeBackend();

// The backend of the platform the programme runs on: Windows' display settings, RandR when Qt
// talks to an X server that offers it, else the screen size only.
std::unique_ptr<DisplayBackend> makePlatformDisplayBackend();

// Brings the front window of another process on this desktop to the front, as a click on it in
// the task bar would: through Windows, or through the window manager when Qt talks to an X
// server. A process that is still opening its window is waited for a few seconds. False when no
// window of the process could be brought forward.
bool bringWindowToFront(long long processId);
