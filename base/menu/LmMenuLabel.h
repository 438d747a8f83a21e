// LmMenuLabel: items that only show something.
#pragma once

#include "LmMenuItem.h"

/// A text in a menu that cannot be chosen.
///
///   Widgets    XmLabelGadget of the item's name
class LM_API LmMenuLabel : public LmMenuItem {
public:
    explicit LmMenuLabel(const char* name) : LmMenuItem(name) {}   ///< The name is the widget's, and the label's default.

    const char* className() override { return "LmMenuLabel"; }
    LmMenuItemType menuType() override { return MENU_LABEL; }
    void build(Widget parent) override;
};

/// A line between the items of a menu.
///
///   Widgets    XmSeparatorGadget "separator"
class LM_API LmMenuSeparator : public LmMenuLabel {
public:
    LmMenuSeparator() : LmMenuLabel("separator") {}

    const char* className() override { return "LmMenuSeparator"; }
    LmMenuItemType menuType() override { return MENU_SEPARATOR; }
    void build(Widget parent) override;
};
