// TabLayout.h: a strip of tabs: which of them fit, where they are, and which one a point hits.
#pragma once

#include "geometry/Placement.h"

#include <X11/Xlib.h>

#include <array>
#include <vector>

namespace lm {

/// What the tabs of a strip have in common. Lengths in pixels, none negative.
struct TabStyle {
    bool horizontal = true;    // tabs hang down from the upper edge; else they stick out to the left from the right edge
    int sideOffset = 0;        // the run of a slanted side along the strip; neighbours overlap by it
    int endSpacing = 0;        // between the stacked edges of an end marker
    int endMultiplier = 0;     // how many of them
    int curvature = 0;         // the rounding of a corner, in steps,
    int curveMultiplier = 0;   // and the size of a step
    int lineThickness = 0;
    int marginWidth = 0, marginHeight = 0;   // around the label: along the strip, and across
    int tabHeight = 0, textHeight = 0;       // the label band, across; the text in it

    /// How deep a tab is, from its base line to its far edge.
    int depth() const { return tabHeight + 2 * marginHeight; }
    /// How long an end marker is.
    int endLength() const { return endSpacing * endMultiplier; }
};

/// The tabs that show: consecutive ones, first to last.
struct TabRun {
    int first = 0, last = 0;
    bool operator==(const TabRun&) const = default;
};

enum class TabEnd { Neither, Left, Right };   // of a vertical strip: the upper end is Left

using TabCorner = std::array<XPoint, 3>;

/// The stack of edges that stands for the tabs hidden at one end.
struct TabEndMarker {
    std::array<XPoint, 8> outline;
    std::vector<std::array<XPoint, 6>> edges;
};

/// The layout of a strip of `width` by `height` pixels. All is computed along the strip, from its left (upper) end, and
/// across it, from the base line: one text for both orientations, mapped to x and y where it leaves.
///
///      base line   o __________________________________ o + 2S + w - 1      S: sideOffset, w: the tab's width
///                    \                                /                     o: the tab's offset
///      far edge       \______________________________/
///                   o + S                        o + S + w - 1
class TabLayout {
public:
    TabLayout() = default;
    /// Of tabs as wide as given, with their margins.
    TabLayout(const TabStyle& style, const std::vector<int>& widths);

    TabStyle style;
    int width = 0, height = 0;
    TabRun run;

    int count() const { return static_cast<int>(_starts.size()) - 1; }
    int tabWidth(int tab) const;
    /// Where a tab starts along the strip, with the left marker before the run.
    int tabOffset(int tab) const;
    /// The last tab of a run that starts at `first`: with room for the markers that it needs, and never before `first`.
    int endTab(int first) const;
    /// Chooses the run: all tabs if they fit, else one with the selected tab (-1: none) that moves as little as may be.
    void arrange(int selected);

    std::array<XPoint, 12> outline(int tab) const;
    /// The marker at an end; only where tabs are hidden.
    TabEndMarker marker(TabEnd end) const;
    /// Where a tab's label is drawn, when `extra` pixels along the strip are left to a pixmap.
    Rect labelBox(int tab, int extra) const;
    /// Where a tab's pixmap of that size is drawn; what does not fit across the label band is cut off.
    Rect pixmapBox(int tab, int pixmapWidth, int pixmapHeight) const;
    /// Three points that round the corner at (along, across), which opens in the directions dAlong and dAcross, 1 or -1.
    TabCorner corner(int along, int across, int dAlong, int dAcross) const;

    /// Whether a point in the strip hits a tab.
    bool matches(int tab, int x, int y) const;
    /// The tab of the run that a point hits, the selected one first; -1 for none.
    int tabAt(int x, int y, int selected) const;
    /// The end marker at a point that hits no tab.
    TabEnd endAt(int x, int y) const;

private:
    int length() const { return style.horizontal ? width : height; }
    int alongOf(int x, int y) const { return style.horizontal ? x : y; }
    int acrossOf(int x, int y) const { return style.horizontal ? y : width - x; }
    XPoint at(int along, int across) const;
    Rect band(int along, int length) const;
    bool onSlantedSide(int along, int across) const;

    std::vector<long long> _starts = {0};   // where each tab, and the end, is on an endless strip without markers
};

}   // namespace lm
