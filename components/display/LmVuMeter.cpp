#include "LmVuMeter.h"

#include "LmApp.h"
#include "LmResource.h"
#include "geometry/VuBlocks.h"
#include "support/xt.h"

#include <Xm/DrawingA.h>

#include <algorithm>
#include <iterator>

LmVuMeter::LmVuMeter(const char* name, Widget parent) : LmComponent(name), _blocks(std::make_unique<lm::VuBlocks>())
{
    _baseWidget = XtCreateWidget(LmComponent::name(), xmDrawingAreaWidgetClass, parent, nullptr, 0);
    lm::on<&LmVuMeter::expose>(_baseWidget, XmNexposeCallback, this);
    lm::on<&LmVuMeter::resize>(_baseWidget, XmNresizeCallback, this);
    loadResources();
    installDestroyHandler();
}

LmVuMeter::~LmVuMeter() = default;

void LmVuMeter::loadResources()
{
    const auto pen = [this](const char* name, const char* fallback) {
        Pixel colour = 0;
        LmGetResource(_baseWidget, name, name, XtRPixel, fallback, &colour, sizeof colour);
        return lm::SharedGC(_baseWidget, GCForeground | GCBackground, {.foreground = colour, .background = colour});
    };
    _redGC = pen("red", "red");
    _greenGC = pen("green", "forestgreen");
    _yellowGC = pen("yellow", "yellow");

    const auto number = [this](int& field, const char* name, const char* cls, const char* fallback) {
        LmGetResource(_baseWidget, name, cls, XtRInt, fallback, &field, sizeof field);
    };
    number(_blocks->granularity, "granularity", "Granularity", "11");
    number(_spacing, "spacing", "Spacing", "1");
    number(_blocks->size, "size", "Size", "9");
    number(_numReds, "numReds", "NumReds", "1");
    number(_numYellows, "numYellows", "NumYellows", "3");
    number(_numGreens, "numGreens", "NumGreens", "7");
    number(_sideThickness, "sideThickness", "SideThickness", "1");
    number(_sideSpacing, "sideSpacing", "SideSpacing", "0");
    number(_blocks->peakHeight, "peakHeight", "PeakHeight", "1");
    Boolean peakBlock = False;
    LmGetResource(_baseWidget, "peakBlock", "PeakBlock", XtRBoolean, "false", &peakBlock, sizeof peakBlock);
    LmGetResource(_baseWidget, "drawSides", "DrawSides", XtRBoolean, "true", &_drawSides, sizeof _drawSides);
    _blocks->peakBlock = peakBlock;
    _blocks->unitsPerBlock = _blocks->granularity > 0 ? _maxValue / _blocks->granularity : 0;
    if (!_drawSides)
        _sideThickness = _sideSpacing = 0;
}

void LmVuMeter::widgetDestroyed()
{
    _redGC = {};   // XtReleaseGC still needs the widget
    _greenGC = {};
    _yellowGC = {};
    LmComponent::widgetDestroyed();
}

GC LmVuMeter::colourOf(int block) const
{
    if (block < _numReds)
        return _redGC.get();
    return block < _numReds + _numYellows ? _yellowGC.get() : _greenGC.get();
}

void LmVuMeter::setValue(int value, int peak)
{
    const lm::VuLevel before = {_value, _peak}, after = {value, peak};
    _value = value;
    _peak = peak;
    if (hasWindow() && after != before)
        paint(before, after);
}

/// Fills and clears what differs between two levels.
void LmVuMeter::paint(const lm::VuLevel& before, const lm::VuLevel& after)
{
    Display* display = XtDisplay(_baseWidget);
    const Window window = XtWindow(_baseWidget);
    const int left = _sideThickness + _sideSpacing;
    const auto width = static_cast<unsigned>(std::max(0, _width - 2 * left));
    if (_blocks->litHeight() == 0 || width == 0)
        return;
    for (int block = 0; block < _blocks->granularity; ++block) {
        const lm::VuChange change = lm::vuChange(*_blocks, block, before, after);
        for (const lm::Run& run : change.fill)
            XFillRectangle(display, window, colourOf(block), left, _blocks->top(block) + run.from, width,
                           static_cast<unsigned>(run.to - run.from));
        for (const lm::Run& run : change.clear)
            XClearArea(display, window, left, _blocks->top(block) + run.from, width, static_cast<unsigned>(run.to - run.from),
                       False);
    }
}

void LmVuMeter::resize()
{
    if (!_baseWidget)
        return;
    XtVaGetValues(_baseWidget, XmNwidth, &_width, XmNheight, &_height, nullptr);
    _blocks->layOut(_height, _spacing);
    expose();
}

void LmVuMeter::expose()
{
    if (_baseWidget && _height == 0)   // no resize came before the first expose
        resize();
    if (!hasWindow())
        return;
    XClearWindow(XtDisplay(_baseWidget), XtWindow(_baseWidget));
    if (_drawSides)
        drawSides();
    paint({_maxValue + 1, _maxValue + 1}, {_value, _peak});
}

void LmVuMeter::drawSides()
{
    const auto thickness = static_cast<unsigned short>(std::clamp<int>(_sideThickness, 0, _width));
    const auto height = static_cast<unsigned short>(_blocks->litHeight());
    if (thickness == 0 || height == 0)
        return;
    for (int block = 0; block < _blocks->granularity; ++block) {
        const auto top = static_cast<short>(_blocks->top(block));
        XRectangle sides[] = {{0, top, thickness, height}, {static_cast<short>(_width - thickness), top, thickness, height}};
        XFillRectangles(XtDisplay(_baseWidget), XtWindow(_baseWidget), colourOf(block), sides, std::ssize(sides));
    }
}

LmVuMeter* LmCreateVuMeter(const char* name, Widget parent)
{
    Widget shell = parent;
    while (!XtIsShell(shell) && XtParent(shell))
        shell = XtParent(shell);
    LmCreateAppStub(shell);
    auto* meter = new LmVuMeter(name, parent);
    meter->show();
    return meter;
}
