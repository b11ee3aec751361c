// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

class QFrame;
class QLabel;
class QPushButton;
class QTimer;
class SvgView;

// The start screen: it opens the page where the pupil chose to resume, or stays so that the
// pupil goes on to the control centre.
class Start : public Form {
    Q_OBJECT
public:
    explicit Start(QWidget *parent = nullptr);

    void Form_Activate() override;
    void Command1_Click();

    QLabel *Label1 = nullptr;
    QLabel *Label2 = nullptr;
    SvgView *Image2 = nullptr;
    SvgView *Image3 = nullptr;
    SvgView *Image4 = nullptr;
    SvgView *Image5 = nullptr;
    QFrame *Shape1 = nullptr;
    QPushButton *Command1 = nullptr;
    QTimer *Timer1 = nullptr; // present, without behaviour

private:
    void OpenStartPage();
};
