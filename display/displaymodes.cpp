// SPDX-License-Identifier: GPL-3.0-or-later
#include "displaymodes.h"

#include "backend_screen.h"

#include <QListWidget>

namespace DisplayModes {

namespace {

std::unique_ptr<DisplayBackend> &backendSlot() {
    static std::unique_ptr<DisplayBackend> backend;
    return backend;
}

QString modeText(const DisplaySize &size) {
    return QString::number(size.width) + QStringLiteral(" x ") + QString::number(size.height);
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

} // namespace DisplayModes
