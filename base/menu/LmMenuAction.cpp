#include "LmMenuAction.h"

#include "LmMenuUndoManager.h"

#include <Xm/PushB.h>
#include <Xm/PushBG.h>

LmMenuAction::LmMenuAction(const char* name, XtCallbackProc callback, XtPointer clientData)
    : LmMenuAction(name, callback, nullptr, clientData)
{}

LmMenuAction::LmMenuAction(const char* name, XtCallbackProc callback, XtCallbackProc undoCallback, XtPointer clientData)
    : LmMenuItem(name),
      _undoCallback(undoCallback),
      _callback(callback),
      _clientData(clientData)
{}

LmMenuAction::~LmMenuAction()
{
    if (_undoEntries > 0)
        LmMenuUndoManager::forget(this);
}

void LmMenuAction::build(Widget parent)
{
    if (!makeWidget(xmPushButtonGadgetClass, parent))
        return;
    if (_callback)
        XtAddCallback(_baseWidget, XmNactivateCallback, _callback, _clientData);
    if (_undoCallback)
        XtAddCallback(_baseWidget, XmNactivateCallback, registerUndoCallback, this);
}

void LmMenuAction::undo()
{
    if (_undoCallback)
        _undoCallback(_baseWidget, _clientData, nullptr);
}

void registerUndoCallback(Widget, XtPointer item, XtPointer) noexcept
{
    auto* action = static_cast<LmMenuAction*>(item);
    if (LmComponent::isComponent(action))   // its own callback, which ran before, may have deleted it
        getTheUndoManager()->add(action);
}

void LmMenuActionWidget::build(Widget parent)
{
    if (makeWidget(xmPushButtonWidgetClass, parent) && _callback)
        XtAddCallback(_baseWidget, XmNactivateCallback, _callback, _clientData);
}

// --- objects and stubs -------------------------------------------------------------------------------------------------

LmMenuActionObject::LmMenuActionObject(const char* name, void* data)
    : LmMenuAction(name, doitCallback, undoitCallback, this),
      _objectData(data)
{}

void LmMenuActionObject::doitCallback(Widget, XtPointer object, XtPointer) noexcept
{
    auto* self = static_cast<LmMenuActionObject*>(object);
    self->doit(self->_objectData);
}

void LmMenuActionObject::undoitCallback(Widget, XtPointer object, XtPointer) noexcept
{
    auto* self = static_cast<LmMenuActionObject*>(object);
    self->undoit(self->_objectData);
}

LmMenuActionStub::LmMenuActionStub(const char* name, XtCallbackProc undoCallback, XtPointer clientData)
    : LmMenuAction(name, undoCallback, undoCallback, clientData)
{}
