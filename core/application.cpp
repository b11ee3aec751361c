// SPDX-License-Identifier: GPL-3.0-or-later
#include "application.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QPointer>
#include <QStyleFactory>
#include <QTranslator>

void setUpApplication(QApplication &app) {
    app.setApplicationName(QStringLiteral("Kelvora"));
    app.setApplicationVersion(QStringLiteral(KELVORA_VERSION));
    // The window icon is the menu entry's icon, and desktops find the entry by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.kelvora.Kelvora"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/org.kelvora.Kelvora.svg")));
    // Fusion draws the light grey of the active buttons on every platform.
    app.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));

    // The programme speaks German whatever the system's language: Qt's own buttons too ("&Ja",
    // "&Nein"). Without the translation files the buttons stay English and nothing else changes.
    // Qt's own folder first, then the "translations" folder that windeployqt puts beside the
    // programme.
    // One translator per application object: it goes with the application.
    static QPointer<QTranslator> qtTexts;
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
