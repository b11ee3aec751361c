// SPDX-License-Identifier: GPL-3.0-or-later
#include "seams.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

namespace Seams {

namespace {
std::function<QString()> folderOverride;
std::function<QDateTime()> clockOverride;
std::function<void(const QString &)> failureHandler;
} // namespace

QString filesFolderFor(const QString &executableFolder, const QString &dataFolder) {
    // <prefix>/bin/kelvora beside <prefix>/share/kelvora: installed.
    const QDir bin(executableFolder);
    const bool installed = bin.dirName() == QStringLiteral("bin") &&
                           QFileInfo(bin.filePath(QStringLiteral("../share/kelvora"))).isDir();
    return installed ? dataFolder : executableFolder;
}

QString programmeFolder() {
    if (folderOverride)
        return folderOverride();
    const QString executable = QCoreApplication::applicationDirPath();
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QString folder = filesFolderFor(executable, data);
    if (folder != executable)
        QDir().mkpath(folder); // may fail: then the files fail as in a write-protected folder
    return QDir::toNativeSeparators(folder);
}

void setProgrammeFolder(std::function<QString()> folder) {
    folderOverride = std::move(folder);
}

QDateTime now() {
    return clockOverride ? clockOverride() : QDateTime::currentDateTime();
}

double secondsSinceMidnight() {
    return now().time().msecsSinceStartOfDay() / 1000.0;
}

void setClock(std::function<QDateTime()> clock) {
    clockOverride = std::move(clock);
}

void failProgramme(const QString &systemErrorText) {
    if (failureHandler)
        failureHandler(systemErrorText);
    else
        std::fprintf(stderr, "Kelvora: %s\n", qUtf8Printable(systemErrorText));
    // Nothing of the programme runs after a failure.
    std::exit(EXIT_FAILURE);
}

void setFailureHandler(std::function<void(const QString &)> handler) {
    failureHandler = std::move(handler);
}

} // namespace Seams
