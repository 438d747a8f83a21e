#include "LmPopupMenu.h"

#include "LmWidgetTools.h"
#include "support/resources.h"
#include "support/xt.h"

#include <Xm/RowColumn.h>

LmPopupMenu::LmPopupMenu(const LmMenuDesc* desc, XtPointer defaultClientData) : LmPopupMenu("popupMenu", desc, defaultClientData)
{}

LmPopupMenu::LmPopupMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmMenu(name, desc, defaultClientData)
{}

LmPopupMenu::LmPopupMenu(Widget attachTo, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmPopupMenu(attachTo, "popupMenu", desc, defaultClientData)
{}

LmPopupMenu::LmPopupMenu(Widget attachTo, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmPopupMenu(name, desc, defaultClientData)
{
    LmPopupMenu::attach(attachTo);
}

LmPopupMenu::~LmPopupMenu()
{
    detachAll();
    dropWidget();
}

void LmPopupMenu::widgetDestroyed()
{
    detachAll();
    LmMenu::widgetDestroyed();
}

void LmPopupMenu::build(Widget parent)
{
    if (!_isBuilt) {
        _isBuilt = true;
        _baseWidget = XmCreatePopupMenu(parent, lm::xtText(LmComponent::name()), nullptr, 0);
        installDestroyHandler();
        applySensitivity();
    }
    LmMenu::build(_baseWidget);
}

void LmPopupMenu::attach(Widget w)
{
    if (!w)
        return;
    build(w);
    if (_attachedWidgets.exists(w))
        return;
    _attachedWidgets.add(w);
    lm::onEvent<&LmPopupMenu::buttonPressed>(w, ButtonPressMask, this);
}

void LmPopupMenu::detach(Widget w)
{
    if (!_attachedWidgets.exists(w))
        return;
    lm::offEvent<&LmPopupMenu::buttonPressed>(w, ButtonPressMask, this);
    _attachedWidgets.remove(w);
}

void LmPopupMenu::detachAll()
{
    while (Widget w = _attachedWidgets[0])   // the list forgets widgets that die
        detach(w);
}

void LmPopupMenu::buttonPressed(XEvent* event)
{
    if (event->type == ButtonPress && event->xbutton.button == Button3)
        show(event);
}

void LmPopupMenu::show()
{
    if (_baseWidget)
        XtManageChild(_baseWidget);
}

void LmPopupMenu::show(XEvent* buttonEvent)
{
    if (!_baseWidget || !buttonEvent)
        return;
    XmMenuPosition(_baseWidget, &buttonEvent->xbutton);
    XtManageChild(_baseWidget);
}

bool LmPopupMenu::isPoppedUp() { return _baseWidget && ::isPoppedUp(XtParent(_baseWidget)); }
