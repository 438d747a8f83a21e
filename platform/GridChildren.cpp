#include "platform/GridRecords.h"
#include "platform/XmGrid.h"

#include <iterator>

namespace lm::grid {

std::vector<Widget> managedChildren(Widget grid)
{
    const CompositePart& composite = reinterpret_cast<GridRec*>(grid)->composite;
    std::vector<Widget> children;
    std::copy_if(composite.children, composite.children + composite.num_children, std::back_inserter(children),
                 [](Widget child) { return XtIsManaged(child); });
    return children;
}

Size wantedSize(Widget child)
{
    GridConstraintPart& own = constraintOf(child);
    if (own.wantedWidth == 0 || child->core.width != own.givenWidth)
        own.wantedWidth = child->core.width;
    if (own.wantedHeight == 0 || child->core.height != own.givenHeight)
        own.wantedHeight = child->core.height;
    if (own.wantedWidth == 0 || own.wantedHeight == 0) {
        XtWidgetGeometry preferred;
        XtQueryGeometry(child, nullptr, &preferred);
        own.wantedWidth = own.wantedWidth ? own.wantedWidth : preferred.width;
        own.wantedHeight = own.wantedHeight ? own.wantedHeight : preferred.height;
    }
    own.givenWidth = child->core.width;
    own.givenHeight = child->core.height;
    return {own.wantedWidth + 2 * child->core.border_width, own.wantedHeight + 2 * child->core.border_width};
}

static GridLayout gridLayout(const GridPart& grid, const std::vector<Widget>& children)
{
    std::vector<GridItem> items;
    for (Widget child : children) {
        const GridConstraintPart& own = constraintOf(child);
        const Size size = wantedSize(child);
        items.push_back({own.row, own.column, size.width, size.height, own.fillsWidth != 0, own.fillsHeight != 0, own.gravity});
    }
    return {{grid.numRows, grid.numColumns, grid.orientation == XmHORIZONTAL, grid.spacing, grid.marginWidth, grid.marginHeight,
             *grid.rows, *grid.columns},
            std::move(items)};
}

static SpringLayout springLayout(const GridPart& box, const std::vector<Widget>& children)
{
    std::vector<SpringItem> items;
    for (Widget child : children) {
        const GridConstraintPart& own = constraintOf(child);
        const Size size = wantedSize(child);
        items.push_back({size.width, size.height, own.left, own.right, own.top, own.bottom, own.horizontal, own.vertical});
    }
    return {box.orientation == XmHORIZONTAL, box.spacing, box.marginWidth, box.marginHeight, std::move(items)};
}

/// The children with their layout, of whichever kind.
template <class Action> static auto withLayout(Widget grid, const std::vector<Widget>& children, Action action)
{
    if (XtIsSubclass(grid, xmSpringBoxWidgetClass))
        return action(springLayout(partOf(grid), children));
    return action(gridLayout(partOf(grid), children));
}

Size naturalSize(Widget grid)
{
    return withLayout(grid, managedChildren(grid), [](const auto& layout) {
        return Size{asDimension(layout.naturalWidth()), asDimension(layout.naturalHeight())};
    });
}

Size likedSize(Widget grid)
{
    Size size = naturalSize(grid);
    if (partOf(grid).fixedWidth)
        size.width = grid->core.width;
    if (partOf(grid).fixedHeight)
        size.height = grid->core.height;
    return size;
}

static int roomToAsk(int now, int before, int natural)
{
    if (now == 0 || (natural != before && (now == before || natural > now)))
        return natural;
    return now;
}

Size roomToAsk(Widget grid)
{
    const GridPart& part = partOf(grid);
    const Size natural = likedSize(grid);
    if (!XtIsRealized(grid))
        return natural;
    return {roomToAsk(grid->core.width, part.naturalWidth, natural.width),
            roomToAsk(grid->core.height, part.naturalHeight, natural.height)};
}

void noteNatural(Widget grid)
{
    const Size natural = naturalSize(grid);
    partOf(grid).naturalWidth = asDimension(natural.width);
    partOf(grid).naturalHeight = asDimension(natural.height);
}

static void place(Widget child, const Rect& place, bool asking)
{
    const int border = 2 * child->core.border_width;
    GridConstraintPart& own = constraintOf(child);
    own.givenWidth = asDimension(place.width - border);
    own.givenHeight = asDimension(place.height - border);
    const auto x = static_cast<Position>(std::min(place.x, 32767)), y = static_cast<Position>(std::min(place.y, 32767));
    if (!asking)
        return XmeConfigureObject(child, x, y, own.givenWidth, own.givenHeight, child->core.border_width);
    child->core.x = x;   // Xt moves the window of a child whose request is granted
    child->core.y = y;
    child->core.width = own.givenWidth;
    child->core.height = own.givenHeight;
}

std::vector<Rect> placesIn(Widget grid, const std::vector<Widget>& children, Size size)
{
    return withLayout(grid, children, [size](const auto& layout) { return layout.places(size.width, size.height); });
}

void layOut(Widget grid, Widget asking)
{
    if (partOf(grid).layingOut || !XtIsRealized(grid))
        return;
    partOf(grid).layingOut = True;
    const std::vector<Widget> children = managedChildren(grid);
    const std::vector<Rect> places = placesIn(grid, children, sizeOf(grid));
    for (std::size_t i = 0; i < children.size(); ++i)
        place(children[i], places[i], children[i] == asking);
    partOf(grid).layingOut = False;
}

void askForRoom(Widget grid)
{
    const Size room = roomToAsk(grid);
    noteNatural(grid);
    if (room == sizeOf(grid))
        return;
    partOf(grid).layingOut = True;   // whoever asked lays out, with what was granted
    Dimension width = 0, height = 0;
    if (XtMakeResizeRequest(grid, asDimension(room.width), asDimension(room.height), &width, &height) == XtGeometryAlmost)
        XtMakeResizeRequest(grid, width, height, nullptr, nullptr);
    partOf(grid).layingOut = False;
}

void layOutAnew(Widget grid)
{
    if (!partOf(grid).autoLayout && XtIsRealized(grid))
        return;
    askForRoom(grid);
    layOut(grid);
}

}   // namespace lm::grid
