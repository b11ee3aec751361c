// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>

// What the whole course shares from screen to screen: plain public fields that every screen reads
// and writes directly. All are zero or empty when the programme starts; 16-bit where the
// programme counts in 16 bits.
struct CourseState {
    QString startPage;      // first item of StartQelB.txt: "", "1".."11" or "50"
    QString startFilePath;  // StartQelB.txt in the programme folder
    QString gradeFilePath;  // ZensurQel.txt
    QString resultFilePath; // TestergebnisQel.doc

    std::int16_t currentPage = 0;       // 1..11, or 50 once a restart from the beginning is chosen
    std::int16_t correctCount = 0;      // right answers since page 1 was last loaded
    std::int16_t answeredCount = 0;     // evaluated answers since page 1 was last loaded
    std::int16_t testCorrectCount = 0;  // right clicks in the final test
    std::int16_t testAnsweredCount = 0; // all clicks in the final test

    // Minimum percentages for the grades 5 down to 1, in this order.
    std::int16_t gradeMin5 = 0;
    std::int16_t gradeMin4 = 0;
    std::int16_t gradeMin3 = 0;
    std::int16_t gradeMin2 = 0;
    std::int16_t gradeMin1 = 0;

    // Second line of StartQelB.txt after "hier weiterarbeiten" on page 11. Never assigned.
    std::int16_t finalResumeValue = 0;

    // The lesson page engine.
    std::int16_t questionIndex = 0;     // position of the current question on its page, 0..4
    std::int16_t answerCorrectFlag = 0; // nonzero when the last evaluation scored
    std::int16_t answerEvaluated = 0;   // 1 from an evaluation until the next question or try
    std::int32_t questionStartTime = 0; // clock seconds, rounded, when the question was shown
};

inline CourseState course;

// The points text of the lesson pages, for example " 3 von 4".
QString pointsText();
