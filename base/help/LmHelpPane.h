// LmHelpPane: the help menu of a menu bar.
#pragma once

#include "LmSubMenu.h"

/// The pane at the end of a menu bar that leads to help. Its entries are those of its table, if any.
///
///   Widgets    as LmSubMenu; a menu bar names it "helpMenu"
class LM_API LmHelpPane : public LmSubMenu {
public:
    LmHelpPane(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);
    /// Builds at once under `parent`.
    LmHelpPane(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);

    const char* className() override { return "LmHelpPane"; }
};
