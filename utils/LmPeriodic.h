// LmPeriodic: something done again and again, an interval apart.
#pragma once

#include "LmCallbackObject.h"
#include "support/handles.h"

/// A repeating timer. The interval runs from the end of one tick's work to the next tick. The work may stop, start and
/// delete the object.
///
///   Callbacks  timerCallback, at each tick and once at once when started; call data: null
///   Errors     a negative interval counts as 0; without the application object start() ends the program with status 1
class LM_API LmPeriodic : public LmCallbackObject {
public:
    static const char* const timerCallback;   ///< "timerCallback"

    /// Stopped; `interval` in milliseconds.
    explicit LmPeriodic(int interval) : _interval(interval) {}

    const char* className() override { return "LmPeriodic"; }
    /// Runs at each tick, after timerCallback. Does nothing here.
    virtual void tick() {}

    /// Announces timerCallback at once, and ticks from then on. An `interval` other than 0, in milliseconds, replaces the
    /// one before. Called inside the announcement that start() itself makes, it does not announce once more.
    void start(int interval = 0);
    /// Ends the ticks; the destructor does it, too.
    void stop();
    /// Milliseconds between two ticks.
    int interval() const { return _interval; }
    /// Whether the next tick is armed.
    bool isRunning() const { return static_cast<bool>(_timer); }

    /// The Xt timer procedure: one tick of the object given.
    static void tickCallback(XtPointer periodic, XtIntervalId* id) noexcept;

private:
    void arm();

    int _interval;            // milliseconds
    lm::TimerHandle _timer;   // empty when stopped, and while a tick runs
    bool _starting = false;   // start() announces
    unsigned _orders = 0;     // how often start() or stop() was called: later ones replace earlier ones
};
