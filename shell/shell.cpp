// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell.h"

#include "controlcentre.h"
#include "endpage.h"
#include "infoscreens.h"
#include "screens.h"
#include "startscreen.h"

void registerShellScreens() {
    Screens::registerScreen(ScreenId::Start, [](double factor) { return new StartScreen(factor); });
    Screens::registerScreen(ScreenId::ControlCentre,
                            [](double factor) { return new ControlCentre(factor); });
    Screens::registerScreen(ScreenId::EndPage, [](double factor) { return new EndPage(factor); });
    for (ScreenId id : {ScreenId::WorkingMethod, ScreenId::Author, ScreenId::Requirements})
        Screens::registerScreen(id, [id](double factor) { return new InfoScreen(id, factor); });
}
