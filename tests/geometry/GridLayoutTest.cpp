#include <gtest/gtest.h>

#include "geometry/GridLayout.h"

#include <random>
#include <string>

namespace {

std::string asText(const std::vector<lm::Rect>& places)
{
    std::string text;
    for (const lm::Rect& r : places)
        text += (text.empty() ? "" : " ") + std::to_string(r.width) + "x" + std::to_string(r.height) + "+" + std::to_string(r.x) +
                "+" + std::to_string(r.y);
    return text;
}

bool overlap(const lm::Rect& a, const lm::Rect& b)
{
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

std::vector<lm::GridItem> children(int count)
{
    return std::vector<lm::GridItem>(static_cast<std::size_t>(count), {-1, -1, 30, 10});
}

}   // namespace

TEST(GridGeometry, RoomToSpareIsSharedByWeightsAndFixedTracksShrinkLast)
{
    lm::GridShape shape{.spacing = 4, .rows = {{0}, {100}}, .columns = {{60}, {40, 10}}};
    const lm::GridLayout grid(shape,
                              {{0, 0, 50, 20}, {0, 1, 30, 10}, {1, 0, 40, 30}, {1, 1, 30, 30, false, false, SouthGravity}});
    EXPECT_EQ(grid.naturalWidth(), 100);   // 50 + 10 + 30 + 10
    EXPECT_EQ(grid.naturalHeight(), 54);
    EXPECT_EQ(asText(grid.places(100, 54)), "50x20+0+0 30x20+60+0 50x30+0+24 30x30+60+24");
    EXPECT_EQ(asText(grid.places(205, 74)), "113x20+0+0 72x20+123+0 113x50+0+24 30x30+144+44");   // 63 and 42 more
    EXPECT_EQ(asText(grid.places(60, 34)), "25x20+0+0 15x20+35+0 25x10+0+24 15x10+35+24");
    EXPECT_EQ(asText(grid.places(60, 20)), "25x15+0+0 15x15+35+0 25x1+0+19 15x1+35+19");
    EXPECT_EQ(asText(grid.places(1, 1)), "1x1+0+0 1x1+11+0 1x1+0+5 1x1+11+5");

    EXPECT_EQ(lm::fitLengths({10, 10, 10}, {1, 1, 1}, 40), (std::vector{13, 13, 14}));
    EXPECT_EQ(lm::fitLengths({10, 10}, {0, -5}, 40), (std::vector{10, 10}));
    EXPECT_EQ(lm::fitLengths({10, 0, 10}, {0, 7, 7}, 5), (std::vector{4, 0, 1}));
    EXPECT_EQ(lm::fitLengths({1, 1}, {2147483647, 2147483647}, 32767), (std::vector{16383, 16384}));
}

TEST(GridGeometry, ChildrenWithoutACellFillTheNextThatIsFree)
{
    const auto laid = [](lm::GridShape shape, std::vector<lm::GridItem> items) {
        const lm::GridLayout grid(shape, std::move(items));
        return asText(grid.places(grid.naturalWidth(), grid.naturalHeight()));
    };
    EXPECT_EQ(laid({.numRows = 2}, children(3)), "30x10+0+0 30x10+0+10 30x10+30+0");
    EXPECT_EQ(laid({.numColumns = 2}, children(3)), "30x10+0+0 30x10+30+0 30x10+0+10");
    EXPECT_EQ(laid({.numRows = 2, .numColumns = 2, .horizontal = false}, children(3)), "30x10+0+0 30x10+0+10 30x10+30+0");
    EXPECT_EQ(laid({}, children(2)), "30x10+0+0 30x10+30+0");
    EXPECT_EQ(laid({.horizontal = false, .marginWidth = 3, .marginHeight = 2}, children(2)), "30x10+3+2 30x10+3+12");
    EXPECT_EQ(laid({.numColumns = 2}, {{0, 0, 30, 10}, {-1, -1, 30, 10}, {0, -1, 30, 10}, {-1, 0, 30, 10}}),
              "30x10+0+0 30x10+30+0 30x10+60+0 30x10+0+10");
    EXPECT_EQ(laid({.spacing = 5}, {{0, 3, 30, 10}, {0, 9, 30, 10}}), "30x10+0+0 30x10+35+0");   // empty columns take no room
    EXPECT_EQ(laid({}, {}), "");
    EXPECT_EQ(laid({}, {{2147483647, 2147483647, 30, 10, false, false, 77}}), "30x10+0+0");
}

TEST(GridGeometry, SpringsShareWhatIsToSpareAndNothingEverOverlaps)
{
    lm::SpringItem stretched{
        .width = 60, .height = 50, .left = 0, .right = 0, .top = 0, .bottom = 0, .horizontal = 100, .vertical = 100};
    lm::SpringItem toggle{.width = 40, .height = 22, .top = 5, .bottom = 5};
    const lm::SpringLayout box(false, 4, 1, 2, {stretched, toggle});
    EXPECT_EQ(box.naturalWidth(), 62);
    EXPECT_EQ(box.naturalHeight(), 80);
    EXPECT_EQ(asText(box.places(62, 80)), "60x50+1+2 40x22+11+56");
    EXPECT_EQ(asText(box.places(162, 190)), "160x150+1+2 40x22+61+161");   // 100 of 110, then 5 above and 5 below
    EXPECT_EQ(asText(box.places(32, 50)), "30x20+1+2 30x22+1+26");
    EXPECT_EQ(asText(lm::SpringLayout(true, 4, 0, 0, {{.left = 0, .right = 0}, {.left = 0, .right = 1}}).places(30, 1)),
              "1x1+0+0 1x1+5+0");

    std::mt19937 random(20261123);
    for (int round = 0; round < 2000; ++round) {
        const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
        std::vector<lm::GridItem> items;
        std::vector<lm::SpringItem> springs;
        for (int i = 0; i < 9; ++i) {
            items.push_back({-1, -1, 1 + upTo(80), 1 + upTo(80), upTo(2) == 0, upTo(2) == 0, upTo(11)});
            springs.push_back({1 + upTo(80), 1 + upTo(80), upTo(9), upTo(9), upTo(9), upTo(9), upTo(9), upTo(9)});
        }
        const lm::GridLayout grid({.numColumns = 3, .spacing = upTo(5), .rows = {{upTo(3)}}, .columns = {{upTo(3)}, {upTo(3)}}},
                                  items);
        const lm::SpringLayout line(upTo(2) == 0, upTo(5), 0, 0, springs);
        const int width = 1 + upTo(600), height = 1 + upTo(600);
        for (const auto& places : {grid.places(width, height), line.places(width, height)}) {
            for (std::size_t i = 0; i < places.size(); ++i) {
                for (std::size_t j = 0; j < i; ++j)
                    ASSERT_FALSE(overlap(places[i], places[j])) << asText(places);
                ASSERT_TRUE(places[i].width > 0 && places[i].height > 0);
                ASSERT_TRUE(width < 100 || height < 100 || lm::contains({0, 0, width, height}, places[i])) << asText(places);
            }
        }
    }
}
