// SPDX-License-Identifier: GPL-3.0-or-later
#include "start.h"

#include "modul1.h"
#include "picture.h"
#include "screens.h"
#include "textfiles.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <array>
#include <utility>

using namespace Modul1;

Start::Start(QWidget *parent)
    : Form(ScreenId::Start, parent) {
    setWindowTitle(QStringLiteral("Kelvora"));
    resize(800, 600);

    QWidget *central = tintedCentralWidget(this);

    Shape1 = new QFrame(central);
    Shape1->setFrameShape(QFrame::Box);
    Shape1->setLineWidth(3);
    QPalette framePalette = Shape1->palette();
    framePalette.setColor(QPalette::WindowText, QColor(0, 72, 140));
    Shape1->setPalette(framePalette);

    auto *outer = new QVBoxLayout(central);
    outer->setContentsMargins(24, 24, 24, 24);
    outer->addWidget(Shape1);
    auto *layout = new QVBoxLayout(Shape1);
    layout->setContentsMargins(28, 20, 28, 24);
    layout->setSpacing(14);

    Label1 = headingLabel(QStringLiteral("Kelvora"), 40, Shape1);
    Label1->setAlignment(Qt::AlignCenter);

    Label2 =
        new QLabel(QStringLiteral("Ein Lernprogramm zum selbständigen Lernen und Üben"), Shape1);
    QFont subtitleFont = Label2->font();
    subtitleFont.setPointSize(15);
    Label2->setFont(subtitleFont);
    Label2->setAlignment(Qt::AlignCenter);

    Image5 = new SvgView(QStringLiteral(":/title.svg"), Shape1);
    Image5->setAccessibleName(
        QStringLiteral("Titelbild: Elektronen im Metall, Glühemission und Transistor"));
    Image2 = new SvgView(QStringLiteral(":/title-conduction.svg"), Shape1);
    Image2->setAccessibleName(QStringLiteral("Leitung in Metallen, Gasen und Halbleitern"));
    Image4 = new SvgView(QStringLiteral(":/title-components.svg"), Shape1);
    Image4->setAccessibleName(QStringLiteral("Diode und Transistor"));
    Image3 = new SvgView(QStringLiteral(":/title-components.svg"), Shape1);
    Image3->hide();

    Command1 = new QPushButton(QStringLiteral("Weiter"), Shape1);
    Command1->setMinimumSize(160, 44);
    QFont buttonFont = Command1->font();
    buttonFont.setPointSize(13);
    Command1->setFont(buttonFont);
    Command1->setDefault(true);

    layout->addWidget(Label1);
    layout->addWidget(Label2);
    auto *art = new QGridLayout;
    art->addWidget(Image2, 0, 0);
    art->addWidget(Image5, 0, 1);
    art->addWidget(Image4, 0, 2);
    art->addWidget(Image3, 0, 2);
    art->setColumnStretch(0, 1);
    art->setColumnStretch(1, 2);
    art->setColumnStretch(2, 1);
    layout->addLayout(art, 1);
    layout->addWidget(Command1, 0, Qt::AlignHCenter);

    Timer1 = new QTimer(this);
    connect(Command1, &QPushButton::clicked, this, &Start::Command1_Click);
}

void Start::Form_Activate() {
    Image3->hide();
    Image5->show();

    FileName = QStringLiteral("StartQelB.txt");
    StartFilePath = TextFiles::programmePath(FileName);

    if (const auto item = TextFiles::readFirstItem(StartFilePath))
        StartPage = *item;

    OpenStartPage();

    GradeMin5 = 20;
    GradeMin4 = 40;
    GradeMin3 = 60;
    GradeMin2 = 80;
    GradeMin1 = 96;
}

void Start::OpenStartPage() {
    if (StartPage.isEmpty() || StartPage == QStringLiteral("50")) {
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
        if (StartPage == QLatin1String(text)) {
            Screens::show(pageScreen(page));
            return;
        }
    }
}

void Start::Command1_Click() {
    Screens::show(ScreenId::Steuerzentrum);
    Screens::unload(this);
}
