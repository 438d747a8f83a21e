// LmPrefList: preference items in one column, without a label column.
#pragma once

#include "LmPrefGroup.h"

/// Items below each other, each with its label before its widget.
///
///   Widgets    "<name>Base", an XmRowColumn
///   Others     as LmPrefGroup
class LM_API LmPrefList : public LmPrefGroup {
public:
    explicit LmPrefList(const char* name) : LmPrefGroup(name, false, true) {}   ///< A list without items.

    const char* className() override { return "LmPrefList"; }
    LmPrefItemType type() override { return PI_list; }
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
};
