// SPDX-License-Identifier: GPL-3.0-or-later
#include "topics.h"

#include "theme.h"

#include <array>

namespace Topics {

namespace {

constexpr int kQuestionsPerPage = 5;

// What the captions of one page differ in besides its number and questions: their runs of blanks.
struct PageCaptions {
    int topicBlanks;   // between the topic and the page reference in the control centre
    int captionBlanks; // between "Kelvora" and "Seite N" in the window caption
};

// Pages 10 and 11 give up two blanks of their window caption for the second digit.
constexpr int kCaption = 116;
constexpr int kTwoDigitCaption = 114;

constexpr std::array<PageCaptions, kPages> kCaptions = {{
    {.topicBlanks = 80, .captionBlanks = kCaption},
    {.topicBlanks = 77, .captionBlanks = kCaption},
    {.topicBlanks = 75, .captionBlanks = kCaption},
    {.topicBlanks = 75, .captionBlanks = kCaption},
    {.topicBlanks = 75, .captionBlanks = kCaption},
    {.topicBlanks = 75, .captionBlanks = kCaption},
    {.topicBlanks = 75, .captionBlanks = kCaption},
    {.topicBlanks = 75, .captionBlanks = kCaption},
    {.topicBlanks = 75, .captionBlanks = kCaption},
    {.topicBlanks = 75, .captionBlanks = kTwoDigitCaption},
    {.topicBlanks = 80, .captionBlanks = kTwoDigitCaption},
}};

bool isPage(int page) {
    return page >= 1 && page <= kPages;
}

int firstQuestion(int page) {
    return (page - 1) * kQuestionsPerPage + 1;
}

int lastQuestion(int page) {
    return page * kQuestionsPerPage;
}

} // namespace

QString topicCaption(int index) {
    const int page = index + 1;
    if (!isPage(page))
        return {};
    const QString topic =
        page == kFinalTestPage
            ? QStringLiteral("Abschlusstest")
            : QStringLiteral("Fragen %1 bis %2").arg(firstQuestion(page)).arg(lastQuestion(page));
    const int blanks = kCaptions.at(static_cast<std::size_t>(index)).topicBlanks;
    return topic + QString(blanks, QLatin1Char(' ')) + QStringLiteral("- Seite %1").arg(page);
}

QString overviewLine(int index) {
    const int page = index + 1;
    if (!isPage(page))
        return {};
    if (page == kFinalTestPage)
        return QStringLiteral("Seite %1 (Abschlusstest)").arg(page);
    // The last question takes two places, so that the numbers of page 1 line up with the ones
    // below: "Frage 1 -  5".
    return QStringLiteral("Seite %1 (Frage %2 - %3)")
        .arg(page)
        .arg(firstQuestion(page))
        .arg(lastQuestion(page), 2);
}

QString pageCaption(int page) {
    if (!isPage(page))
        return {};
    return Theme::windowCaption(kCaptions.at(static_cast<std::size_t>(page - 1)).captionBlanks,
                                QStringLiteral("Seite %1").arg(page));
}

} // namespace Topics
