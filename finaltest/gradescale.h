// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

#include <array>
#include <cstdint>

class CaptionLabel;
class Course;
class QLabel;
class QLineEdit;
class QPushButton;

// The grade scale: shows the five minimum percentages, lets the pupil or teacher change them box
// by box, and grades the test when it is closed.
class GradeScaleScreen : public Form {
    Q_OBJECT
public:
    GradeScaleScreen(Course &course, double zoomFactor);

    // Form_Activate: the boxes show the current scale.
    void onActivate() override;
    // Command1_Click: closes the screen and grades the test.
    void closeAndGrade();
    // Command2_Click, "OK": box `index` becomes its threshold.
    void takeThreshold(int index);
    // Command4_Click, "Zensurentabelle ändern".
    void openScaleForEditing();
    // Text2_Change: checks the last character typed into box `index`.
    void onThresholdChanged(int index);

    CaptionLabel *explanationLabel = nullptr;    // Label1
    QLabel *scaleHeading = nullptr;              // Label6 "Eingestellte Zensurenskala:"
    std::array<QLabel *, 5> thresholdLabels{};   // Label2(0..4)
    std::array<QLineEdit *, 5> thresholdEdits{}; // Text2(0..4): grade 5 .. grade 1
    std::array<QPushButton *, 5> okButtons{};    // Command2(0..4) "OK"
    QPushButton *changeScaleButton = nullptr;    // Command4 "Zensurentabelle ändern"
    QPushButton *gradeButton = nullptr;          // Command1
    std::array<CaptionLabel *, 2> hintLabels{};  // Label3(0..1)

protected:
    // Escape closes the screen and grades, as its close button does.
    bool closeOnEscape() override;

private:
    Course &course_;
};

// The caption of Label1: how the test is scored, with an example and the default scale.
extern const QString kScoringExplanation;

// A box's text as a 16-bit whole number, the way the threshold takes it. Text that is no number
// and numbers out of range end the programme.
std::int16_t toInteger16(const QString &text);
