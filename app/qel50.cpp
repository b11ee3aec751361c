// SPDX-License-Identifier: GPL-3.0-or-later
#include "qel50.h"

#include "modul1.h"
#include "picture.h"
#include "screens.h"
#include "seams.h"
#include "textfiles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Modul1;

Qel50::Qel50(QWidget *parent)
    : Form(ScreenId::Qel50, parent) {
    setWindowTitle(QStringLiteral("Kelvora"));
    resize(800, 600);

    QWidget *central = tintedCentralWidget(this);

    Label1 = headingLabel(QStringLiteral("Kelvora"), 36, central);
    Label1->setAlignment(Qt::AlignCenter);

    Image1 = new Picture(QStringLiteral("<p align='center' style='margin:4px'>"
                                        "Ende des Lernprogramms</p>"),
                         central);
    QFont pictureFont = Image1->font();
    pictureFont.setPointSize(22);
    pictureFont.setBold(true);
    Image1->setFont(pictureFont);
    Image1->setWordWrap(false);
    Image1->setFrameStyle(QFrame::Box | QFrame::Plain);
    Image1->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);

    Image2 = new SvgView(QStringLiteral(":/end-diploma.svg"), central);
    Image2->setAccessibleName(QStringLiteral("Urkunde: Lernprogramm geschafft"));
    Image4 = new SvgView(QStringLiteral(":/end-circuit.svg"), central);
    Image4->setAccessibleName(
        QStringLiteral("Geschlossener Stromkreis: Batterie, Schalter und leuchtende Lampe"));
    Image4->hide();

    Command1 = new QPushButton(QStringLiteral("Zurück"), central);
    Command3 = new QPushButton(QStringLiteral("Ende"), central);
    for (QPushButton *button : {Command1, Command3}) {
        QFont f = button->font();
        f.setPointSize(12);
        button->setFont(f);
        button->setMinimumSize(140, 44);
    }

    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(32, 20, 32, 24);
    layout->setSpacing(16);
    layout->addWidget(Label1);
    layout->addWidget(Image1, 0, Qt::AlignHCenter);
    auto *art = new QHBoxLayout;
    art->setSpacing(32);
    art->addWidget(Image2, 1);
    art->addWidget(Image4, 1);
    layout->addLayout(art, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command1);
    buttons->addSpacing(40);
    buttons->addWidget(Command3);
    buttons->addStretch(1);
    layout->addLayout(buttons);

    connect(Command1, &QPushButton::clicked, this, &Qel50::Command1_Click);
    connect(Command3, &QPushButton::clicked, this, &Qel50::Command3_Click);
}

void Qel50::Form_Activate() {
    Image4->show();
}

void Qel50::Command1_Click() {
    Screens::show(ScreenId::Qel11);
    Screens::unload(this);
}

void Qel50::Command3_Click() {
    if (Seams::askYesNo(QStringLiteral("Möchtest du wirklich die gesamte Arbeit beenden?"),
                        QStringLiteral("Ende?")))
        EndProgramme();
    else
        Screens::show(ScreenId::Qel50);
}

void Qel50::EndProgramme() {
    // A start-position file that cannot be written is passed over in silence.
    CurrentPage = 50;
    QuotedItemFile file(StartFilePath);
    file.write(QString::number(CurrentPage));
    file.close();
    Screens::endProgramme();
}
