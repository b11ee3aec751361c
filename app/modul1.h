// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>

// The programme-wide variables that every screen shares. They are plain public variables, as the
// screens read and write them directly; all are zero or empty when the programme starts.
namespace Modul1 {

inline QString StartPage;      // first item of StartQelB.txt: "", "1".."11" or "50"
inline QString FileName;       // bare file name while a path is being formed
inline QString StartFilePath;  // StartQelB.txt in the programme folder
inline QString GradeFilePath;  // ZensurQel.txt
inline QString ResultFilePath; // TestergebnisQel.doc

inline std::int16_t CurrentPage = 0;   // 1..11, or 50 once a restart from the beginning is chosen
inline std::int16_t CorrectCount = 0;  // right answers since page 1 was last loaded
inline std::int16_t AnsweredCount = 0; // evaluated answers since page 1 was last loaded
inline std::int16_t TestCorrectCount = 0;  // right clicks in the final test
inline std::int16_t TestAnsweredCount = 0; // all clicks in the final test

// Minimum percentages for the grades 5 down to 1, declared in this order.
inline std::int16_t GradeMin5 = 0;
inline std::int16_t GradeMin4 = 0;
inline std::int16_t GradeMin3 = 0;
inline std::int16_t GradeMin2 = 0;
inline std::int16_t GradeMin1 = 0;

// Scratch integers shared by unrelated screens; nobody may rely on their value at entry.
inline std::int16_t TempPos = 0;
inline std::int16_t TempIndex = 0;

// Second line of StartQelB.txt after "hier weiterarbeiten" on page 11. Never assigned.
inline std::int16_t FinalResumeValue = 0;

// Flags of the lesson page engine.
inline std::int16_t QuestionIndex = 0;     // position of the current question on its page, 0..4
inline std::int16_t AnswerCorrectFlag = 0; // nonzero when the last evaluation scored
inline std::int16_t AnswerEvaluated = 0;   // 1 from an evaluation until the next question or try
inline std::int32_t QuestionStartTime = 0; // clock seconds, rounded, when the question was shown

// The points text of the lesson pages, for example " 3 von 4".
QString PointsText();

} // namespace Modul1
