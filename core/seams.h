// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

// The few places where the programme touches the world outside its screens, as far as the
// programme's files need them: none of them needs a widget. Each has a production default; tests
// put their own in its place. The message boxes are seams too (messagebox.h).
namespace Seams {

// The folder that holds the programme's files, with the platform's native separators. Asked for
// afresh every time a file path is formed. A portable copy (a build tree, an unpacked archive, a
// USB stick) keeps its files beside its executable; an installed copy, whose executable lies in
// the bin folder of a prefix that holds Kelvora's share folder, in the pupil's own data folder,
// created when needed, so that every pupil with a login has their own files.
QString programmeFolder();
void setProgrammeFolder(std::function<QString()> folder); // empty function: back to the default

// The same decision for an executable in `executableFolder`; `dataFolder` is the pupil's own data
// folder. Returns one of the two, unchanged.
QString filesFolderFor(const QString &executableFolder, const QString &dataFolder);

// Clock: seconds since midnight with fractions, and the current date and time.
double secondsSinceMidnight();
QDateTime now();
void setClock(std::function<QDateTime()> clock); // empty function: back to the system clock

// A failure that ends the programme: the handler reports it, and the programme ends with exit
// status 1. main() puts the failure box in place (Seams::showFailureBox); without a handler the
// text goes to the standard error output.
[[noreturn]] void failProgramme(const QString &systemErrorText);
void setFailureHandler(std::function<void(const QString &)> handler);

} // namespace Seams
