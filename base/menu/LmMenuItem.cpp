#include "LmMenuItem.h"

#include "LmComponentList.h"
#include "LmMenu.h"
#include "LmSubMenu.h"
#include "support/resources.h"
#include "utils/CompoundResource.h"

#include <Xm/RowColumn.h>

#include <algorithm>
#include <cstring>
#include <utility>

Widget LmMenuItem::_unmanagedWidgets[batchSize];
int LmMenuItem::_numUnmanagedWidgets = 0;
LmComponentList* LmMenuItem::_workProcList = nullptr;

LmMenuItem::LmMenuItem(const char* name) : LmComponent(name), _isNamed(name != nullptr) {}

LmMenuItem::LmMenuItem() : LmMenuItem(nullptr) {}

LmMenuItem::~LmMenuItem()
{
    unqueue(_baseWidget);
    if (_parentMenu)
        _parentMenu->removeMenuEntry(this);
}

// --- before and after the widget exists --------------------------------------------------------------------------------

void LmMenuItem::show()
{
    _isHidden = false;
    if (_baseWidget)
        XtManageChild(_baseWidget);
}

void LmMenuItem::show(Widget parent)
{
    build(parent);
    show();
}

void LmMenuItem::hide()
{
    _isHidden = true;
    unqueue(_baseWidget);
    if (_baseWidget)
        XtUnmanageChild(_baseWidget);
}

void LmMenuItem::activate()
{
    _sensitive = 1;
    applySensitivity();
}

void LmMenuItem::deactivate()
{
    _sensitive = 0;
    applySensitivity();
}

void LmMenuItem::applySensitivity()
{
    if (_baseWidget && _sensitive != -1)
        XtSetSensitive(_baseWidget, _sensitive != 0);
}

void LmMenuItem::setLabel(const char* text) { setLabelOf(_baseWidget, text); }

void LmMenuItem::setLabelOf(Widget labelled, const char* text)
{
    if (!text)
        return;
    if (text != _label.get())
        _label.reset(strdup(text));
    if (labelled)
        XtVaSetValues(labelled, XmNlabelString, lm::labelResource(_baseWidget, _label.get()).get(), nullptr);
}

// --- building ----------------------------------------------------------------------------------------------------------

void LmMenuItem::build(Widget) {}

bool LmMenuItem::makeWidget(WidgetClass kind, Widget parent, Takes takes)
{
    if (_isBuilt)
        return false;
    _isBuilt = true;
    Arg args[] = {{lm::xtText(XmNpositionIndex), static_cast<XtArgVal>(_position)},
                  {lm::xtText(XmNuserData), reinterpret_cast<XtArgVal>(this)}};
    _baseWidget = XtCreateWidget(LmComponent::name(), kind, parent, args, 2);
    if (_label && takes == Takes::Everything) {
        const lm::CString copy(strdup(_label.get()));   // an override may replace the label
        setLabel(copy.get());
    }
    queueForManaging();
    installDestroyHandler();
    if (takes == Takes::Everything)
        applySensitivity();
    return true;
}

void LmMenuItem::queueForManaging()
{
    if (_numUnmanagedWidgets == batchSize)
        manageAll();
    if (!_isHidden)
        _unmanagedWidgets[_numUnmanagedWidgets++] = _baseWidget;
}

void LmMenuItem::unqueue(Widget w)
{
    if (w)
        _numUnmanagedWidgets =
            static_cast<int>(std::remove(_unmanagedWidgets, _unmanagedWidgets + _numUnmanagedWidgets, w) - _unmanagedWidgets);
}

void LmMenuItem::manageAll()
{
    Widget* first = _unmanagedWidgets;
    Widget* const end = first + std::exchange(_numUnmanagedWidgets, 0);
    while (first != end) {   // Xt refuses widgets of several parents in one call
        Widget* const next =
            std::stable_partition(first, end, [parent = XtParent(*first)](Widget w) { return XtParent(w) == parent; });
        XtManageChildren(first, static_cast<Cardinal>(next - first));
        first = next;
    }
}

Widget LmMenuItem::baseWidget() const
{
    if (!_baseWidget)
        completePendingBuilds();
    return _baseWidget;
}

void LmMenuItem::completePendingBuilds()
{
    while (_workProcList)   // panes built meanwhile may have panes of their own
        static_cast<LmSubMenu*>((*_workProcList)[0])->completeBuild();
}

// --- the end -----------------------------------------------------------------------------------------------------------

void LmMenuItem::widgetDestroyed()
{
    unqueue(_baseWidget);
    _isBuilt = false;
    LmComponent::widgetDestroyed();
}

void LmMenuItem::dropWidget()
{
    if (!_baseWidget)
        return;
    if (isContainer())
        static_cast<LmMenu*>(this)->endUse();
    removeDestroyHandler();
    XtDestroyWidget(_baseWidget);
    widgetDestroyed();
}

int LmMenuItem::remove()
{
    dropWidget();
    return _parentMenu ? std::exchange(_parentMenu, nullptr)->removeMenuEntry(this) : 0;
}
