// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>
#include <memory>

class QWidget;

// The programme's message boxes, the seams where it asks the pupil or reports a failure.
namespace Seams {

// The screen a message box opens over, as the screen layer knows it: the active screen. The layer
// puts its own in place; without one a box opens on its own.
void setBoxParent(std::function<QWidget *()> parent);

// A message box of the programme: over the active screen, in its page's font, its icon as large
// as the page's zoom makes it.
std::unique_ptr<QMessageBox> messageBox(QMessageBox::Icon icon, const QString &title,
                                        const QString &text, QMessageBox::StandardButtons buttons);

// A question with Yes and No, the question icon and No as the default button. True means Yes.
bool askYesNo(const QString &text, const QString &title);
void setYesNo(std::function<bool(const QString &text, const QString &title)> ask);
bool askYesNoWithMessageBox(const QString &text, const QString &title); // the production box

// The failure box: the system's error text in a critical message box with OK. main() makes it
// the handler of Seams::failProgramme.
void showFailureBox(const QString &systemErrorText);

} // namespace Seams
