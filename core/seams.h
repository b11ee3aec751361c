// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QMessageBox>
#include <QString>

#include <functional>
#include <memory>

// The few places where the programme touches the world outside its screens. Each has a
// production default; tests put their own in its place.
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

// A message box of the programme: over the active screen, in its page's font, its icon as large
// as the page's zoom makes it.
std::unique_ptr<QMessageBox> messageBox(QMessageBox::Icon icon, const QString &title,
                                        const QString &text, QMessageBox::StandardButtons buttons);

// A question with Yes and No, the question icon and No as the default button. True means Yes.
bool askYesNo(const QString &text, const QString &title);
void setYesNo(std::function<bool(const QString &text, const QString &title)> ask);
bool askYesNoWithMessageBox(const QString &text, const QString &title); // the production box

// A failure that ends the programme: the handler reports it and never returns.
[[noreturn]] void failProgramme(const QString &systemErrorText);
void setFailureHandler(std::function<void(const QString &)> handler);

} // namespace Seams
