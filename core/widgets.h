// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <initializer_list>
#include <utility>

class QObject;

class QAbstractButton;
class QColor;
class QLabel;
class QMainWindow;
class QPushButton;
class QWidget;

// Small pieces that several screens build the same way.

// Gives each control the name it has on the original form ("Command1", "Text1"), so that every
// control can be traced and found by that name.
void setFormNames(std::initializer_list<std::pair<QObject *, const char *>> controls);

// The pale blue central widget of the title-like screens (start, control centre, end page,
// information screens).
QWidget *tintedCentralWidget(QMainWindow *window);
// A bold heading in the programme's dark blue.
QLabel *headingLabel(const QString &text, int pointSize, QWidget *parent);

// A button that shows a picture instead of a caption; its function in words is its accessible
// name and its tooltip.
QPushButton *pictureButton(const QString &icon, const QString &name, QWidget *parent,
                           int iconSize = 36);

void setBackColour(QWidget *w, const QColor &colour);
// Enabled and light grey, or disabled with the button-face colour: both in one step, so colour
// and state never disagree.
void setActive(QAbstractButton *button, bool active);
