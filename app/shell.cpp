// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell.h"

#include "screens.h"
#include "start.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QStyleFactory>
#include <QTranslator>

void registerShellScreens() {
    Screens::registerScreen(ScreenId::Start, [] { return new Start; });
}

void setUpApplication(QApplication &app) {
    app.setApplicationName(QStringLiteral("Kelvora"));
    app.setApplicationVersion(QStringLiteral(KELVORA_VERSION));
    // Fusion draws the light grey of the active buttons on every platform.
    app.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}
