// Colors.h: pixels to colours and back, without asking the server where the pixel itself says the colour.
#pragma once

#include <X11/Intrinsic.h>

#include <optional>

namespace lm {

/// How a TrueColor visual with 8 bits for each channel packs a pixel. Pure arithmetic, and to the bit what the server
/// answers; with fewer bits (depth 16) servers round in ways of their own, so those are always asked.
struct PackedColor {
    int redShift;
    int greenShift;
    int blueShift;

    /// Nothing for a visual of another kind. Depth 32 is refused, too: servers set the spare bits.
    static std::optional<PackedColor> of(const Visual& visual, int depth);

    /// The pixel nearest to the red, green and blue of the colour.
    Pixel pack(const XColor& color) const;
    /// Sets the colour's red, green, blue and flags from its pixel.
    void unpack(XColor& color) const;
};

/// Red, green and blue (0..65535) of the `count` pixels given, in the default colormap of the default screen:
/// without a round trip on a PackedColor visual, else with one.
void queryColors(Display* display, XColor* colors, int count);

/// XAllocColor, which needs no round trip for the default colormap of a PackedColor visual. The pixel may be given to
/// XFreeColors. False when the colormap is full.
bool allocColor(Display* display, Colormap colormap, XColor* color);

/// Lets Motif allocate its colours by allocColor, and Xt convert "Black", "White" and "#rrggbb" by it. Makes the default
/// XmScreen when there is none. Changes nothing on other visuals.
void useColorArithmetic(Display* display);

}   // namespace lm
