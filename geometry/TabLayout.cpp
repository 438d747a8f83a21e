#include "geometry/TabLayout.h"

#include <algorithm>
#include <limits>

/// The protocol's coordinates have 16 bits: what lies beyond is drawn at the border.
static short coordinate(int value)
{
    return static_cast<short>(std::clamp<int>(value, std::numeric_limits<short>::min(), std::numeric_limits<short>::max()));
}

static int narrow(long long value)
{
    constexpr long long limit = std::numeric_limits<int>::max() / 4;   // sums of a few stay within int
    return static_cast<int>(std::clamp(value, -limit, limit));
}

template <size_t N, class... Corners> static std::array<XPoint, N> joined(const Corners&... corners)
{
    std::array<XPoint, N> points;
    auto next = points.begin();
    ((next = std::copy(corners.begin(), corners.end(), next)), ...);
    return points;
}

lm::TabLayout::TabLayout(const TabStyle& tabStyle, const std::vector<int>& widths) : style(tabStyle)
{
    _starts.reserve(widths.size() + 1);
    for (const int w : widths)
        _starts.push_back(_starts.back() + w + style.sideOffset);
}

// --- the run -----------------------------------------------------------------------------------------------------------

int lm::TabLayout::tabWidth(int tab) const
{
    if (tab < 0 || tab >= count())
        return 0;
    const auto i = static_cast<size_t>(tab);
    return static_cast<int>(_starts[i + 1] - _starts[i]) - style.sideOffset;
}

int lm::TabLayout::tabOffset(int tab) const
{
    const int marker = run.first > 0 ? style.endLength() : 0;
    const auto i = static_cast<size_t>(std::clamp(tab, 0, count())),
               first = static_cast<size_t>(std::clamp(run.first, 0, count()));
    return narrow(marker + std::max(0LL, _starts[i] - _starts[first]));
}

int lm::TabLayout::endTab(int first) const
{
    const int marker = first > 0 ? style.endLength() : 0;
    const long long before = _starts[static_cast<size_t>(first)] - style.sideOffset - marker;
    const long long L = length();   // the run up to a start takes that start - before
    const auto from = _starts.begin() + first + 1;
    const auto full = std::lower_bound(from, _starts.end(), before + L);
    if (full == _starts.end())
        return count() - 1;
    const auto beyond = std::upper_bound(from, full + 1, before + L - style.endLength());   // room for the right marker
    return std::max(first, static_cast<int>(beyond - _starts.begin()) - 2);
}

void lm::TabLayout::arrange(int selected)
{
    const int L = length(), E = style.endLength(), end = count() - 1;
    selected = std::clamp(selected, 0, std::max(0, end));
    if (L < tabWidth(selected) + 2 * E) {
        run = {selected, selected};
        return;
    }
    if (_starts.back() + style.sideOffset <= L) {
        run = {0, std::max(0, end)};
        return;
    }
    if (const int last = endTab(0); selected <= last) {
        run = {0, last};
        return;
    }
    int start = end;
    while (start > 0 && endTab(start - 1) == end)
        --start;
    if (start <= selected) {
        run = {start, end};
        return;
    }
    int first = std::clamp(run.first, 0, end);
    if (first > selected || endTab(first) < selected) {   // in the middle of the run, as far as widths allow
        int s = selected;
        while (s >= 0 && endTab(s) >= selected)
            --s;
        first = (selected + s + 1) / 2;
    }
    run = {first, endTab(first)};
}

// --- the picture -------------------------------------------------------------------------------------------------------

XPoint lm::TabLayout::at(int along, int across) const
{
    if (style.horizontal)
        return {coordinate(along), coordinate(across)};
    return {coordinate(width - across), coordinate(along)};
}

lm::TabCorner lm::TabLayout::corner(int along, int across, int dAlong, int dAcross) const
{
    const int m = style.curveMultiplier, k = style.curvature * m;
    const int a = along - dAlong * k;
    TabCorner points = {at(along, across), at(a + dAlong * m, across + dAcross * m), at(a, across + dAcross * k)};
    if (dAlong > 0)
        std::swap(points[0], points[2]);
    return points;
}

std::array<XPoint, 12> lm::TabLayout::outline(int tab) const
{
    const int o = tabOffset(tab), w = tabWidth(tab), S = style.sideOffset, B = style.depth();
    return joined<12>(corner(o, 0, -1, 1), corner(o + S, B, 1, -1), corner(o + S + w - 1, B, -1, -1),
                      corner(o + 2 * S + w - 1, 0, 1, 1));
}

lm::TabEndMarker lm::TabLayout::marker(TabEnd end) const
{
    const int S = style.sideOffset, B = style.depth(), E = style.endLength();
    const auto leading = [&](int base) { return joined<6>(corner(base, 0, -1, 1), corner(base + S, B, 1, -1)); };
    const auto trailing = [&](int far) { return joined<6>(corner(far, B, -1, -1), corner(far + S, 0, 1, 1)); };
    TabEndMarker marker;
    if (end == TabEnd::Left) {
        marker.outline = joined<8>(leading(0), std::array{at(E + S, B), at(E + S, 0)});
        for (int k = 1; k < style.endMultiplier; ++k)
            marker.edges.push_back(leading(k * style.endSpacing));
        return marker;
    }
    const int o = tabOffset(run.last + 1);
    marker.outline = joined<8>(std::array{at(o, 0), at(o, B)}, trailing(o + E));
    for (int k = 1; k < style.endMultiplier; ++k)
        marker.edges.push_back(trailing(o + k * style.endSpacing));
    return marker;
}

/// A part of the label band, as deep as the band. Below a horizontal strip's base line it keeps clear of the line.
lm::Rect lm::TabLayout::band(int along, int length) const
{
    const int across = style.marginHeight, depth = style.tabHeight;
    if (style.horizontal)
        return {along, across + style.lineThickness, length, depth};
    return {width - across - depth, along, depth, length};
}

lm::Rect lm::TabLayout::labelBox(int tab, int extra) const
{
    const int start = tabOffset(tab) + style.sideOffset + style.marginWidth;
    Rect box = band(start, std::max(0, tabWidth(tab) - 2 * style.marginWidth - extra));
    if (style.horizontal)   // a vertical strip's text lies across the band
        box.y += (style.tabHeight - style.textHeight) / 2;
    return box;
}

lm::Rect lm::TabLayout::pixmapBox(int tab, int pixmapWidth, int pixmapHeight) const
{
    const int along = style.horizontal ? pixmapWidth : pixmapHeight, across = style.horizontal ? pixmapHeight : pixmapWidth;
    const int end = tabOffset(tab) + style.sideOffset + tabWidth(tab) - style.marginWidth;
    Rect box = band(end - along, along);
    int Rect::*const place = style.horizontal ? &Rect::y : &Rect::x;
    int Rect::*const size = style.horizontal ? &Rect::height : &Rect::width;
    box.*place += std::max(0, style.tabHeight - across) / 2;
    box.*size = std::min(across, style.tabHeight);
    return box;
}

// --- hits --------------------------------------------------------------------------------------------------------------

/// Whether a point over a tab's leading slanted side is in the tab; `along` from the tab's offset.
///
///      base line  ___
///                    A        A: where the corner at the base line ends
///                     \       C: where the corner at the far edge starts
///                      C__
bool lm::TabLayout::onSlantedSide(int along, int across) const
{
    const int k = style.curvature * style.curveMultiplier;
    const Point A = {k, k}, C = {style.sideOffset - k, style.depth() - k};
    if (along > C.x)
        return true;
    if (across <= A.y)
        return along >= A.x;
    if (across > C.y)
        return false;
    const double slope = static_cast<double>(C.x - A.x) / (C.y - A.y);
    return along - A.x >= slope * (across - A.y);
}

bool lm::TabLayout::matches(int tab, int x, int y) const
{
    const int S = style.sideOffset, w = tabWidth(tab), d = alongOf(x, y) - tabOffset(tab);
    if (tab < 0 || tab >= count() || d < 0 || d > 2 * S + w)
        return false;
    if (S <= d && d <= S + w)
        return true;
    const int mirrored = 2 * S + w - 1 - d;   // the trailing side is the leading one seen from the tab's end
    return onSlantedSide(d < S ? d : mirrored, acrossOf(x, y));
}

int lm::TabLayout::tabAt(int x, int y, int selected) const
{
    const auto shows = [this](int tab) { return run.first <= tab && tab <= std::min(run.last, count() - 1); };
    if (shows(selected) && matches(selected, x, y))
        return selected;
    for (int tab = run.first; tab < selected && shows(tab); ++tab) {
        if (matches(tab, x, y))
            return tab;
    }
    for (int tab = std::max(selected + 1, run.first); shows(tab); ++tab) {
        if (matches(tab, x, y))
            return tab;
    }
    return -1;
}

lm::TabEnd lm::TabLayout::endAt(int x, int y) const
{
    const int p = alongOf(x, y), reach = style.sideOffset + style.endLength();
    if (count() == 0)
        return TabEnd::Neither;
    if (run.first > 0 && p < reach)
        return TabEnd::Left;
    const int o = tabOffset(run.last + 1);
    return run.last < count() - 1 && o < p && p < o + reach ? TabEnd::Right : TabEnd::Neither;
}
