// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// The eleven pages of the course and what each holds: pages 1 to 10 five questions each, page 11
// the final test. The control centre's topics, the lines of the page overview and the pages'
// window captions are all made from this one list.
namespace Topics {

inline constexpr int kPages = 11;
inline constexpr int kFinalTestPage = 11;

// The control centre's topic of page index + 1: the topic, a run of blanks and the page
// reference, "Fragen 1 bis 5", 80 blanks, "- Seite 1". Empty outside the eleven pages.
QString topicCaption(int index);
// The page overview's line of page index + 1: "Seite 1 (Frage 1 -  5)".
QString overviewLine(int index);
// The window caption of page 1 to 11: "Kelvora", a run of blanks, "Seite 4".
QString pageCaption(int page);

} // namespace Topics
