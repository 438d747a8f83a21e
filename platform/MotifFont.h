// MotifFont.h: the one place that asks Motif for the core font of a render table.
#pragma once

#include <Xm/Xm.h>

namespace lm {

/// The table's default core font, owned by the table. A table of Xft fonts alone has none; then the server's "fixed" font,
/// loaded once. Null when there is not even that.
XFontStruct* coreFontOf(Display* display, XmFontList table);

}   // namespace lm
