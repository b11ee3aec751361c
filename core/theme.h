// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>

// The programme's colours and the paddings of its window captions, named once for every screen.
namespace Theme {

// Buttons: light grey marks the button the pupil should use next; a switched-off button takes
// the style's own button face.
QColor activeButton();
QColor buttonFace();

inline constexpr QColor kScreenBackground{236, 242, 250}; // start, control centre, end, info
inline constexpr QColor kHeading{0, 60, 120};             // headings on those screens
inline constexpr QColor kTitleFrame{0, 72, 140};          // frame of the start screen's art
inline constexpr QColor kPicture{255, 255, 240};          // pictures of the pages
inline constexpr QColor kPictureText{0, 0, 0};
inline constexpr QColor kExitCover{0, 0, 64, 150};   // over the page behind the exit frame
inline constexpr QColor kOverviewBorder{0, 96, 160}; // shape around "Wo bin ich?"
inline constexpr QColor kPaceNote{255, 236, 160};    // the pace note's paper
inline constexpr QColor kPaceNoteText{120, 0, 0};
inline constexpr QColor kRight{27, 110, 42};         // "Richtig" in the final test
inline constexpr QColor kWrong{179, 20, 30};         // "Falsch", "Falsch!", hints that warn
inline constexpr QColor kFeedbackRight{10, 110, 30}; // "Richtig!" in the feedback pictures
inline constexpr QColor kResult{26, 63, 138};        // the grade and the explanation hint
// Keyboard and contrast: the frame around the control that has the focus (at least 3:1 against
// every button and field colour), and the text of switched-off controls, still readable (at least
// 4.5:1 against the button face and the screens' backgrounds).
inline constexpr QColor kFocusFrame{0, 70, 160};
inline constexpr QColor kDisabledText{95, 95, 95};

// A colour as a style-sheet or rich-text value, "#rrggbb".
QString cssColour(const QColor &colour);

// Window captions: "Kelvora", a run of blanks and the screen's own title, so that the title sits
// at the right end of the caption bar. The blank counts belong to each screen.
// The pages' own are with the topics (topics.h).
inline constexpr int kControlCentreCaptionBlanks = 105;
inline constexpr int kWorkingMethodCaptionBlanks = 109;
inline constexpr int kAuthorCaptionBlanks = 100;
inline constexpr int kRequirementsCaptionBlanks = 70;
inline constexpr int kDisplayModeCaptionBlanks = 97;

QString windowCaption(int blanks, const QString &title);

} // namespace Theme
