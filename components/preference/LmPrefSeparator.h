// LmPrefSeparator: a line across a preference sheet.
#pragma once

#include "LmPrefItem.h"

/// A line in the place of an editing widget. Never changed.
///
///   Widgets    "<name>Base", a separator gadget; no label
///   Others     as LmPrefItem
class LM_API LmPrefSeparator : public LmPrefItem {
public:
    explicit LmPrefSeparator(const char* name) : LmPrefItem(name) {}   ///< The name is the start of the widget's name.

    const char* className() override { return "LmPrefSeparator"; }
    LmPrefItemType type() override { return PI_separator; }
    char changed() override { return false; }
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
    void updateValue() override {}
    void revertValue() override {}
};
