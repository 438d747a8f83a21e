#include <gtest/gtest.h>

#include "geometry/BoxLayout.h"

using lm::BoxCells, lm::BoxShape, lm::Point;

static testing::AssertionResult isAt(Point point, int x, int y)
{
    if (point.x == x && point.y == y)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << point.x << "," << point.y;
}

TEST(BoxGeometry, CellsFillOneDirectionAndScrollInTheOther)
{
    const auto wide = BoxCells::of(false, 150, 60, 40, 30, 4, 7);   // one row of 34
    EXPECT_EQ(wide.columns, 7);
    EXPECT_EQ(wide.boardWidth(), 7 * 44 + 4);
    EXPECT_EQ(wide.boardHeight(), 38);
    const auto tall = BoxCells::of(true, 95, 60, 40, 30, 4, 7);   // two columns of 44
    EXPECT_EQ(tall.rows, 4);
    EXPECT_TRUE(isAt(tall.place(5, 40, 30, false), 48, 72));
    EXPECT_TRUE(isAt(tall.place(5, 20, 31, true), 58, 72));
    EXPECT_EQ(BoxCells::of(true, 10, 60, 40, 30, 4, 7).rows, 7);
    EXPECT_EQ(BoxCells::of(false, 0, 0, 0, 0, 0, 3).columns, 3);

    EXPECT_EQ(lm::boxShape(87, 68, 44, 34), BoxShape::Tall);
    EXPECT_EQ(lm::boxShape(88, 67, 44, 34), BoxShape::Wide);
    EXPECT_EQ(lm::boxShape(88, 68, 44, 34), BoxShape::Either);
    EXPECT_EQ(lm::boxShape(87, 67, 44, 34), BoxShape::Either);
}

TEST(BoxGeometry, APlaceIsKeptInCellsAndTheWayToItHasTenSteps)
{
    EXPECT_TRUE(isAt(lm::keptBoardPlace(true, {0, -68}, 48, 242, 60, 80, 44, 34), 0, -68));
    EXPECT_TRUE(isAt(lm::keptBoardPlace(true, {-88, 0}, 48, 242, 60, 80, 44, 34), 0, -68));   // two cells
    EXPECT_TRUE(isAt(lm::keptBoardPlace(false, {0, -68}, 312, 38, 150, 40, 44, 34), -88, 0));
    EXPECT_TRUE(isAt(lm::keptBoardPlace(true, {0, -242}, 48, 242, 60, 80, 44, 34), 0, 0));
    EXPECT_TRUE(isAt(lm::keptBoardPlace(false, {150, 0}, 312, 38, 150, 40, 44, 34), 0, 0));

    EXPECT_EQ(lm::scrollSteps(0, -44), (std::vector{-4, -8, -12, -16, -20, -24, -28, -32, -36, -40, -44}));
    EXPECT_EQ(lm::scrollSteps(0, 3), (std::vector{1, 2, 3}));
    EXPECT_EQ(lm::scrollSteps(5, 5), (std::vector{5}));
}
