#include "LmComponent.h"

#include "support/PointerSet.h"

#include <X11/IntrinsicP.h>
#include <X11/StringDefs.h>
#include <X11/Xresource.h>

#include <string>
#include <string_view>

const char* const LmComponent::deleteCallback = "deleteCallback";

/// The components now alive. isComponent() asks here first: a compiler may drop the last stores of a destructor,
/// and freed memory must not be read.
static lm::PointerSet& livingComponents()
{
    static auto& components = *new lm::PointerSet;   // components may outlive every static
    return components;
}

LmComponent::LmComponent() : LmComponent(nullptr) {}

/// Xt keeps a widget's name for ever, as a quark; sharing it costs the component nothing.
static const char* keptName(const char* name) { return XrmQuarkToString(XrmStringToQuark(name)); }

LmComponent::LmComponent(const char* name) : _name(keptName(name ? name : "component")) { livingComponents().insert(this); }

LmComponent::~LmComponent()
{
    callCallbacks(deleteCallback, nullptr);
    if (_baseWidget) {
        removeDestroyHandler();
        if (XtIsWidget(_baseWidget))   // destruction may be put off, and the widget mapped once more before it
            XtRemoveEventHandler(_baseWidget, StructureNotifyMask, False, afterRealizeEventHandler, this);
        XtDestroyWidget(_baseWidget);
        _baseWidget = nullptr;
    }
    livingComponents().erase(this);
}

void LmComponent::setName(const char* name) { _name = keptName(name); }

bool LmComponent::isComponent(LmComponent* component)
{
    if (!component || !livingComponents().contains(component))
        return false;
    return static_cast<unsigned char>(component->_name[0]) < 0x80;
}

void LmComponent::show()
{
    if (!_baseWidget)
        return;
    if (XtIsWidget(_baseWidget) && !XtIsRealized(_baseWidget))
        XtAddEventHandler(_baseWidget, StructureNotifyMask, False, afterRealizeEventHandler, this);
    if (XtHasCallbacks(_baseWidget, XtNdestroyCallback) != XtCallbackHasSome)
        installDestroyHandler();
    if (!XtIsShell(_baseWidget))
        XtManageChild(_baseWidget);
}

void LmComponent::hide()
{
    if (_baseWidget)
        XtUnmanageChild(_baseWidget);
}

void LmComponent::realize()
{
    if (_baseWidget)
        XtRealizeWidget(_baseWidget);
}

void LmComponent::setAttribute(const char*, void*) {}

void LmComponent::getAttribute(const char*, void**) {}

void LmComponent::widgetDestroyed() { _baseWidget = nullptr; }

void LmComponent::widgetDestroyedCallback(Widget w, XtPointer clientData, XtPointer) noexcept
{
    auto* component = static_cast<LmComponent*>(clientData);
    if (component->_baseWidget == w)
        component->widgetDestroyed();
}

void LmComponent::afterRealizeEventHandler(Widget w, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    if (event->type != MapNotify)
        return;
    XtRemoveEventHandler(w, StructureNotifyMask, False, afterRealizeEventHandler, clientData);
    static_cast<LmComponent*>(clientData)->afterRealizeHook();
}

void LmComponent::installDestroyHandler()
{
    if (!_baseWidget)
        return;
    removeDestroyHandler();   // never twice: the destructor takes back one registration
    XtAddCallback(_baseWidget, XtNdestroyCallback, widgetDestroyedCallback, this);
}

void LmComponent::removeDestroyHandler()
{
    if (_baseWidget)
        XtRemoveCallback(_baseWidget, XtNdestroyCallback, widgetDestroyedCallback, this);
}

void LmComponent::getResources(XtResourceList resources, int numResources)
{
    if (!_baseWidget)
        return;
    const auto count = static_cast<Cardinal>(numResources);
    if (Widget parent = XtParent(_baseWidget))
        XtGetSubresources(parent, this, _name, className(), resources, count, nullptr, 0);
    else if (XtIsShell(_baseWidget))
        XtGetApplicationResources(_baseWidget, this, resources, count, nullptr, 0);
}

/// The lines of a default resource list as one text, each ended by a newline.
static std::string resourceLines(std::string_view name, const String* defaults)
{
    const bool addressable = name.find_first_of(":*\n") == std::string_view::npos;
    std::string text;
    for (const String* line = defaults; *line; ++line) {
        if (**line == '-')
            text.append(*line + 1).append("\n");
        else if (addressable)
            text.append("*").append(name).append("*").append(*line).append("\n");
    }
    return text;
}

void LmComponent::setDefaultResources(Widget w, const String* defaults)
{
    if (!w || !defaults)
        return;
    XrmDatabase database = XtDatabase(XtDisplayOfObject(w));
    if (XrmDatabase parsed = XrmGetStringDatabase(resourceLines(_name, defaults).c_str()))
        XrmCombineDatabase(parsed, &database, False);   // takes `parsed` over
}
