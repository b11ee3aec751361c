// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// A property every input must keep. A broken one is a finding like a crash: libFuzzer keeps the
// input that broke it.
inline void require(bool holds, const char *property) {
    if (!holds) {
        std::fprintf(stderr, "property broken: %s\n", property);
        std::abort();
    }
}

inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size) {
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

// What a pupil could have typed: the input as UTF-8, invalid sequences as replacement characters.
inline QString typedText(const std::uint8_t *data, std::size_t size) {
    return QString::fromUtf8(bytesOf(data, size));
}
