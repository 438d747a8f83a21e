#include "LmOptionMenu.h"

#include "base/menu/Panes.h"
#include "support/resources.h"
#include "support/xt.h"
#include "utils/CompoundResource.h"

#include <Xm/RowColumn.h>

#include <utility>

LmOptionMenu::LmOptionMenu(const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmOptionMenu("optionMenu", desc, defaultClientData)
{}

LmOptionMenu::LmOptionMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmMenu(name, desc, defaultClientData)
{}

LmOptionMenu::LmOptionMenu(Widget parent, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmOptionMenu(parent, "optionMenu", desc, defaultClientData)
{}

LmOptionMenu::LmOptionMenu(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmOptionMenu(name, desc, defaultClientData)
{
    LmOptionMenu::build(parent);
}

LmOptionMenu::~LmOptionMenu() { dropWidget(); }

void LmOptionMenu::widgetDestroyed()
{
    if (Widget pane = std::exchange(_pulldown, nullptr)) {
        lm::off<&LmOptionMenu::paneDestroyed>(pane, XmNdestroyCallback, this);
        lm::destroyPane(pane);
    }
    LmMenu::widgetDestroyed();
}

void LmOptionMenu::paneDestroyed()
{
    _pulldown = nullptr;
    dropItems();
}

// --- building ----------------------------------------------------------------------------------------------------------

void LmOptionMenu::build(Widget parent)
{
    if (_isBuilt)
        return;
    _isBuilt = true;
    _baseWidget = XmCreateOptionMenu(parent, lm::xtText(LmComponent::name()), nullptr, 0);
    installDestroyHandler();
    createPane(parent);
    LmMenu::build(_pulldown);
    XtVaSetValues(_baseWidget, XmNsubMenuId, _pulldown, nullptr);   // before the selection: Motif forgets one set earlier
    if (LmMenuItem* pending = std::exchange(_pendingSelection, nullptr); findParent(pending))
        set(pending);
    setLabel(getLabel());
    applySensitivity();
    if (!_isHidden)
        XtManageChild(_baseWidget);
}

void LmOptionMenu::createPane(Widget parent)
{
    _pulldown = XmCreatePulldownMenu(parent, lm::xtText(LmComponent::name()), nullptr, 0);
    lm::on<&LmOptionMenu::paneDestroyed>(_pulldown, XmNdestroyCallback, this);
    manageAll();
}

void LmOptionMenu::setLabel(const char* text) { setLabelOf(_baseWidget ? XmOptionLabelGadget(_baseWidget) : nullptr, text); }

void LmOptionMenu::forceWidth(int width)
{
    for (int i = 0; i < _nItems; ++i) {
        if (Widget w = widgetOf(_contents[i]))
            XtVaSetValues(w, XmNwidth, static_cast<Dimension>(width), nullptr);
    }
}

// --- the selection -----------------------------------------------------------------------------------------------------

void LmOptionMenu::set(LmMenuItem* item)
{
    if (!item)
        return;
    if (_baseWidget && widgetOf(item))
        XtVaSetValues(_baseWidget, XmNmenuHistory, widgetOf(item), nullptr);
    else
        _pendingSelection = item;
}

void LmOptionMenu::set(const char* name) { set(findNamedItem(name, false, true)); }

void LmOptionMenu::set(int index) { set((*this)[index]); }

LmMenuItem* LmOptionMenu::getItem()
{
    if (!_baseWidget)
        return findParent(_pendingSelection) ? _pendingSelection : (*this)[0];
    Widget history = nullptr;
    XtVaGetValues(_baseWidget, XmNmenuHistory, &history, nullptr);
    return history ? findItemOf(history) : nullptr;
}

int LmOptionMenu::getIndex()
{
    const int index = indexOf(getItem());
    return index < 0 ? 0 : index;
}
