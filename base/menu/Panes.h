// Panes.h: taking menus down, and the destruction of panes.
#pragma once

#include <X11/Intrinsic.h>

namespace lm {

/// Takes a menu bar, pane or popup menu out of use: what is posted goes down, with the whole menu it belongs to, and the
/// menu's grabs end. Nothing for a menu that is not in use, a torn-off pane, or null.
void popDown(Widget menu);

/// Takes a pane down and destroys it, also one that is torn off.
void destroyPane(Widget pane);

}   // namespace lm
