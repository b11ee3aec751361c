// SPDX-License-Identifier: GPL-3.0-or-later
// A box of the grade scale as its OK button takes it: a "%" at the end goes, the rest becomes a
// 16-bit whole number. Text that is no number and numbers out of range end the programme through
// the failure handler; here the handler hands control back, and those failures are expected
// outcomes. Nothing else may happen: no crash, no other failure, no number from a text that
// holds none.
#include "fuzzcheck.h"
#include "gradescale.h"
#include "seams.h"

#include <string>

namespace {

struct Failure {
    QString text;
};

// Blanks around the number as the conversion skips them: ASCII white space.
bool blank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\v' || c == u'\f' || c == u'\r';
}

// A whole number of ASCII digits with a sign and blanks around it, read independently of the
// conversion; numbers far out of range stand at a million.
bool asciiInteger(const QString &text, long long &value) {
    qsizetype first = 0, end = text.size();
    while (first < end && blank(text.at(first)))
        ++first;
    while (end > first && blank(text.at(end - 1)))
        --end;
    const std::string s = text.mid(first, end - first).toStdString();
    std::size_t i = 0;
    const bool negative = !s.empty() && s[0] == '-';
    if (!s.empty() && (s[0] == '-' || s[0] == '+'))
        ++i;
    if (i == s.size())
        return false;
    value = 0;
    for (; i < s.size(); ++i) {
        if (s[i] < '0' || s[i] > '9')
            return false;
        value = std::min(value * 10 + (s[i] - '0'), 1000000LL);
    }
    value = negative ? -value : value;
    return true;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    Seams::setFailureHandler([](const QString &text) { throw Failure{text}; });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    QString box = typedText(data, size);
    if (box.endsWith(u'%'))
        box.chop(1);

    std::optional<std::int16_t> taken;
    QString failure;
    try {
        taken = toInteger16(box);
    } catch (const Failure &f) {
        failure = f.text;
    }
    require(taken || failure == QStringLiteral("Typen unverträglich") ||
                failure == QStringLiteral("Überlauf"),
            "a number or one of the two described failures");
    if (taken) {
        // A number comes only from digits 0 to 9, a sign, a decimal separator and blanks.
        bool digit = false;
        for (QChar c : box) {
            digit = digit || (c >= u'0' && c <= u'9');
            require((c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.' || c == u',' ||
                        blank(c),
                    "no number from other characters");
        }
        require(digit, "no number without a digit");
    }
    long long value = 0;
    if (asciiInteger(box, value)) {
        const bool fits = value >= -32768 && value <= 32767;
        require(fits ? taken == value : failure == QStringLiteral("Überlauf"),
                "a whole number is taken as it is, or overflows");
    }
    return 0;
}
