// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "displaybackend.h"

// The modes of the X server's primary output through the RandR extension. Nothing when the
// display cannot be opened or the server lacks RandR 1.2.
std::unique_ptr<DisplayBackend> makeX11DisplayBackend();
