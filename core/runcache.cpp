// SPDX-License-Identifier: GPL-3.0-or-later
#include "runcache.h"

#include <QCoreApplication>
#include <QList>

namespace {

QList<std::function<void()>> &pending() {
    static QList<std::function<void()>> list;
    return list;
}

// Runs from the application object's destructor while its widgets and fonts are still there.
void emptyAll() {
    const QList<std::function<void()>> list = std::exchange(pending(), {});
    for (const std::function<void()> &empty : list)
        empty();
}

} // namespace

void emptyWithApplication(std::function<void()> empty) {
    if (pending().isEmpty())
        qAddPostRoutine(emptyAll);
    pending().append(std::move(empty));
}
