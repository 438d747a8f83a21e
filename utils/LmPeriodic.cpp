#include "LmPeriodic.h"

#include "LmApp.h"
#include "RequireApplication.h"

#include <algorithm>

const char* const LmPeriodic::timerCallback = "timerCallback";

void LmPeriodic::start(int interval)
{
    lm::requireApplication("LmPeriodic");
    if (interval != 0)
        _interval = interval;
    stop();
    if (!_starting) {
        const unsigned order = _orders;
        const lm::Watch here(liveness());
        _starting = true;
        callCallbacks(timerCallback, nullptr);
        if (!here)
            return;
        _starting = false;
        if (_orders != order)   // stopped meanwhile, or started again and armed already
            return;
    }
    arm();
}

void LmPeriodic::stop()
{
    ++_orders;
    _timer = {};
}

void LmPeriodic::arm()
{
    const auto milliseconds = static_cast<unsigned long>(std::max(_interval, 0));
    _timer = lm::TimerHandle(XtAppAddTimeOut(theApplication->appContext(), milliseconds, tickCallback, this));
}

void LmPeriodic::tickCallback(XtPointer self, XtIntervalId*) noexcept
{
    auto* periodic = static_cast<LmPeriodic*>(self);
    periodic->_timer.fired();
    const unsigned order = periodic->_orders;
    const lm::Watch here(periodic->liveness());
    periodic->callCallbacks(timerCallback, nullptr);
    if (here)
        periodic->tick();
    if (here && periodic->_orders == order)
        periodic->arm();
}
