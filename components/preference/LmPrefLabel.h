// LmPrefLabel: a text that decorates a preference sheet.
#pragma once

#include "LmPrefItem.h"

/// A text in the place of an editing widget. Never changed.
///
///   Widgets    "<name>Base", a label gadget; no label of its own
///   Others     as LmPrefItem
class LM_API LmPrefLabel : public LmPrefItem {
public:
    explicit LmPrefLabel(const char* name) : LmPrefItem(name) {}   ///< The name is the start of the widget's name.

    const char* className() override { return "LmPrefLabel"; }
    LmPrefItemType type() override { return PI_label; }
    char changed() override { return false; }
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
    void updateValue() override {}
    void revertValue() override {}
};
