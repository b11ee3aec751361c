// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "panel.h"

class QLabel;

// The exit frame "Wie möchtest du beenden?" over a page (Frame10), with the cover that dims the
// page behind it (Picture10). Both are hidden until the page opens them; the page's handlers say
// what each choice does.
class ExitFrame : public PagePanel {
public:
    explicit ExitFrame(QWidget *page);

    QWidget *cover = nullptr;             // Picture10
    QLabel *heading = nullptr;            // Label10
    QPushButton *resumeButton = nullptr;  // Command11 "... hier weiterarbeiten"
    QPushButton *restartButton = nullptr; // Command10 "... von vorn beginnen"
    QPushButton *stayButton = nullptr;    // Command12 "Ich möchte nicht beenden"
};
