// SPDX-License-Identifier: GPL-3.0-or-later
#include "course.h"

QString pointsText() {
    return QLatin1Char(' ') + QString::number(course.correctCount) + QLatin1String(" von ") +
           QString::number(course.answeredCount);
}
