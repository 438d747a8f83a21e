// LmContextHelp: help keys of widgets.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

class LmComponent;

/// The call data of "helpCallback" when the user picked a widget (LmHelpPane::contextCallback). Starts as Motif's
/// XmAnyCallbackStruct, which Motif's own help action sends with reason 1 (XmCR_HELP) and its event.
struct LmContextHelpCallbackStruct {
    int reason;      ///< lm::pickedForHelp
    XEvent* event;   ///< null
    Widget widget;   ///< the one that was picked, perhaps below the one whose callback runs
};

namespace lm {
/// The reason of an LmContextHelpCallbackStruct.
inline constexpr int pickedForHelp = 57;
}   // namespace lm

/// A help callback that does nothing: its client data keeps the help key of the widget.
LM_API void LmHelpCallback(Widget w, XtPointer key, XtPointer callData) noexcept;

/// Adds LmHelpCallback with a copy of `key` to the widget's "helpCallback"; the copy lives as long as the widget. Widgets
/// without such a list, as most shells are, are left alone. Motif's help action ends its search there.
LM_API void LmAddContextHelpCallback(Widget w, const char* key);
/// The same with the key "<name of the component>.<key>".
LM_API void LmAddContextHelpCallback(LmComponent* c, Widget w, const char* key);
/// The same with the key "<name of the component>.<name of the widget>".
LM_API void LmAddContextHelpCallback(LmComponent* c, Widget w);

/// Called for every window, dialog and submenu pane that is made: the place where a help system can register with them.
/// Does nothing.
LM_API void LmAddContextSmartHelpCallback(Widget w);

/// A help callback, to be added to a "helpCallback" list: finds out which widget help is wanted on and calls the
/// installed help function (LmHelpPane::HelpFunc) with that widget's key, time 0, and `w`. With Motif's call data the widget is
/// the one in whose window the event happened, or the gadget there under the pointer; with an LmContextHelpCallbackStruct
/// the picked one.
///
/// The key is the names of the widgets from `w` down to that widget, joined by periods. When `w` is not above it, the key
/// starts at the top and the function gets null for `w`.
LM_API void _LmSmartHelpCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
