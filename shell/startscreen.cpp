// SPDX-License-Identifier: GPL-3.0-or-later
#include "startscreen.h"

#include "course.h"
#include "picture.h"
#include "screens.h"
#include "textfiles.h"
#include "theme.h"
#include "widgets.h"
#include "zoom.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <utility>

StartScreen::StartScreen(Course &course, double zoomFactor)
    : Form(ScreenId::Start, zoomFactor)
    , course_(course) {
    setWindowTitle(QStringLiteral("Kelvora"));

    QWidget *central = tintedPage(this);
    Zoom &z = zoom();

    titleFrame = new QFrame(central);
    titleFrame->setFrameShape(QFrame::Box);
    z.setLineWidth(titleFrame, 3);
    QPalette framePalette = titleFrame->palette();
    framePalette.setColor(QPalette::WindowText, Theme::kTitleFrame);
    titleFrame->setPalette(framePalette);

    auto *outer = new QVBoxLayout(central);
    z.setMargins(outer, 24);
    outer->addWidget(titleFrame);
    auto *layout = new QVBoxLayout(titleFrame);
    z.setMargins(layout, 28, 20, 28, 24);
    z.setSpacing(layout, 14);

    titleLabel = headingLabel(QStringLiteral("Kelvora"), 4.4, titleFrame);
    titleLabel->setAlignment(Qt::AlignCenter);

    subtitleLabel = new QLabel(QStringLiteral("Ein Lernprogramm zum selbständigen Lernen und Üben"),
                               titleFrame);
    z.setFont(subtitleLabel, 1.65);
    subtitleLabel->setAlignment(Qt::AlignCenter);

    titleArt = new SvgView(QStringLiteral(":/title.svg"), titleFrame);
    titleArt->setAccessibleName(
        QStringLiteral("Titelbild: Elektronen im Metall, Glühemission und Transistor"));
    conductionArt = new SvgView(QStringLiteral(":/title-conduction.svg"), titleFrame);
    conductionArt->setAccessibleName(QStringLiteral("Leitung in Metallen, Gasen und Halbleitern"));
    componentsArt = new SvgView(QStringLiteral(":/title-components.svg"), titleFrame);
    componentsArt->setAccessibleName(QStringLiteral("Diode und Transistor"));
    spareArt = new SvgView(QStringLiteral(":/title-components.svg"), titleFrame);
    spareArt->hide();

    continueButton = new QPushButton(QStringLiteral("Weiter"), titleFrame);
    z.setMinimumSize(continueButton, {160, 44});
    z.setFont(continueButton, 1.45);
    continueButton->setDefault(true);
    // A screen reader says the subtitle with the button that has the focus on arrival.
    continueButton->setAccessibleDescription(subtitleLabel->text());

    layout->addWidget(titleLabel);
    layout->addWidget(subtitleLabel);
    auto *art = new QGridLayout;
    art->addWidget(conductionArt, 0, 0);
    art->addWidget(titleArt, 0, 1);
    art->addWidget(componentsArt, 0, 2);
    art->addWidget(spareArt, 0, 2);
    art->setColumnStretch(0, 1);
    art->setColumnStretch(1, 2);
    art->setColumnStretch(2, 1);
    layout->addLayout(art, 1);
    layout->addWidget(continueButton, 0, Qt::AlignHCenter);

    setFormNames({{titleLabel, "Label1"},
                  {subtitleLabel, "Label2"},
                  {conductionArt, "Image2"},
                  {spareArt, "Image3"},
                  {componentsArt, "Image4"},
                  {titleArt, "Image5"},
                  {titleFrame, "Shape1"},
                  {continueButton, "Command1"}});
    connect(continueButton, &QPushButton::clicked, this, &StartScreen::toControlCentre);
}

void StartScreen::onActivate() {
    spareArt->hide();
    titleArt->show();

    course_.formStartFilePath();

    if (const auto item = TextFiles::readFirstItem(course_.startFilePath()))
        course_.setStartPage(*item);

    openStartPage();

    course_.setGradeScale(kDefaultGradeScale);
}

void StartScreen::openStartPage() {
    const QString &startPage = course_.startPage();
    if (startPage.isEmpty() || startPage == QStringLiteral("50")) {
        Screens::show(ScreenId::Start);
        return;
    }
    Screens::unload(this);
    static const std::array<std::pair<const char *, int>, 11> kPages = {{
        {"1", 1},
        {"2", 2},
        {"3", 3},
        {"4", 4},
        {"5", 5},
        {"6", 6},
        {"7", 7},
        {"8", 8},
        {"9", 9},
        {"10", 10},
        {"11", 11},
    }};
    for (const auto &[text, page] : kPages) {
        if (startPage == QLatin1String(text)) {
            Screens::show(pageScreen(page));
            return;
        }
    }
}

void StartScreen::toControlCentre() {
    Screens::show(ScreenId::ControlCentre);
    Screens::unload(this);
}
