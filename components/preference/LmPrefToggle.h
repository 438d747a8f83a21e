// LmPrefToggle: an on/off choice on a preference sheet.
#pragma once

#include "LmPrefItem.h"

/// A value that is on or off. Among items of its own kind the toggle shows its own text; among others its text stands in
/// the label column.
///
///   Widgets    "<name>Base", a toggle button gadget; in the second case "<name>Label", a label gadget, too
///   Others     as LmPrefItem
class LM_API LmPrefToggle : public LmPrefItem {
public:
    /// `forceLabel` has the text stand in the label column in any case. The value is off.
    LmPrefToggle(const char* name, char forceLabel) : LmPrefItem(name), _forceLabel(forceLabel) {}

    const char* className() override { return "LmPrefToggle"; }
    LmPrefItemType type() override { return PI_toggle; }
    char changed() override;
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
    void updateValue() override;
    /// Shows the committed value; when that changes the toggle, its own callbacks run.
    void revertValue() override;

    /// Commits a state and shows it.
    void setValue(char on);
    /// Commits what is on screen and returns it.
    char getValue();

private:
    char _value = false;
    char _forceLabel;
};
