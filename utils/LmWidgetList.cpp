#include "LmWidgetList.h"

#include <X11/StringDefs.h>

#include <algorithm>

LmWidgetList::~LmWidgetList()
{
    for (Widget w : _widgets)
        XtRemoveCallback(w, XtNdestroyCallback, widgetDestroyedCallback, this);
}

void LmWidgetList::add(Widget w)
{
    if (!w)
        return;
    _widgets.push_back(w);
    XtAddCallback(w, XtNdestroyCallback, widgetDestroyedCallback, this);
}

void LmWidgetList::add(LmComponent* component)
{
    if (component)
        add(component->baseWidget());
}

void LmWidgetList::remove(LmComponent* component)
{
    if (component)
        remove(component->baseWidget());
}

void LmWidgetList::removeAt(std::vector<Widget>::iterator at)
{
    Widget w = *at;
    _widgets.erase(at);
    XtRemoveCallback(w, XtNdestroyCallback, widgetDestroyedCallback, this);
}

void LmWidgetList::remove(Widget w)
{
    const auto at = std::ranges::find(_widgets, w);
    if (w && at != _widgets.end())
        removeAt(at);
}

void LmWidgetList::removeFirst()
{
    if (!_widgets.empty())
        remove(_widgets.front());
}

void LmWidgetList::removeLast()
{
    if (!_widgets.empty())
        removeAt(std::prev(_widgets.end()));
}

bool LmWidgetList::exists(Widget w) { return std::ranges::find(_widgets, w) != _widgets.end(); }

void LmWidgetList::widgetDestroyed(Widget w, void*) { remove(w); }

Widget LmWidgetList::operator[](int index) const
{
    return index >= 0 && index < size() ? _widgets[static_cast<size_t>(index)] : nullptr;
}

void LmWidgetList::widgetDestroyedCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmWidgetList*>(clientData)->widgetDestroyed(w, callData);
}
