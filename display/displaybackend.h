// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>

// A display mode or a screen size in physical pixels.
struct DisplaySize {
    int width = 0;
    int height = 0;
    friend bool operator==(const DisplaySize &, const DisplaySize &) = default;
};

// What the programme asks of the display. Kept free of Qt so that the Windows implementation
// builds with nothing but the Windows headers.
class DisplayBackend {
public:
    virtual ~DisplayBackend() = default;

    // Mode number `index` of the current display in the display's own order, or nothing when
    // the display has no mode of that number. Modes are asked for from 0 upwards until the first
    // missing one; several modes may have the same size (colour depth, refresh rate).
    virtual std::optional<DisplaySize> mode(int index) = 0;

    // Switches the display to width x height at once, without making it the permanent setting.
    // Colour depth and refresh rate are left to the display; a refusal is silent.
    virtual void change(int width, int height) = 0;

    // The current size of the screen in physical pixels.
    virtual DisplaySize currentSize() = 0;
};
