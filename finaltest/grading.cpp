// SPDX-License-Identifier: GPL-3.0-or-later
#include "grading.h"

#include "course.h"
#include "finaltestpage.h"
#include "resultlog.h"
#include "screens.h"
#include "seams.h"
#include "textfiles.h"

#include <QLabel>
#include <QPushButton>

QString gradeText(int correct, int answered) {
    QString text;
    const double s = static_cast<double>(correct) / static_cast<double>(answered);
    const double min5 = course.gradeMin5 / 100.0;
    const double min4 = course.gradeMin4 / 100.0;
    const double min3 = course.gradeMin3 / 100.0;
    const double min2 = course.gradeMin2 / 100.0;
    const double min1 = course.gradeMin1 / 100.0;
    // Each test that holds overwrites the one before, so with a scale out of order the last
    // hit wins, and with none the text stays empty.
    if (s < min5)
        text = QStringLiteral("Zensur:   6");
    if (s >= min5 && s < min4)
        text = QStringLiteral("Zensur:   5");
    if (s >= min4 && s < min3)
        text = QStringLiteral("Zensur:   4");
    if (s >= min3 && s < min2)
        text = QStringLiteral("Zensur:   3");
    if (s >= min2 && s < min1)
        text = QStringLiteral("Zensur:   2");
    if (s >= min1)
        text = QStringLiteral("Zensur:   1");
    return text;
}

void gradeTest() {
    if (course.testAnsweredCount == 0)
        return;
    const QString grade = gradeText(course.testCorrectCount, course.testAnsweredCount);

    if (auto *page = Screens::loaded<FinalTestPage>(ScreenId::FinalTest)) {
        page->gradeLabel->setText(grade);
        page->gradeLabel->setVisible(true);
        // A screen reader says the grade with the button that takes the focus.
        page->endPageButton->setAccessibleDescription(grade.simplified());
        page->endPageButton->setFocus();
    }

    // The grade file may fail in every step, keeping the last grade; the new grade stays on the
    // page all the same.
    ReplacedFile file(course.gradeFilePath);
    file.writeLine(
        PrintLine().text(QStringLiteral("Programm Kelvora:")).nextZone().text(grade).str());
    file.writeLine(QString());
    file.writeLine(dateTimeText(Seams::now()));
    file.close();
}
