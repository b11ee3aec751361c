// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue.h"

#include <QtGlobal>

namespace {

constexpr bool Y = true;
constexpr bool N = false;

const std::array<PageInfo, 10> kPages = {{
    {1,
     116,
     {{{{0, 1, 2}, {N, N, Y}},
       {{3, 4, 3}, {N, Y, N}},
       {{5, 6, 7}, {Y, N, N}},
       {{8, 9, 10}, {Y, N, N}},
       {{11, 12, 13}, {Y, N, N}}}},
     15,
     {0, 1, 3, 6, 7, 9, 10, 12, 13},
     {2, 4, 5, 8, 11},
     ScreenId::Steuerzentrum,
     ScreenId::Qel2,
     true},
}};

} // namespace

const PageInfo &pageInfo(int page) {
    Q_ASSERT(page >= 1 && page <= static_cast<int>(kPages.size()));
    return kPages.at(static_cast<std::size_t>(page - 1));
}
