// SPDX-License-Identifier: GPL-3.0-or-later
#include "printing.h"

#include "seams.h"
#include "textfiles.h"

#include <QFile>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

constexpr double kLeftMm = 20.0;
constexpr double kTopMm = 10.0;
constexpr double kBottomMm = 10.0;
constexpr double kMmPerInch = 25.4;

Printing::PrinterSource &sourceOverride() {
    static Printing::PrinterSource source;
    return source;
}

} // namespace

namespace Printing {

void setPrinterSource(PrinterSource source) {
    sourceOverride() = std::move(source);
}

std::unique_ptr<QPrinter> defaultPrinter() {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull())
        return nullptr;
    return std::make_unique<QPrinter>(info, QPrinter::HighResolution);
}

QStringList readLines(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        Seams::failProgramme(file.errorString());
    QString text = TextFiles::fromWindows1252(file.readAll());
    // Each line as the file holds it; a last line without its CR LF counts as a line too.
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    if (text.isEmpty())
        return {};
    return text.split(QLatin1Char('\n'));
}

void printLines(const QStringList &lines) {
    const std::unique_ptr<QPrinter> printer =
        sourceOverride() ? sourceOverride()() : defaultPrinter();
    if (!printer)
        Seams::failProgramme(QStringLiteral("Druckerfehler"));
    printer->setFullPage(true); // measure from the edges of the paper
    printer->setDocName(QStringLiteral("Test Kelvora"));

    QPainter painter;
    if (!painter.begin(printer.get()))
        Seams::failProgramme(QStringLiteral("Druckerfehler"));
    const double dotsPerMm = printer->resolution() / kMmPerInch;
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(10.0);
    painter.setFont(font);
    const QFontMetricsF metrics(font, printer.get());
    const double left = kLeftMm * dotsPerMm;
    const double top = kTopMm * dotsPerMm;
    const double bottom = printer->height() - kBottomMm * dotsPerMm;

    double y = top;
    for (const QString &line : lines) {
        if (y + metrics.height() > bottom && y > top) {
            printer->newPage();
            y = top;
        }
        painter.drawText(QPointF(left, y + metrics.ascent()), line);
        y += metrics.lineSpacing();
    }
    painter.end();
}

} // namespace Printing
