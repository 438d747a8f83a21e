// CornerFold.h: the upper right corner of a framed widget, as it is and folded down like a page.
#pragma once

#include <X11/Xlib.h>

#include <vector>

namespace lm {

/// Which of the two colours of a frame: A is that of the top and left edges, B that of the bottom and right edges.
enum class Ink { A, B };

struct InkLine {
    Ink ink;
    XSegment line;
};

/// A corner of W x H pixels under a frame of t pixels, in its own coordinates. Sizes and t count as 1 to 32767, and t as
/// no more than the larger size.
struct Corner {
    int W, H, t;
    bool etched;
};

/// The piece of the widget's own frame in its corner, in the order of drawing.
std::vector<InkLine> cornerFrame(const Corner& corner);

/// What is cut off when the corner is folded down: a triangle, closed, to be filled and outlined.
std::vector<XPoint> cutOffCorner(const Corner& corner);

/// The corner folded down, in the order of drawing, onto what cutOffCorner() left.
std::vector<InkLine> foldedCorner(const Corner& corner);

}   // namespace lm
