// SPDX-License-Identifier: GPL-3.0-or-later
#include "modul2.h"

#include "backend_screen.h"

#include <QListWidget>

namespace Modul2 {

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

QString ResolutionText() {
    return modeText(displayBackend().currentSize());
}

void FillModeList(QListWidget *list) {
    DisplayBackend &display = displayBackend();
    for (int i = 0;; ++i) {
        const std::optional<DisplaySize> mode = display.mode(i);
        if (!mode)
            break;
        const QString text = modeText(*mode);
        if (IsNotInList(list, text))
            list->addItem(text);
    }
}

bool IsNotInList(QListWidget *list, const QString &text) {
    return FindListEntry(list, text) == -1;
}

int FindListEntry(QListWidget *list, const QString &text) {
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->text().compare(text, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

void SetResolution(int width, int height) {
    displayBackend().change(width, height);
}

} // namespace Modul2
