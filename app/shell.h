// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QApplication;

// The programme shell's own screens, made known to the screen layer.
void registerShellScreens();

// Look and language of the programme: one style on every platform, German texts on Qt's own
// buttons and dialogs.
void setUpApplication(QApplication &app);
