// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

#include <array>
#include <cstdint>
#include <vector>

// What differs from one lesson page to the next. Plain data: the page engine only reads it.

// One question's answer key: the feedback picture that each typed letter shows, whether the
// letter scores, and the value the scoring letter puts into answerCorrectFlag.
struct AnswerKey {
    std::array<int, 3> shows;   // picture index for "A", "B", "C"
    std::array<bool, 3> scores; // the scoring letter or letters
    std::int16_t flagValue = 1;
};

struct PageInfo {
    int number; // 1..10
    std::array<AnswerKey, 5> key;
    int highestFeedbackIndex;
    // onAnswerClicked: pictures that send the focus to "try again", then those that send it to
    // "next question". An index the page does not have counts as a picture that is not visible.
    std::vector<int> wrongGroup;
    std::vector<int> rightGroup;
    ScreenId previous;
    ScreenId next;
    // Page 1 alone resets the counts when it loads, saves them with "hier weiterarbeiten",
    // introduces the control buttons with two timers and withdraws that explanation after a
    // right answer to its question 2.
    bool firstPage;
};

const PageInfo &pageInfo(int page); // page 1..10
