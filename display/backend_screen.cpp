// SPDX-License-Identifier: GPL-3.0-or-later
#include "backend_screen.h"

#include <QGuiApplication>
#include <QScreen>

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
