// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets.h"

#include "runcache.h"
#include "theme.h"

#include <QAbstractButton>
#include <QIcon>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>

void setFormNames(std::initializer_list<std::pair<QObject *, const char *>> controls) {
    for (const auto &[control, name] : controls)
        control->setObjectName(QString::fromUtf8(name));
}

QWidget *tintedCentralWidget(QMainWindow *window) {
    auto *central = new QWidget(window);
    central->setAutoFillBackground(true);
    QPalette background = central->palette();
    background.setColor(QPalette::Window, Theme::kScreenBackground);
    central->setPalette(background);
    window->setCentralWidget(central);
    return central;
}

QLabel *headingLabel(const QString &text, int pointSize, QWidget *parent) {
    auto *label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPointSize(pointSize);
    font.setBold(true);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Theme::kHeading);
    label->setPalette(palette);
    return label;
}

QPushButton *pictureButton(const QString &icon, const QString &name, QWidget *parent,
                           int iconSize) {
    // One icon per picture for the whole run: its rendered sizes are kept with it.
    static RunCache<QString, QIcon> icons;
    QIcon &shared = icons[icon];
    if (shared.isNull())
        shared = QIcon(icon);
    auto *button = new QPushButton(parent);
    button->setIcon(shared);
    button->setIconSize(QSize(iconSize, iconSize));
    button->setMinimumSize(iconSize + 30, iconSize + 16);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

void setBackColour(QWidget *w, const QColor &colour) {
    QPalette p = w->palette();
    p.setColor(QPalette::Button, colour);
    w->setPalette(p);
}

void setActive(QAbstractButton *button, bool active) {
    button->setEnabled(active);
    setBackColour(button, active ? Theme::activeButton() : Theme::buttonFace());
}
