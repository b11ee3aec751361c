// SPDX-License-Identifier: GPL-3.0-or-later
#include "aufloesung.h"

#include "modul1.h"
#include "modul2.h"
#include "picture.h"
#include "screens.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using namespace Modul1;
using namespace Modul2;

namespace {

// The number at the start of a text as Basic reads it: blanks anywhere are skipped, a sign and
// digits with one decimal point are taken, the first other character ends the number.
double leadingNumber(const QString &text) {
    QString digits;
    bool point = false;
    for (const QChar c : text) {
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\r') ||
            c == QLatin1Char('\n'))
            continue;
        const bool digit = c.isDigit() && c.unicode() < 128;
        const bool sign = (c == QLatin1Char('-') || c == QLatin1Char('+')) && digits.isEmpty();
        if (digit || sign)
            digits.append(c);
        else if (c == QLatin1Char('.') && !point) {
            point = true;
            digits.append(c);
        } else
            break;
    }
    bool ok = false;
    const double value = digits.toDouble(&ok);
    return ok ? value : 0.0;
}

// A pixel count from a number: whole, and within what any display could offer.
int pixels(double value) {
    return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0e6)));
}

QLabel *wrappedLabel(const QString &text, QWidget *parent) {
    auto *label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

} // namespace

Auflösung::Auflösung(QWidget *parent)
    : Form(ScreenId::Auflösung, parent) {
    setWindowTitle(windowCaption(97, QStringLiteral("Bildschirmauflösung")));
    resize(680, 460);

    auto *central = new QWidget(this);
    setCentralWidget(central);

    Label1 = wrappedLabel(
        QStringLiteral("Wenn dir die Bildschirmanzeige zu groß oder zu klein ist, solltest du "
                       "kontrollieren, ob die Bildschirmauflösung optimal ist. Deine gegenwärtige "
                       "Bildschirmauflösung wird angezeigt:"),
        central);

    Label5 = new QLabel(QStringLiteral("Bildschirmauflösung"), central);
    QFont bold = Label5->font();
    bold.setBold(true);
    Label5->setFont(bold);

    List1 = new QListWidget(central);
    List1->setSortingEnabled(false);
    List1->setSelectionMode(QAbstractItemView::SingleSelection);
    List1->setAccessibleName(QStringLiteral("Bildschirmauflösung"));
    List1->setMinimumWidth(170);
    Label5->setBuddy(List1);

    Command1 = new QPushButton(QStringLiteral("Auflösung ändern"), central);
    Command1->setMinimumHeight(34);
    // Nothing is chosen yet, so there is nothing to change to.
    Command1->setEnabled(false);

    Image1 = new SvgView(QStringLiteral(":/display-monitors.svg"), central);
    Image1->setAccessibleName(QStringLiteral(
        "Zwei Bildschirme: eine hohe Auflösung zeigt kleine Schrift, eine niedrige große Schrift"));
    Image1->setMinimumSize(320, 136);
    Label4 = new QLabel(QStringLiteral("Kleine Schrift"), central);
    Label4->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    Label3 = new QLabel(QStringLiteral("Große Schrift"), central);
    Label3->setAlignment(Qt::AlignHCenter | Qt::AlignTop);

    Label2 = wrappedLabel(
        QStringLiteral("Beträgt die Bildschirmauflösung nicht 800 x 600, dann klicke den Eintrag "
                       "\"800 x 600\" an. Klicke nun die Schaltfläche \"Auflösung ändern\". Es ist "
                       "auch möglich, mit der Auflösung \"1024 x 768\" zu arbeiten."),
        central);

    Command2 =
        pictureButton(QStringLiteral(":/display-close.svg"), QStringLiteral("Schließen"), central);

    auto *left = new QVBoxLayout;
    left->setSpacing(6);
    left->addWidget(Label5);
    left->addWidget(List1, 1);
    left->addSpacing(4);
    left->addWidget(Command1);

    auto *right = new QGridLayout;
    right->setVerticalSpacing(2);
    right->addWidget(Image1, 0, 0, 1, 2);
    right->addWidget(Label4, 1, 0);
    right->addWidget(Label3, 1, 1);
    right->setRowMinimumHeight(2, 18);
    right->addWidget(Label2, 3, 0, 1, 2);
    right->setRowStretch(4, 1);
    right->addWidget(Command2, 5, 1, Qt::AlignRight | Qt::AlignBottom);

    auto *middle = new QHBoxLayout;
    middle->setSpacing(24);
    middle->addLayout(left, 2);
    middle->addLayout(right, 3);

    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setSpacing(14);
    layout->addWidget(Label1);
    layout->addLayout(middle, 1);

    setTabOrder(List1, Command1);
    setTabOrder(Command1, Command2);

    // Every change of the chosen entry counts as a click, whether by mouse, keys or the program;
    // a click on the entry already chosen does too.
    connect(List1, &QListWidget::currentRowChanged, this, [this] { List1_Click(); });
    connect(List1, &QListWidget::itemClicked, this, [this] { List1_Click(); });
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, [this] { Command2_Click(); });
}

void Auflösung::Form_Load() {
    List1->clear();
    FillModeList(List1);

    const int entry = FindListEntry(List1, ResolutionText());
    if (entry != -1)
        List1->setCurrentRow(entry);

    setBackColour(Command1, buttonFace());
}

void Auflösung::List1_Click() {
    const QListWidgetItem *selected = List1->currentItem();
    Command1->setEnabled(selected && selected->isSelected() &&
                         selected->text() != ResolutionText());
    setBackColour(Command1, lightGrey());
}

void Auflösung::Command1_Click() {
    const QListWidgetItem *selected = List1->currentItem();
    const QString text = selected ? selected->text() : QString();

    TempPos = static_cast<std::int16_t>(text.indexOf(QLatin1Char('x')) + 1);
    const double width = leadingNumber(text.left(std::max(TempPos - 1, 0)));
    const double height = leadingNumber(text.mid(TempPos));

    SetResolution(pixels(width), pixels(height));

    Command1->setEnabled(false);
    setBackColour(Command1, buttonFace());
}

void Auflösung::Command2_Click() {
    Screens::unload(this);
}

void registerDisplayScreens() {
    Screens::registerScreen(ScreenId::Auflösung, [] { return new Auflösung; });
}
