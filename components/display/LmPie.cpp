#include "LmPie.h"

#include "geometry/PieSlices.h"
#include "support/xmtext.h"

#include <algorithm>
#include <array>

static constexpr int lineGap = 5;        // pixels below each line of text
static constexpr int labelIndent = 10;   // of the labels below a title
static constexpr int pieGap = 20;        // between the labels and the highest slice

LmPie::LmPie(const char* name, Widget parent) : LmMeter(name, parent) { _scaleMax = 360; }

// --- the layout --------------------------------------------------------------------------------------------------------

int LmPie::radius()
{
    if (_radius == 0)
        _radius = graphWidth() / 2;
    return std::clamp(_radius, 0, 16000);
}

int LmPie::labelColumn(int radius) const { return radius * _labelPercent * 2 / 100; }

int LmPie::highestLevel() const
{
    int highest = 0;
    for (const LmMeterItem& item : _items)
        highest = item.top != 0 ? std::max(highest, item.bottom + item.top) : highest;
    return highest;
}

/// The size of title and labels, and with it what the pie needs.
void LmPie::measureLabels(int column)
{
    _labelsWidth = 0;
    _labelsHeight = 0;
    int x = column;
    const auto measure = [&](const char* line) {
        const lm::XmText text = lm::compound(line);
        _labelsWidth = std::max(_labelsWidth, XmStringWidth(_fontList, text.get()) + x);
        _labelsHeight += XmStringHeight(_fontList, text.get()) + lineGap;
    };
    if (_title) {
        measure(_title.get());
        x += labelIndent;
    }
    for (const LmMeterItem& item : _items) {
        if (item.label)
            measure(item.label.get());
    }
}

void LmPie::computeBounds()
{
    const int r = radius();
    measureLabels(labelColumn(r));
    _neededWidth = static_cast<Dimension>(std::clamp(std::max(2 * r, _labelsWidth), 0, 32767));
    _neededHeight = static_cast<Dimension>(std::clamp(r + _labelsHeight + pieGap + highestLevel(), 0, 32767));
}

int LmPie::neededWidth()
{
    computeBounds();
    return _neededWidth;
}

int LmPie::neededHeight()
{
    computeBounds();
    return _neededHeight;
}

// --- the picture -------------------------------------------------------------------------------------------------------

void LmPie::draw()
{
    if (_items.empty() || !_drawable || !_baseWidget)
        return;
    computeBounds();
    const int r = radius();
    const int pieTop = drawLabels(labelColumn(r)) + pieGap;
    const int y = std::max(pieTop + highestLevel(), graphHeight() - r);
    drawPieCrust(0, y, 2 * r, r);
    drawPieSlices(0, y, 2 * r, r, _items.data(), static_cast<int>(_items.size()));
}

/// Draws title and labels; where the next line would be.
int LmPie::drawLabels(int column)
{
    Display* display = XtDisplay(_baseWidget);
    int x = column, y = 0;
    const auto drawLine = [&](const char* line, bool underlined) {
        const lm::XmText text = lm::compound(line);
        const auto left = static_cast<Position>(x), top = static_cast<Position>(y);
        const Dimension width = XmStringWidth(_fontList, text.get());
        const auto side = static_cast<unsigned char>(XmALIGNMENT_BEGINNING);
        const auto direction = static_cast<unsigned char>(XmSTRING_DIRECTION_L_TO_R);
        if (underlined)
            XmStringDrawUnderline(display, _drawable, _fontList, text.get(), _sharedGC.get(), left, top, width, side, direction,
                                  nullptr, text.get());
        else
            XmStringDraw(display, _drawable, _fontList, text.get(), _sharedGC.get(), left, top, width, side, direction, nullptr);
        y += XmStringHeight(_fontList, text.get()) + lineGap;
    };
    if (_title) {
        drawLine(_title.get(), true);
        x += labelIndent;
    }
    for (const LmMeterItem& item : _items) {
        if (item.label)
            drawLine(item.label.get(), false);
    }
    return y;
}

static constexpr int whole = 360 * 64;   // X counts angles in sixty-fourths of a degree

void LmPie::drawPieCrust(int x, int y, int w, int h)
{
    if (_baseWidget && _drawable)
        XFillArc(XtDisplay(_baseWidget), _drawable, _sharedGC.get(), x, y, static_cast<unsigned>(w), static_cast<unsigned>(h), 0,
                 whole);
}

void LmPie::drawPieSlices(int x, int y, int w, int h, LmMeterItem* items, int n)
{
    std::vector<lm::PiePiece> slices;
    for (int i = 0; i < n; ++i)
        slices.push_back(
            {.start = items[i].start, .size = items[i].size, .elevation = items[i].bottom, .height = items[i].top, .slice = i});
    for (const lm::PiePiece& piece : lm::piePaintingOrder(lm::pieQuadrants(slices)))
        drawPieQuadrantSlice(x, y, w, h, items[piece.slice].pixel, piece.start, piece.size, piece.elevation, piece.height,
                             piece.flags);
}

/// One side of a piece, from the centre outwards: centre top, outer top, outer bottom, centre bottom, and back.
struct LmPie::Side {
    std::array<XPoint, 5> points;
    Side(XPoint centreTop, XPoint outerTop, int height)
    {
        const auto below = [height](XPoint p) { return XPoint{p.x, static_cast<short>(p.y + height)}; };
        points = {centreTop, outerTop, below(outerTop), below(centreTop), centreTop};
    }
};

void LmPie::fillSide(const Side& side)
{
    Display* display = XtDisplay(_baseWidget);
    auto points = side.points;
    XFillPolygon(display, _drawable, _drawGC, points.data(), 5, Convex, CoordModeOrigin);
    XDrawLines(display, _drawable, _drawGC, points.data(), 5, CoordModeOrigin);
}

void LmPie::drawPieQuadrantSlice(int x, int y, int w, int h, Pixel pixel, int start, int extent, int elevation, int height,
                                 int flags)
{
    if (!_baseWidget || !_drawable)
        return;
    Display* display = XtDisplay(_baseWidget);
    const int a = start % 360, sweep = std::min(extent, 360), e = (a + sweep) % 360;
    const int bottom = y - elevation, top = bottom - height;
    const auto width = static_cast<unsigned>(w), depth = static_cast<unsigned>(h);
    const XPoint centre = {static_cast<short>(x + w / 2), static_cast<short>(top + h / 2)};
    const Side startSide(centre, lm::ellipsePoint(x, top, w, h, a), height),
        endSide(centre, lm::ellipsePoint(x, top, w, h, e), height);
    GC outline = _sharedGC.get();

    setForeground(pixel);
    XFillArc(display, _drawable, _drawGC, x, bottom, width, depth, a * 64, sweep * 64);
    XDrawArc(display, _drawable, _drawGC, x, bottom, width, depth, a * 64, sweep * 64);
    fillSide(startSide);
    fillSide(endSide);
    XDrawLine(display, _drawable, outline, centre.x, centre.y + height, centre.x, centre.y);
    XFillArc(display, _drawable, _drawGC, x, top, width, depth, a * 64, sweep * 64);
    XDrawArc(display, _drawable, _drawGC, x, top, width, depth, a * 64, sweep * 64);
    const lm::PieArc rim = lm::pieFrontRim(a, sweep);
    if (rim.extent > 0 && !(flags & lm::PieContinuesDown))
        XDrawArc(display, _drawable, outline, x, bottom, width, depth, rim.start * 64, rim.extent * 64);

    auto edges = startSide.points;
    if (!(flags & lm::PieStartInside))
        drawPieEdges(edges.data(), outline, lm::pieStartEdgeFlags(a, flags));
    edges = endSide.points;
    if (!(flags & lm::PieEndInside))
        drawPieEdges(edges.data(), outline, lm::pieEndEdgeFlags(e, flags));
    XDrawArc(display, _drawable, outline, x, top, width, depth, a * 64, sweep * 64);
    const int ground = y + h / 2;
    if (lm::pieShowsRight(a, sweep))
        XDrawLine(display, _drawable, outline, x + w, ground, x + w, centre.y);
    if (lm::pieShowsLeft(a, sweep))
        XDrawLine(display, _drawable, outline, x, ground, x, centre.y);
}

void LmPie::drawPieEdges(XPoint* side, GC gc, int flags)
{
    constexpr int omits[] = {lm::PieContinuesUp, lm::PieNoOuterEdge, lm::PieContinuesDown};   // edge by edge
    if (!_baseWidget || !_drawable)
        return;
    for (int edge = 0; edge < 3; ++edge) {
        if (!(flags & omits[edge]))
            XDrawLine(XtDisplay(_baseWidget), _drawable, gc, side[edge].x, side[edge].y, side[edge + 1].x, side[edge + 1].y);
    }
}

void LmPie::computePixelPosition(int x, int y, int w, int h, int degrees, int* px, int* py)
{
    const XPoint point = lm::ellipsePoint(x, y, w, h, degrees);
    *px = point.x;
    *py = point.y;
}

double LmPie::degreesToRadians(int degrees) { return degrees * 3.1415926 / 180; }
