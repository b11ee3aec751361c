// SPDX-License-Identifier: GPL-3.0-or-later
// The size of a display-mode text as the display-mode screen reads the chosen entry: any text
// gives a width and a height in whole pixels from 0 to a million, without a crash, and a mode
// text written from a size reads back as that size.
#include "displaymodes.h"
#include "fuzzcheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const DisplaySize read = DisplayModes::modeSize(typedText(data, size));
    require(read.width >= 0 && read.width <= 1000000, "width within range");
    require(read.height >= 0 && read.height <= 1000000, "height within range");
    const QString written =
        QString::number(read.width) + QStringLiteral(" x ") + QString::number(read.height);
    require(DisplayModes::modeSize(written) == read, "a mode text reads back as its size");
    return 0;
}
