// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <initializer_list>
#include <utility>

class QObject;

class Form;
class QAbstractButton;
class QColor;
class QLabel;
class QPushButton;
class QWidget;

// Small pieces that several screens build the same way.

// Gives each control the name it has on the original form ("Command1", "Text1"), so that every
// control can be traced and found by that name.
void setFormNames(std::initializer_list<std::pair<QObject *, const char *>> controls);

// The pale blue page of the title-like screens (start, control centre, end page, information
// screens), the band around it in the same colour.
QWidget *tintedPage(Form *form);
// A bold heading in the programme's dark blue, `relativeSize` times the page's font.
QLabel *headingLabel(const QString &text, double relativeSize, QWidget *parent);

// A button that shows a picture instead of a caption; its function in words is its accessible
// name and its tooltip. The icon is `iconSize` design units square.
QPushButton *pictureButton(const QString &icon, const QString &name, QWidget *parent,
                           int iconSize = 36);

void setBackColour(QWidget *w, const QColor &colour);
// The colour of a label's text. Set through the palette: a style sheet would keep the label's font
// from following the zoom.
void setTextColour(QWidget *w, const QColor &colour);
// Enabled and light grey, or disabled with the button-face colour: both in one step, so colour
// and state never disagree.
void setActive(QAbstractButton *button, bool active);
