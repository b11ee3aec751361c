// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class SvgView;

// The display-mode screen: shows the current screen size among the modes the display offers and
// switches the display to the mode the pupil picks.
class DisplayModeScreen : public Form {
    Q_OBJECT
public:
    explicit DisplayModeScreen(double zoomFactor);

    // Form_Load: lists the modes and selects the current one.
    void onLoad() override;
    // List1_Click.
    void onModeClicked();
    // Command1_Click, "Auflösung ändern".
    void changeMode();
    // Command2_Click.
    void closeScreen();

    QLabel *introLabel = nullptr;        // Label1
    QLabel *listHeading = nullptr;       // Label5 "Bildschirmauflösung"
    QListWidget *modeList = nullptr;     // List1
    QLabel *adviceLabel = nullptr;       // Label2
    SvgView *monitorsArt = nullptr;      // Image1
    QLabel *smallFontLabel = nullptr;    // Label4 "Kleine Schrift"
    QLabel *largeFontLabel = nullptr;    // Label3 "Große Schrift"
    QPushButton *changeButton = nullptr; // Command1 "Auflösung ändern"
    QPushButton *closeButton = nullptr;  // Command2, a picture button without caption

protected:
    // Escape closes the screen, as its close button does.
    bool closeOnEscape() override;

private:
    // The entry chosen in the list, or nullptr.
    const QListWidgetItem *selectedEntry() const;
};

// Makes the display-mode screen known to the screen layer.
void registerDisplayScreens();
