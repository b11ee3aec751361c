// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

// What screen readers (Orca through AT-SPI, NVDA through UI Automation) are told beyond the
// controls' names, all through Qt's public accessibility interfaces. Screen readers speak what
// the focus moves to: its name, its role and its description. So a change the pupil must hear
// travels with the control that takes the focus after it (a verdict with the button that follows
// it), and where nothing takes the focus, an announcement says it.
namespace Accessibility {

// A window caption as a listener needs it: the programme's title and the screen's own, joined by a
// dash ("Kelvora – Seite 3"), without the run of blanks that puts the screen's title at the right
// end of the caption bar.
QString spokenCaption(const QString &caption);

// Installs, once, how the programme's own controls are shown to screen readers: a picture of the
// pages as static text read whole, a text field with its whole text, a drawing as a graphic, an
// announcement as a notification; and that a control that appears is read afresh.
void install();

// Says `text` at once, where no control takes the focus that could carry it (a verdict beside an
// option that keeps the focus). It is an invisible notification inside `within`, shown anew for
// each announcement.
void announce(QWidget *within, const QString &text);

// Makes a text that appears beside a control that keeps the focus (a hint under a field) a
// notification: a screen reader says it by itself each time it appears.
void sayWhenShown(QWidget *text);

} // namespace Accessibility
