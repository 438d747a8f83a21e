// PickWidget.h: help on a widget that the user picks with the pointer.
#pragma once

#include <X11/Intrinsic.h>

namespace lm {

/// Shows a question mark as cursor until the user has picked something, then has the help callbacks of the widget run: its
/// own, or those of the first one above that has some; where none has, _LmSmartHelpCallback of the shell. `entry` stands in
/// the window to pick from: a widget of its menu bar. May destroy anything.
void helpOnPickedWidget(Widget entry);

}   // namespace lm
