// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

#include <array>
#include <cstdint>

class CaptionLabel;
class QLabel;
class QLineEdit;
class QPushButton;

// The grade scale: shows the five minimum percentages, lets the pupil or teacher change them box
// by box, and grades the test when it is closed.
class QelZens : public Form {
    Q_OBJECT
public:
    explicit QelZens(QWidget *parent = nullptr);

    void Form_Activate() override;
    void Command1_Click();
    void Command2_Click(int Index);
    void Command4_Click();
    void Text2_Change(int Index);

    CaptionLabel *Label1 = nullptr;
    QLabel *Label6 = nullptr;
    std::array<QLabel *, 5> Label2{};
    std::array<QLineEdit *, 5> Text2{};
    std::array<QPushButton *, 5> Command2{};
    QPushButton *Command4 = nullptr;
    QPushButton *Command1 = nullptr;
    std::array<CaptionLabel *, 2> Label3{};

private:
    static std::int16_t &threshold(int Index);
};

// The caption of Label1: how the test is scored, with an example and the default scale.
extern const QString kScoringExplanation;

// A box's text as a 16-bit whole number, the way the threshold takes it. Text that is no number
// and numbers out of range end the programme.
std::int16_t toInteger16(const QString &text);
