// SPDX-License-Identifier: GPL-3.0-or-later
#include "grading.h"

#include "course.h"
#include "resultlog.h"
#include "seams.h"
#include "textfiles.h"

void gradeTest(Course &course) {
    const std::optional<QString> grade = course.grade();
    if (!grade)
        return;

    // The grade file may fail in every step, keeping the last grade; the new grade stays on the
    // page all the same.
    ReplacedFile file(course.gradeFilePath());
    file.writeLine(
        PrintLine().text(QStringLiteral("Programm Kelvora:")).nextZone().text(*grade).str());
    file.writeLine(QString());
    file.writeLine(dateTimeText(Seams::now()));
    file.close();
}
