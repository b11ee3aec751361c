// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "displaybackend.h"

// The display settings of Windows (user32), for the display the programme runs on.
std::unique_ptr<DisplayBackend> makeWindowsDisplayBackend();
