// SPDX-License-Identifier: GPL-3.0-or-later
#include "backend_x11.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

std::optional<X11ModeStep> refusedStep;

// Xlib's default error handler ends the process; a refused request only means that the step
// failed. While a trap is set, the errors of its connection are counted.
Display *trappedDisplay = nullptr;
int trappedErrors = 0;

int countXError(Display *display, XErrorEvent *) {
    if (display == trappedDisplay)
        ++trappedErrors;
    return 0;
}

class XErrorTrap {
public:
    explicit XErrorTrap(Display *display)
        : previous_(XSetErrorHandler(countXError)) {
        trappedDisplay = display;
        trappedErrors = 0;
    }
    ~XErrorTrap() {
        trappedDisplay = nullptr;
        XSetErrorHandler(previous_);
    }
    XErrorTrap(const XErrorTrap &) = delete;
    XErrorTrap &operator=(const XErrorTrap &) = delete;

    // Waits for the server to have handled every request so far; true when none was refused
    // since the last call.
    bool allDone(Display *display) {
        XSync(display, False);
        return std::exchange(trappedErrors, 0) == 0;
    }

private:
    XErrorHandler previous_;
};

template <class T, void (*Free)(T *)> struct XrrPtr {
    explicit XrrPtr(T *p)
        : p(p) {}
    ~XrrPtr() {
        if (p)
            Free(p);
    }
    XrrPtr(const XrrPtr &) = delete;
    XrrPtr &operator=(const XrrPtr &) = delete;
    T *operator->() const { return p; }
    explicit operator bool() const { return p != nullptr; }
    T *p;
};
using Resources = XrrPtr<XRRScreenResources, XRRFreeScreenResources>;
using OutputInfo = XrrPtr<XRROutputInfo, XRRFreeOutputInfo>;
using CrtcInfo = XrrPtr<XRRCrtcInfo, XRRFreeCrtcInfo>;

bool sideways(Rotation rotation) {
    return (rotation & (RR_Rotate_90 | RR_Rotate_270)) != 0;
}

// The physical size in millimetres of `pixels` at the dots per inch that `oldPixels` had at
// `oldMm`, so that a new desktop size keeps them; 96 dots per inch where the server knows no
// physical size.
int millimetres(int pixels, int oldPixels, int oldMm) {
    if (oldPixels > 0 && oldMm > 0)
        return std::max(1, oldMm * pixels / oldPixels);
    return std::max(1, static_cast<int>(std::lround(pixels * 25.4 / 96.0)));
}

// The whole desktop: its size in pixels and in millimetres (0 where the server knows none).
struct Desktop {
    DisplaySize pixels;
    int widthMm = 0;
    int heightMm = 0;

    // A desktop of another size at the same dots per inch.
    Desktop resized(DisplaySize size) const {
        return {size, millimetres(size.width, pixels.width, widthMm),
                millimetres(size.height, pixels.height, heightMm)};
    }
};

class X11DisplayBackend final : public DisplayBackend {
public:
    explicit X11DisplayBackend(Display *display)
        : display_(display)
        , root_(DefaultRootWindow(display)) {}
    ~X11DisplayBackend() override { XCloseDisplay(display_); }
    X11DisplayBackend(const X11DisplayBackend &) = delete;
    X11DisplayBackend &operator=(const X11DisplayBackend &) = delete;

    std::optional<DisplaySize> mode(int index) override {
        // Mode 0 starts a new enumeration: the server is asked afresh once, not per mode.
        if (index == 0)
            modes_ = outputModes();
        if (index < 0 || index >= static_cast<int>(modes_.size()))
            return std::nullopt;
        return modes_[static_cast<std::size_t>(index)].size;
    }

    void change(int width, int height) override;
    DisplaySize currentSize() override;

private:
    struct Mode {
        RRMode id;
        DisplaySize size;
    };
    // Where an output is lit and with which mode: the part of a CRTC's configuration a mode
    // change alters.
    struct CrtcState {
        int x;
        int y;
        RRMode mode;
        Rotation rotation;
        RROutput *outputs;
        int outputCount;
    };
    static constexpr RRMode kNoSuchMode = 0x7fffffff;

    // What a mode change needs to know before it touches anything.
    std::optional<RRMode> modeOfSize(DisplaySize size) const;
    std::optional<DisplaySize> desktopHolding(const Resources &resources, RRCrtc crtc,
                                              const XRRCrtcInfo &lit, DisplaySize modeSize) const;
    Desktop currentDesktop() const;

    // The steps of a mode change, in their order, each checked: false as soon as the server
    // refuses one.
    bool sendSteps(const Resources &resources, RRCrtc crtc, const CrtcState &before, RRMode mode,
                   bool shrinks, const Desktop &old, const Desktop &wanted, XErrorTrap &trap);
    // One step each: it sends its request, and the caller asks the server whether it was carried
    // out.
    bool setCrtc(const Resources &resources, RRCrtc crtc, const CrtcState &state, X11ModeStep step);
    void setScreenSize(const Desktop &desktop, std::optional<X11ModeStep> step);
    // After a refused step: the output, the desktop size and the mode as they were.
    void putBack(RRCrtc crtc, const CrtcState &before, const Desktop &old);

    // The output the desktop is shown on: the primary one, else the first lit output.
    RROutput screenOutput(const Resources &resources) const {
        const RROutput primary = XRRGetOutputPrimary(display_, root_);
        RROutput first = None;
        for (int i = 0; i < resources->noutput; ++i) {
            OutputInfo info(XRRGetOutputInfo(display_, resources.p, resources->outputs[i]));
            if (!info || info->connection != RR_Connected || info->crtc == None)
                continue;
            if (resources->outputs[i] == primary)
                return primary;
            if (first == None)
                first = resources->outputs[i];
        }
        return first;
    }

    // The CRTC that lights the output the desktop is shown on, or None.
    RRCrtc screenCrtc(const Resources &resources) const {
        const RROutput output = screenOutput(resources);
        if (output == None)
            return None;
        OutputInfo info(XRRGetOutputInfo(display_, resources.p, output));
        return info ? info->crtc : None;
    }

    std::vector<Mode> outputModes() const {
        std::vector<Mode> modes;
        Resources resources(XRRGetScreenResources(display_, root_));
        if (!resources)
            return modes;
        const RROutput output = screenOutput(resources);
        if (output == None)
            return modes;
        OutputInfo info(XRRGetOutputInfo(display_, resources.p, output));
        for (int i = 0; info && i < info->nmode; ++i) {
            for (int m = 0; m < resources->nmode; ++m) {
                const XRRModeInfo &mode = resources->modes[m];
                if (mode.id == info->modes[i])
                    modes.push_back(
                        {mode.id, {static_cast<int>(mode.width), static_cast<int>(mode.height)}});
            }
        }
        return modes;
    }

    // The size of the whole desktop as the server has it now.
    DisplaySize screenSize() const {
        Window root = None;
        int x = 0, y = 0;
        unsigned width = 0, height = 0, border = 0, depth = 0;
        if (!XGetGeometry(display_, root_, &root, &x, &y, &width, &height, &border, &depth))
            return {};
        return {static_cast<int>(width), static_cast<int>(height)};
    }

    Display *display_;
    Window root_;
    std::vector<Mode> modes_;
};

void X11DisplayBackend::change(int width, int height) {
    const std::optional<RRMode> mode = modeOfSize({width, height});
    if (!mode)
        return;
    Resources resources(XRRGetScreenResources(display_, root_));
    if (!resources)
        return;
    const RRCrtc crtc = screenCrtc(resources);
    CrtcInfo lit(crtc == None ? nullptr : XRRGetCrtcInfo(display_, resources.p, crtc));
    if (!lit)
        return;
    const std::optional<DisplaySize> size =
        desktopHolding(resources, crtc, *lit.p, {width, height});
    if (!size)
        return;
    const Desktop old = currentDesktop();
    // The physical size follows the pixels, so that the dots per inch stay as they were.
    const Desktop wanted = old.resized(*size);

    // Every step is checked. When one is refused, what was changed before it is put back: the
    // display keeps its mode, the desktop its size and the output its place.
    const CrtcState before{lit->x, lit->y, lit->mode, lit->rotation, lit->outputs, lit->noutput};
    // An output may not lie outside the desktop even for a moment: when the desktop shrinks it
    // is switched off first and lit again with the new mode.
    const bool shrinks = lit->x + static_cast<int>(lit->width) > size->width ||
                         lit->y + static_cast<int>(lit->height) > size->height;
    XErrorTrap trap(display_);
    XGrabServer(display_);
    if (!sendSteps(resources, crtc, before, *mode, shrinks, old, wanted, trap)) {
        putBack(crtc, before, old.resized(old.pixels));
        trap.allDone(display_);
    }
    XUngrabServer(display_);
    XSync(display_, False);
}

std::optional<RRMode> X11DisplayBackend::modeOfSize(DisplaySize size) const {
    const std::vector<Mode> modes = outputModes();
    const auto found =
        std::find_if(modes.begin(), modes.end(), [&](const Mode &m) { return m.size == size; });
    if (found == modes.end())
        return std::nullopt;
    return found->id;
}

// The desktop grows or shrinks to hold the new mode next to every other lit output; nothing when
// the server cannot make a desktop of that size.
std::optional<DisplaySize> X11DisplayBackend::desktopHolding(const Resources &resources,
                                                             RRCrtc crtc, const XRRCrtcInfo &lit,
                                                             DisplaySize modeSize) const {
    const bool turned = sideways(lit.rotation);
    DisplaySize desktop{lit.x + (turned ? modeSize.height : modeSize.width),
                        lit.y + (turned ? modeSize.width : modeSize.height)};
    for (int i = 0; i < resources->ncrtc; ++i) {
        if (resources->crtcs[i] == crtc)
            continue;
        CrtcInfo other(XRRGetCrtcInfo(display_, resources.p, resources->crtcs[i]));
        if (other && other->mode != None) {
            desktop.width = std::max(desktop.width, other->x + static_cast<int>(other->width));
            desktop.height = std::max(desktop.height, other->y + static_cast<int>(other->height));
        }
    }
    int minWidth = 0, minHeight = 0, maxWidth = 0, maxHeight = 0;
    if (!XRRGetScreenSizeRange(display_, root_, &minWidth, &minHeight, &maxWidth, &maxHeight) ||
        desktop.width < minWidth || desktop.height < minHeight || desktop.width > maxWidth ||
        desktop.height > maxHeight)
        return std::nullopt;
    return desktop;
}

// Xlib's own record of the screen size is from the time the connection was opened; the server is
// asked for the size in force and its physical size.
Desktop X11DisplayBackend::currentDesktop() const {
    Desktop desktop{screenSize()};
    XRRScreenConfiguration *config = XRRGetScreenInfo(display_, root_);
    if (!config)
        return desktop;
    int count = 0;
    Rotation rotation = 0;
    const XRRScreenSize *sizes = XRRConfigSizes(config, &count);
    const int index = XRRConfigCurrentConfiguration(config, &rotation);
    if (sizes && index >= 0 && index < count) {
        const XRRScreenSize &size = sizes[index];
        desktop.widthMm = sideways(rotation) ? size.mheight : size.mwidth;
        desktop.heightMm = sideways(rotation) ? size.mwidth : size.mheight;
    }
    XRRFreeScreenConfigInfo(config);
    return desktop;
}

bool X11DisplayBackend::sendSteps(const Resources &resources, RRCrtc crtc, const CrtcState &before,
                                  RRMode mode, bool shrinks, const Desktop &old,
                                  const Desktop &wanted, XErrorTrap &trap) {
    if (shrinks &&
        !(setCrtc(resources, crtc, {0, 0, None, RR_Rotate_0, nullptr, 0}, X11ModeStep::OutputOff) &&
          trap.allDone(display_)))
        return false;
    if (wanted.pixels != old.pixels) {
        setScreenSize(wanted, X11ModeStep::ScreenSize);
        if (!trap.allDone(display_))
            return false;
    }
    CrtcState lit = before;
    lit.mode = mode;
    return setCrtc(resources, crtc, lit, X11ModeStep::NewMode) && trap.allDone(display_);
}

bool X11DisplayBackend::setCrtc(const Resources &resources, RRCrtc crtc, const CrtcState &state,
                                X11ModeStep step) {
    // A mode that does not exist is refused by the server.
    const RRMode mode = refusedStep == step ? kNoSuchMode : state.mode;
    return XRRSetCrtcConfig(display_, resources.p, crtc, CurrentTime, state.x, state.y, mode,
                            state.rotation, state.outputs, state.outputCount) == RRSetConfigSuccess;
}

void X11DisplayBackend::setScreenSize(const Desktop &desktop, std::optional<X11ModeStep> step) {
    // A desktop of no pixels is refused by the server.
    const DisplaySize size = step && refusedStep == step ? DisplaySize{} : desktop.pixels;
    XRRSetScreenSize(display_, root_, size.width, size.height, desktop.widthMm, desktop.heightMm);
}

void X11DisplayBackend::putBack(RRCrtc crtc, const CrtcState &before, const Desktop &old) {
    Resources resources(XRRGetScreenResourcesCurrent(display_, root_));
    if (!resources)
        return;
    CrtcInfo now(XRRGetCrtcInfo(display_, resources.p, crtc));
    const bool asBefore = now && now->mode == before.mode && now->x == before.x &&
                          now->y == before.y && now->rotation == before.rotation;
    // The output goes dark while the desktop takes its old size back, unless it never changed.
    if (!asBefore && now && now->mode != None)
        XRRSetCrtcConfig(display_, resources.p, crtc, CurrentTime, 0, 0, None, RR_Rotate_0, nullptr,
                         0);
    if (screenSize() != old.pixels && old.pixels.width > 0 && old.pixels.height > 0)
        setScreenSize(old, std::nullopt);
    if (!asBefore)
        XRRSetCrtcConfig(display_, resources.p, crtc, CurrentTime, before.x, before.y, before.mode,
                         before.rotation, before.outputs, before.outputCount);
}

DisplaySize X11DisplayBackend::currentSize() {
    Resources resources(XRRGetScreenResourcesCurrent(display_, root_));
    const RRCrtc crtc = resources ? screenCrtc(resources) : None;
    CrtcInfo lit(crtc == None ? nullptr : XRRGetCrtcInfo(display_, resources.p, crtc));
    if (lit && lit->mode != None)
        return {static_cast<int>(lit->width), static_cast<int>(lit->height)};
    return screenSize();
}

// A property of a window in 32-bit items of the given type (windows, atoms, cardinals), as Xlib
// hands them out in longs; empty when the window has none or has gone.
std::vector<unsigned long> property32(Display *display, Window window, const char *name,
                                      Atom type) {
    Atom actualType = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long after = 0;
    unsigned char *data = nullptr;
    std::vector<unsigned long> items;
    if (XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 4096, False, type,
                           &actualType, &format, &count, &after, &data) == Success &&
        data) {
        if (actualType == type && format == 32) {
            const auto *values = reinterpret_cast<const unsigned long *>(data);
            items.assign(values, values + count);
        }
        XFree(data);
    }
    return items;
}

bool contains(const std::vector<unsigned long> &items, unsigned long item) {
    return std::find(items.begin(), items.end(), item) != items.end();
}

// The front window of the process among the windows the window manager looks after, which the
// manager is then asked to activate as a pager does at the user's click: it comes to the front
// of its desktop, out of the task bar if it was minimised. Only a window manager that runs (its
// check window is its own) and takes such requests can do it.
bool activateFrontWindow(Display *display, unsigned long processId) {
    const Window root = DefaultRootWindow(display);
    const auto manager = property32(display, root, "_NET_SUPPORTING_WM_CHECK", XA_WINDOW);
    if (manager.empty() ||
        property32(display, manager.front(), "_NET_SUPPORTING_WM_CHECK", XA_WINDOW) != manager)
        return false;
    const Atom activate = XInternAtom(display, "_NET_ACTIVE_WINDOW", False);
    if (!contains(property32(display, root, "_NET_SUPPORTED", XA_ATOM), activate))
        return false;
    // Bottom to top; without the stacking order, in the order the windows were mapped.
    auto windows = property32(display, root, "_NET_CLIENT_LIST_STACKING", XA_WINDOW);
    if (windows.empty())
        windows = property32(display, root, "_NET_CLIENT_LIST", XA_WINDOW);
    const auto front = std::find_if(windows.rbegin(), windows.rend(), [&](unsigned long window) {
        return property32(display, window, "_NET_WM_PID", XA_CARDINAL) ==
               std::vector<unsigned long>{processId};
    });
    if (front == windows.rend())
        return false;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = *front;
    event.xclient.message_type = activate;
    event.xclient.format = 32;
    event.xclient.data.l[0] = 2; // from a pager: the pupil's own request
    event.xclient.data.l[1] = CurrentTime;
    return XSendEvent(display, root, False, SubstructureRedirectMask | SubstructureNotifyMask,
                      &event) != 0;
}

} // namespace

bool bringX11WindowToFront(long long processId) {
    Display *display = XOpenDisplay(nullptr);
    if (!display)
        return false;
    bool brought = false;
    {
        // A window may go while it is looked at. Every reply is in before the trap goes.
        XErrorTrap trap(display);
        brought =
            processId > 0 && activateFrontWindow(display, static_cast<unsigned long>(processId));
        (void)trap.allDone(display);
    }
    XCloseDisplay(display);
    return brought;
}

std::unique_ptr<DisplayBackend> makeX11DisplayBackend() {
    Display *display = XOpenDisplay(nullptr);
    if (!display)
        return nullptr;
    int eventBase = 0, errorBase = 0, major = 0, minor = 0;
    if (!XRRQueryExtension(display, &eventBase, &errorBase) ||
        !XRRQueryVersion(display, &major, &minor) || major < 1 || (major == 1 && minor < 2)) {
        XCloseDisplay(display);
        return nullptr;
    }
    return std::make_unique<X11DisplayBackend>(display);
}

void refuseX11ModeStep(std::optional<X11ModeStep> step) {
    refusedStep = step;
}
