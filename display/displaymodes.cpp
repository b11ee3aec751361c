// SPDX-License-Identifier: GPL-3.0-or-later
#include "displaymodes.h"

#include "backend_screen.h"

#include <QListWidget>

#include <algorithm>
#include <cmath>

namespace DisplayModes {

namespace {

std::unique_ptr<DisplayBackend> &backendSlot() {
    static std::unique_ptr<DisplayBackend> backend;
    return backend;
}

QString modeText(const DisplaySize &size) {
    return QString::number(size.width) + QStringLiteral(" x ") + QString::number(size.height);
}

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

} // namespace

DisplayBackend &displayBackend() {
    auto &backend = backendSlot();
    if (!backend)
        backend = makePlatformDisplayBackend();
    return *backend;
}

void setDisplayBackend(std::unique_ptr<DisplayBackend> backend) {
    backendSlot() = std::move(backend);
}

QString resolutionText() {
    return modeText(displayBackend().currentSize());
}

void fillModeList(QListWidget *list) {
    DisplayBackend &display = displayBackend();
    for (int i = 0;; ++i) {
        const std::optional<DisplaySize> mode = display.mode(i);
        if (!mode)
            break;
        const QString text = modeText(*mode);
        if (isNotInList(list, text))
            list->addItem(text);
    }
}

bool isNotInList(QListWidget *list, const QString &text) {
    return findListEntry(list, text) == -1;
}

int findListEntry(QListWidget *list, const QString &text) {
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->text().compare(text, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

void setResolution(int width, int height) {
    displayBackend().change(width, height);
}

DisplaySize modeSize(const QString &text) {
    // The position of the "x" counted from 1, 0 when there is none (TempPos).
    const qsizetype x = text.indexOf(QLatin1Char('x')) + 1;
    const double width = leadingNumber(text.left(std::max<qsizetype>(x - 1, 0)));
    const double height = leadingNumber(text.mid(x));
    return {pixels(width), pixels(height)};
}

} // namespace DisplayModes
