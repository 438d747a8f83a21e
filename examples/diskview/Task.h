// Task.h: work in idle time, given as a function.
#pragma once

#include <Lm/LmBackground.h>

#include <functional>

/// Calls the function again and again while the program is idle, until it answers true. It may start the task again.
class Task : public LmBackground {
public:
    explicit Task(std::function<bool()> slice) : _slice(std::move(slice)) {}

    const char* className() override { return "Task"; }
    Boolean timeSlice() override { return _slice(); }

private:
    std::function<bool()> _slice;
};
