// ForkedChild.h: whether this process is a child on its way to another program.
#pragma once

namespace lm {

/// Set by the child right after it was made, and cleared by the parent, which may share its memory.
extern volatile bool isForkedChild;

}   // namespace lm
