// SPDX-License-Identifier: GPL-3.0-or-later
// The text-file encoder both ways: every byte reads as one character and back as the same byte,
// except the five places the code page leaves unassigned; every text writes as one byte per
// character and reads back as what was written.
#include "fuzzcheck.h"
#include "textfiles.h"

namespace {

bool unassigned(char b) {
    const auto u = static_cast<unsigned char>(b);
    return u == 0x81 || u == 0x8D || u == 0x8F || u == 0x90 || u == 0x9D;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes = bytesOf(data, size);

    const QString read = TextFiles::fromWindows1252(bytes);
    require(read.size() == bytes.size(), "one character per byte");
    QByteArray expected = bytes;
    for (char &b : expected) {
        if (unassigned(b))
            b = '?';
    }
    require(TextFiles::toWindows1252(read) == expected, "bytes read and written again");

    // The same bytes as a text of UTF-16 code units, as the programme's strings hold them.
    const QString text(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2);
    const QByteArray written = TextFiles::toWindows1252(text);
    require(written.size() == text.size(), "one byte per character");
    require(TextFiles::toWindows1252(TextFiles::fromWindows1252(written)) == written,
            "a written text reads back as written");
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t u = text.at(i).unicode();
        if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
            require(static_cast<unsigned char>(written.at(i)) == u, "Latin-1 stays as it is");
    }
    return 0;
}
