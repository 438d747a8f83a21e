#include "LmMenuUndoManager.h"

#include "LmComponentList.h"
#include "support/xmtext.h"
#include "utils/CompoundResource.h"

#include <Xm/Xm.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

/// Every undo manager alive: a deleted action leaves all stacks.
static std::vector<LmMenuUndoManager*>& managers()
{
    static auto& all = *new std::vector<LmMenuUndoManager*>;   // the managers may outlive every static
    return all;
}

LmMenuUndoManager::LmMenuUndoManager(const char* name) : LmMenuAction(name, undoCallback, this), _undoStack(new LmComponentList)
{
    _outlivesMenu = true;
    deactivate();
    managers().push_back(this);
}

LmMenuUndoManager::~LmMenuUndoManager()
{
    std::erase(managers(), this);
    _sensitive = -1;   // the widget is about to go
    reset();
    delete _undoStack;
}

LmMenuUndoManager* getTheUndoManager()
{
    static auto* manager = new LmMenuUndoManager("Undo");
    return manager;
}

void LmMenuUndoManager::build(Widget parent)
{
    if (_isBuilt)
        return;
    LmMenuAction::build(parent);
    XmString label = nullptr;
    XtVaGetValues(_baseWidget, XmNlabelString, &label, nullptr);
    _baseLabel.reset(label);
    deactivate();
    if (size() == 0)
        return;
    setUndoLabel();   // things were done before the entry was there
    activate();
}

// --- the stack ---------------------------------------------------------------------------------------------------------

int LmMenuUndoManager::size() const { return _undoStack->size(); }

LmMenuAction* LmMenuUndoManager::newest() const { return static_cast<LmMenuAction*>((*_undoStack)[size() - 1]); }

void LmMenuUndoManager::push(LmMenuAction* action)
{
    _undoStack->add(action);
    ++action->_undoEntries;
}

void LmMenuUndoManager::popNewest()
{
    --newest()->_undoEntries;
    _undoStack->removeLast(newest());
}

void LmMenuUndoManager::add(LmMenuAction* action)
{
    if (!action)
        return;
    if (_undoPerformed)
        reset();
    _undoPerformed = false;
    push(action);
    setUndoLabel();
    activate();
}

void LmMenuUndoManager::add(const char* name, XtCallbackProc undoProc, XtPointer clientData)
{
    add(new LmMenuActionStub(name, undoProc, clientData));
}

static bool isStub(LmMenuAction* action) { return action->menuType() == MENU_ACTION_STUB; }

void LmMenuUndoManager::undo()
{
    _undoPerformed = true;
    if (size() == 0)
        return;
    LmMenuAction* action = newest();
    popNewest();
    const std::unique_ptr<LmMenuAction> stub(isStub(action) ? action : nullptr);
    const lm::Watch here(liveness());
    action->undo();
    if (!here)
        return;
    if (size() == 0)
        deactivate();
    if (!_multiLevel)
        reset();
    setUndoLabel();
}

void LmMenuUndoManager::reset()
{
    while (size() > 0) {
        LmMenuAction* action = newest();
        popNewest();
        if (isStub(action))
            delete action;
    }
    _undoPerformed = false;
    deactivate();
}

void LmMenuUndoManager::undoCallback(Widget, XtPointer manager, XtPointer) noexcept
{
    static_cast<LmMenuUndoManager*>(manager)->undo();
}

// --- actions that die --------------------------------------------------------------------------------------------------

/// Rebuilds the stack without the entries that the condition names.
template <class Condition> void LmMenuUndoManager::removeWhere(Condition condition)
{
    auto* kept = new LmComponentList;
    for (int i = 0; i < size(); ++i) {
        auto* action = static_cast<LmMenuAction*>((*_undoStack)[i]);
        if (!condition(action))
            kept->add(action);
    }
    const bool changed = kept->size() != size();
    delete std::exchange(_undoStack, kept);
    if (!changed)
        return;
    if (size() == 0)
        deactivate();
    setUndoLabel();
}

void LmMenuUndoManager::forget(LmMenuAction* dying)
{
    for (LmMenuUndoManager* manager : managers())
        manager->removeWhere([dying](LmMenuAction* action) { return action == dying; });
}

void LmMenuUndoManager::forget(const LmAction* dying)
{
    for (LmMenuUndoManager* manager : managers())
        manager->removeWhere([dying](LmMenuAction* action) {
            if (!isStub(action) || action->_undoCallback != LmAction::undoitCallback || action->_clientData != dying)
                return false;
            action->_undoEntries = 0;
            delete action;
            return true;
        });
}

// --- the label ---------------------------------------------------------------------------------------------------------

lm::XmText LmMenuUndoManager::labelOf(LmMenuAction* action)
{
    XmString label = nullptr;
    if (Widget w = widgetOf(action))
        XtVaGetValues(w, XmNlabelString, &label, nullptr);
    if (!label && action->name())
        return lm::labelResource(_baseWidget, action->name());
    return lm::XmText(label);
}

void LmMenuUndoManager::setUndoLabel()
{
    if (!_baseWidget)
        return;
    if (size() == 0) {
        XtVaSetValues(_baseWidget, XmNlabelString, _baseLabel.get(), nullptr);
        return;
    }
    const lm::XmText action = labelOf(newest()), colon = lm::compound(": ");
    const lm::XmText prefix(XmStringConcat(_baseLabel.get(), colon.get()));
    const lm::XmText label(XmStringConcat(prefix.get(), action.get()));
    XtVaSetValues(_baseWidget, XmNlabelString, label.get(), nullptr);
}

// --- command objects ---------------------------------------------------------------------------------------------------

LmAction::LmAction(const char* name) : _name(strdup(name ? name : "")) {}

LmAction::~LmAction() { LmMenuUndoManager::forget(this); }

void LmAction::execute()
{
    const lm::Watch here(_alive);
    doit();
    if (here)
        getTheUndoManager()->add(_name.get(), undoitCallback, this);
}

void LmAction::undoitCallback(Widget, XtPointer action, XtPointer) noexcept { static_cast<LmAction*>(action)->undoit(); }
