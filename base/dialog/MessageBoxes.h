// MessageBoxes.h: making the Motif boxes of the standard dialogs.
#pragma once

#include <X11/Intrinsic.h>
#include <Xm/MessageB.h>

namespace lm {

/// Motif's functions that make a kind of message box, such as XmCreateErrorDialog.
using BoxMaker = Widget (*)(Widget parent, char* name, ArgList args, Cardinal count);

/// A message box that stays up until its manager takes it down.
Widget createBox(BoxMaker make, Widget parent, const char* name);

/// The same without its Cancel button.
Widget createOkBox(BoxMaker make, Widget parent, const char* name);

}   // namespace lm
