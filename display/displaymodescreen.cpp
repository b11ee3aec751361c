// SPDX-License-Identifier: GPL-3.0-or-later
#include "displaymodescreen.h"

#include "displaymodes.h"
#include "picture.h"
#include "screens.h"
#include "theme.h"
#include "widgets.h"
#include "zoom.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace DisplayModes;

namespace {

QLabel *wrappedLabel(const QString &text, QWidget *parent) {
    auto *label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

} // namespace

DisplayModeScreen::DisplayModeScreen(double zoomFactor)
    : Form(ScreenId::DisplayMode, zoomFactor) {
    setWindowTitle(Theme::windowCaption(Theme::kDisplayModeCaptionBlanks,
                                        QStringLiteral("Bildschirmauflösung")));
    setDesignSize({680, 460});

    QWidget *central = page();
    Zoom &z = zoom();

    introLabel = wrappedLabel(
        QStringLiteral("Wenn dir die Bildschirmanzeige zu groß oder zu klein ist, solltest du "
                       "kontrollieren, ob die Bildschirmauflösung optimal ist. Deine gegenwärtige "
                       "Bildschirmauflösung wird angezeigt:"),
        central);

    listHeading = new QLabel(QStringLiteral("Bildschirmauflösung"), central);
    z.setBold(listHeading);

    modeList = new QListWidget(central);
    modeList->setSortingEnabled(false);
    modeList->setSelectionMode(QAbstractItemView::SingleSelection);
    modeList->setAccessibleName(QStringLiteral("Bildschirmauflösung"));
    z.setMinimumWidth(modeList, 170);
    listHeading->setBuddy(modeList);

    changeButton = new QPushButton(QStringLiteral("Auflösung ändern"), central);
    z.setMinimumHeight(changeButton, 34);
    // Nothing is chosen yet, so there is nothing to change to.
    changeButton->setEnabled(false);

    monitorsArt = new SvgView(QStringLiteral(":/display-monitors.svg"), central);
    monitorsArt->setAccessibleName(QStringLiteral(
        "Zwei Bildschirme: eine hohe Auflösung zeigt kleine Schrift, eine niedrige große Schrift"));
    z.setMinimumSize(monitorsArt, {320, 136});
    smallFontLabel = new QLabel(QStringLiteral("Kleine Schrift"), central);
    smallFontLabel->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    largeFontLabel = new QLabel(QStringLiteral("Große Schrift"), central);
    largeFontLabel->setAlignment(Qt::AlignHCenter | Qt::AlignTop);

    adviceLabel = wrappedLabel(
        QStringLiteral("Beträgt die Bildschirmauflösung nicht 800 x 600, dann klicke den Eintrag "
                       "\"800 x 600\" an. Klicke nun die Schaltfläche \"Auflösung ändern\". Es ist "
                       "auch möglich, mit der Auflösung \"1024 x 768\" zu arbeiten."),
        central);

    closeButton =
        pictureButton(QStringLiteral(":/display-close.svg"), QStringLiteral("Schließen"), central);

    auto *left = new QVBoxLayout;
    z.setSpacing(left, 6);
    left->addWidget(listHeading);
    left->addWidget(modeList, 1);
    z.addSpacing(left, 4);
    left->addWidget(changeButton);

    auto *right = new QGridLayout;
    z.follow(right, [right](const Zoom &zz) { right->setVerticalSpacing(zz.px(2)); });
    right->addWidget(monitorsArt, 0, 0, 1, 2);
    right->addWidget(smallFontLabel, 1, 0);
    right->addWidget(largeFontLabel, 1, 1);
    z.setRowMinimumHeight(right, 2, 18);
    right->addWidget(adviceLabel, 3, 0, 1, 2);
    right->setRowStretch(4, 1);
    right->addWidget(closeButton, 5, 1, Qt::AlignRight | Qt::AlignBottom);

    auto *middle = new QHBoxLayout;
    z.setSpacing(middle, 24);
    middle->addLayout(left, 2);
    middle->addLayout(right, 3);

    auto *layout = new QVBoxLayout(central);
    z.setMargins(layout, 20, 16, 20, 16);
    z.setSpacing(layout, 14);
    layout->addWidget(introLabel);
    layout->addLayout(middle, 1);

    setFormNames({{introLabel, "Label1"},
                  {listHeading, "Label5"},
                  {modeList, "List1"},
                  {adviceLabel, "Label2"},
                  {monitorsArt, "Image1"},
                  {smallFontLabel, "Label4"},
                  {largeFontLabel, "Label3"},
                  {changeButton, "Command1"},
                  {closeButton, "Command2"}});

    // Every change of the chosen entry counts as a click, whether by mouse, keys or the program;
    // a click on the entry already chosen does too. The button follows the selection itself, so
    // a mouse pressed on one entry and released elsewhere leaves the two in agreement.
    connect(modeList, &QListWidget::itemSelectionChanged, this, [this] { onModeClicked(); });
    connect(modeList, &QListWidget::itemClicked, this, [this] { onModeClicked(); });
    connect(changeButton, &QPushButton::clicked, this, [this] { changeMode(); });
    connect(closeButton, &QPushButton::clicked, this, [this] { closeScreen(); });
}

const QListWidgetItem *DisplayModeScreen::selectedEntry() const {
    const QList<QListWidgetItem *> selected = modeList->selectedItems();
    return selected.isEmpty() ? nullptr : selected.constFirst();
}

void DisplayModeScreen::onLoad() {
    modeList->clear();
    fillModeList(modeList);

    const int entry = findListEntry(modeList, resolutionText());
    if (entry != -1)
        modeList->setCurrentRow(entry);

    setBackColour(changeButton, Theme::buttonFace());
}

void DisplayModeScreen::onModeClicked() {
    const QListWidgetItem *selected = selectedEntry();
    changeButton->setEnabled(selected && selected->text() != resolutionText());
    setBackColour(changeButton, Theme::activeButton());
}

void DisplayModeScreen::changeMode() {
    const QListWidgetItem *selected = selectedEntry();
    const QString text = selected ? selected->text() : QString();

    const DisplaySize size = modeSize(text);
    setResolution(size.width, size.height);

    changeButton->setEnabled(false);
    setBackColour(changeButton, Theme::buttonFace());
}

void DisplayModeScreen::closeScreen() {
    Screens::unload(this);
}

bool DisplayModeScreen::closeOnEscape() {
    closeScreen();
    return true;
}

void registerDisplayScreens() {
    Screens::registerScreen(ScreenId::DisplayMode,
                            [](double factor) { return new DisplayModeScreen(factor); });
}
