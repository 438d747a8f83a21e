// xt.h: member functions as Xt procedures, without a hand-written trampoline for each.
#pragma once

#include <X11/Intrinsic.h>

namespace lm {

template <class> struct Method;   // for void (T::*)(), void (T::*)(CallData*) and Boolean (T::*)()

template <class T> struct Method<void (T::*)()> {
    using Object = T;
    template <auto M> static void call(Widget, XtPointer self, XtPointer) noexcept { (static_cast<T*>(self)->*M)(); }
    template <auto M> static void timer(XtPointer self, XtIntervalId*) noexcept { (static_cast<T*>(self)->*M)(); }
    template <auto M> static void input(XtPointer self, int*, XtInputId*) noexcept { (static_cast<T*>(self)->*M)(); }
};

template <class T, class CallData> struct Method<void (T::*)(CallData*)> {
    using Object = T;
    template <auto M> static void call(Widget, XtPointer self, XtPointer data) noexcept
    {
        (static_cast<T*>(self)->*M)(static_cast<CallData*>(data));
    }
    template <auto M> static void event(Widget, XtPointer self, XEvent* event, Boolean*) noexcept
    {
        (static_cast<T*>(self)->*M)(event);
    }
};

template <class T> struct Method<Boolean (T::*)()> {
    using Object = T;
    template <auto M> static Boolean work(XtPointer self) noexcept { return (static_cast<T*>(self)->*M)(); }
};

template <auto M> using ObjectOf = typename Method<decltype(M)>::Object;

/// Has Xt call M on `object` whenever the widget's callback list `list` runs. M takes nothing, or the call data.
/// The parameter type converts `object` to the class that declares M before it
/// becomes an XtPointer, so the cast back in the trampoline is always to the same type.
template <auto M> void on(Widget w, const char* list, ObjectOf<M>* object)
{
    XtAddCallback(w, list, Method<decltype(M)>::template call<M>, object);
}

/// Undoes the `on` with the same arguments.
template <auto M> void off(Widget w, const char* list, ObjectOf<M>* object)
{
    XtRemoveCallback(w, list, Method<decltype(M)>::template call<M>, object);
}

/// Has Xt call M with every event that the mask selects on the widget.
template <auto M> void onEvent(Widget w, EventMask mask, ObjectOf<M>* object)
{
    XtAddEventHandler(w, mask, False, Method<decltype(M)>::template event<M>, object);
}

/// Undoes the `onEvent` with the same arguments.
template <auto M> void offEvent(Widget w, EventMask mask, ObjectOf<M>* object)
{
    XtRemoveEventHandler(w, mask, False, Method<decltype(M)>::template event<M>, object);
}

/// Has Xt call M once, `milliseconds` from now. M zeroes its stored id first: Xt uses ids again.
template <auto M> XtIntervalId after(XtAppContext context, unsigned long milliseconds, ObjectOf<M>* object)
{
    return XtAppAddTimeOut(context, milliseconds, Method<decltype(M)>::template timer<M>, object);
}

/// Has Xt call M in idle time until it answers True.
template <auto M> XtWorkProcId whenIdle(XtAppContext context, ObjectOf<M>* object)
{
    return XtAppAddWorkProc(context, Method<decltype(M)>::template work<M>, object);
}

/// Has Xt call M whenever the descriptor is ready as `condition` (XtInputReadMask ...) says.
template <auto M> XtInputId whenReady(XtAppContext context, int descriptor, XtInputMask condition, ObjectOf<M>* object)
{
    return XtAppAddInput(context, descriptor, reinterpret_cast<XtPointer>(condition), Method<decltype(M)>::template input<M>,
                         object);
}

/// When the event happened, in server time; 0 for null and for events that carry no time.
inline Time timeOf(const XEvent* event)
{
    switch (event ? event->type : 0) {
    case KeyPress:
    case KeyRelease:
        return event->xkey.time;
    case ButtonPress:
    case ButtonRelease:
        return event->xbutton.time;
    case MotionNotify:
        return event->xmotion.time;
    case EnterNotify:
    case LeaveNotify:
        return event->xcrossing.time;
    case SelectionNotify:
        return event->xselection.time;
    default:
        return 0;
    }
}

}   // namespace lm
