// LmBackground: work done in slices while the application is idle.
#pragma once

#include "LmCallbackObject.h"
#include "support/handles.h"

/// A work procedure as an object: derive, override timeSlice(), start(). Each slice should be short; the application takes
/// no events meanwhile. timeSlice() may stop, start and delete the object itself.
///
///   Errors     without the application object start() ends the program with status 1
class LM_API LmBackground : public LmCallbackObject {
public:
    const char* className() override { return "LmBackground"; }
    /// Does one piece of the work. True: all is done; False: call again.
    virtual Boolean timeSlice() = 0;

    /// Has timeSlice() called in idle time until it answers True. Started again, it is still called once at a time.
    void start();
    /// Ends that; the destructor does it, too.
    void stop();
    /// Whether slices are to come. Inside timeSlice(): whether start() was called there.
    bool isRunning() const { return static_cast<bool>(_workProc); }

    /// The Xt work procedure: one slice of the object given.
    static Boolean timeSliceCallback(XtPointer background) noexcept;

private:
    lm::WorkProcHandle _workProc;   // empty when stopped, and while a slice runs
    bool _goesOn = false;           // while a slice runs: neither stop() nor start() was called in it
};
