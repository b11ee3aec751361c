// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "displaybackend.h"

// The display settings of Windows (user32), for the display the programme runs on.
std::unique_ptr<DisplayBackend> makeWindowsDisplayBackend();

// Brings the front window of the process to the foreground, restoring it when it is minimised:
// true when the process has a visible window and Windows let it come forward.
bool bringWindowsWindowToFront(long long processId);
