#include "LmIconButton.h"

#include "LmIcon.h"
#include "LmResource.h"
#include "platform/MotifFont.h"
#include "support/xt.h"

#include <X11/IntrinsicP.h>
#include <Xm/PushB.h>

#include <algorithm>
#include <cstdio>

static constexpr int labelGap = 10;   // between icon and label, pixels

/// What all pictures of a button have in common.
struct LmIconButton::Look {
    Pixel foreground = 0, topShadow = 0, bottomShadow = 0, armColor = 0;
    XmFontList fonts = nullptr;   // the widget's
    lm::XmText label;             // empty when it is not shown
    int iconWidth = 0, iconHeight = 0;
    Dimension labelWidth = 0, labelHeight = 0;

    unsigned width() const { return static_cast<unsigned>(std::max<int>({labelWidth, iconWidth, 1})); }
    unsigned height() const { return static_cast<unsigned>(labelHeight + iconHeight + labelGap); }
};

/// A drawing context of our own; Motif changes the font of the one it draws a string with.
class OwnGC {
public:
    OwnGC(Display* display, Drawable drawable, XFontStruct* font) : _display(display)
    {
        XGCValues values = {};
        values.graphics_exposures = False;
        values.font = font ? font->fid : None;
        _gc = XCreateGC(display, drawable, GCGraphicsExposures | (font ? GCFont : 0), &values);
    }
    OwnGC(const OwnGC&) = delete;
    OwnGC& operator=(const OwnGC&) = delete;
    ~OwnGC() { XFreeGC(_display, _gc); }
    GC get() const { return _gc; }

private:
    Display* _display;
    GC _gc;
};

static void iconSize(const char** xpm, int& width, int& height)
{
    if (!xpm || !xpm[0] || std::sscanf(xpm[0], "%d %d", &width, &height) != 2 || width < 0 || height < 0 || width > 32767 ||
        height > 32767)
        width = height = 0;
}

LmIconButton::LmIconButton(const char* name, Widget parent, const char** normalXpm, const char** insensitiveXpm, char showLabel)
    : LmComponent(name)
{
    _w = XtVaCreateWidget(LmComponent::name(), xmPushButtonWidgetClass, parent, nullptr);
    installDestroyHandler();
    Boolean highlighting = False;
    LmGetResource(parent, "tevMode", "tevMode", XtRBoolean, "False", &highlighting, sizeof highlighting);

    Look look;
    XmString label = nullptr;
    XtVaGetValues(_w, XmNlabelString, &label, XmNfontList, &look.fonts, XmNforeground, &look.foreground, XmNbackground,
                  &_background, XmNtopShadowColor, &look.topShadow, XmNbottomShadowColor, &look.bottomShadow, XmNarmColor,
                  &look.armColor, nullptr);
    lm::XmText owner(label);
    iconSize(normalXpm, look.iconWidth, look.iconHeight);
    if (showLabel) {
        look.label = std::move(owner);
        XmStringExtent(look.fonts, look.label.get(), &look.labelWidth, &look.labelHeight);
    }

    _normalPixmap = compose(look, normalXpm, _background, look.foreground);
    _insensitivePixmap = compose(look, insensitiveXpm, _background, look.bottomShadow);
    _highlightColor = highlighting ? getHilight(_w, 0, look.topShadow) : look.armColor;
    _armedPixmap = compose(look, normalXpm, _highlightColor, look.foreground);
    if (highlighting) {
        _highlightPixmap = compose(look, normalXpm, _highlightColor, look.foreground);
        lm::onEvent<&LmIconButton::crossed>(_w, EnterWindowMask | LeaveWindowMask, this);
    }
    install();
}

/// One picture: the icon in the middle of the top, the label in the middle of the bottom.
lm::PixmapHandle LmIconButton::compose(const Look& look, const char** xpm, Pixel background, Pixel labelColor)
{
    Display* display = XtDisplay(_w);
    const int depth = static_cast<int>(_w->core.depth), width = static_cast<int>(look.width());
    lm::PixmapHandle picture(display, XCreatePixmap(display, RootWindowOfScreen(XtScreen(_w)), look.width(), look.height(),
                                                    static_cast<unsigned>(depth)));
    const OwnGC gc(display, picture.get(), lm::coreFontOf(display, look.fonts));
    XSetForeground(display, gc.get(), background);
    XFillRectangle(display, picture.get(), gc.get(), 0, 0, look.width(), look.height());

    const lm::PixmapHandle icon(display,
                                CreateXPMPixmap(_w, xpm, look.foreground, background, look.bottomShadow, look.topShadow));
    int iconWidth = 0, iconHeight = 0;
    iconSize(xpm, iconWidth, iconHeight);
    if (icon && depth == DefaultDepthOfScreen(XtScreen(_w)))   // icons have that depth, and a copy needs the same
        XCopyArea(display, icon.get(), picture.get(), gc.get(), 0, 0, static_cast<unsigned>(iconWidth),
                  static_cast<unsigned>(iconHeight), (width - iconWidth) / 2, 0);
    XSetForeground(display, gc.get(), labelColor);
    if (look.label)
        XmStringDraw(display, picture.get(), look.fonts, look.label.get(), gc.get(),
                     static_cast<Position>((width - look.labelWidth) / 2), static_cast<Position>(look.iconHeight + labelGap),
                     look.labelWidth, XmALIGNMENT_END, XmSTRING_DIRECTION_L_TO_R, nullptr);
    return picture;
}

void LmIconButton::install()
{
    XtVaSetValues(_w, XmNlabelPixmap, _normalPixmap.get(), XmNlabelInsensitivePixmap, _insensitivePixmap.get(), XmNarmPixmap,
                  _armedPixmap.get(), XmNlabelType, XmPIXMAP, nullptr);
}

/// The button may be drawn once more before it goes, and our pictures go now.
LmIconButton::~LmIconButton()
{
    if (!_w)
        return;
    lm::offEvent<&LmIconButton::crossed>(_w, EnterWindowMask | LeaveWindowMask, this);
    XtVaSetValues(_w, XmNlabelType, XmSTRING, XmNlabelPixmap, XmUNSPECIFIED_PIXMAP, XmNlabelInsensitivePixmap,
                  XmUNSPECIFIED_PIXMAP, XmNarmPixmap, XmUNSPECIFIED_PIXMAP, nullptr);
}

void LmIconButton::crossed(XEvent* event)
{
    if (event->type == EnterNotify)
        enter();
    else
        leave();
}

void LmIconButton::showPixmap(const lm::PixmapHandle& pixmap)
{
    if (_w && pixmap)
        XtVaSetValues(_w, XmNlabelPixmap, pixmap.get(), nullptr);
}

void LmIconButton::enter() { showPixmap(_highlightPixmap); }

void LmIconButton::leave() { showPixmap(_normalPixmap); }
