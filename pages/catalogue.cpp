// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue.h"

#include <QtGlobal>

namespace {

constexpr bool Y = true;
constexpr bool N = false;

const std::array<PageInfo, 10> kPages = {{
    {.number = 1,
     .key = {{
         {.shows = {0, 1, 2}, .scores = {N, N, Y}},
         {.shows = {3, 4, 3}, .scores = {N, Y, N}},
         {.shows = {5, 6, 7}, .scores = {Y, N, N}},
         {.shows = {8, 9, 10}, .scores = {Y, N, N}},
         {.shows = {11, 12, 13}, .scores = {Y, N, N}},
     }},
     .highestFeedbackIndex = 15,
     .wrongGroup = {0, 1, 3, 6, 7, 9, 10, 12, 13},
     .rightGroup = {2, 4, 5, 8, 11},
     .previous = ScreenId::ControlCentre,
     .next = ScreenId::Page2,
     .firstPage = true},
    {.number = 2,
     .key = {{
         {.shows = {0, 1, 2}, .scores = {N, N, Y}},
         {.shows = {3, 4, 5}, .scores = {N, N, Y}},
         {.shows = {6, 7, 8}, .scores = {N, Y, N}},
         {.shows = {9, 10, 11}, .scores = {Y, N, N}},
         {.shows = {12, 13, 14}, .scores = {Y, N, N}},
     }},
     .highestFeedbackIndex = 16,
     .wrongGroup = {0, 1, 3, 4, 6, 8, 10, 11, 13, 14},
     .rightGroup = {2, 5, 7, 9, 12},
     .previous = ScreenId::Page1,
     .next = ScreenId::Page3,
     .firstPage = false},
    {.number = 3,
     .key = {{
         {.shows = {0, 1, 2}, .scores = {N, Y, N}},
         {.shows = {3, 4, 5}, .scores = {N, Y, N}},
         {.shows = {6, 7, 8}, .scores = {Y, N, N}},
         {.shows = {9, 10, 11}, .scores = {N, N, Y}},
         {.shows = {12, 13, 14}, .scores = {N, N, Y}},
     }},
     .highestFeedbackIndex = 16,
     .wrongGroup = {0, 2, 3, 5, 7, 8, 9, 10, 12, 13, 15, 16},
     .rightGroup = {1, 4, 6, 11, 14},
     .previous = ScreenId::Page2,
     .next = ScreenId::Page4,
     .firstPage = false},
    {.number = 4,
     .key = {{
         {.shows = {0, 1, 2}, .scores = {N, N, Y}},
         {.shows = {3, 4, 5}, .scores = {Y, N, N}},
         {.shows = {6, 7, 8}, .scores = {N, N, Y}},
         {.shows = {9, 10, 11}, .scores = {Y, N, N}},
         {.shows = {12, 13, 14}, .scores = {N, Y, N}},
     }},
     .highestFeedbackIndex = 16,
     .wrongGroup = {0, 1, 4, 5, 6, 7, 10, 11, 12, 14, 15, 16},
     .rightGroup = {2, 3, 8, 9, 13},
     .previous = ScreenId::Page3,
     .next = ScreenId::Page5,
     .firstPage = false},
    {.number = 5,
     .key = {{
         {.shows = {0, 1, 2}, .scores = {N, Y, Y}},
         {.shows = {3, 4, 5}, .scores = {N, N, Y}},
         {.shows = {6, 7, 8}, .scores = {Y, N, N}},
         {.shows = {9, 10, 11}, .scores = {N, N, Y}},
         {.shows = {12, 13, 14}, .scores = {N, N, Y}},
     }},
     .highestFeedbackIndex = 16,
     .wrongGroup = {0, 3, 4, 7, 8, 9, 10, 12, 13},
     .rightGroup = {1, 2, 5, 6, 11, 14},
     .previous = ScreenId::Page4,
     .next = ScreenId::Page6,
     .firstPage = false},
    // Question 4 of page 6 puts 10 into answerCorrectFlag; every reader only asks for nonzero.
    {.number = 6,
     .key = {{
         {.shows = {0, 1, 2}, .scores = {Y, N, N}},
         {.shows = {3, 4, 5}, .scores = {N, Y, N}},
         {.shows = {6, 7, 8}, .scores = {N, Y, N}},
         {.shows = {9, 9, 10}, .scores = {N, N, Y}, .flagValue = 10},
         {.shows = {11, 11, 12}, .scores = {N, N, Y}},
     }},
     .highestFeedbackIndex = 14,
     .wrongGroup = {1, 2, 3, 5, 6, 8, 9, 11},
     .rightGroup = {0, 4, 7, 10, 12},
     .previous = ScreenId::Page5,
     .next = ScreenId::Page7,
     .firstPage = false},
    {.number = 7,
     .key = {{
         {.shows = {0, 0, 1}, .scores = {N, N, Y}},
         {.shows = {1, 0, 0}, .scores = {Y, N, N}},
         {.shows = {0, 1, 0}, .scores = {N, Y, N}},
         {.shows = {2, 3, 3}, .scores = {Y, N, N}},
         {.shows = {4, 5, 4}, .scores = {N, Y, N}},
     }},
     .highestFeedbackIndex = 7,
     .wrongGroup = {0, 3, 4},
     .rightGroup = {1, 2, 5},
     .previous = ScreenId::Page6,
     .next = ScreenId::Page8,
     .firstPage = false},
    {.number = 8,
     .key = {{
         {.shows = {0, 1, 2}, .scores = {N, N, Y}},
         {.shows = {3, 4, 4}, .scores = {Y, N, N}},
         {.shows = {5, 6, 7}, .scores = {N, Y, Y}},
         {.shows = {8, 3, 8}, .scores = {N, Y, N}},
         {.shows = {4, 3, 4}, .scores = {N, Y, N}},
     }},
     .highestFeedbackIndex = 10,
     // Picture 7, the scoring C of question 3, stands with the wrong answers: after it the
     // focus goes to "try again" although the point was counted.
     .wrongGroup = {0, 1, 4, 5, 7, 8},
     .rightGroup = {2, 3, 6},
     .previous = ScreenId::Page7,
     .next = ScreenId::Page9,
     .firstPage = false},
    {.number = 9,
     .key = {{
         {.shows = {0, 1, 1}, .scores = {Y, N, N}},
         {.shows = {1, 1, 0}, .scores = {N, N, Y}},
         {.shows = {1, 0, 1}, .scores = {N, Y, N}},
         {.shows = {1, 0, 1}, .scores = {N, Y, N}},
         {.shows = {2, 3, 0}, .scores = {N, N, Y}},
     }},
     .highestFeedbackIndex = 5,
     .wrongGroup = {1, 2, 3, 4, 5},
     .rightGroup = {0},
     .previous = ScreenId::Page8,
     .next = ScreenId::Page10,
     .firstPage = false},
    {.number = 10,
     .key = {{
         {.shows = {0, 1, 2}, .scores = {N, Y, Y}},
         {.shows = {3, 1, 3}, .scores = {N, Y, N}},
         {.shows = {1, 3, 3}, .scores = {Y, N, N}},
         {.shows = {1, 3, 3}, .scores = {Y, N, N}},
         {.shows = {3, 3, 1}, .scores = {N, N, Y}},
     }},
     .highestFeedbackIndex = 5,
     // This page has pictures 0 to 5 only, yet its first group names 7 and 8 as well. The list
     // stays as the page has it; the engine counts a picture the page lacks as not visible.
     .wrongGroup = {0, 3, 4, 5, 7, 8},
     .rightGroup = {1, 2},
     .previous = ScreenId::Page9,
     .next = ScreenId::FinalTest,
     .firstPage = false},
}};

} // namespace

const PageInfo &pageInfo(int page) {
    Q_ASSERT(page >= 1 && page <= static_cast<int>(kPages.size()));
    return kPages.at(static_cast<std::size_t>(page - 1));
}
