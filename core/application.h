// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QApplication;

// Look and language of the programme: one style on every platform, German texts on Qt's own
// buttons and dialogs.
void setUpApplication(QApplication &app);
