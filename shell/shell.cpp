// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell.h"

#include "controlcentre.h"
#include "endpage.h"
#include "infoscreens.h"
#include "screens.h"
#include "startscreen.h"

void registerShellScreens(Course &course) {
    Screens::registerScreen(ScreenId::Start,
                            [&course](double factor) { return new StartScreen(course, factor); });
    Screens::registerScreen(ScreenId::ControlCentre,
                            [](double factor) { return new ControlCentre(factor); });
    Screens::registerScreen(ScreenId::EndPage,
                            [&course](double factor) { return new EndPage(course, factor); });
    for (ScreenId id : {ScreenId::WorkingMethod, ScreenId::Author, ScreenId::Requirements})
        Screens::registerScreen(id, [id](double factor) { return new InfoScreen(id, factor); });
}
