#include "RowPainter.h"

#include "RowList.h"

#include <Xm/DrawP.h>
#include <Xm/XmP.h>

#include <algorithm>

namespace lm {

namespace {

constexpr Boolean Painted = 2;   // in LastTimeDrawn; XmList itself stores True and False
constexpr int IconGap = 4;       // between the icons' column and the labels

}   // namespace

void RowPainter::makeWindow()
{
    Display* const server = display();
    XSetWindowAttributes wanted{.background_pixel = _widget->core.background_pixel, .event_mask = ExposureMask};
    _window = XCreateWindow(server, XtWindowOfObject(reinterpret_cast<Widget>(_widget)), 0, 0, 1, 1, 0, CopyFromParent,
                            InputOutput, CopyFromParent, CWBackPixel | CWEventMask, &wanted);
    XGCValues values{.graphics_exposures = False};
    _gc = XCreateGC(server, _window, GCGraphicsExposures, &values);
    resize();
    XtRegisterDrawable(server, _window, reinterpret_cast<Widget>(_widget));
    XMapWindow(server, _window);
}

void RowPainter::forgetWindow()
{
    if (_window == None)
        return;
    Display* const server = display();
    XtUnregisterDrawable(server, _window);
    XFreeGC(server, _gc);
    _window = None;   // the server destroys it with the list's
}

int RowPainter::innerWidth() const { return std::max(1, _widget->core.width - 2 * _widget->primitive.shadow_thickness); }

int RowPainter::innerHeight() const { return std::max(1, _widget->core.height - 2 * _widget->primitive.shadow_thickness); }

void RowPainter::resize()
{
    if (_window == None)
        return;
    const int shadow = _widget->primitive.shadow_thickness;
    XMoveResizeWindow(display(), _window, shadow, shadow, static_cast<unsigned>(innerWidth()),
                      static_cast<unsigned>(innerHeight()));
    spoil();
}

void RowPainter::recolour()
{
    if (_window != None)
        XSetWindowBackground(display(), _window, _widget->core.background_pixel);
    spoil();
}

int RowPainter::iconColumn() const
{
    return _widget->scrolledList.showIcons && _looks.widestIcon() > 0 ? _looks.widestIcon() + IconGap : 0;
}

int RowPainter::visibleRows() const
{
    return std::clamp(_widget->list.itemCount - _widget->list.top_position, 0, _widget->list.visibleItemCount);
}

RowPainter::Area RowPainter::band(int row) const
{
    const XmListPart& list = _widget->list;
    const int shadow = _widget->primitive.shadow_thickness;
    const int textTop = list.BaseY + (row - list.top_position) * pitch() - shadow;
    return {list.margin_width, textTop - list.spacing / 2, std::max(1, innerWidth() - 2 * list.margin_width), pitch()};
}

void RowPainter::paint()
{
    if (_window == None || !_widget->scrolledList.update)
        return;
    XmListPart& list = _widget->list;
    const int rows = visibleRows();
    if (_allSpoilt)
        XClearWindow(display(), _window);
    else if (!(cursorArea() == _cursor))
        spoilCursor();

    for (int row = list.top_position; row < list.top_position + rows; ++row) {
        Element& element = *list.InternalList[row];
        if (!_allSpoilt && element.LastTimeDrawn == Painted)
            continue;
        paintRow(row);
        element.LastTimeDrawn = Painted;
    }
    if (!_allSpoilt && rows < _paintedRows)
        clearBelow(rows);
    _paintedRows = rows;
    _allSpoilt = false;
    paintCursor();
}

void RowPainter::clearBelow(int rows)
{
    const Area first = band(_widget->list.top_position + rows);
    if (first.y < innerHeight())
        XClearArea(display(), _window, 0, first.y, 0, 0, False);
}

void RowPainter::paintRow(int row)
{
    const Element& element = *_widget->list.InternalList[row];
    const RowLook& look = _looks.look(RowList::lookNumber(element));
    const RowStyle& style = _looks.style(look.style);
    Pixel foreground = look.style ? style.foreground : _widget->primitive.foreground;
    Pixel background = look.style ? style.background : _widget->core.background_pixel;
    if (element.selected && _widget->list.selectColor == XmREVERSED_GROUND_COLORS)
        std::swap(foreground, background);
    else if (element.selected)
        background = _widget->list.selectColor;
    if (!XtIsSensitive(reinterpret_cast<Widget>(_widget)))
        foreground = element.selected ? _widget->core.background_pixel : _widget->primitive.bottom_shadow_color;

    Display* const server = display();
    const Area area = band(row);
    XSetForeground(server, _gc, background);
    XFillRectangle(server, _window, _gc, area.x, area.y, static_cast<unsigned>(area.width), static_cast<unsigned>(area.height));
    XSetForeground(server, _gc, foreground);
    XSetBackground(server, _gc, background);

    const int shadow = _widget->primitive.shadow_thickness;
    const int left = _widget->list.BaseX - shadow - _widget->list.XOrigin + look.indent;
    if (_widget->scrolledList.showIcons && look.icon != None)
        paintIcon(look.icon, area, left);
    paintLabel(row, look, area, left + iconColumn());
}

void RowPainter::paintIcon(Pixmap icon, const Area& area, int x)
{
    const IconSize& size = _looks.size(icon);
    const int y = area.y + (area.height - size.height) / 2;
    const auto width = static_cast<unsigned>(size.width), height = static_cast<unsigned>(size.height);
    if (size.depth == _widget->core.depth)
        XCopyArea(display(), icon, _window, _gc, 0, 0, width, height, x, y);
    else if (size.depth == 1)
        XCopyPlane(display(), icon, _window, _gc, 0, 0, width, height, x, y, 1);
}

void RowPainter::paintLabel(int row, const RowLook& look, const Area& area, int x)
{
    const XmListPart& list = _widget->list;
    const RowStyle& style = _looks.style(look.style);
    const XmFontList font = style.font ? style.font : list.font;
    const XmString label = list.items[row];
    const int height = style.font ? XmStringHeight(font, label) : list.InternalList[row]->height;
    const int width = std::max(1, area.x + area.width - x);
    XmStringDraw(display(), _window, font, label, _gc, static_cast<Position>(x),
                 static_cast<Position>(area.y + (area.height - height) / 2), static_cast<Dimension>(width), XmALIGNMENT_BEGINNING,
                 list.StrDir == XmSTRING_DIRECTION_R_TO_L ? XmRIGHT_TO_LEFT : XmLEFT_TO_RIGHT, nullptr);
}

RowPainter::Area RowPainter::cursorArea() const
{
    const XmListPart& list = _widget->list;
    if (!list.Traversing || _widget->primitive.highlight_thickness == 0)
        return {};
    const int row = list.CurrentKbdItem - list.top_position;
    if (row >= 0 && row < visibleRows())
        return band(list.CurrentKbdItem);
    return {list.margin_width, list.margin_height, std::max(1, innerWidth() - 2 * list.margin_width),
            std::max(1, innerHeight() - 2 * list.margin_height)};
}

void RowPainter::spoilCursor()
{
    if (_cursor == Area{})
        return;
    const int row = _widget->list.top_position + _cursorRow;
    if (_cursorRow >= 0 && _cursorRow < visibleRows() && band(row) == _cursor)
        spoil(row);
    else {
        XClearWindow(display(), _window);
        spoil();
    }
}

void RowPainter::paintCursor()
{
    _cursor = cursorArea();
    if (_cursor == Area{})
        return;
    const XmListPart& list = _widget->list;
    const int row = list.CurrentKbdItem - list.top_position;
    _cursorRow = row >= 0 && row < visibleRows() ? row : -1;
    Display* const server = display();
    const int thickness = _widget->primitive.highlight_thickness;
    XSetForeground(server, _gc, _widget->primitive.highlight_color);
    XSetLineAttributes(server, _gc, static_cast<unsigned>(thickness),
                       list.SelectionMode == XmADD_MODE ? LineOnOffDash : LineSolid, CapButt, JoinMiter);
    XDrawRectangle(server, _window, _gc, _cursor.x + thickness / 2, _cursor.y + thickness / 2,
                   static_cast<unsigned>(std::max(1, _cursor.width - thickness)),
                   static_cast<unsigned>(std::max(1, _cursor.height - thickness)));
}

}   // namespace lm
