// SPDX-License-Identifier: GPL-3.0-or-later
#include "application.h"

#include "zoom.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QStyleFactory>
#include <QTranslator>

void setUpApplication(QApplication &app) {
    app.setApplicationName(QStringLiteral("Kelvora"));
    app.setApplicationVersion(QStringLiteral(KELVORA_VERSION));
    // Fusion draws the light grey of the active buttons on every platform.
    // Its own sizes follow each window's zoom.
    app.setStyle(zoomingStyle(QStyleFactory::create(QStringLiteral("Fusion"))));

    // The programme speaks German whatever the system's language: Qt's own buttons too ("&Ja",
    // "&Nein"). Without the translation files the buttons stay English and nothing else changes.
    // Qt's own folder first, then the "translations" folder that windeployqt puts beside the
    // programme.
    static QTranslator *qtTexts = nullptr;
    if (!qtTexts) {
        qtTexts = new QTranslator(&app);
        const QStringList folders = {QLibraryInfo::path(QLibraryInfo::TranslationsPath),
                                     QCoreApplication::applicationDirPath() +
                                         QStringLiteral("/translations")};
        for (const QString &folder : folders) {
            if (qtTexts->load(QStringLiteral("qtbase_de"), folder)) {
                QCoreApplication::installTranslator(qtTexts);
                break;
            }
        }
    }
}
