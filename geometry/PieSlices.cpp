#include "geometry/PieSlices.h"

#include <algorithm>
#include <cmath>

static void cutAtQuadrants(lm::PiePiece slice, std::vector<lm::PiePiece>& pieces)
{
    using namespace lm;
    const int end = slice.start + slice.size, flags = slice.flags;
    for (int from = slice.start; from < end;) {
        const int quadrantEnd = from - ((from % 90 + 90) % 90) + 90, to = std::min(end, quadrantEnd);
        slice.start = from;
        slice.size = to - from;
        slice.flags = flags;
        if (to != end)
            slice.flags |= PieEndInside;
        if (!pieces.empty() && pieces.back().slice == slice.slice)
            slice.flags |= PieStartInside;
        pieces.push_back(slice);
        from = to;
    }
}

std::vector<lm::PiePiece> lm::pieQuadrants(const std::vector<PiePiece>& slices)
{
    std::vector<PiePiece> pieces;
    for (PiePiece slice : slices) {
        if (slice.size >= 360) {
            slice.size = 360;
            slice.flags |= PieStartInside | PieEndInside;
        }
        cutAtQuadrants(slice, pieces);
    }
    return pieces;
}

/// How far an angle is from the back of the disc.
static int fromBack(int degrees) { return degrees < 270 ? std::abs(degrees - 90) : 450 - degrees; }

static int fromBack(const lm::PiePiece& piece)
{
    const int start = piece.start % 360;
    return std::min(fromBack(start), fromBack(start + piece.size));
}

std::vector<lm::PiePiece> lm::piePaintingOrder(const std::vector<PiePiece>& quadrants)
{
    std::vector<PiePiece> fromBackToFront = quadrants, order;
    std::ranges::stable_sort(fromBackToFront, {}, [](const PiePiece& piece) { return fromBack(piece); });
    int highest = 0;
    for (const PiePiece& piece : quadrants)
        highest = piece.height != 0 ? std::max(highest, piece.top()) : highest;
    for (int lower = 0; lower < highest;) {
        int upper = highest;
        for (const PiePiece& piece : quadrants)
            upper = piece.top() > lower ? std::min(upper, piece.top()) : upper;
        for (PiePiece piece : fromBackToFront) {
            if (piece.size <= 0 || piece.elevation > upper || piece.top() <= lower)
                continue;
            const int top = std::min(piece.top(), upper);
            piece.flags |= (piece.elevation < lower ? PieContinuesDown : 0) | (piece.top() > upper ? PieContinuesUp : 0);
            piece.elevation = std::max(piece.elevation, lower);
            piece.height = top - piece.elevation;
            order.push_back(piece);
        }
        lower = upper;
    }
    return order;
}

XPoint lm::ellipsePoint(int x, int y, int width, int height, int degrees)
{
    const double angle = degrees * 3.1415926 / 180;
    const int centreX = x + width / 2, centreY = y + height / 2;
    const double px = std::cos(angle) * width / 2.0 + centreX + 0.5;
    const double py = width == 0 ? centreY : -std::sin(angle) * (width / 2.0) * height / width + centreY + 0.5;
    return {static_cast<short>(px), static_cast<short>(py)};
}

lm::PieArc lm::pieFrontRim(int start, int extent)
{
    if (start < 180)
        return {180, std::min(start + extent, 360) - 180};
    return {start, std::min(start + extent, 360) - start};
}

static int endOf(int start, int extent) { return (start + extent) % 360; }

static bool wraps(int start, int extent) { return extent != 0 && endOf(start, extent) <= start; }

bool lm::pieShowsRight(int start, int extent) { return start == 0 || wraps(start, extent); }

bool lm::pieShowsLeft(int start, int extent)
{
    const int end = endOf(start, extent);
    return start <= 180 ? end >= 180 || wraps(start, extent) : wraps(start, extent) && end >= 180;
}

int lm::pieStartEdgeFlags(int start, int flags)
{
    if (start >= 91 && start <= 179)
        return flags | PieNoOuterEdge | PieContinuesDown;
    return start >= 180 && start <= 269 ? flags | PieContinuesDown : flags;
}

int lm::pieEndEdgeFlags(int end, int flags)
{
    if (end >= 90 && end <= 270)
        return flags;
    return end >= 1 && end <= 89 ? flags | PieNoOuterEdge | PieContinuesDown : flags | PieContinuesDown;
}
