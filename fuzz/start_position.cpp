// SPDX-License-Identifier: GPL-3.0-or-later
// The start-position file as the start screen reads it: whatever bytes the file holds give its
// first item or nothing, without a crash.
#include "fuzzcheck.h"
#include "textfiles.h"

namespace {

bool blank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray content = bytesOf(data, size);
    const std::optional<QString> item = TextFiles::firstItem(content);
    const QString text = TextFiles::fromWindows1252(content);

    qsizetype start = 0;
    while (start < text.size() && blank(text.at(start)))
        ++start;
    require(item.has_value() == (start < text.size()), "an item exactly when not all blank");
    if (!item)
        return 0;
    if (text.at(start) == u'"') {
        // A quoted string up to the next quote, or to the end when it is not closed.
        require(!item->contains(u'"'), "no quote inside a quoted item");
        require(text.mid(start + 1).startsWith(*item), "the quoted item follows its quote");
    } else {
        // A bare item up to the next comma or line end, without the blanks before them.
        require(!item->isEmpty() || text.at(start) == u',', "a bare item is empty before a comma");
        require(text.mid(start).startsWith(*item), "the bare item starts at the first non-blank");
        for (QChar c : *item)
            require(c != u',' && c != u'\r' && c != u'\n', "a bare item stops at comma and line");
        require(item->isEmpty() || (item->back() != u' ' && item->back() != u'\t'),
                "no blank at the end of a bare item");
    }
    return 0;
}
