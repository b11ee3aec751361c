// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

class Course;
class Picture;
class QLabel;
class QPushButton;
class SvgView;

// The end page: back to the final test, or the end of the whole programme.
class EndPage : public Form {
    Q_OBJECT
public:
    EndPage(Course &course, double zoomFactor);

    // Form_Activate: the second picture appears.
    void onActivate() override;
    QList<ScreenId> likelyNext() const override { return {ScreenId::FinalTest}; }
    // Command1_Click, "Zurück".
    void backToFinalTest();
    // Command3_Click, "Ende": asks, then ends.
    void askToEnd();

    QLabel *titleLabel = nullptr;      // Label1
    Picture *endPicture = nullptr;     // Image1 "Ende des Lernprogramms"
    SvgView *diplomaArt = nullptr;     // Image2
    SvgView *circuitArt = nullptr;     // Image4, shown on activation
    QPushButton *backButton = nullptr; // Command1 "Zurück"
    QPushButton *quitButton = nullptr; // Command3 "Ende"

private:
    // EndProgramme: records a restart from the beginning and ends the programme.
    void recordEndAndQuit();

    Course &course_;
};
