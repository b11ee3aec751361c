// SPDX-License-Identifier: GPL-3.0-or-later
// The composition root: every screen is made known to the screen layer here, and only here.
#include "application.h"
#include "displaymodescreen.h"
#include "finaltestpage.h"
#include "lessonpage.h"
#include "screens.h"
#include "shell.h"

#include <QApplication>

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    setUpApplication(app);

    registerShellScreens();
    registerLessonPages();
    registerFinalTestScreens();
    registerDisplayScreens();

    // The start screen is the programme's entry; the programme ends when its last screen goes.
    Screens::show(ScreenId::Start);
    const int status = QApplication::exec();
    Screens::reset();
    return status;
}
