#include <gtest/gtest.h>

#include "geometry/CornerFold.h"

#include <algorithm>
#include <string>

namespace {

std::string asText(const std::vector<lm::InkLine>& lines)
{
    std::string text;
    for (const auto& [ink, line] : lines)
        text += std::string(text.empty() ? "" : " ") + (ink == lm::Ink::A ? 'A' : 'B') + std::to_string(line.x1) + ',' +
                std::to_string(line.y1) + '-' + std::to_string(line.x2) + ',' + std::to_string(line.y2);
    return text;
}

}   // namespace

TEST(CornerGeometry, TheFrameOfACorner)
{
    EXPECT_EQ(asText(lm::cornerFrame({10, 8, 2, false})), "A0,0-9,0 A0,1-8,1 B8,2-8,7 B9,1-9,7");
    EXPECT_EQ(asText(lm::cornerFrame({10, 8, 2, true})), "A0,0-9,0 B0,1-8,1 A8,1-8,7 B9,0-9,7");
    EXPECT_EQ(asText(lm::cornerFrame({10, 8, 1, true})), "A0,0-9,0 B9,0-9,7");
}

TEST(CornerGeometry, TheFoldedCorner)
{
    EXPECT_EQ(asText(lm::foldedCorner({10, 8, 1, false})), "B0,0-9,7 B0,7-9,7 A0,0-0,7 A0,7-9,7 B0,1-0,7");
    EXPECT_EQ(asText(lm::foldedCorner({10, 8, 2, true})),
              "B1,0-9,6 A0,0-0,0 B0,1--1,1 B9,6-9,7 A8,7-8,7 A0,1-0,7 B1,0-1,6 B0,7-7,7 A1,6-8,6");
    const auto cut = lm::cutOffCorner({10, 8, 2, false});
    ASSERT_EQ(cut.size(), 4u);
    EXPECT_TRUE(cut[0].x == 2 && cut[0].y == 0 && cut[1].x == 9 && cut[1].y == 0 && cut[2].x == 9 && cut[2].y == 5 &&
                cut[3].x == 2);
}

TEST(CornerGeometry, AbsurdSizesStayDrawable)
{
    EXPECT_EQ(lm::cornerFrame({0, 0, 0, true}).size(), 2u);
    EXPECT_EQ(lm::cornerFrame({10, 20, 60000, false}).size(), 40u);
    EXPECT_TRUE(std::ranges::all_of(lm::foldedCorner({65535, 65535, 2, false}),
                                    [](const lm::InkLine& l) { return l.line.x2 >= 0 && l.line.y2 >= 0; }));
}
