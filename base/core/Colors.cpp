#include "Colors.h"

#include <Xm/Screen.h>
#include <Xm/Xm.h>

#include <bit>
#include <charconv>
#include <cstring>
#include <string_view>
#include <strings.h>

namespace lm {

/// The position of a mask of eight adjacent bits.
static std::optional<int> shiftOf(unsigned long mask)
{
    const int shift = std::countr_zero(mask);
    if (mask == 0 || mask >> shift != 0xFF)
        return std::nullopt;
    return shift;
}

std::optional<PackedColor> PackedColor::of(const Visual& visual, int depth)
{
    if (visual.c_class != TrueColor || visual.bits_per_rgb != 8 || depth != 24)
        return std::nullopt;
    const auto red = shiftOf(visual.red_mask), green = shiftOf(visual.green_mask), blue = shiftOf(visual.blue_mask);
    if (!red || !green || !blue)
        return std::nullopt;
    return PackedColor{*red, *green, *blue};
}

Pixel PackedColor::pack(const XColor& color) const
{
    return static_cast<Pixel>(color.red >> 8) << redShift | static_cast<Pixel>(color.green >> 8) << greenShift |
           static_cast<Pixel>(color.blue >> 8) << blueShift;
}

void PackedColor::unpack(XColor& color) const
{
    const auto channel = [&](int shift) { return static_cast<unsigned short>((color.pixel >> shift & 0xFF) * 257); };
    color.red = channel(redShift);
    color.green = channel(greenShift);
    color.blue = channel(blueShift);
    color.flags = DoRed | DoGreen | DoBlue;
}

static std::optional<PackedColor> packedColorOf(Screen* screen)
{
    return PackedColor::of(*DefaultVisualOfScreen(screen), DefaultDepthOfScreen(screen));
}

/// The packing of the colormap's pixels, when it is the default one.
static std::optional<PackedColor> packedColorOf(Display* display, Colormap colormap)
{
    for (int i = 0; i < ScreenCount(display); ++i)
        if (Screen* screen = ScreenOfDisplay(display, i); colormap == DefaultColormapOfScreen(screen))
            return packedColorOf(screen);
    return std::nullopt;
}

void queryColors(Display* display, XColor* colors, int count)
{
    const Colormap colormap = DefaultColormap(display, DefaultScreen(display));
    const auto packed = packedColorOf(display, colormap);
    if (!packed) {
        XQueryColors(display, colormap, colors, count);
        return;
    }
    for (int i = 0; i < count; ++i)
        packed->unpack(colors[i]);
}

bool allocColor(Display* display, Colormap colormap, XColor* color)
{
    const auto packed = packedColorOf(display, colormap);
    if (!packed)
        return XAllocColor(display, colormap, color);
    color->pixel = packed->pack(*color);
    packed->unpack(*color);
    return true;
}

static Status allocForMotif(Display* display, Colormap colormap, XColor* color) noexcept
{
    return allocColor(display, colormap, color);
}

/// The colours that need no look-up by name.
static std::optional<XColor> plainColor(const char* text)
{
    unsigned rgb = 0;
    if (strcasecmp(text, "White") == 0)
        rgb = 0xFFFFFF;
    else if (strcasecmp(text, "Black") != 0) {
        const std::string_view digits = text;
        if (digits.size() != 7 || digits[0] != '#')
            return std::nullopt;
        if (std::from_chars(digits.begin() + 1, digits.end(), rgb, 16).ptr != digits.end())
            return std::nullopt;
    }
    const auto channel = [&](int shift) { return static_cast<unsigned short>((rgb >> shift & 0xFF) * 257); };
    return XColor{.red = channel(16), .green = channel(8), .blue = channel(0)};
}

/// Hands a converted pixel over as Xt's converters do: into the caller's place, or into one of our own.
static Boolean deliver(Pixel pixel, XrmValue& to)
{
    static Pixel own;
    own = pixel;
    const bool fits = !to.addr || to.size >= sizeof own;
    if (!to.addr)
        to.addr = reinterpret_cast<XPointer>(&own);
    else if (fits)
        std::memcpy(to.addr, &own, sizeof own);
    to.size = sizeof own;
    return fits;
}

static Boolean stringToPixel(Display* display, XrmValue* arguments, Cardinal* count, XrmValue* from, XrmValue* to,
                             XtPointer* closure) noexcept
{
    if (*count == 2) {
        const Colormap colormap = *reinterpret_cast<Colormap*>(arguments[1].addr);
        const auto packed = packedColorOf(display, colormap);
        const auto color = plainColor(from->addr);
        if (packed && color)
            return deliver(packed->pack(*color), *to);
    }
    return XtCvtStringToPixel(display, arguments, count, from, to, closure);
}

void useColorArithmetic(Display* display)
{
    Screen* screen = DefaultScreenOfDisplay(display);
    if (!packedColorOf(screen))
        return;
    XtVaSetValues(XmGetXmScreen(screen), XmNcolorAllocationProc, allocForMotif, nullptr);
    // No destructor: a pixel of ours is not allocated, and others are kept for the display's life, as Xt itself does.
    XtAppSetTypeConverter(XtDisplayToApplicationContext(display), XtRString, XtRPixel, stringToPixel,
                          const_cast<XtConvertArgList>(colorConvertArgs), 2, XtCacheByDisplay, nullptr);
}

}   // namespace lm
