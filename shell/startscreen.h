// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

class Course;
class QFrame;
class QLabel;
class QPushButton;
class SvgView;

// The start screen: it opens the page where the pupil chose to resume, or stays so that the
// pupil goes on to the control centre.
class StartScreen : public Form {
    Q_OBJECT
public:
    StartScreen(Course &course, double zoomFactor);

    // Form_Activate: reads the start position and dispatches.
    void onActivate() override;
    // Command1_Click, "Weiter".
    void toControlCentre();

    QLabel *titleLabel = nullptr;          // Label1
    QLabel *subtitleLabel = nullptr;       // Label2
    SvgView *conductionArt = nullptr;      // Image2
    SvgView *spareArt = nullptr;           // Image3, hidden whenever the screen is activated
    SvgView *componentsArt = nullptr;      // Image4
    SvgView *titleArt = nullptr;           // Image5, shown whenever the screen is activated
    QFrame *titleFrame = nullptr;          // Shape1
    QPushButton *continueButton = nullptr; // Command1 "Weiter"

private:
    void openStartPage();

    Course &course_;
};
