// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

#include <functional>

// The screen layer: one default instance per screen, shown and unloaded in the order each handler
// gives. The programme ends when no screen is loaded once the running handler has returned, or at
// once through endProgramme().
//
// The layer also places the windows. A screen that takes the place of another (">>", "<<", the
// page overview, the control centre to a page, page 10 to the final test, the final test to the
// end page and back) takes over that screen's position, size and window state: normal, maximised
// or full screen. A screen opened over a page (information screens, grade scale, display modes)
// opens centred over that page at the page's zoom. The first window opens centred on the screen
// at four fifths of its height.
class Screens {
public:
    // Makes a screen at the zoom factor of the window it will be shown in.
    using Factory = std::function<Form *(double zoomFactor)>;

    // main() registers how each screen is made; the layer never names a screen class itself.
    static void registerScreen(ScreenId id, const Factory &factory);

    // Shows the screen, creating it when it is not loaded (running its onLoad), and makes it the
    // active screen (running its onActivate when it was not the active one already).
    static Form *show(ScreenId id);
    template <class T> static T *show(ScreenId id) { return static_cast<T *>(show(id)); }

    // Unloads the screen: it disappears, its timers stop and its instance is destroyed once the
    // running handler has returned. The next show creates it afresh.
    static void unload(ScreenId id);
    static void unload(Form *form);

    // The loaded instance, or nullptr.
    static Form *loaded(ScreenId id);
    template <class T> static T *loaded(ScreenId id) { return static_cast<T *>(loaded(id)); }
    static bool anyLoaded();
    static Form *activeScreen();

    // Builds the screens the active page names as likely next ones, while the pupil reads; a
    // show then takes the prepared instance instead of building one. Runs by itself a moment
    // after a page has become active; a test or the benchmark may call it at once.
    static void prepareLikelyNext();
    // Whether an instance of the screen is prepared (built, not loaded).
    static bool prepared(ScreenId id);

    // Ends the programme at once: every screen closes, no further handler runs.
    static void endProgramme();
    static bool programmeEnded();

    // Destroys every screen without running a handler and forgets that the programme ended.
    static void reset();
};
