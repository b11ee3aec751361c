// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "panel.h"
#include "topics.h"

#include <array>

class QLabel;

// The page overview "Wo bin ich?" over a page (Frame2), in its coloured border (Shape6): a line
// for each page of the course, a note and "Schließen". Both are hidden until the page opens them;
// the page's handlers say what a line and "Schließen" do.
class Overview : public PagePanel {
public:
    // `lineName`: the form name of the lines, numbered from 0 ("Label11_0").
    Overview(QWidget *page, const QString &lineName);

    QWidget *border = nullptr;                         // Shape6
    std::array<QPushButton *, Topics::kPages> lines{}; // line i opens page i + 1
    QLabel *note = nullptr;                            // "(Durch Anklicken einer Zeile ...)"
    QPushButton *closeButton = nullptr;                // Command6 "Schließen"
};
