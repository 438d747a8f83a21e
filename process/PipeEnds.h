// PipeEnds.h: the two ends of a pipe.
#pragma once

#include "support/handles.h"

namespace lm {

/// A pipe. Both ends are close-on-exec and above the standard descriptors, also in a program that was started without
/// these: the numbers 0, 1 and 2 are for what a child inherits.
struct PipeEnds {
    FileDescriptor read, write;
    explicit operator bool() const { return read && write; }
};

/// A new pipe, empty after a failure (with errno).
PipeEnds openPipe();

/// Has reads and writes fail with EAGAIN where they would wait. False after a failure (with errno).
bool makeNonBlocking(int fd);

}   // namespace lm
