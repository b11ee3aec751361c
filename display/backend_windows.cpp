// SPDX-License-Identifier: GPL-3.0-or-later
#include "backend_windows.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace {

// The one display record, kept between calls: each enumeration fills it, the mode change sends it
// with only the size marked as valid. Windows wants its size filled in before the first call.
DEVMODEA ModeRecord = [] {
    DEVMODEA record{};
    record.dmSize = sizeof(DEVMODEA);
    return record;
}();

class WindowsDisplayBackend final : public DisplayBackend {
public:
    std::optional<DisplaySize> mode(int index) override {
        if (index < 0 || EnumDisplaySettingsA(nullptr, static_cast<DWORD>(index), &ModeRecord) == 0)
            return std::nullopt;
        return DisplaySize{static_cast<int>(ModeRecord.dmPelsWidth),
                           static_cast<int>(ModeRecord.dmPelsHeight)};
    }

    void change(int width, int height) override {
        ModeRecord.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
        ModeRecord.dmPelsWidth = static_cast<DWORD>(width);
        ModeRecord.dmPelsHeight = static_cast<DWORD>(height);
        // Flags 0: at once, and not stored as the permanent setting. The answer is not looked at.
        ChangeDisplaySettingsA(&ModeRecord, 0);
    }

    DisplaySize currentSize() override {
        // The mode in force, in physical pixels whatever scaling the desktop uses; a record of
        // its own, so that the enumeration's record is left as it was.
        DEVMODEA current{};
        current.dmSize = sizeof(DEVMODEA);
        if (EnumDisplaySettingsA(nullptr, ENUM_CURRENT_SETTINGS, &current) != 0)
            return {static_cast<int>(current.dmPelsWidth), static_cast<int>(current.dmPelsHeight)};
        return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    }
};

static_assert((DM_PELSWIDTH | DM_PELSHEIGHT) == 0x00180000L, "size fields of DEVMODEA");

struct WindowSearch {
    DWORD processId;
    HWND found;
};

// The windows come from front to back: the first visible one of the process is its front window.
BOOL CALLBACK takeFrontWindow(HWND window, LPARAM data) {
    auto *search = reinterpret_cast<WindowSearch *>(data);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != search->processId || !IsWindowVisible(window))
        return TRUE;
    search->found = window;
    return FALSE;
}

} // namespace

bool bringWindowsWindowToFront(long long processId) {
    WindowSearch search{static_cast<DWORD>(processId), nullptr};
    EnumWindows(takeFrontWindow, reinterpret_cast<LPARAM>(&search));
    if (!search.found)
        return false;
    // A minimised page comes back, with the window that stands over it.
    const HWND page = GetAncestor(search.found, GA_ROOTOWNER);
    if (IsIconic(page))
        ShowWindow(page, SW_RESTORE);
    // The copy just started may pass the foreground on to the one that runs.
    AllowSetForegroundWindow(search.processId);
    return SetForegroundWindow(search.found) != 0;
}

std::unique_ptr<DisplayBackend> makeWindowsDisplayBackend() {
    return std::make_unique<WindowsDisplayBackend>();
}
