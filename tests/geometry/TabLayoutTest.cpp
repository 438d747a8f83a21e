#include <gtest/gtest.h>

#include "geometry/TabLayout.h"

#include <string>

namespace {

template <class Points> std::string asText(const Points& points)
{
    std::string text;
    for (const XPoint& p : points)
        text += (text.empty() ? "" : " ") + std::to_string(p.x) + "," + std::to_string(p.y);
    return text;
}

std::string asText(const lm::Rect& r)
{
    return asText(std::vector{XPoint{static_cast<short>(r.x), static_cast<short>(r.y)}}) + " " + std::to_string(r.width) + "x" +
           std::to_string(r.height);
}

std::string asText(const lm::TabRun& run) { return std::to_string(run.first) + ".." + std::to_string(run.last); }

/// Tabs 30 deep whose sides run over 17 pixels, with markers of 27; a label band of 20 with a text of 14.
lm::TabLayout strip(bool horizontal, const std::vector<int>& widths, int length)
{
    lm::TabLayout layout({horizontal, 17, 9, 3, 3, 2, 1, 6, 5, 20, 14}, widths);
    (horizontal ? layout.width : layout.height) = length;
    (horizontal ? layout.height : layout.width) = 31;
    return layout;
}

std::string arranged(lm::TabLayout& layout, int selected)
{
    layout.arrange(selected);
    return asText(layout.run);
}

}   // namespace

TEST(TabLayoutGeometry, TheRunHoldsTheSelectedTabAndMovesAsLittleAsMayBe)
{
    auto all = strip(true, {83, 83, 83}, 317);   // 3 * 100 + 17
    EXPECT_EQ(arranged(all, 2), "0..2");
    all.width = 316;
    EXPECT_EQ(arranged(all, 0), "0..1");   // 217 + 27
    EXPECT_EQ(arranged(all, 2), "1..2");

    auto ten = strip(true, std::vector<int>(10, 83), 400);   // three with a marker: 344; in the middle 371
    EXPECT_EQ(ten.endTab(0), 2);
    EXPECT_EQ(ten.endTab(4), 6);
    EXPECT_EQ(arranged(ten, 2), "0..2");
    EXPECT_EQ(arranged(ten, 9), "7..9");
    EXPECT_EQ(arranged(ten, 7), "7..9");
    EXPECT_EQ(arranged(ten, 4), "3..5");   // from 1 on the tab does not show; the middle of 2 and 4
    EXPECT_EQ(arranged(ten, 5), "3..5");   // stays
    EXPECT_EQ(arranged(ten, 3), "3..5");
    EXPECT_EQ(ten.tabOffset(3), 27);
    EXPECT_EQ(ten.tabOffset(6), 327);
    ten.width = 136;   // less than 83 + 2 * 27
    EXPECT_EQ(arranged(ten, 4), "4..4");
    ten.width = 0;
    EXPECT_EQ(arranged(ten, 6), "6..6");
    EXPECT_EQ(ten.endTab(6), 6);
    EXPECT_EQ(arranged(ten, -1), "0..0");

    auto exact = strip(true, {83, 83}, 244);   // as long as tabs and right marker, not as tabs alone
    EXPECT_EQ(exact.endTab(0), 1);
    exact.width = 217;   // full to the pixel: the end is looked for with a marker, which takes the second's room
    EXPECT_EQ(exact.endTab(0), 0);
    EXPECT_EQ(arranged(exact, 1), "0..1");

    lm::TabLayout none;
    EXPECT_EQ(arranged(none, -1), "0..0");
    EXPECT_EQ(none.tabAt(0, 0, -1), -1);
    EXPECT_EQ(none.endAt(0, 0), lm::TabEnd::Neither);
}

TEST(TabLayoutGeometry, TabsAndMarkersAreTheSamePictureInBothOrientations)
{
    auto across = strip(true, std::vector<int>(10, 83), 400), down = strip(false, std::vector<int>(10, 83), 400);
    arranged(across, 4);
    arranged(down, 4);
    EXPECT_EQ(asText(across.outline(3)), "27,0 31,2 33,6 38,24 40,28 44,30 126,30 130,28 132,24 137,6 139,2 143,0");
    EXPECT_EQ(asText(down.outline(3)), "31,27 29,31 25,33 7,38 3,40 1,44 1,126 3,130 7,132 25,137 29,139 31,143");
    const auto left = across.marker(lm::TabEnd::Left), upper = down.marker(lm::TabEnd::Left);
    EXPECT_EQ(asText(left.outline), "0,0 4,2 6,6 11,24 13,28 17,30 44,30 44,0");
    EXPECT_EQ(asText(upper.outline), "31,0 29,4 25,6 7,11 3,13 1,17 1,44 31,44");
    ASSERT_EQ(left.edges.size(), 2U);
    EXPECT_EQ(asText(left.edges[1]), "18,0 22,2 24,6 29,24 31,28 35,30");
    const auto right = across.marker(lm::TabEnd::Right), lower = down.marker(lm::TabEnd::Right);
    EXPECT_EQ(asText(right.outline), "327,0 327,30 354,30 358,28 360,24 365,6 367,2 371,0");
    EXPECT_EQ(asText(lower.outline), "31,327 1,327 1,354 3,358 7,360 25,365 29,367 31,371");
    ASSERT_EQ(right.edges.size(), 2U);
    EXPECT_EQ(asText(right.edges[0]), "336,30 340,28 342,24 347,6 349,2 353,0");

    EXPECT_EQ(asText(across.labelBox(3, 0)), "50,9 71x20");   // 1 + 5 + (20 - 14) / 2
    EXPECT_EQ(asText(down.labelBox(3, 19)), "6,50 20x52");
    EXPECT_EQ(asText(across.labelBox(3, 99)), "50,9 0x20");
    EXPECT_EQ(asText(across.pixmapBox(3, 16, 9)), "105,11 16x9");
    EXPECT_EQ(asText(across.pixmapBox(3, 16, 48)), "105,6 16x20");
    EXPECT_EQ(asText(down.pixmapBox(3, 9, 16)), "11,105 9x16");
    EXPECT_EQ(asText(down.pixmapBox(3, 48, 16)), "6,105 20x16");
}

TEST(TabLayoutGeometry, PointsHitTheTabOnTopAndTheMarkersBesideIt)
{
    auto across = strip(true, std::vector<int>(10, 83), 400), down = strip(false, std::vector<int>(10, 83), 400);
    arranged(across, 4);
    arranged(down, 4);
    struct Case {
        int along, depth;
        bool hit;
    };
    // tab 3 from 27 to 143; its leading side runs from 33,6 to 38,24
    for (const Case& c :
         {Case{44, 0, true}, Case{126, 30, true}, Case{26, 0, false}, Case{32, 6, false}, Case{33, 6, true}, Case{35, 15, false},
          Case{36, 15, true}, Case{38, 24, true}, Case{37, 24, false}, Case{38, 25, false}, Case{39, 29, true},
          Case{132, 24, true}, Case{133, 24, false}, Case{137, 6, true}, Case{138, 6, false}}) {
        EXPECT_EQ(across.matches(3, c.along, c.depth), c.hit) << c.along << "," << c.depth;
        EXPECT_EQ(down.matches(3, 31 - c.depth, c.along), c.hit) << c.along << "," << c.depth;
    }
    EXPECT_FALSE(across.matches(10, 60, 10));

    EXPECT_EQ(across.tabAt(135, 8, 3), 3);   // where 3 and 4 overlap
    EXPECT_EQ(across.tabAt(135, 8, 4), 4);
    EXPECT_EQ(across.tabAt(300, 10, 9), 5);
    EXPECT_EQ(across.tabAt(10, 10, 4), -1);
    EXPECT_EQ(across.endAt(43, 29), lm::TabEnd::Left);
    EXPECT_EQ(across.endAt(44, 29), lm::TabEnd::Neither);
    EXPECT_EQ(across.endAt(327, 1), lm::TabEnd::Neither);
    EXPECT_EQ(across.endAt(370, 1), lm::TabEnd::Right);
    EXPECT_EQ(across.endAt(371, 1), lm::TabEnd::Neither);
    EXPECT_EQ(down.endAt(1, 370), lm::TabEnd::Right);
    EXPECT_EQ(arranged(across, 0), "0..2");
    EXPECT_EQ(across.endAt(1, 1), lm::TabEnd::Neither);
}

TEST(TabLayoutGeometry, TenMillionPixelsOfTabsKeepWithinTheProtocol)
{
    auto many = strip(true, std::vector<int>(100000, 65535), 32767);
    EXPECT_EQ(arranged(many, 99999), "99999..99999");
    EXPECT_EQ(many.outline(99999)[11].x, 32767);
    many.run = {0, 0};
    EXPECT_GT(many.tabOffset(99999), 500000000);
}
