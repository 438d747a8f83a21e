// LmPrefText: a text on a preference sheet.
#pragma once

#include "LmPrefItem.h"

/// A line of text, in the locale's encoding (UTF-8 today).
///
///   Widgets    "<name>Label", a label gadget, and "<name>Base", an XmTextField
///   Others     as LmPrefItem
class LM_API LmPrefText : public LmPrefItem {
public:
    /// `columns` is the field's width in characters. The value is "".
    LmPrefText(const char* name, int columns) : LmPrefItem(name), _columns(columns) {}

    const char* className() override { return "LmPrefText"; }
    LmPrefItemType type() override { return PI_text; }
    char changed() override;
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
    void updateValue() override;
    void revertValue() override;

    /// Commits a text (null counts as "") and shows it.
    void setValue(const char* value);
    /// Commits what is on screen and returns a copy of it, to be freed with free().
    char* getValue();

private:
    std::string onScreen() const;

    int _columns;
    std::string _value;
};
