#include "LmBackground.h"

#include "LmApp.h"
#include "RequireApplication.h"

#include <utility>

void LmBackground::start()
{
    lm::requireApplication("LmBackground");
    stop();
    _workProc = lm::WorkProcHandle(XtAppAddWorkProc(theApplication->appContext(), timeSliceCallback, this));
}

void LmBackground::stop()
{
    _workProc = {};
    _goesOn = false;
}

/// Xt holds a work procedure outside its queue while it runs: there is nothing to remove then, but the answer decides
/// whether it comes back, under the same id.
Boolean LmBackground::timeSliceCallback(XtPointer self) noexcept
{
    auto* background = static_cast<LmBackground*>(self);
    const XtWorkProcId id = background->_workProc.get();
    background->_workProc.fired();
    background->_goesOn = true;
    const lm::Watch here(background->liveness());
    const Boolean finished = background->timeSlice();
    if (!here)
        return True;
    const bool goesOn = std::exchange(background->_goesOn, false);
    if (finished || !goesOn)
        return True;
    background->_workProc = lm::WorkProcHandle(id);
    return False;
}
