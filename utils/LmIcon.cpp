#include "LmIcon.h"

#include "LmResource.h"
#include "support/XErrorTrap.h"
#include "support/resources.h"
#include "utils/XpmTemplate.h"

#include <X11/xpm.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <span>
#include <vector>

namespace {

struct Shadows {
    Pixel background = 0;
    Pixel top = 0;
    Pixel bottom = 0;
};

Shadows ownShadows(Widget w)
{
    Shadows colors;
    XtVaGetValues(w, XmNbackground, &colors.background, XmNtopShadowColor, &colors.top, XmNbottomShadowColor, &colors.bottom,
                  nullptr);
    return colors;
}

Shadows derivedShadows(Widget w, Pixel background)
{
    Screen* screen = XtScreenOfObject(w);
    Shadows colors{.background = background};
    Pixel foreground = 0, select = 0;
    const lm::XErrorTrap trap(DisplayOfScreen(screen));   // the pixel may be none of the colormap's
    XmGetColors(screen, DefaultColormapOfScreen(screen), background, &foreground, &colors.top, &colors.bottom, &select);
    return colors;
}

Window rootOf(Widget w) { return RootWindowOfScreen(XtScreenOfObject(w)); }

// What the pixels look like; empty when one is none of the colormap's.
std::vector<XColor> colorsOf(Display* display, std::span<const Pixel> pixels)
{
    std::vector<XColor> colors(pixels.size());
    std::ranges::transform(pixels, colors.begin(), [](Pixel pixel) { return XColor{.pixel = pixel}; });
    lm::XErrorTrap trap(display);
    XQueryColors(display, DefaultColormap(display, DefaultScreen(display)), colors.data(), static_cast<int>(colors.size()));
    return trap.error() ? std::vector<XColor>() : colors;
}

Pixmap pixmapOf(Widget w, char** xpm, XpmAttributes& attributes)
{
    Pixmap pixmap = 0;
    if (XpmCreatePixmapFromData(XtDisplayOfObject(w), rootOf(w), xpm, &pixmap, nullptr, &attributes) < XpmSuccess)
        return 0;
    XpmFreeAttributes(&attributes);
    return pixmap;
}

Pixmap coloredIcon(Widget w, const char* const* xpm, std::span<const Pixel> pixels)
{
    if (!w || !xpm)
        return 0;
    auto copy = lm::recolorXpm(xpm, colorsOf(XtDisplayOfObject(w), pixels));
    if (!copy)
        return 0;
    XpmAttributes attributes = {};
    return pixmapOf(w, copy->data(), attributes);
}

Pixmap symbolicPixmap(Widget w, const char** xpm, std::vector<XpmColorSymbol>& symbols)
{
    if (!lm::checkXpm(xpm))
        return 0;
    Display* display = XtDisplayOfObject(w);
    const int screen = DefaultScreen(display);
    XpmAttributes attributes = {};
    attributes.valuemask = XpmVisual | XpmColormap | XpmDepth | XpmColorSymbols;
    attributes.visual = DefaultVisual(display, screen);
    attributes.colormap = DefaultColormap(display, screen);
    attributes.depth = static_cast<unsigned>(DefaultDepth(display, screen));
    attributes.colorsymbols = symbols.data();
    attributes.numsymbols = static_cast<unsigned>(symbols.size());
    return pixmapOf(w, const_cast<char**>(xpm), attributes);   // libXpm only reads
}

XpmColorSymbol symbol(const char* name, Pixel pixel) { return {lm::xtText(name), nullptr, pixel}; }

Pixmap shown(Pixmap pixmap) { return pixmap ? pixmap : XmUNSPECIFIED_PIXMAP; }

}   // namespace

// --- templates whose colours are replaced ------------------------------------------------------------------------------

Pixmap LmCreate3ColorIcon(Widget w, const char** xpm)
{
    if (!w)
        return 0;
    const Shadows own = ownShadows(w);
    return LmCreate3ColorIcon(w, xpm, own.background, own.top, own.bottom);
}

Pixmap LmCreate3ColorIcon(Widget w, char** xpm, Pixel background)
{
    if (!w)
        return 0;
    const Shadows derived = derivedShadows(w, background);
    return coloredIcon(w, xpm, std::array{derived.top, background, derived.bottom});
}

Pixmap LmCreate3ColorIcon(Widget w, const char** xpm, Pixel background, Pixel topShadow, Pixel bottomShadow)
{
    return coloredIcon(w, xpm, std::array{topShadow, background, bottomShadow});
}

Pixmap LmCreate4ColorIcon(Widget w, char** xpm, Pixel c1, Pixel c2, Pixel c3, Pixel c4)
{
    return coloredIcon(w, xpm, std::array{c1, c2, c3, c4});
}

Pixmap LmCreateMultiColorIcon(Widget w, char** xpm, Pixel* colors, int count)
{
    const auto header = lm::parseXpmHeader(xpm ? xpm[0] : nullptr);
    if (!header || !colors || header->colors > count)
        return 0;
    return coloredIcon(w, xpm, std::span<const Pixel>(colors, static_cast<std::size_t>(header->colors)));
}

// --- colour symbols ----------------------------------------------------------------------------------------------------

Pixmap LmCreateXPMPixmap(Widget w, const char** xpm, const char** symbols)
{
    if (!w)
        return 0;
    const Shadows own = ownShadows(w);
    Pixel foreground = 0;
    XtVaGetValues(w, XmNforeground, &foreground, nullptr);
    std::vector<XpmColorSymbol> all = {symbol("topShadowColor", own.top), symbol("bottomShadowColor", own.bottom),
                                       symbol("foreground", foreground), symbol("background", own.background)};
    for (; symbols && *symbols; ++symbols)
        all.push_back(symbol(*symbols, reinterpret_cast<Pixel>(LmGetResource(w, *symbols, *symbols, XmRPixel, "Black"))));
    return symbolicPixmap(w, xpm, all);
}

Pixmap CreateXPMPixmap(Widget w, const char** xpm, Pixel fill, Pixel background, Pixel darkShadow, Pixel lightShadow)
{
    if (!w)
        return 0;
    std::vector<XpmColorSymbol> all = {symbol("fillcolor", fill), symbol("background", background),
                                       symbol("darkShadow", darkShadow), symbol("lightShadow", lightShadow)};
    return symbolicPixmap(w, xpm, all);
}

// --- colours and labels ------------------------------------------------------------------------------------------------

Pixel getHilight(Widget w, Pixel, Pixel base)
{
    if (!w)
        return base;
    Display* display = XtDisplayOfObject(w);
    const Colormap colormap = DefaultColormapOfScreen(XtScreenOfObject(w));
    XColor color = {.pixel = base};
    lm::XErrorTrap trap(display);
    XQueryColor(display, colormap, &color);
    if (trap.error())
        return base;
    for (unsigned short* part : {&color.red, &color.green, &color.blue})
        *part = static_cast<unsigned short>(*part * 0.99);
    return XAllocColor(display, colormap, &color) ? color.pixel : base;
}

void LmInstallIcon(Widget w, const char** xpm) { LmInstallIcon(w, xpm, nullptr, nullptr); }

void LmInstallIcon(Widget w, const char** xpm, Pixmap* normal, Pixmap* armed)
{
    if (!w)
        return;
    Pixel armColor = ownShadows(w).background;   // a label has none
    XtVaGetValues(w, XmNarmColor, &armColor, nullptr);
    const Shadows pressed = derivedShadows(w, armColor);
    const Pixmap icon = LmCreate3ColorIcon(w, xpm);
    const Pixmap armedIcon = LmCreate3ColorIcon(w, xpm, armColor, pressed.top, pressed.bottom);
    XtVaSetValues(w, XmNlabelPixmap, shown(icon), XmNarmPixmap, shown(armedIcon), XmNlabelType, XmPIXMAP, nullptr);
    if (normal)
        *normal = icon;
    if (armed)
        *armed = armedIcon;
}
