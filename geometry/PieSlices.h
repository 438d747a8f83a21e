// PieSlices.h: the pieces of a three-dimensional pie, and the order in which they are painted.
#pragma once

#include <X11/Xlib.h>

#include <vector>

namespace lm {

/// Edges of a piece that are not drawn, since the slice goes on there.
enum PieFlag : int {
    PieStartInside = 1,     ///< no edge at the start side
    PieEndInside = 2,       ///< no edge at the end side
    PieContinuesUp = 4,     ///< no radial edge at the top
    PieContinuesDown = 8,   ///< no radial edge at the bottom, and no front rim
    PieNoOuterEdge = 16     ///< no vertical edge at the outside
};

/// A slice, or a piece of one: angles in degrees, counter-clockwise from three o'clock; levels in pixels.
struct PiePiece {
    int start = 0, size = 0;
    int elevation = 0, height = 0;
    int slice = 0;   ///< which slice it belongs to, by its index
    int flags = 0;
    int top() const { return elevation + height; }
};

/// Cuts slices into pieces that lie within one quadrant. Slices of size 0 or less have none; one of 360 or more is a ring.
std::vector<PiePiece> pieQuadrants(const std::vector<PiePiece>& slices);

/// The pieces in painting order: layer by layer from the ground up, each layer from the back (90 degrees) to the front. A
/// piece that reaches through several layers comes once in each, cut to it.
std::vector<PiePiece> piePaintingOrder(const std::vector<PiePiece>& quadrants);

/// The point of an ellipse in the box x, y, width, height at an angle in degrees.
XPoint ellipsePoint(int x, int y, int width, int height, int degrees);

/// The part of an arc that lies at the front rim, 180 to 360 degrees: from where, and how far; an extent of 0 or less is none.
struct PieArc {
    int start = 0, extent = 0;
};
PieArc pieFrontRim(int start, int extent);

/// Whether a piece is seen against the ground at the right end of the disc, and at the left end.
bool pieShowsRight(int start, int extent);
bool pieShowsLeft(int start, int extent);

/// The flags of the edges of a piece's start side and end side: which of them are hidden behind the piece itself.
int pieStartEdgeFlags(int start, int flags);
int pieEndEdgeFlags(int end, int flags);

}   // namespace lm
