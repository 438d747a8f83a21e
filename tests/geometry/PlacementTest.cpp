#include <gtest/gtest.h>

#include "geometry/Placement.h"

#include <string>

static std::string asText(const std::optional<lm::Point>& p)
{
    return p ? std::to_string(p->x) + "," + std::to_string(p->y) : "stays";
}

TEST(PlacementGeometry, DialogsAreCentredOverTheirParentUnlessTheyLieInIt)
{
    const lm::Rect parent = {100, 200, 400, 300};
    EXPECT_EQ(asText(lm::centredOver(parent, {0, 0, 101, 51})), "249,324");
    EXPECT_EQ(asText(lm::centredOver(parent, {0, 0, 405, 303})), "98,199");   // -5 / 2 and -3 / 2 are cut towards zero
    EXPECT_EQ(asText(lm::recentred(parent, {100, 200, 400, 300})), "stays");
    EXPECT_EQ(asText(lm::recentred(parent, {99, 200, 100, 100})), "250,300");
    EXPECT_EQ(asText(lm::recentred(parent, {101, 201, 400, 100})), "100,300");
    EXPECT_EQ(asText(lm::recentred({0, 0, 10, 10}, {50, 50, 9, 9})), "stays");   // would be at 0,0
}
