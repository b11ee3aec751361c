// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

class Picture;
class QPushButton;

// A small information screen: one picture and a close button. ArbWei, Autor and Voraus are
// instances of it, each with its own caption and picture.
class InfoScreen : public Form {
    Q_OBJECT
public:
    // id is ScreenId::ArbWei, ScreenId::Autor or ScreenId::Voraus.
    explicit InfoScreen(ScreenId id, QWidget *parent = nullptr);

    void Command1_Click();

    Picture *Image1 = nullptr;
    QPushButton *Command1 = nullptr; // picture button without caption: closes the screen
};

// The text of each information picture, as rich text.
QString arbWeiText();
QString autorText();
QString vorausText();
