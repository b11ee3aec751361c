// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QPrinter;

// Printing the test log: the whole file in 10-point Arial, every line starting 20 mm from the
// left edge, the first 10 mm below the top edge, on as many pages as it needs.
namespace Printing {

// Where a printout goes. The programme prints on the system's default printer; a test puts a
// PDF file in its place. No printer: nullptr.
using PrinterSource = std::function<std::unique_ptr<QPrinter>()>;
void setPrinterSource(PrinterSource source); // empty function: back to the default printer
std::unique_ptr<QPrinter> defaultPrinter();

// Reads the whole file as lines. An unreadable file ends the programme.
QStringList readLines(const QString &path);

// Prints the lines on the printer of the current source and sends the job off. Without a
// printer the programme ends.
void printLines(const QStringList &lines);

} // namespace Printing
