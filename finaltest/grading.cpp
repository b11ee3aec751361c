// SPDX-License-Identifier: GPL-3.0-or-later
#include "grading.h"

#include "modul1.h"
#include "qel11.h"
#include "resultlog.h"
#include "screens.h"
#include "seams.h"
#include "textfiles.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>

using namespace Modul1;

QString gradeText(int correct, int answered) {
    QString GradeText;
    const double s = static_cast<double>(correct) / static_cast<double>(answered);
    const double min5 = GradeMin5 / 100.0;
    const double min4 = GradeMin4 / 100.0;
    const double min3 = GradeMin3 / 100.0;
    const double min2 = GradeMin2 / 100.0;
    const double min1 = GradeMin1 / 100.0;
    // Each test that holds overwrites the one before, so with a scale out of order the last
    // hit wins, and with none the text stays empty.
    if (s < min5)
        GradeText = QStringLiteral("Zensur:   6");
    if (s >= min5 && s < min4)
        GradeText = QStringLiteral("Zensur:   5");
    if (s >= min4 && s < min3)
        GradeText = QStringLiteral("Zensur:   4");
    if (s >= min3 && s < min2)
        GradeText = QStringLiteral("Zensur:   3");
    if (s >= min2 && s < min1)
        GradeText = QStringLiteral("Zensur:   2");
    if (s >= min1)
        GradeText = QStringLiteral("Zensur:   1");
    return GradeText;
}

void GradeTest() {
    if (TestAnsweredCount == 0)
        return;
    const QString GradeText = gradeText(TestCorrectCount, TestAnsweredCount);

    if (auto *page = Screens::loaded<Qel11>(ScreenId::Qel11)) {
        page->Label15->setText(GradeText);
        page->Label15->setVisible(true);
        page->Command1->setFocus();
    }

    // The grade file may fail in every step; the grade stays on the page all the same.
    QFile file(GradeFilePath);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        const QString lines[] = {
            PrintLine().text(QStringLiteral("Programm Kelvora:")).nextZone().text(GradeText).str(),
            QString(),
            dateTimeText(Seams::now()),
        };
        for (const QString &line : lines)
            file.write(TextFiles::toWindows1252(line) + QByteArrayLiteral("\r\n"));
        file.close();
    }
}
