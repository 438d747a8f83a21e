// WidgetWatch.h: does a widget still exist after events were dispatched?
#pragma once

#include <X11/IntrinsicP.h>
#include <X11/StringDefs.h>

namespace lm {

/// Watches one widget while events run. A widget whose destruction has begun is no use any more, though Xt may keep its
/// record for a while; afterwards the record must not even be read: the destroy callback tells.
class WidgetWatch {
public:
    explicit WidgetWatch(Widget w) : _widget(w)
    {
        if (_widget)
            XtAddCallback(_widget, XtNdestroyCallback, forget, this);
    }
    WidgetWatch(const WidgetWatch&) = delete;
    WidgetWatch& operator=(const WidgetWatch&) = delete;
    ~WidgetWatch()
    {
        if (_widget)
            XtRemoveCallback(_widget, XtNdestroyCallback, forget, this);
    }
    /// Whether the widget can be used.
    explicit operator bool() const { return _widget && !_widget->core.being_destroyed; }

private:
    static void forget(Widget, XtPointer self, XtPointer) noexcept { static_cast<WidgetWatch*>(self)->_widget = nullptr; }

    Widget _widget;   // null once destroyed
};

}   // namespace lm
