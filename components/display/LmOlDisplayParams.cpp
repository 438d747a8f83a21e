#include "LmOlDisplayParams.h"

#include "LmIcon.h"
#include "OutlineIcons.h"
#include "platform/RowLooks.h"

#include <X11/xpm.h>

struct LmOlDisplayParams::Set {
    lm::RowStyle style;
    lm::PixmapHandle closedPixmap;
    GC gc = nullptr;
};

namespace {

/// The arrow of a closed node with its inside in a set's colour.
Pixmap lightedIcon(Widget list, Pixel highlight)
{
    Pixel background = 0, topShadow = 0, bottomShadow = 0;
    XtVaGetValues(list, XmNbackground, &background, XmNtopShadowColor, &topShadow, XmNbottomShadowColor, &bottomShadow, nullptr);
    XpmColorSymbol symbols[] = {{const_cast<char*>("topShadowColor"), nullptr, topShadow},
                                {const_cast<char*>("bottomShadowColor"), nullptr, bottomShadow},
                                {const_cast<char*>("highlightColor"), nullptr, highlight},
                                {const_cast<char*>("background"), nullptr, background}};
    XpmAttributes attributes{};
    attributes.valuemask = XpmColorSymbols;
    attributes.colorsymbols = symbols;
    attributes.numsymbols = XtNumber(symbols);
    Pixmap icon = None;
    const int status = XpmCreatePixmapFromData(XtDisplay(list), RootWindowOfScreen(XtScreen(list)),
                                               const_cast<char**>(lm::lightedClosedIcon), &icon, nullptr, &attributes);
    XpmFreeAttributes(&attributes);
    return status >= XpmSuccess ? icon : None;
}

}   // namespace

LmOlDisplayParams::LmOlDisplayParams(Widget list)
    : _widget(list),
      _display(XtDisplay(list)),
      _sets(std::make_unique<Set[]>(MaxSets)),
      _openPixmap(_display, LmCreateXPMPixmap(list, lm::openIcon, nullptr))
{
    Set& plain = _sets[0];
    plain.closedPixmap = lm::PixmapHandle(_display, LmCreateXPMPixmap(list, lm::closedIcon, nullptr));
    XtVaGetValues(list, XmNforeground, &plain.style.foreground, XmNbackground, &plain.style.background, XmNfontList,
                  &plain.style.font, nullptr);
}

LmOlDisplayParams::~LmOlDisplayParams()
{
    for (int i = 0; i < _nSets; ++i)
        if (_sets[static_cast<std::size_t>(i)].gc)
            XFreeGC(_display, _sets[static_cast<std::size_t>(i)].gc);
}

int LmOlDisplayParams::setAttributeSet(Pixel foreground, Pixel background, Pixel markColor, XmFontList font)
{
    if (_nSets == MaxSets || !_widget)
        return 0;
    Set& set = _sets[static_cast<std::size_t>(_nSets)];
    set.style = {font, foreground, background};
    set.closedPixmap = lm::PixmapHandle(_display, lightedIcon(_widget, background));
    XGCValues values{.foreground = markColor, .background = markColor, .graphics_exposures = False};
    const Drawable drawable = _openPixmap ? _openPixmap.get() : RootWindowOfScreen(XtScreen(_widget));
    set.gc = XCreateGC(_display, drawable, GCForeground | GCBackground | GCGraphicsExposures, &values);
    return _nSets++;
}

Pixel LmOlDisplayParams::foreground(int i) const { return _sets[place(i)].style.foreground; }

Pixel LmOlDisplayParams::background(int i) const { return _sets[place(i)].style.background; }

XmFontList LmOlDisplayParams::font(int i) const { return _sets[place(i)].style.font; }

Pixmap LmOlDisplayParams::closedPixmap(int i) const { return _sets[place(i)].closedPixmap.get(); }

GC LmOlDisplayParams::gc(int i) const { return _sets[place(i)].gc; }

const lm::RowStyle& LmOlDisplayParams::style(int i) const { return _sets[place(i)].style; }
