#include "LmMeter.h"

#include "LmResource.h"
#include "geometry/MeterBars.h"
#include "platform/MotifFont.h"
#include "support/resources.h"

#include <Xm/Xm.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

LmMeter::LmMeter(const char* name, Widget parent) : LmDoubleBuffer(name, parent)
{
    LmComponent* self = this;
    XtResource table[] = {
        lm::resource(self, _orientation, XmNorientation, XmCOrientation, XmROrientation, "VERTICAL"),
        lm::resource(self, _resizePolicy, XmNresizePolicy, XmCResizePolicy, XmRResizePolicy, "RESIZE_NONE"),
        lm::resource(self, _fontList, XmNfontList, XmCFontList, XmRFontList, "fixed"),
        lm::resource(self, _drawBorder, "drawBorder", "DrawBorder", "FALSE"),
    };
    getResources(table, std::ssize(table));
    createContexts();
}

LmMeter::~LmMeter()
{
    if (_drawGC && _baseWidget)
        XFreeGC(XtDisplay(_baseWidget), _drawGC);
}

void LmMeter::createContexts()
{
    XGCValues values = {};
    XtVaGetValues(_baseWidget, XmNforeground, &values.foreground, XmNbackground, &values.background, XmNborderColor,
                  &_borderColor, nullptr);
    XtGCMask mask = GCForeground | GCBackground;
    Display* display = XtDisplay(_baseWidget);
    if (const XFontStruct* font = lm::coreFontOf(display, _fontList)) {
        values.font = font->fid;
        mask |= GCFont;
    }
    _drawGC = XCreateGC(display, RootWindowOfScreen(XtScreen(_baseWidget)), mask, &values);
    _sharedGC = lm::SharedGC(_baseWidget, mask, values);
}

void LmMeter::widgetDestroyed()
{
    if (_drawGC)
        XFreeGC(XtDisplay(_baseWidget), std::exchange(_drawGC, nullptr));
    _sharedGC = {};
    LmDoubleBuffer::widgetDestroyed();
}

void LmMeter::afterRealizeHook() { update(); }

// --- items -------------------------------------------------------------------------------------------------------------

void LmMeter::reset(int total, int thickness)
{
    _total = total < 1 ? 100 : total;
    _thickness = thickness < 1 ? 1 : thickness;
    _nextStart = 0;
    _items.clear();
}

void LmMeter::add(int start, int size, int crossPos, int crossExtent, Pixel pixel, const char* label)
{
    _items.push_back({lm::meterUnits(start, _total, _scaleMax), lm::meterUnits(size, _total, _scaleMax),
                      (crossPos + crossExtent) * _thickness, crossPos * _thickness, lm::CString(label ? strdup(label) : nullptr),
                      pixel});
    _nextStart = start + size;
}

void LmMeter::add(int start, int size, int crossPos, int crossExtent, const char* colorName, const char* label)
{
    Pixel pixel = 0;
    if (_baseWidget && colorName)
        LmGetResource(_baseWidget, colorName, colorName, XtRPixel, colorName, &pixel, sizeof pixel);
    add(start, size, crossPos, crossExtent, pixel, label);
}

void LmMeter::add(int size, int crossExtent, Pixel pixel, const char* label)
{
    add(_nextStart, size, 0, crossExtent, pixel, label);
}

void LmMeter::add(int size, int crossExtent, const char* colorName, const char* label)
{
    add(_nextStart, size, 0, crossExtent, colorName, label);
}

void LmMeter::add(int size, Pixel pixel, const char* label) { add(_nextStart, size, 0, 1, pixel, label); }

void LmMeter::add(int size, const char* colorName, const char* label) { add(_nextStart, size, 0, 1, colorName, label); }

void LmMeter::setTitle(const char* title) { _title.reset(title ? strdup(title) : nullptr); }

// --- painting ----------------------------------------------------------------------------------------------------------

void LmMeter::update()
{
    if (!fitToNeeds())
        LmDoubleBuffer::update();
}

/// Makes the widget as large as the policy wants. True when that has painted the meter, too.
bool LmMeter::fitToNeeds()
{
    if (!_baseWidget || _resizePolicy == XmRESIZE_NONE)
        return false;
    int width = std::clamp(neededWidth(), 1, 32767), height = std::clamp(neededHeight(), 1, 32767);
    if (_resizePolicy == XmRESIZE_GROW) {
        width = std::max<int>(width, _width);
        height = std::max<int>(height, _height);
    }
    if (width == _width && height == _height)
        return false;
    XtVaSetValues(_baseWidget, XmNwidth, static_cast<Dimension>(width), XmNheight, static_cast<Dimension>(height), nullptr);
    LmDoubleBuffer::update();
    return true;
}

void LmMeter::resize() { LmDoubleBuffer::update(); }

template <class Item> static lm::MeterBar barOf(const Item& item) { return {item.start, item.size, item.top, item.bottom}; }

void LmMeter::draw()
{
    const lm::MeterArea area = {_orientation == XmVERTICAL, graphWidth(), graphHeight(), maxTop(), _scaleMax};
    for (size_t first = 0; first < _items.size();) {
        size_t end = first + 1;   // a run of one colour is painted in one request, unless outlines lie between
        while (!_drawBorder && end < _items.size() && _items[end].pixel == _items[first].pixel)
            ++end;
        drawBars(area, first, end);
        if (_drawBorder)
            drawOutline(area, _items[first]);
        first = end;
    }
}

void LmMeter::drawBars(const lm::MeterArea& area, size_t first, size_t end)
{
    std::vector<XRectangle> rectangles;
    for (size_t i = first; i < end; ++i) {
        const auto r = lm::meterRectangle(area, barOf(_items[i]));
        if (r && r->x <= _width && r->y <= _height)
            rectangles.push_back({static_cast<short>(r->x), static_cast<short>(r->y),
                                  static_cast<unsigned short>(std::min(r->width, 65535)),
                                  static_cast<unsigned short>(std::min(r->height, 65535))});
    }
    if (rectangles.empty() || !_drawGC)
        return;
    setForeground(_items[first].pixel);
    XFillRectangles(XtDisplay(_baseWidget), _drawable, _drawGC, rectangles.data(), static_cast<int>(rectangles.size()));
}

void LmMeter::drawOutline(const lm::MeterArea& area, const LmMeterItem& item)
{
    const auto r = lm::meterOutline(area, barOf(item));
    if (!r)
        return;
    XtVaGetValues(_baseWidget, XmNborderColor, &_borderColor, nullptr);
    setForeground(_borderColor);
    drawRectangle(r->x, r->y, static_cast<unsigned>(r->width), static_cast<unsigned>(r->height));
}

void LmMeter::setForeground(Pixel pixel)
{
    if (_drawGC)
        XSetForeground(XtDisplay(_baseWidget), _drawGC, pixel);
}

void LmMeter::drawRectangle(int x, int y, unsigned width, unsigned height)
{
    if (_drawGC && _drawable)
        XDrawRectangle(XtDisplay(_baseWidget), _drawable, _drawGC, x, y, width, height);
}

void LmMeter::fillRectangle(int x, int y, unsigned width, unsigned height)
{
    if (_drawGC && _drawable)
        XFillRectangle(XtDisplay(_baseWidget), _drawable, _drawGC, x, y, width, height);
}
