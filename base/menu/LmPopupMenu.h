// LmPopupMenu: a menu under the pointer.
#pragma once

#include "LmMenu.h"
#include "LmWidgetList.h"

/// A menu that pops up under the pointer when button 3 is pressed over a widget it is attached to.
///
///   Widgets    a popup menu, an XmRowColumn of the menu's name, "popupMenu" by default; a child of the first widget that
///              the menu was attached to, with which it dies
///   Errors     none
class LM_API LmPopupMenu : public LmMenu {
public:
    /// Filled from a table (null: empty), under the default name.
    LmPopupMenu(const LmMenuDesc* desc, XtPointer defaultClientData);
    LmPopupMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);   ///< The same under that name.
    /// These attach to a widget at once.
    LmPopupMenu(Widget attachTo, const LmMenuDesc* desc, XtPointer defaultClientData);
    /// The same under that name.
    LmPopupMenu(Widget attachTo, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);
    /// Detaches from every widget.
    ~LmPopupMenu() override;

    using LmMenuItem::show;

    const char* className() override { return "LmPopupMenu"; }
    /// Pops the menu up where it was last.
    void show() override;
    void widgetDestroyed() override;
    LmMenuItemType menuType() override { return MENU_POPUP; }
    void build(Widget parent) override;
    Widget menuParent() override { return _baseWidget; }
    /// Has the menu pop up over `w`, too. A widget, not a gadget.
    virtual void attach(Widget w);
    virtual void detach(Widget w);   ///< Undoes attach().
    /// Pops the menu up where a button was pressed.
    virtual void show(XEvent* buttonEvent);
    virtual bool isPoppedUp();   ///< Whether the menu is up now.

protected:
    LmWidgetList _attachedWidgets;   ///< where the menu pops up

private:
    void buttonPressed(XEvent* event);
    void detachAll();
};
