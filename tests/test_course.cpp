// SPDX-License-Identifier: GPL-3.0-or-later
// The course the screens share, on Qt Core alone: the grade by the scale, the points, and the
// signals the screens follow.
#include "course.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCourse : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void grade_data() {
        QTest::addColumn<int>("correct");
        QTest::addColumn<int>("answered");
        QTest::addColumn<QList<int>>("scale"); // grade 5 .. grade 1; empty: the default scale
        QTest::addColumn<QString>("grade");    // null: no grade at all
        const auto row = [](int correct, int answered, const QList<int> &scale, int grade) {
            QTest::addRow("%d of %d%s", correct, answered, scale.isEmpty() ? "" : ", reversed")
                << correct << answered << scale
                << (grade > 0 ? u"Zensur:   %1"_s.arg(grade) : QString());
        };
        // The worked examples, and the default scale just under and on each threshold: a share
        // on a threshold takes the better grade.
        row(10, 12, {}, 2);
        row(10, 10, {}, 1);
        row(10, 13, {}, 3);
        row(10, 51, {}, 6);
        row(10, 50, {}, 5);
        row(10, 25, {}, 4);
        row(6, 10, {}, 3);
        row(8, 10, {}, 2);
        row(23, 24, {}, 2);
        row(24, 25, {}, 1);
        // A scale out of order: every test that holds overwrites the one before.
        row(10, 33, {50, 40, 30, 20, 10}, 1);
        row(1, 20, {50, 40, 30, 20, 10}, 6);
        row(0, 0, {}, 0); // before the first click
    }
    void grade() {
        QFETCH(int, correct);
        QFETCH(int, answered);
        QFETCH(QList<int>, scale);
        QFETCH(QString, grade);
        Course course({});
        course.setGradeScale(kDefaultGradeScale);
        for (qsizetype i = 0; i < scale.size(); ++i)
            course.setGradeMinimum(int(i), std::int16_t(scale[i]));
        QSignalSpy counts(&course, &Course::testCountsChanged);
        QSignalSpy graded(&course, &Course::graded);
        for (int click = 0; click < answered; ++click)
            course.countTestClick(click < correct);
        QCOMPARE(counts.count(), qsizetype(answered));
        QCOMPARE(course.grade().value_or(QString()), grade);
        QCOMPARE(QList<QVariantList>(graded),
                 grade.isNull() ? QList<QVariantList>() : QList<QVariantList>{{grade}});
    }

    // Every change of the lesson points is signalled (their text: the pages' tests).
    void points() {
        Course course({});
        QSignalSpy changed(&course, &Course::pointsChanged);
        course.countAnswer();
        course.countCorrect();
        course.resetLessonCounts();
        QCOMPARE(changed.count(), 3);
    }
};

QTEST_GUILESS_MAIN(TestCourse)
#include "test_course.moc"
