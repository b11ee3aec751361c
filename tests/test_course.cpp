// SPDX-License-Identifier: GPL-3.0-or-later
// The grade by the scale, on Qt Core alone (what the screens make of it: test_finaltest).
#include "course.h"

#include <QTest>

#include <tuple>

using namespace Qt::StringLiterals;

class TestCourse : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void grade_data() {
        QTest::addColumn<int>("correct");
        QTest::addColumn<int>("answered");
        QTest::addColumn<QList<int>>("scale"); // grade 5 .. grade 1; empty: the default scale
        QTest::addColumn<int>("grade");        // 0: no grade at all
        // The worked examples, and the default scale just under and on each threshold: a share
        // on a threshold takes the better grade. No grade before the first click.
        for (const auto &[correct, answered, grade] : {std::tuple{10, 12, 2},
                                                       {10, 10, 1},
                                                       {10, 13, 3},
                                                       {10, 51, 6},
                                                       {10, 50, 5},
                                                       {10, 25, 4},
                                                       {6, 10, 3},
                                                       {8, 10, 2},
                                                       {23, 24, 2},
                                                       {24, 25, 1},
                                                       {0, 0, 0}})
            QTest::addRow("%d of %d", correct, answered)
                << correct << answered << QList<int>() << grade;
        // A scale out of order: every test that holds overwrites the one before.
        const QList<int> reversed{50, 40, 30, 20, 10};
        QTest::addRow("10 of 33, reversed") << 10 << 33 << reversed << 1;
        QTest::addRow("1 of 20, reversed") << 1 << 20 << reversed << 6;
    }
    void grade() {
        QFETCH(int, correct);
        QFETCH(int, answered);
        QFETCH(QList<int>, scale);
        QFETCH(int, grade);
        Course course({});
        course.setGradeScale(kDefaultGradeScale);
        for (qsizetype i = 0; i < scale.size(); ++i)
            course.setGradeMinimum(int(i), std::int16_t(scale[i]));
        for (int click = 0; click < answered; ++click)
            course.countTestClick(click < correct);
        QCOMPARE(course.grade(),
                 grade ? std::optional(u"Zensur:   %1"_s.arg(grade)) : std::optional<QString>());
    }
};

QTEST_GUILESS_MAIN(TestCourse)
#include "test_course.moc"
