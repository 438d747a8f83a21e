// LmPrefEmpty: a gap on a preference sheet.
#pragma once

#include "LmPrefItem.h"

/// A filler: an empty label and an empty work area. Never changed.
///
///   Widgets    "emptyPrefLabel", a label gadget, and "emptyPrefBase", a work area (XmRowColumn)
///   Others     as LmPrefItem
class LM_API LmPrefEmpty : public LmPrefItem {
public:
    LmPrefEmpty() : LmPrefItem("emptyPref") {}

    const char* className() override { return "LmPrefEmpty"; }
    LmPrefItemType type() override { return PI_empty; }
    char changed() override { return false; }
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
    void updateValue() override {}
    void revertValue() override {}
};
