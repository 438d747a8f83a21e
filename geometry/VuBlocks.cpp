#include "geometry/VuBlocks.h"

#include <algorithm>
#include <array>

void lm::VuBlocks::layOut(int height, int spacing)
{
    blockHeight = gap = offset = 0;
    if (granularity <= 0 || size <= 0)
        return;
    blockHeight = height / granularity;
    gap = static_cast<int>(static_cast<double>(spacing) * blockHeight / size + 0.5);
    if (gap == 0 && blockHeight >= 2 && spacing != 0)
        gap = 1;
    gap = std::clamp(gap, 0, blockHeight);
    offset = gap + (height - granularity * blockHeight);
}

/// Units as pixels of the lit area, rounded, and never outside it.
static int pixels(const lm::VuBlocks& blocks, long long units)
{
    const double rows = static_cast<double>(units) * blocks.litHeight() / blocks.size + 0.5;
    return static_cast<int>(std::clamp(rows, 0.0, static_cast<double>(blocks.litHeight())));
}

lm::Run lm::VuBlocks::levelRun(int block, int value) const
{
    const int rows = litHeight();
    const long long first = static_cast<long long>(block) * unitsPerBlock;
    if (value <= first + 1)
        return {0, rows};
    if (value >= first + unitsPerBlock)
        return {};
    return {rows - pixels(*this, first + unitsPerBlock - value), rows};
}

lm::Run lm::VuBlocks::peakRun(int block, int peak) const
{
    const int rows = litHeight();
    const long long first = static_cast<long long>(block) * unitsPerBlock, last = first + unitsPerBlock;
    const long long markerTop = static_cast<long long>(peak) - peakHeight;
    if (peakBlock)
        return first < peak && peak <= last ? Run{0, rows} : Run{};
    if (markerTop <= first && last <= peak && peak <= static_cast<long long>(granularity) * unitsPerBlock)
        return {0, rows};   // the marker covers the whole block
    if (peak <= first || peak > last)
        return {};
    const int height = std::clamp(pixels(*this, peakHeight), std::min(1, rows), rows);
    const int bottom = std::max(pixels(*this, peak - first), height);
    return {bottom - height, bottom};
}

static bool isLit(const std::array<lm::Run, 2>& runs, int row) { return runs[0].contains(row) || runs[1].contains(row); }

lm::VuChange lm::vuChange(const VuBlocks& blocks, int block, const VuLevel& before, const VuLevel& after)
{
    VuChange change;
    const std::array old = {blocks.levelRun(block, before.value), blocks.peakRun(block, before.peak)};
    const std::array now = {blocks.levelRun(block, after.value), blocks.peakRun(block, after.peak)};
    if (old == now)
        return change;
    std::vector<int> edges = {0, blocks.litHeight()};
    for (const Run& run : {old[0], old[1], now[0], now[1]})
        edges.insert(edges.end(), {run.from, run.to});
    std::ranges::sort(edges);
    for (size_t i = 0; i + 1 < edges.size(); ++i) {
        const Run run = {edges[i], edges[i + 1]};
        const bool lit = isLit(now, run.from);
        if (run.from < run.to && lit != isLit(old, run.from))
            (lit ? change.fill : change.clear).push_back(run);
    }
    return change;
}
