#include <gtest/gtest.h>

#include "geometry/ResizeDrag.h"

#include <string>

static std::string asText(const lm::Rect& r)
{
    return std::to_string(r.width) + "x" + std::to_string(r.height) + "+" + std::to_string(r.x) + "+" + std::to_string(r.y);
}

TEST(ResizeDragGeometry, StepsAreMultiplesAndTheFrameStaysLargerThanItsInsets)
{
    EXPECT_EQ(lm::snapped(27, 10), 20);
    EXPECT_EQ(lm::snapped(-27, 10), -20);
    EXPECT_EQ(lm::snapped(-27, -128), 0);
    EXPECT_EQ(lm::snapped(27, 0), 0);

    lm::ResizeDrag upper{{100, 100, 80, 60}, 180, 100, 6, true}, lower{{100, 100, 80, 60}, 100, 160, 6, false};
    EXPECT_EQ(asText(upper.resized(207, 86, 10, 10)), "100x70+100+90");
    EXPECT_EQ(asText(lower.resized(73, 174, 10, 10)), "100x70+80+100");
    EXPECT_EQ(asText(upper.resized(207, 86, 0, 1)), "80x74+100+86");
    EXPECT_EQ(asText(upper.moved(153, 114, 10, 0)), "80x60+80+100");
    EXPECT_EQ(asText(lower.resized(167, 160, 1, 1)), "13x60+167+100");
    EXPECT_EQ(asText(lower.resized(168, 160, 1, 1)), "80x60+100+100");
    EXPECT_EQ(asText(upper.resized(180, 147, 1, 1)), "80x13+100+147");
    EXPECT_EQ(asText(upper.resized(180, 148, 1, 1)), "80x60+100+100");

    const auto inside = lm::ResizeFrame::around({10, 20, 50, 30}, 2, 200, 100, 6);
    EXPECT_EQ(asText(inside.area) + " " + asText(inside.frame), "46x26+12+22 58x38+6+16");
    const auto atEdge = lm::ResizeFrame::around({10, 20, 185, 30}, 0, 200, 50, 6);
    EXPECT_EQ(asText(atEdge.frame), "191x36+4+14");
    EXPECT_FALSE(atEdge.oversize);
    EXPECT_TRUE(lm::ResizeFrame::around({0, 0, 10, 51}, 0, 200, 50, 6).oversize);
    EXPECT_EQ(asText(lm::ResizeFrame::around({0, 0, 3, 3}, 2, 200, 50, 6).area), "1x1+2+2");
}
