// DropSites.h: keeps the scroll bars of scrolled windows from growing a table on the root window.
#pragma once

#include <X11/Intrinsic.h>

namespace lm {

/// A scrolled window registers its scroll bars as drop sites, so that a drag over an edge scrolls. It passes the bar itself
/// where a list of targets belongs, and every bar so adds a list of nonsense to a table that all Motif programs of the
/// display share: two XSync and a property under a grabbed server for each bar of each window, and the table grows for ever.
/// This gives the display a drop site manager that leaves the nonsense out; drags scroll as before.
/// Does nothing when the user chose a manager, or when one exists already.
void useQuietDropSites(Widget xmDisplay);

}   // namespace lm
