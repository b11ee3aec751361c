// SPDX-License-Identifier: GPL-3.0-or-later
#include "theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

namespace Theme {

QColor activeButton() {
    return {224, 224, 224};
}

QColor buttonFace() {
    return QApplication::style()->standardPalette().color(QPalette::Button);
}

QString cssColour(const QColor &colour) {
    return colour.name(QColor::HexRgb);
}

QString windowCaption(int blanks, const QString &title) {
    return QStringLiteral("Kelvora") + QString(blanks, QLatin1Char(' ')) + title;
}

} // namespace Theme
