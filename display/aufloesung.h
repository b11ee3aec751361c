// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

class QLabel;
class QListWidget;
class QPushButton;
class SvgView;

// The display-mode screen: shows the current screen size among the modes the display offers and
// switches the display to the mode the pupil picks.
class Auflösung : public Form {
public:
    explicit Auflösung(QWidget *parent = nullptr);

    void Form_Load() override;
    void List1_Click();
    void Command1_Click();
    void Command2_Click();

    QLabel *Label1 = nullptr;
    QLabel *Label5 = nullptr;
    QListWidget *List1 = nullptr;
    QLabel *Label2 = nullptr;
    SvgView *Image1 = nullptr;
    QLabel *Label4 = nullptr;
    QLabel *Label3 = nullptr;
    QPushButton *Command1 = nullptr;
    QPushButton *Command2 = nullptr;
};

// Makes the display-mode screen known to the screen layer.
void registerDisplayScreens();
