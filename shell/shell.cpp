// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell.h"

#include "controlcentre.h"
#include "endpage.h"
#include "infoscreens.h"
#include "screens.h"
#include "startscreen.h"

void registerShellScreens(Course &course) {
    Screens::registerScreen(ScreenId::Start, [&course] { return new StartScreen(course); });
    Screens::registerScreen(ScreenId::ControlCentre, [] { return new ControlCentre; });
    Screens::registerScreen(ScreenId::EndPage, [&course] { return new EndPage(course); });
    for (ScreenId id : {ScreenId::WorkingMethod, ScreenId::Author, ScreenId::Requirements})
        Screens::registerScreen(id, [id] { return new InfoScreen(id); });
}
