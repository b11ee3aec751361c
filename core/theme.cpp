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
    // Asked for each button switched off: the style's palette is made once per style.
    static const QStyle *askedOf = nullptr;
    static QColor face;
    if (QApplication::style() != askedOf) {
        askedOf = QApplication::style();
        face = askedOf->standardPalette().color(QPalette::Button);
    }
    return face;
}

QString cssColour(const QColor &colour) {
    return colour.name(QColor::HexRgb);
}

QString windowCaption(int blanks, const QString &title) {
    return QStringLiteral("Kelvora") + QString(blanks, QLatin1Char(' ')) + title;
}

} // namespace Theme
