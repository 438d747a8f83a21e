// Panes.h: taking menus down, and the destruction of panes.
#pragma once

#include <X11/Intrinsic.h>

namespace lm {

/// Takes a menu bar, pane or popup menu out of use: what is posted goes down, with the whole menu it belongs to, and the
/// menu's grabs end. Nothing for a menu that is not in use, a torn-off pane, or null.
void popDown(Widget menu);

/// Returns a torn-off pane to its menu. One that is destroyed while it is torn off, inside the dispatch of an event that it
/// got, would leave shells pointing at it. Nothing for other panes, or null.
void bringBack(Widget pane);

/// Takes a pane down and destroys it, also one that is torn off.
void destroyPane(Widget pane);

}   // namespace lm
