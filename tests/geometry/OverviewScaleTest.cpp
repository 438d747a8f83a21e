#include <gtest/gtest.h>

#include "geometry/OverviewScale.h"

namespace {

std::string asText(const lm::Rect& r)
{
    return std::to_string(r.width) + "x" + std::to_string(r.height) + "+" + std::to_string(r.x) + "+" + std::to_string(r.y);
}

std::string asText(const lm::Point& p) { return std::to_string(p.x) + "," + std::to_string(p.y); }

}   // namespace

TEST(OverviewGeometry, AnAreaIsScaledToFitEvenlyOrSkewed)
{
    const lm::OverviewScale even({1000, 500}, {110, 110}, 5, false);
    EXPECT_EQ(asText(even.shown(lm::Rect{0, 0, 1000, 500})), "100x50+5+30");
    EXPECT_EQ(asText(even.shown(lm::Rect{500, 100, 50, 20})), "5x2+55+40");
    EXPECT_EQ(asText(even.shown(lm::Rect{500, 100, 1, 1})), "1x1+55+40");
    EXPECT_EQ(asText(even.inArea({55, 40})), "500,100");
    EXPECT_EQ(asText(even.inArea({0, 0})), "-50,-300");

    const lm::OverviewScale skewed({1000, 500}, {110, 110}, 5, true);
    EXPECT_EQ(asText(skewed.shown(lm::Rect{500, 100, 50, 20})), "5x4+55+25");
    EXPECT_EQ(asText(skewed.inArea({55, 25})), "500,100");
}

TEST(OverviewGeometry, EmptyAndHugeSizesAreDrawable)
{
    EXPECT_EQ(asText(lm::OverviewScale({0, 0}, {0, 0}, 5, true).shown(lm::Rect{0, 0, 1, 1})), "1x1+5+5");
    EXPECT_EQ(asText(lm::OverviewScale({1, 1}, {1000, 1000}, 0, true).shown(lm::Rect{-30000, -30000, 60000, 60000})),
              "64000x64000+-32000+-32000");
}

TEST(OverviewGeometry, ScrollingStopsAtTheEnds)
{
    EXPECT_EQ(lm::scrollValue(500, 100, 0, 1000), 450);
    EXPECT_EQ(lm::scrollValue(20, 100, 0, 1000), 0);
    EXPECT_EQ(lm::scrollValue(990, 100, 0, 1000), 900);
    EXPECT_EQ(lm::scrollValue(5, 100, 0, 60), 0);
}
