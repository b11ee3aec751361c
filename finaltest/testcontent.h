// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>

// The ten questions of the final test on page 11, as plain data. Question k owns the option
// buttons 4k to 4k+3.
struct TestQuestion {
    QString frame; // caption of the question's frame, "Aufgabe 1" .. "Aufgabe 10"
    QString text;  // the question; its runs of blanks are line breaks of the caption
    std::array<QString, 4> options;
    std::array<bool, 4> right; // the answer key; question 10 has two right options
};

inline constexpr int kTestQuestionCount = 10;
inline constexpr int kTestOptionCount = 4 * kTestQuestionCount;

extern const std::array<TestQuestion, kTestQuestionCount> kTestQuestions;

// The answer key: whether option `index` (0..39) is a right answer of its question.
bool isRightOption(int index);

// The verdict shown beside an option once it is clicked, "Richtig" or "Falsch", made from the
// answer key, so that the two always agree.
QString verdictCaption(int index);
