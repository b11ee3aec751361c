// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <array>
#include <vector>

// The texts of the fifty questions, their options and every feedback picture, as the pupil sees
// them. Plain data: the page engine turns each entry into a picture and only shows and hides it.
// Texts may hold <sub>..</sub> for subscripts (I<sub>B</sub>) and <i>..</i>; any other "<" or ">"
// is shown as it stands.

struct BankQuestion {
    QString text{};               // "1. Welche zwei ...", empty where the drawing is the question
    QString drawing{};            // resource path of a drawing, or empty
    QString drawingDescription{}; // what the drawing shows, in words, for screen readers
    QString leadIn{};             // line above the options, or empty
    std::array<QString, 3> options{}; // A, B, C without their letters
};

struct BankFeedback {
    QString verdict{};     // "Richtig!", "Falsch!", ... or empty where the picture has none
    QString body{};        // explanation or hint, may be empty
    bool tryAgain = false; // ends with "Antworte noch einmal."
};

struct PageBank {
    std::array<BankQuestion, 5> questions;
    std::vector<BankFeedback> feedback; // index 0 to the page's highest feedback index
};

const PageBank &pageBank(int page); // page 1..10

// The rich text of the pictures. On pages 1 and 2 the closing line of a wrong answer also
// names the repeat button and shows its image.
QString questionHtml(const BankQuestion &q);
QString optionsHtml(const BankQuestion &q);
QString feedbackHtml(const BankFeedback &f, int page);
