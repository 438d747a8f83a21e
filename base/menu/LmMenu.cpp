#include "LmMenu.h"

#include "LmMenuAction.h"
#include "LmMenuConfirmFirstAction.h"
#include "LmMenuLabel.h"
#include "LmMenuToggle.h"
#include "LmSubMenu.h"
#include "base/menu/Panes.h"
#include "base/menu/TableNesting.h"

#include <Xm/RowColumn.h>

#include <strings.h>

#include <algorithm>
#include <chrono>
#include <cstring>

bool LmMenu::_useWorkProcs = true;

/// The room of a new menu; a full one grows by half: 3, 4, 6, 9, 13 ...
static constexpr int firstRoom = 3;

LmMenu::LmMenu() : LmMenu("menu") {}

LmMenu::LmMenu(const char* name)
    : LmMenuItem(name),
      _contents(reinterpret_cast<LmMenuItem**>(XtCalloc(firstRoom, sizeof(LmMenuItem*)))),
      _maxItems(firstRoom)
{}

LmMenu::LmMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData) : LmMenu(name)
{
    handleMenuDescriptor(desc, defaultClientData);
}

LmMenu::LmMenu(const LmMenuDesc* desc, XtPointer defaultClientData) : LmMenu("menu", desc, defaultClientData) {}

LmMenu::~LmMenu()
{
    deleteItems();
    XtFree(reinterpret_cast<char*>(_contents));
}

void LmMenu::deleteItems()
{
    while (_nItems > 0) {
        LmMenuItem* last = _contents[_nItems - 1];
        if (last->_outlivesMenu)
            last->remove();
        else
            delete last;
    }
}

void LmMenu::widgetDestroyed()
{
    dropItems();
    LmMenuItem::widgetDestroyed();
}

void LmMenu::endUse()
{
    lm::popDown(menuParent());
    lm::bringBack(menuParent());
    for (int i = 0; i < _nItems; ++i) {
        if (_contents[i]->isContainer())
            static_cast<LmMenu*>(_contents[i])->endUse();
    }
}

/// The items' widgets die with their parent; here they are forgotten, whichever dies first.
void LmMenu::dropItems()
{
    for (int i = 0; i < _nItems; ++i)
        _contents[i]->dropWidget();
    _firstUnbuilt = 0;
    _isBuilt = false;
}

// --- filling -----------------------------------------------------------------------------------------------------------

void LmMenu::handleMenuDescriptor(const LmMenuDesc* desc, XtPointer defaultClientData)
{
    if (!desc)
        return;
    const lm::TableNesting nesting(desc);
    if (!nesting.isAllowed())
        return;
    for (const LmMenuDesc* entry = desc; entry->menuType != MENU_END; ++entry)
        addEntry(*entry, entry->clientData ? entry->clientData : defaultClientData, defaultClientData);
}

void LmMenu::addEntry(const LmMenuDesc& entry, XtPointer clientData, XtPointer defaultClientData)
{
    switch (static_cast<int>(entry.menuType)) {
    case MENU_ACTION:
        addAction(entry.name, entry.callback, entry.undoCallback, clientData, -1);
        break;
    case MENU_ACTION_WIDGET:
        addActionWidget(entry.name, entry.callback, entry.undoCallback, clientData, -1);
        break;
    case MENU_SUBMENU:
        addSubmenu(entry.name, entry.submenu, defaultClientData);
        break;
    case MENU_RADIO_SUBMENU:
        addRadioSubmenu(entry.name, entry.submenu, defaultClientData);
        break;
    case MENU_SEPARATOR:
        addSeparator();
        break;
    case MENU_LABEL:
        addLabel(entry.name);
        break;
    case MENU_TOGGLE:
        addToggle(entry.name, entry.callback, clientData, -1);
        break;
    case MENU_CONFIRM_FIRST_ACTION:
        addConfirmFirstAction(entry.name, entry.callback, clientData);
        break;
    default:
        break;
    }
}

/// Enters a new item and hands it back.
template <class Item> static Item* entered(LmMenu& menu, Item* item, int position)
{
    menu.add(item, position);
    return item;
}

LmMenuAction* LmMenu::addAction(const char* name, XtCallbackProc callback, XtPointer clientData, int position)
{
    return entered(*this, new LmMenuAction(name, callback, clientData), position);
}

LmMenuAction* LmMenu::addAction(const char* name, XtCallbackProc callback, XtCallbackProc undoCallback, XtPointer clientData,
                                int position)
{
    return entered(*this, new LmMenuAction(name, callback, undoCallback, clientData), position);
}

LmMenuActionWidget* LmMenu::addActionWidget(const char* name, XtCallbackProc callback, XtPointer clientData, int position)
{
    return entered(*this, new LmMenuActionWidget(name, callback, clientData), position);
}

LmMenuActionWidget* LmMenu::addActionWidget(const char* name, XtCallbackProc callback, XtCallbackProc undoCallback,
                                            XtPointer clientData, int position)
{
    return entered(*this, new LmMenuActionWidget(name, callback, undoCallback, clientData), position);
}

LmMenuConfirmFirstAction* LmMenu::addConfirmFirstAction(const char* name, XtCallbackProc callback, XtPointer clientData,
                                                        int position)
{
    return entered(*this, new LmMenuConfirmFirstAction(name, callback, clientData), position);
}

LmMenuToggle* LmMenu::addToggle(const char* name, XtCallbackProc callback, XtPointer clientData, int state, int position)
{
    auto* toggle = new LmMenuToggle(name, callback, clientData);
    if (state != -1)
        toggle->setVisualState(state != 0);
    return entered(*this, toggle, position);
}

LmMenuSeparator* LmMenu::addSeparator(int position) { return entered(*this, new LmMenuSeparator, position); }

LmMenuLabel* LmMenu::addLabel(const char* name, int position) { return entered(*this, new LmMenuLabel(name), position); }

LmSubMenu* LmMenu::addSubmenu(const char* name, int position) { return addSubmenu(name, nullptr, nullptr, position); }

LmSubMenu* LmMenu::addSubmenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData, int position)
{
    return entered(*this, new LmSubMenu(name, desc, defaultClientData, nullptr), position);
}

LmSubMenu* LmMenu::addSubmenu(LmSubMenu* submenu, int position) { return entered(*this, submenu, position); }

LmRadioSubMenu* LmMenu::addRadioSubmenu(const char* name, int position)
{
    return entered(*this, new LmRadioSubMenu(name, nullptr, nullptr), position);
}

LmRadioSubMenu* LmMenu::addRadioSubmenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
{
    return entered(*this, new LmRadioSubMenu(name, desc, defaultClientData), -1);
}

LmRadioSubMenu* LmMenu::addRadioSubmenu(LmRadioSubMenu* submenu, int position) { return entered(*this, submenu, position); }

void LmMenu::add(LmMenuItem* item, int position)
{
    if (item)
        addMenuEntry(item, position);
}

void LmMenu::addMenuEntry(LmMenuItem* item, int position)
{
    if (item->_parentMenu)
        item->remove();   // an item stands in one menu only
    if (_nItems == _maxItems) {
        _maxItems += _maxItems / 2;
        const size_t bytes = static_cast<size_t>(_maxItems) * sizeof(LmMenuItem*);
        _contents = reinterpret_cast<LmMenuItem**>(XtRealloc(reinterpret_cast<char*>(_contents), static_cast<Cardinal>(bytes)));
    }
    if (position >= 0 && (_isBuilt || position > _nItems))
        position = _nItems;
    LmMenuItem** const place = _contents + (position < 0 ? _nItems : position);
    std::copy_backward(place, _contents + _nItems, _contents + _nItems + 1);
    *place = item;
    ++_nItems;
    item->_parentMenu = this;
    if (!_isBuilt || !menuParent())
        return;
    item->setPosition(position);
    buildItems(menuParent());
    manageAll();
}

int LmMenu::indexOf(const LmMenuItem* item) const
{
    int index = _nItems - 1;   // from the end, where a dying menu takes its items from
    while (index >= 0 && _contents[index] != item)
        --index;
    return index;
}

int LmMenu::removeMenuEntry(LmMenuItem* item)
{
    const int index = indexOf(item);
    if (index < 0)
        return -1;
    std::copy(_contents + index + 1, _contents + _nItems, _contents + index);
    --_nItems;
    if (index < _firstUnbuilt)
        --_firstUnbuilt;
    return index;
}

// --- building ----------------------------------------------------------------------------------------------------------

void LmMenu::build(Widget parent)
{
    buildItems(parent);
    manageAll();
}

bool LmMenu::buildItems(Widget parent, int milliseconds)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (_firstUnbuilt < _nItems) {
        _contents[_firstUnbuilt++]->build(parent);
        if (milliseconds >= 0 && std::chrono::steady_clock::now() >= end)
            break;
    }
    return _firstUnbuilt >= _nItems;
}

// --- finding -----------------------------------------------------------------------------------------------------------

LmMenuItem* LmMenu::operator[](int index) const { return index >= 0 && index < _nItems ? _contents[index] : nullptr; }

LmMenuItem* LmMenu::findNamedItem(const char* name, bool caseless, bool recursive)
{
    if (!name)
        return nullptr;
    const auto compare = caseless ? strcasecmp : std::strcmp;
    for (int i = 0; i < _nItems; ++i) {
        LmMenuItem* item = _contents[i];
        if (item->name() && compare(item->name(), name) == 0)
            return item;
        if (!recursive || !item->isContainer())
            continue;
        if (LmMenuItem* below = static_cast<LmMenu*>(item)->findNamedItem(name, caseless, true))
            return below;
    }
    return nullptr;
}

LmMenu* LmMenu::findParent(LmMenuItem* item)
{
    for (int i = 0; i < _nItems; ++i) {
        if (_contents[i] == item)
            return this;
        if (!_contents[i]->isContainer())
            continue;
        if (LmMenu* below = static_cast<LmMenu*>(_contents[i])->findParent(item))
            return below;
    }
    return nullptr;
}

LmMenuItem* LmMenu::findItemOf(Widget w)
{
    for (int i = 0; i < _nItems; ++i) {
        if (widgetOf(_contents[i]) == w)
            return _contents[i];
        if (!_contents[i]->isContainer())
            continue;
        if (LmMenuItem* below = static_cast<LmMenu*>(_contents[i])->findItemOf(w))
            return below;
    }
    return nullptr;
}

LmMenuItem* LmMenu::removeItem(const char* name)
{
    LmMenuItem* item = findNamedItem(name, false, true);
    if (item)
        item->remove();
    return item;
}

LmMenuItem* LmMenu::replace(const char* name, LmMenuItem* newItem)
{
    LmMenuItem* old = findNamedItem(name, false, true);
    if (!old || !newItem)
        return nullptr;
    LmMenu* menu = old->_parentMenu;
    menu->addMenuEntry(newItem, old->remove());
    return old;
}

LmMenuItem* LmMenu::activateItem(const char* name)
{
    LmMenuItem* item = findNamedItem(name, false, true);
    if (item)
        item->activate();
    return item;
}

LmMenuItem* LmMenu::deactivateItem(const char* name)
{
    LmMenuItem* item = findNamedItem(name, false, true);
    if (item)
        item->deactivate();
    return item;
}

int LmMenu::getItemPosition(LmMenuItem* item)
{
    if (!item)
        return -1;
    if (Widget w = widgetOf(item)) {
        short position = -1;
        XtVaGetValues(w, XmNpositionIndex, &position, nullptr);
        return position;
    }
    return item->_position != -1 ? item->_position : indexOf(item);
}

int LmMenu::getItemPosition(Widget w)
{
    LmMenuItem* item = nullptr;
    if (w)
        XtVaGetValues(w, XmNuserData, &item, nullptr);
    return getItemPosition(item);
}

int LmMenu::getItemPosition(const char* name) { return getItemPosition(findNamedItem(name, false, true)); }
