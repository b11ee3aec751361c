// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets.h"

#include "form.h"
#include "runcache.h"
#include "theme.h"
#include "zoom.h"

#include <QAbstractButton>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

void setFormNames(std::initializer_list<std::pair<QObject *, const char *>> controls) {
    for (const auto &[control, name] : controls)
        control->setObjectName(QString::fromUtf8(name));
}

QWidget *tintedPage(Form *form) {
    // The screen's whole background is the page's: it fills the band around the page too.
    QPalette background = form->palette();
    background.setColor(QPalette::Window, Theme::kScreenBackground);
    form->setPalette(background);
    return form->page();
}

QLabel *headingLabel(const QString &text, double relativeSize, QWidget *parent) {
    auto *label = new QLabel(text, parent);
    Zoom::on(parent).setFont(label, relativeSize, true);
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
    Zoom &zoom = Zoom::on(parent);
    zoom.setIconSize(button, iconSize);
    zoom.setMinimumSize(button, QSize(iconSize + 30, iconSize + 16));
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

void setBackColour(QWidget *w, const QColor &colour) {
    // The same colour again changes nothing, and costs no new palette.
    if (w->testAttribute(Qt::WA_SetPalette) && w->palette().color(QPalette::Button) == colour)
        return;
    QPalette p = w->palette();
    p.setColor(QPalette::Button, colour);
    w->setPalette(p);
}

void setTextColour(QWidget *w, const QColor &colour) {
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, colour);
    w->setPalette(p);
}

void setActive(QAbstractButton *button, bool active) {
    button->setEnabled(active);
    setBackColour(button, active ? Theme::activeButton() : Theme::buttonFace());
}
