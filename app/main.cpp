// SPDX-License-Identifier: GPL-3.0-or-later
// The composition root: every screen is made known to the screen layer here, and only here.
#include "application.h"
#include "backend_screen.h"
#include "course.h"
#include "displaymodescreen.h"
#include "finaltestpage.h"
#include "lessonpage.h"
#include "messagebox.h"
#include "programmelock.h"
#include "screens.h"
#include "seams.h"
#include "shell.h"
#include "textfiles.h"

#include <QApplication>

#include <cstdlib>

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    setUpApplication(app);
    // A failure that ends the programme is reported in a box over the active screen.
    Seams::setFailureHandler(Seams::showFailureBox);

    // One copy per programme folder: a second start brings the first copy's window to the front,
    // or says that Kelvora runs, and ends without touching the files.
    if (const auto running = ProgrammeLock::claim()) {
        if (!bringWindowToFront(*running))
            ProgrammeLock::sayAlreadyRunning();
        return EXIT_SUCCESS;
    }

    // The one course the screens share.
    Course course(TextFiles::programmePath);
    registerShellScreens(course);
    registerLessonPages(course);
    registerFinalTestScreens(course);
    registerDisplayScreens();

    // The start screen is the programme's entry; the programme ends when its last screen goes.
    Screens::show(ScreenId::Start);
    const int status = QApplication::exec();
    Screens::reset();
    return status;
}
