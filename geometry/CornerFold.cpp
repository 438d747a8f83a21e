#include "geometry/CornerFold.h"

#include <algorithm>

namespace {

constexpr int maxSide = 32767;   // of anything that X draws

using lm::Corner;
using lm::Ink;
using lm::InkLine;

class Lines {
public:
    void add(Ink ink, int x1, int y1, int x2, int y2)
    {
        _lines.push_back({ink, {static_cast<short>(x1), static_cast<short>(y1), static_cast<short>(x2), static_cast<short>(y2)}});
    }
    std::vector<InkLine> take() { return std::move(_lines); }

private:
    std::vector<InkLine> _lines;
};

Corner drawable(Corner corner)
{
    corner.W = std::clamp(corner.W, 1, maxSide);
    corner.H = std::clamp(corner.H, 1, maxSide);
    corner.t = std::clamp(corner.t, 1, std::max(corner.W, corner.H));
    return corner;
}

Ink other(Ink ink) { return ink == Ink::A ? Ink::B : Ink::A; }

// An etched frame changes its colour halfway.
Ink etchedInk(int i, int half, Ink outside) { return i >= half ? other(outside) : outside; }

void addEtchedFold(Lines& lines, const Corner& corner)
{
    const auto [W, H, t, etched] = corner;
    const int half = t / 2;
    for (int i = 0; i < t; ++i)
        lines.add(etchedInk(i, half, Ink::A), 0, i, t - i - 2, i);
    for (int i = 0; i < t; ++i)
        lines.add(etchedInk(i, half, Ink::B), W - i - 1, H - t + i, W - i - 1, H - 1);
    for (int i = 0; i < t; ++i)
        lines.add(etchedInk(i, half, Ink::A), i, t - i - 1, i, H - i - 1);
    for (int i = 0; i < t; ++i)
        lines.add(etchedInk(i, half, Ink::B), i, H - i - 1, W - t + i - 1, H - i - 1);
}

void addFold(Lines& lines, const Corner& corner)
{
    const auto [W, H, t, etched] = corner;
    for (int i = 0; i < t; ++i) {
        lines.add(Ink::B, 0, H - i - 1, W - 1, H - i - 1);
        lines.add(Ink::A, i, 0, i, H - 1);
        lines.add(Ink::A, i, H - i - 1, W - t + i, H - i - 1);
        lines.add(Ink::B, i, t - i, i, H - i - 1);
    }
}

}   // namespace

std::vector<lm::InkLine> lm::cornerFrame(const Corner& corner)
{
    const auto [W, H, t, etched] = drawable(corner);
    Lines lines;
    for (int i = 0; i < t; ++i)
        lines.add(!etched || i == 0 || i < t / 2 ? Ink::A : Ink::B, 0, i, W - i - 1, i);
    for (int i = 0; i < t; ++i)
        lines.add(etched && i < t / 2 ? Ink::A : Ink::B, W - t + i, t - i - (etched ? 1 : 0), W - t + i, H - 1);
    return lines.take();
}

std::vector<XPoint> lm::cutOffCorner(const Corner& corner)
{
    const auto [W, H, t, etched] = drawable(corner);
    const auto point = [](int x, int y) { return XPoint{static_cast<short>(x), static_cast<short>(y)}; };
    return {point(t, 0), point(W - 1, 0), point(W - 1, H - t - 1), point(t, 0)};
}

std::vector<lm::InkLine> lm::foldedCorner(const Corner& corner)
{
    const Corner c = drawable(corner);
    Lines lines;
    lines.add(Ink::B, c.t - 1, 0, c.W - 1, c.H - c.t);
    if (c.etched)
        addEtchedFold(lines, c);
    else
        addFold(lines, c);
    return lines.take();
}
