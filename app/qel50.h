// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

class Picture;
class QLabel;
class QPushButton;
class SvgView;

// The end page: back to the final test, or the end of the whole programme.
class Qel50 : public Form {
    Q_OBJECT
public:
    explicit Qel50(QWidget *parent = nullptr);

    void Form_Activate() override;
    void Command1_Click();
    void Command3_Click();

    QLabel *Label1 = nullptr;
    Picture *Image1 = nullptr;
    SvgView *Image2 = nullptr;
    SvgView *Image4 = nullptr;
    QPushButton *Command1 = nullptr; // "Zurück"
    QPushButton *Command3 = nullptr; // "Ende"

private:
    void EndProgramme();
};
