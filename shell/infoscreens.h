// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

class Picture;
class QPushButton;

// A small information screen: one picture and a close button. The screens "Arbeitsweise",
// "Autor und Version" and "Voraussetzungen und Besonderheiten" are instances of it, each with its
// own caption and picture.
class InfoScreen : public Form {
    Q_OBJECT
public:
    // id is ScreenId::WorkingMethod, ScreenId::Author or ScreenId::Requirements.
    InfoScreen(ScreenId id, double zoomFactor);

    // Command1_Click.
    void closeScreen();

    Picture *picture = nullptr;         // Image1
    QPushButton *closeButton = nullptr; // Command1, a picture button without caption

protected:
    // Escape closes the screen, as its close button does.
    bool closeOnEscape() override;
};

// The text of each information picture, as rich text.
QString workingMethodText();
QString authorText();
QString requirementsText();
