#include "geometry/BoxLayout.h"

#include <algorithm>
#include <cstdlib>

namespace lm {

BoxCells BoxCells::of(bool tall, int width, int height, int childWidth, int childHeight, int spacing, int count)
{
    BoxCells cells{.stepX = std::max(childWidth + spacing, 1), .stepY = std::max(childHeight + spacing, 1), .spacing = spacing};
    int &fixed = tall ? cells.columns : cells.rows, &other = tall ? cells.rows : cells.columns;
    fixed = std::max(tall ? width / cells.stepX : height / cells.stepY, 1);
    other = (count + fixed - 1) / fixed;
    return cells;
}

Point BoxCells::place(int index, int width, int height, bool centred) const
{
    const Point corner = {spacing + index % columns * stepX, spacing + index / columns * stepY};
    if (!centred)
        return corner;
    return {corner.x + (stepX - spacing - width) / 2, corner.y + (stepY - spacing - height) / 2};
}

BoxShape boxShape(int width, int height, int stepX, int stepY)
{
    const int fitColumns = width / std::max(stepX, 1), fitRows = height / std::max(stepY, 1);
    if (fitColumns <= 1 && fitRows >= 2)
        return BoxShape::Tall;
    return fitColumns > 1 && fitRows < 2 ? BoxShape::Wide : BoxShape::Either;
}

/// One coordinate: as it is, or for a place in the other direction the same number of cells; 0 when nothing would be seen.
static int keptCoordinate(int own, int other, int ownStep, int otherStep, int board, int view)
{
    const int at = other < 0 ? other * ownStep / std::max(otherStep, 1) : own;
    return at >= view || board + at < 1 ? 0 : at;
}

Point keptBoardPlace(bool tall, Point board, int boardWidth, int boardHeight, int viewWidth, int viewHeight, int stepX, int stepY)
{
    if (tall)
        return {0, keptCoordinate(board.y, board.x, stepY, stepX, boardHeight, viewHeight)};
    return {keptCoordinate(board.x, board.y, stepX, stepY, boardWidth, viewWidth), 0};
}

std::vector<int> scrollSteps(int from, int to)
{
    const int step = std::max(std::abs(to - from) / 10, 1) * (to < from ? -1 : 1);
    std::vector<int> places;
    for (int at = from + step; (to - at) * step > 0; at += step)
        places.push_back(at);
    places.push_back(to);
    return places;
}

}   // namespace lm
