#include "base/core/EventLoop.h"

#include "LmApp.h"

void lm::dispatch(XEvent* event)
{
    if (!XtDispatchEvent(event))
        theApplication->handleRawEvent(event);
}

void lm::dispatchNextEvent()
{
    XEvent event;
    XtAppNextEvent(theApplication->appContext(), &event);
    dispatch(&event);
}

namespace {

/// One loop that runs until a condition holds. Xt tells when it is about to block; a loop that is over then gets an event
/// that means nothing, so that its wait ends. Only the innermost loop does so: the outer ones have to wait for it.
class ConditionLoop {
public:
    explicit ConditionLoop(const std::function<bool()>& over) : _over(over), _outer(innermost)
    {
        static const XtBlockHookId hook = XtAppAddBlockHook(theApplication->appContext(), aboutToBlock, nullptr);
        static_cast<void>(hook);   // one for all loops: it costs nothing while none runs
        innermost = this;
    }
    ConditionLoop(const ConditionLoop&) = delete;
    ConditionLoop& operator=(const ConditionLoop&) = delete;
    ~ConditionLoop() { innermost = _outer; }
    void run(const std::function<void(const XEvent&)>& seen)
    {
        while (!_over()) {
            XEvent event;
            XtAppNextEvent(theApplication->appContext(), &event);
            if (seen)
                seen(event);
            lm::dispatch(&event);
        }
    }

private:
    static void aboutToBlock(XtPointer) noexcept
    {
        if (!innermost || !innermost->_over())
            return;
        XEvent nothing = {};
        nothing.xclient.type = ClientMessage;
        nothing.xclient.display = theApplication->display();
        nothing.xclient.window = XtWindow(theApplication->baseWidget());
        nothing.xclient.format = 32;
        XPutBackEvent(theApplication->display(), &nothing);
    }

    static inline ConditionLoop* innermost = nullptr;

    const std::function<bool()>& _over;
    ConditionLoop* _outer;
};

}   // namespace

void lm::dispatchUntil(const std::function<bool()>& over, const std::function<void(const XEvent&)>& seen)
{
    ConditionLoop(over).run(seen);
}
