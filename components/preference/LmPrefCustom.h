// LmPrefCustom: a work area of the application's own on a preference sheet.
#pragma once

#include "LmPrefItem.h"

/// An empty work area that the application fills after build(). What is in it is committed and discarded by the
/// application, too: the item itself has no value, and always counts as changed.
///
///   Widgets    "<name>Label", a label gadget, and "<name>Base", a work area (XmRowColumn)
///   Others     as LmPrefItem
class LM_API LmPrefCustom : public LmPrefItem {
public:
    explicit LmPrefCustom(const char* name) : LmPrefItem(name) {}   ///< The name is the start of the widgets' names.

    const char* className() override { return "LmPrefCustom"; }
    LmPrefItemType type() override { return PI_custom; }
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
    void updateValue() override {}
    void revertValue() override {}
};
