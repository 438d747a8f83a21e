// Times.h: measures how the program answers while it works.
#pragma once

#include <Lm/LmPeriodic.h>

#include <chrono>

/// With DISKVIEW_TIMES in the environment: how long the steps of the work took, and the longest time for which the event loop
/// did not come round meanwhile, on standard error.
class Times : public LmPeriodic {
public:
    Times();

    const char* className() override { return "Times"; }
    void tick() override;
    void begin();
    /// A step is done, the last one or not.
    void say(const char* step);

private:
    using Clock = std::chrono::steady_clock;

    bool _isWanted;
    Clock::time_point _start, _turn;
    double _longest = 0;   // milliseconds
};
