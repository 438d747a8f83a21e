// VuBlocks.h: the column of blocks of a level meter: where they are, and which of their rows are lit.
#pragma once

#include <vector>

namespace lm {

/// Rows of a block's lit area, from the top: [from, to), empty when to <= from.
struct Run {
    int from = 0, to = 0;
    bool contains(int row) const { return from <= row && row < to; }
    bool operator==(const Run&) const = default;
};

/// What a level meter shows. Values count downwards from the top: 0 lights the whole column, the highest value nothing.
struct VuLevel {
    int value = 0, peak = 0;
    bool operator==(const VuLevel&) const = default;
};

/// The blocks of a level meter of some height. A granularity or size of 0 or less gives no blocks.
struct VuBlocks {
    int granularity = 0;   // blocks
    int size = 0;          // units that a block's lit area stands for
    int unitsPerBlock = 0;
    int peakHeight = 1;                         // units
    bool peakBlock = false;                     // the peak lights its whole block
    int blockHeight = 0, gap = 0, offset = 0;   // pixels: a block with its gap, the gap below it, the first block's top

    /// Computes the pixels for an area `height` high whose blocks are `spacing` units apart.
    void layOut(int height, int spacing);
    /// The rows of a lit area.
    int litHeight() const { return blockHeight > gap ? blockHeight - gap : 0; }
    /// The y of a block's upper edge.
    int top(int block) const { return offset + block * blockHeight; }
    /// The rows of a block that the level lights, and those that the peak lights.
    Run levelRun(int block, int value) const;
    Run peakRun(int block, int peak) const;
};

/// The rows of a block that are lit in one state and dark in the other.
struct VuChange {
    std::vector<Run> fill, clear;
};

/// What has to be painted in a block when the level changes; nothing when the block looks the same.
VuChange vuChange(const VuBlocks& blocks, int block, const VuLevel& before, const VuLevel& after);

}   // namespace lm
