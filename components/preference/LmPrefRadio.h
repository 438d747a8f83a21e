// LmPrefRadio: toggles that exclude each other on a preference sheet.
#pragma once

#include "LmPrefGroup.h"

/// Items in a radio box; normally LmPrefToggles, of which one is on.
///
///   Widgets    "<name>Label", a label gadget, unless told not to; "<name>Base", an XmRowColumn with radio behaviour
///   Others     as LmPrefGroup
class LM_API LmPrefRadio : public LmPrefGroup {
public:
    /// A box without items; `noLabel`: without a label of its own.
    LmPrefRadio(const char* name, char horizontal, char noLabel) : LmPrefGroup(name, horizontal, noLabel) {}

    const char* className() override { return "LmPrefRadio"; }
    LmPrefItemType type() override { return PI_radio; }
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
};
