// LmContextHelp: help keys of widgets.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

/// Called for every window, dialog and submenu pane that is made: the place where a help system can register with them.
/// Does nothing.
LM_API void LmAddContextSmartHelpCallback(Widget w);
