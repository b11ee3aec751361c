// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// GradeTest: turns the final test's two counters into a school grade by the scale gradeMin5 ..
// gradeMin1, shows it on page 11 and writes it to ZensurQel.txt. Does nothing before the first
// click.
void gradeTest();

// The grade for `correct` right clicks out of `answered` by the current scale: "Zensur:   1" ..
// "Zensur:   6", or empty when the scale is so inconsistent that no test holds.
QString gradeText(int correct, int answered);
