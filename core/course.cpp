// SPDX-License-Identifier: GPL-3.0-or-later
#include "course.h"

#include "textfiles.h"

#include <utility>

namespace {

// Counts as the programme always has: in 16 bits.
std::int16_t plusOne(std::int16_t count) {
    return static_cast<std::int16_t>(count + 1);
}

} // namespace

Course::Course(PathRule programmePath, QObject *parent)
    : QObject(parent)
    , programmePath_(std::move(programmePath)) {}

void Course::formStartFilePath() {
    startFilePath_ = programmePath_(kStartFileName);
}

void Course::formTestFilePaths() {
    gradeFilePath_ = programmePath_(kGradeFileName);
    resultFilePath_ = programmePath_(kResultFileName);
}

void Course::resetLessonCounts() {
    correctCount_ = 0;
    answeredCount_ = 0;
    Q_EMIT pointsChanged();
}

void Course::countAnswer() {
    answeredCount_ = plusOne(answeredCount_);
    Q_EMIT pointsChanged();
}

void Course::countCorrect() {
    correctCount_ = plusOne(correctCount_);
    Q_EMIT pointsChanged();
}

QString Course::pointsText() const {
    return QLatin1Char(' ') + QString::number(correctCount_) + QLatin1String(" von ") +
           QString::number(answeredCount_);
}

void Course::resetTestCounts() {
    testCorrectCount_ = 0;
    testAnsweredCount_ = 0;
    Q_EMIT testCountsChanged();
}

void Course::countTestClick(bool right) {
    if (right)
        testCorrectCount_ = plusOne(testCorrectCount_);
    testAnsweredCount_ = plusOne(testAnsweredCount_);
    Q_EMIT testCountsChanged();
}

void Course::setGradeMinimum(int index, std::int16_t percent) {
    gradeScale_.at(static_cast<std::size_t>(index)) = percent;
}

QString Course::gradeText() const {
    QString text;
    const double s =
        static_cast<double>(testCorrectCount_) / static_cast<double>(testAnsweredCount_);
    const double min5 = gradeScale_[0] / 100.0;
    const double min4 = gradeScale_[1] / 100.0;
    const double min3 = gradeScale_[2] / 100.0;
    const double min2 = gradeScale_[3] / 100.0;
    const double min1 = gradeScale_[4] / 100.0;
    // Each test that holds overwrites the one before, so with a scale out of order the last
    // hit wins.
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

std::optional<QString> Course::grade() {
    if (testAnsweredCount_ == 0)
        return std::nullopt;
    const QString text = gradeText();
    Q_EMIT graded(text);
    return text;
}
