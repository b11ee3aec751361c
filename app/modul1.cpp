// SPDX-License-Identifier: GPL-3.0-or-later
#include "modul1.h"

namespace Modul1 {

QString PointsText() {
    return QLatin1Char(' ') + QString::number(CorrectCount) + QLatin1String(" von ") +
           QString::number(AnsweredCount);
}

} // namespace Modul1
