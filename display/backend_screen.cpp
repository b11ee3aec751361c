// SPDX-License-Identifier: GPL-3.0-or-later
#include "backend_screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <QThread>

#if defined(Q_OS_WIN)
#include "backend_windows.h"
#elif defined(KELVORA_HAVE_XRANDR)
#include "backend_x11.h"
#endif

#include <cmath>

namespace {

class ScreenSizeBackend final : public DisplayBackend {
public:
    std::optional<DisplaySize> mode(int index) override {
        if (index != 0)
            return std::nullopt;
        return currentSize();
    }

    void change(int, int) override {}

    DisplaySize currentSize() override {
        const QScreen *screen = QGuiApplication::primaryScreen();
        if (!screen)
            return {};
        const QSize size = screen->size();
        const double ratio = screen->devicePixelRatio();
        return {static_cast<int>(std::lround(size.width() * ratio)),
                static_cast<int>(std::lround(size.height() * ratio))};
    }
};

} // namespace

std::unique_ptr<DisplayBackend> makeScreenSizeBackend() {
    return std::make_unique<ScreenSizeBackend>();
}

std::unique_ptr<DisplayBackend> makePlatformDisplayBackend() {
#if defined(Q_OS_WIN)
    return makeWindowsDisplayBackend();
#else
#if defined(KELVORA_HAVE_XRANDR)
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        if (auto x11 = makeX11DisplayBackend())
            return x11;
    }
#endif
    return makeScreenSizeBackend();
#endif
}

bool bringWindowToFront(long long processId) {
    const auto bring = [processId] {
#if defined(Q_OS_WIN)
        return bringWindowsWindowToFront(processId);
#elif defined(KELVORA_HAVE_XRANDR)
        return QGuiApplication::platformName() == QLatin1String("xcb") &&
               bringX11WindowToFront(processId);
#else
        Q_UNUSED(processId);
        return false;
#endif
    };
    // Two quick starts: the first copy holds the lock before its window is on the desktop.
    for (int attempt = 0; attempt < 15; ++attempt) {
        if (bring())
            return true;
        QThread::msleep(200);
    }
    return false;
}
