// SPDX-License-Identifier: GPL-3.0-or-later
#include "endpage.h"

#include "course.h"
#include "messagebox.h"
#include "picture.h"
#include "screens.h"
#include "textfiles.h"
#include "widgets.h"
#include "zoom.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

EndPage::EndPage(Course &course, double zoomFactor)
    : Form(ScreenId::EndPage, zoomFactor)
    , course_(course) {
    setWindowTitle(QStringLiteral("Kelvora"));

    QWidget *central = tintedPage(this);
    Zoom &z = zoom();

    titleLabel = headingLabel(QStringLiteral("Kelvora"), 4.0, central);
    titleLabel->setAlignment(Qt::AlignCenter);

    endPicture = new Picture(QStringLiteral("<p align='center' style='margin:4px'>"
                                            "Ende des Lernprogramms</p>"),
                             central);
    z.setFont(endPicture, 2.45, true);
    endPicture->setWordWrap(false);
    endPicture->setFrameStyle(QFrame::Box | QFrame::Plain);
    endPicture->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);

    diplomaArt = new SvgView(QStringLiteral(":/end-diploma.svg"), central);
    diplomaArt->setAccessibleName(QStringLiteral("Urkunde: Lernprogramm geschafft"));
    circuitArt = new SvgView(QStringLiteral(":/end-circuit.svg"), central);
    circuitArt->setAccessibleName(
        QStringLiteral("Geschlossener Stromkreis: Batterie, Schalter und leuchtende Lampe"));
    circuitArt->hide();

    backButton = new QPushButton(QStringLiteral("Zurück"), central);
    quitButton = new QPushButton(QStringLiteral("Ende"), central);
    // A screen reader says the end with the button that has the focus on arrival.
    backButton->setAccessibleDescription(endPicture->plainText());
    for (QPushButton *button : {backButton, quitButton}) {
        z.setFont(button, 1.33);
        z.setMinimumSize(button, {140, 44});
    }

    auto *layout = new QVBoxLayout(central);
    z.setMargins(layout, 32, 20, 32, 24);
    z.setSpacing(layout, 16);
    layout->addWidget(titleLabel);
    layout->addWidget(endPicture, 0, Qt::AlignHCenter);
    auto *art = new QHBoxLayout;
    z.setSpacing(art, 32);
    art->addWidget(diplomaArt, 1);
    art->addWidget(circuitArt, 1);
    layout->addLayout(art, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(backButton);
    z.addSpacing(buttons, 40);
    buttons->addWidget(quitButton);
    buttons->addStretch(1);
    layout->addLayout(buttons);

    setFormNames({{titleLabel, "Label1"},
                  {endPicture, "Image1"},
                  {diplomaArt, "Image2"},
                  {circuitArt, "Image4"},
                  {backButton, "Command1"},
                  {quitButton, "Command3"}});
    connect(backButton, &QPushButton::clicked, this, &EndPage::backToFinalTest);
    connect(quitButton, &QPushButton::clicked, this, &EndPage::askToEnd);
}

void EndPage::onActivate() {
    circuitArt->show();
}

void EndPage::backToFinalTest() {
    Screens::show(ScreenId::FinalTest);
    Screens::unload(this);
}

void EndPage::askToEnd() {
    if (Seams::askYesNo(QStringLiteral("Möchtest du wirklich die gesamte Arbeit beenden?"),
                        QStringLiteral("Ende?")))
        recordEndAndQuit();
    else
        Screens::show(ScreenId::EndPage);
}

void EndPage::recordEndAndQuit() {
    // A start-position file that cannot be written is passed over in silence.
    course_.setCurrentPage(50);
    writeStartPosition(course_.startFilePath(), course_.currentPage());
    Screens::endProgramme();
}
