#include "LmContextHelp.h"

#include "LmComponent.h"
#include "base/help/HelpRequest.h"
#include "support/handles.h"

#include <X11/Shell.h>
#include <Xm/Xm.h>

#include <cstring>
#include <string>

void LmHelpCallback(Widget, XtPointer, XtPointer) noexcept {}

void LmAddContextSmartHelpCallback(Widget) {}

// --- keys that the application gives -----------------------------------------------------------------------------------

static void freeKey(Widget, XtPointer key, XtPointer) noexcept { std::free(key); }

void LmAddContextHelpCallback(Widget w, const char* key)
{
    if (!w || XtHasCallbacks(w, XmNhelpCallback) == XtCallbackNoList)
        return;
    char* copy = key ? strdup(key) : nullptr;
    XtAddCallback(w, XmNhelpCallback, LmHelpCallback, copy);
    if (copy)
        XtAddCallback(w, XmNdestroyCallback, freeKey, copy);
}

void LmAddContextHelpCallback(LmComponent* c, Widget w, const char* key)
{
    if (c && key)
        LmAddContextHelpCallback(w, (std::string(c->name()) + "." + key).c_str());
}

void LmAddContextHelpCallback(LmComponent* c, Widget w)
{
    if (w)
        LmAddContextHelpCallback(c, w, XtName(w));
}

// --- keys that follow from names ---------------------------------------------------------------------------------------

/// Whether the event says where the pointer is, at the place where a key event does.
static bool hasPlace(const XEvent& event) { return event.type >= KeyPress && event.type <= LeaveNotify; }

/// The widget in whose window the event happened, or the gadget that it holds there.
static Widget targetOf(XEvent* event)
{
    if (!event || !event->xany.window)
        return nullptr;
    Widget w = XtWindowToWidget(event->xany.display, event->xany.window);
    if (!w || (!XtIsShell(w) && !XmIsManager(w)) || !hasPlace(*event))
        return w;
    Widget gadget = XmObjectAtPoint(w, static_cast<Position>(event->xkey.x), static_cast<Position>(event->xkey.y));
    return gadget ? gadget : w;
}

void _LmSmartHelpCallback(Widget w, XtPointer, XtPointer callData) noexcept
{
    if (!callData)
        return;
    const auto* call = static_cast<LmContextHelpCallbackStruct*>(callData);
    Widget target = call->reason == XmCR_HELP ? targetOf(call->event) : call->widget;
    if (!target)
        return;
    std::string key = XtName(target);
    const auto putInFront = [&key](Widget above) { key = std::string(XtName(above)).append(".").append(key); };
    Widget above = XtParent(target);
    for (; above && above != w; above = XtParent(above))
        putInFront(above);
    if (above)
        putInFront(above);
    lm::requestHelp(std::move(key), 0, above);
}
