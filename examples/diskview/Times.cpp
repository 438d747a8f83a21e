#include "Times.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using Milliseconds = std::chrono::duration<double, std::milli>;

Times::Times() : LmPeriodic(1), _isWanted(std::getenv("DISKVIEW_TIMES") != nullptr) {}

void Times::begin()
{
    _start = _turn = Clock::now();
    _longest = 0;
    if (_isWanted)
        start();
}

void Times::tick()
{
    const auto now = Clock::now();
    _longest = std::max(_longest, Milliseconds(now - _turn).count());
    _turn = now;
}

void Times::say(const char* step)
{
    if (!_isWanted)
        return;
    tick();
    std::fprintf(stderr, "%-12s after %7.1f ms, longest gap %5.1f ms\n", step, Milliseconds(_turn - _start).count(), _longest);
}
