#include "geometry/GridLayout.h"

#include <algorithm>
#include <climits>
#include <map>
#include <numeric>
#include <set>
#include <utility>

namespace lm {

// --- lengths -----------------------------------------------------------------------------------------------------------

/// Adds `amount` to the lengths by their shares. Rounding the running sum leaves no pixel over.
static void spread(std::vector<int>& lengths, const std::vector<int>& shares, long long amount)
{
    const long long all = std::accumulate(shares.begin(), shares.end(), 0LL);
    if (all <= 0)
        return;
    long long sum = 0, given = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        sum += shares[i];
        const long long due = amount * sum / all;
        lengths[i] += static_cast<int>(due - given);
        given = due;
    }
}

/// Takes up to `missing` from the lengths that have a weight, or from the others; what is missing still.
static long long shrink(std::vector<int>& lengths, const std::vector<int>& weights, bool weighted, long long missing)
{
    std::vector<int> spare(lengths.size(), 0);
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        if ((weights[i] > 0) == weighted)
            spare[i] = std::max(0, lengths[i] - 1);
    }
    const long long taken = std::min(missing, std::accumulate(spare.begin(), spare.end(), 0LL));
    spread(lengths, spare, -taken);
    return missing - taken;
}

std::vector<int> fitLengths(std::vector<int> lengths, const std::vector<int>& weights, int total)
{
    const long long toSpare = total - std::accumulate(lengths.begin(), lengths.end(), 0LL);
    std::vector<int> shares = weights;
    for (int& share : shares)
        share = std::max(share, 0);
    if (toSpare >= 0)
        spread(lengths, shares, toSpare);
    else if (const long long missing = shrink(lengths, shares, true, -toSpare))
        shrink(lengths, shares, false, missing);
    return lengths;
}

int GridLine::naturalLength() const
{
    return std::accumulate(before.begin(), before.end(), after) + std::accumulate(natural.begin(), natural.end(), 0);
}

std::vector<GridLine::Stretch> GridLine::arrange(int total) const
{
    const int room = total - std::accumulate(before.begin(), before.end(), after);
    const std::vector<int> lengths = fitLengths(natural, weights, room);
    std::vector<Stretch> stretches;
    int at = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        at += before[i];
        stretches.push_back({at, lengths[i]});
        at += lengths[i];
    }
    return stretches;
}

// --- cells -------------------------------------------------------------------------------------------------------------

/// Gives cells to the children that name none, or only a row or a column.
class CellFinder {
public:
    explicit CellFinder(const GridShape& shape)
    {
        const bool onlyRows = shape.numRows > 0 && shape.numColumns <= 0,
                   onlyColumns = shape.numColumns > 0 && shape.numRows <= 0;
        _byRows = onlyColumns || (!onlyRows && shape.horizontal);
        const int limit = _byRows ? shape.numColumns : shape.numRows;
        _limit = limit > 0 ? limit : INT_MAX;
    }
    void take(const GridItem& item) { _taken.insert({item.row, item.column}); }
    void place(GridItem& item)
    {
        if (item.row >= 0)
            findAlong(item, item.column, _nextInRow[item.row]);
        else if (item.column >= 0)
            findAlong(item, item.row, _nextInColumn[item.column]);
        else
            findNext(item);
        take(item);
    }

private:
    bool free(const GridItem& item) const { return !_taken.contains({item.row, item.column}); }
    void findAlong(GridItem& item, int& coordinate, int& next) const
    {
        do
            coordinate = next++;
        while (!free(item));
    }
    void findNext(GridItem& item)
    {
        do {
            item.row = _byRows ? _line : _place;
            item.column = _byRows ? _place : _line;
            if (++_place >= _limit) {
                _place = 0;
                ++_line;
            }
        } while (!free(item));
    }

    bool _byRows;
    int _limit, _line = 0, _place = 0;
    std::set<std::pair<int, int>> _taken;
    std::map<int, int> _nextInRow, _nextInColumn;
};

static void findCells(const GridShape& shape, std::vector<GridItem>& items)
{
    CellFinder finder(shape);
    const auto named = [](const GridItem& item) { return item.row >= 0 && item.column >= 0; };
    std::vector<GridItem*> others;
    for (GridItem& item : items) {
        if (named(item))
            finder.take(item);
        else
            others.push_back(&item);
    }
    for (GridItem* item : others)
        finder.place(*item);
    for (GridItem& item : items) {
        item.row = std::min(item.row, GridLayout::maxTracks - 1);
        item.column = std::min(item.column, GridLayout::maxTracks - 1);
    }
}

// --- the grid ----------------------------------------------------------------------------------------------------------

/// The tracks of one direction: `track` is the child's row or column, `length` its height or width.
static GridLine lineOf(const std::vector<GridItem>& items, int GridItem::*track, int GridItem::*length,
                       const std::vector<GridTrack>& tracks, int spacing, int margin)
{
    int count = 0;
    for (const GridItem& item : items)
        count = std::max(count, item.*track + 1);
    const auto size = static_cast<std::size_t>(count);
    GridLine line{std::vector(size, 0), std::vector(size, 0), std::vector(size, 0), margin};
    for (const GridItem& item : items) {
        int& natural = line.natural[static_cast<std::size_t>(item.*track)];
        natural = std::max({natural, item.*length, 1});
    }
    int last = -1;   // the margin of the track before; none yet
    for (std::size_t i = 0; i < size; ++i) {
        if (line.natural[i] == 0)
            continue;
        const GridTrack own = i < tracks.size() ? tracks[i] : GridTrack{};
        const int gap = own.margin < 0 ? spacing : own.margin;
        line.before[i] = last < 0 ? margin + std::max(own.margin, 0) : std::max(last, gap);
        line.weights[i] = own.weight;
        line.after = margin + std::max(own.margin, 0);
        last = gap;
    }
    return line;
}

GridLayout::GridLayout(const GridShape& shape, std::vector<GridItem> items) : _items(std::move(items))
{
    findCells(shape, _items);
    const int spacing = std::max(shape.spacing, 0);
    _across = lineOf(_items, &GridItem::column, &GridItem::width, shape.columns, spacing, shape.marginWidth);
    _down = lineOf(_items, &GridItem::row, &GridItem::height, shape.rows, spacing, shape.marginHeight);
}

/// -1 at the start of a cell, 0 in its middle, 1 at its end. The nine gravities count row by row.
static int sideAcross(int gravity)
{
    return gravity < NorthWestGravity || gravity > SouthEastGravity ? 0 : (gravity - 1) % 3 - 1;
}
static int sideDown(int gravity) { return gravity < NorthWestGravity || gravity > SouthEastGravity ? 0 : (gravity - 1) / 3 - 1; }

/// A child's place in its track.
static GridLine::Stretch within(GridLine::Stretch cell, int wanted, bool fills, int side)
{
    if (fills || wanted >= cell.length)
        return cell;
    return {cell.start + (cell.length - wanted) * (side + 1) / 2, std::max(wanted, 1)};
}

std::vector<Rect> GridLayout::places(int width, int height) const
{
    const auto columns = _across.arrange(width), rows = _down.arrange(height);
    std::vector<Rect> places;
    for (const GridItem& item : _items) {
        const auto [x, w] =
            within(columns[static_cast<std::size_t>(item.column)], item.width, item.fillsWidth, sideAcross(item.gravity));
        const auto [y, h] =
            within(rows[static_cast<std::size_t>(item.row)], item.height, item.fillsHeight, sideDown(item.gravity));
        places.push_back({x, y, w, h});
    }
    return places;
}

// --- the spring box ----------------------------------------------------------------------------------------------------

SpringLayout::SpringLayout(bool horizontal, int spacing, int marginWidth, int marginHeight, std::vector<SpringItem> items)
    : _horizontal(horizontal),
      _spacing(std::max(spacing, 0)),
      _marginWidth(marginWidth),
      _marginHeight(marginHeight),
      _items(std::move(items))
{
    for (const SpringItem& item : _items) {
        _along += (_along > 0 ? _spacing : 0) + std::max(horizontal ? item.width : item.height, 1);
        _across = std::max(_across, horizontal ? item.height : item.width);
    }
    _along += 2 * (horizontal ? marginWidth : marginHeight);
    _across += 2 * (horizontal ? marginHeight : marginWidth);
}

/// A child's place across the line: spring, child, spring.
GridLine::Stretch SpringLayout::across(const SpringItem& item, int room) const
{
    const int margin = _horizontal ? _marginHeight : _marginWidth, size = std::max(_horizontal ? item.height : item.width, 1);
    const std::vector<int> weights =
        _horizontal ? std::vector{item.top, item.vertical, item.bottom} : std::vector{item.left, item.horizontal, item.right};
    return GridLine{{margin, 0, 0}, {0, size, 0}, weights, margin}.arrange(room)[1];
}

std::vector<Rect> SpringLayout::places(int width, int height) const
{
    const int margin = _horizontal ? _marginWidth : _marginHeight;
    GridLine line{{}, {}, {}, margin};   // three stretches for each child: spring, child, spring
    for (const SpringItem& item : _items) {
        line.before.insert(line.before.end(), {line.before.empty() ? margin : _spacing, 0, 0});
        line.natural.insert(line.natural.end(), {0, std::max(_horizontal ? item.width : item.height, 1), 0});
        if (_horizontal)
            line.weights.insert(line.weights.end(), {item.left, item.horizontal, item.right});
        else
            line.weights.insert(line.weights.end(), {item.top, item.vertical, item.bottom});
    }
    const auto stretches = line.arrange(_horizontal ? width : height);
    std::vector<Rect> places;
    for (std::size_t i = 0; i < _items.size(); ++i) {
        const auto [start, length] = stretches[3 * i + 1];
        const auto [side, depth] = across(_items[i], _horizontal ? height : width);
        places.push_back(_horizontal ? Rect{start, side, length, depth} : Rect{side, start, depth, length});
    }
    return places;
}

}   // namespace lm
