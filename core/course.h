// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

// The grade scale: the minimum percentages for the grades 5, 4, 3, 2 and 1, in this order.
using GradeScale = std::array<std::int16_t, 5>;

// The scale every start sets, whatever was changed in the run before, and the one the grade
// scale screen explains.
inline constexpr GradeScale kDefaultGradeScale = {20, 40, 60, 80, 96};

// What the whole course shares from screen to screen: where it resumes, the page last activated,
// the lesson points, the final test's own two counters, the grade scale and the paths of the
// programme's files. main() makes the one instance and hands it to the screens that need it; they
// change it through the steps below and follow its signals. Everything is zero or empty at the
// start; the counters count in 16 bits, as the programme always has.
class Course : public QObject {
    Q_OBJECT
public:
    // A file's path in the programme folder, the folder asked for afresh.
    using PathRule = std::function<QString(const QString &fileName)>;
    explicit Course(PathRule programmePath, QObject *parent = nullptr);

    // The first item of the start-position file as the start screen last read it: "", "1".."11",
    // "50", or whatever a damaged file holds.
    const QString &startPage() const { return startPage_; }
    void setStartPage(const QString &item) { startPage_ = item; }

    // The start-position file's path, formed anew by the start screen and by every page as it
    // becomes active, so that it is right whichever page the programme started on.
    void formStartFilePath();
    // The grade file's and the log's paths, formed anew as page 11 becomes active.
    void formTestFilePaths();
    const QString &startFilePath() const { return startFilePath_; }
    const QString &gradeFilePath() const { return gradeFilePath_; }
    const QString &resultFilePath() const { return resultFilePath_; }

    // The page last activated, 1..11; 50 once a restart from the beginning is chosen.
    std::int16_t currentPage() const { return currentPage_; }
    void setCurrentPage(std::int16_t page) { currentPage_ = page; }

    // The lesson points. They run on across pages 1 to 10; only page 1 starts them anew, when it
    // loads.
    void resetLessonCounts();
    void countAnswer();  // one more evaluated answer, right or wrong
    void countCorrect(); // one more right answer
    std::int16_t correctCount() const { return correctCount_; }
    std::int16_t answeredCount() const { return answeredCount_; }
    // The points display: a blank, the right answers, " von ", the answers, as in " 3 von 4".
    QString pointsText() const;

    // The final test's own pair, apart from the lesson points: page 11 starts it anew when it
    // loads; every click counts, a right one scores as well.
    void resetTestCounts();
    void countTestClick(bool right);
    std::int16_t testCorrectCount() const { return testCorrectCount_; }
    std::int16_t testAnsweredCount() const { return testAnsweredCount_; }

    const GradeScale &gradeScale() const { return gradeScale_; }
    void setGradeScale(const GradeScale &scale) { gradeScale_ = scale; }
    // One threshold: 0 is the minimum for grade 5, ..., 4 the one for grade 1.
    void setGradeMinimum(int index, std::int16_t percent);

    // The grade for the test's two counters by the scale: "Zensur:   1" .. "Zensur:   6". A
    // scale out of order is taken as it is.
    QString gradeText() const;
    // The course's part of grading: nothing at all before the first click of the test;
    // otherwise the grade, which graded() hands to whoever shows it.
    std::optional<QString> grade();

Q_SIGNALS:
    void pointsChanged();
    void testCountsChanged();
    void graded(const QString &text);

private:
    PathRule programmePath_;
    QString startPage_;
    QString startFilePath_;
    QString gradeFilePath_;
    QString resultFilePath_;
    std::int16_t currentPage_ = 0;
    std::int16_t correctCount_ = 0;
    std::int16_t answeredCount_ = 0;
    std::int16_t testCorrectCount_ = 0;
    std::int16_t testAnsweredCount_ = 0;
    GradeScale gradeScale_{};
};
