#include <gtest/gtest.h>

#include "geometry/MeterBars.h"
#include "geometry/PieSlices.h"
#include "geometry/TickScale.h"
#include "geometry/VuBlocks.h"

#include <climits>
#include <map>
#include <string>

static std::string asText(const std::optional<lm::Rect>& r)
{
    return r ? std::to_string(r->x) + "," + std::to_string(r->y) + " " + std::to_string(r->width) + "x" +
                   std::to_string(r->height)
             : "none";
}

static std::string asText(const std::vector<lm::PiePiece>& pieces)
{
    std::string text;
    for (const auto& p : pieces)
        text += (text.empty() ? "" : " ") + std::to_string(p.slice) + ":" + std::to_string(p.start) + "+" +
                std::to_string(p.size) + "@" + std::to_string(p.elevation) + "-" + std::to_string(p.top()) + "f" +
                std::to_string(p.flags);
    return text;
}

TEST(MeterBarsGeometry, BarsGrowFromTheirEdgeAndThoseThatDoNotFitAreLeftOut)
{
    const lm::MeterArea up = {true, 40, 200, 40}, right = {false, 200, 40, 200};
    struct Case {
        lm::MeterBar bar;
        const char *up, *upOutline, *right;
    };
    for (const Case& c : {Case{{0, 25, 10, 0}, "0,150 10x50", "0,149 10x50", "0,0 50x2"},
                          Case{{50, 50, 20, 10}, "10,0 10x100", "10,-1 10x100", "100,2 100x2"},
                          Case{{60, 50, 10, 0}, "none", "none", "none"},       // past the end
                          Case{{99, 1, 2, 0}, "0,0 2x2", "none", "none"}}) {   // too small for an outline, or for anything
        EXPECT_EQ(asText(lm::meterRectangle(up, c.bar)), c.up);
        EXPECT_EQ(asText(lm::meterOutline(up, c.bar)), c.upOutline);
        EXPECT_EQ(asText(lm::meterRectangle(right, c.bar)), c.right);
    }
    EXPECT_EQ(asText(lm::meterRectangle({true, 0, 0, 0}, {0, 100, 10, 0})), "none");
    EXPECT_EQ(lm::meterUnits(50, 200, 100), 25);
    EXPECT_EQ(lm::meterUnits(1, 3, 100), 33);
    EXPECT_EQ(lm::meterUnits(5, 0, 100), 0);
    EXPECT_GT(lm::meterUnits(INT_MAX, 1, 360), 2147483000);
}

TEST(TickScaleGeometry, MarksAndLabelsStandAtTheirValues)
{
    const lm::TickScale scale = {138, 19, 19, 0, 10, 1};   // 100 pixels for 10 values
    EXPECT_EQ(scale.marks(5), (std::vector{119, 69, 19}));
    EXPECT_EQ(scale.marks(1).size(), 11U);
    EXPECT_TRUE(scale.marks(0).empty());
    EXPECT_TRUE((lm::TickScale{138, 19, 19, 5, 5, 1}.marks(1).empty()));
    EXPECT_TRUE((lm::TickScale{30, 19, 19, 0, 10, 1}.marks(1).empty()));
    EXPECT_LT((lm::TickScale{138, 19, 19, INT_MIN, INT_MAX, 1}.marks(1).size()), 1000U);
    EXPECT_EQ(scale.labelOfMinimum(14), 112);
    EXPECT_EQ(scale.labelOfMaximum(40), 0);   // would begin above the area
    EXPECT_EQ(scale.labelOf(5, 14), 62);
    EXPECT_EQ(scale.labelOf(1000, 14), 0);
}

TEST(VuBlocksGeometry, BlocksAreLitFromTheLevelDownAndAtThePeak)
{
    lm::VuBlocks blocks = {.granularity = 11, .size = 9, .unitsPerBlock = 10};
    blocks.layOut(223, 1);   // 20 pixels a block, 2 of them gap
    EXPECT_EQ(blocks.litHeight(), 18);
    EXPECT_EQ(blocks.top(1), 25);
    EXPECT_EQ(blocks.levelRun(0, 0), (lm::Run{0, 18}));
    EXPECT_EQ(blocks.levelRun(3, 35), (lm::Run{8, 18}));   // 5 of 9 units: 10 pixels
    EXPECT_EQ(blocks.levelRun(3, 40), lm::Run{});
    EXPECT_EQ(blocks.peakRun(3, 35), (lm::Run{8, 10}));   // one unit, 2 pixels, down to the level
    EXPECT_EQ(blocks.peakRun(3, 41), lm::Run{});
    EXPECT_EQ(blocks.peakRun(10, 111), lm::Run{});

    const auto change = lm::vuChange(blocks, 3, {35, 111}, {37, 32});
    EXPECT_EQ(change.fill, (std::vector{lm::Run{2, 4}}));
    EXPECT_EQ(change.clear, (std::vector{lm::Run{8, 12}}));
    EXPECT_TRUE(lm::vuChange(blocks, 3, {35, 20}, {35, 20}).fill.empty());
    lm::VuBlocks none;
    none.layOut(100, 1);
    EXPECT_EQ(none.litHeight(), 0);
}

TEST(PieSlicesGeometry, SlicesAreCutAtQuadrantsAndPaintedFromBackToFrontInLayers)
{
    EXPECT_EQ(asText(lm::pieQuadrants({{.start = 80, .size = 20, .height = 5}})), "0:80+10@0-5f2 0:90+10@0-5f1");
    EXPECT_EQ(asText(lm::pieQuadrants({{.start = 0, .size = 90, .height = 5}})), "0:0+90@0-5f0");
    EXPECT_EQ(asText(lm::pieQuadrants({{.start = 0, .size = 400, .height = 5}})),
              "0:0+90@0-5f3 0:90+90@0-5f3 0:180+90@0-5f3 0:270+90@0-5f3");
    EXPECT_EQ(asText(lm::pieQuadrants({{.start = 10, .size = 0}})), "");

    // The lower layer of both first, then the rest of the taller one; the back before the front.
    const auto order = lm::piePaintingOrder(
        {{.start = 270, .size = 60, .height = 30, .slice = 0}, {.start = 60, .size = 60, .height = 10, .slice = 1}});
    EXPECT_EQ(asText(order), "1:60+60@0-10f0 0:270+60@0-10f4 0:270+60@10-30f8");
    const std::map<int, std::string> points = {{0, "100,25"}, {90, "50,0"}, {180, "0,25"}, {270, "50,50"}};
    for (const auto& [degrees, expected] : points) {
        const XPoint p = lm::ellipsePoint(0, 0, 100, 50, degrees);
        EXPECT_EQ(std::to_string(p.x) + "," + std::to_string(p.y), expected) << degrees;
    }
    EXPECT_EQ(lm::pieFrontRim(100, 170).extent, 90);
    EXPECT_LE(lm::pieFrontRim(0, 90).extent, 0);
    EXPECT_TRUE(lm::pieShowsRight(350, 20));
    EXPECT_FALSE(lm::pieShowsLeft(0, 90));
}
