#include "platform/MotifFont.h"

#include <Xm/XmP.h>

XFontStruct* lm::coreFontOf(Display* display, XmFontList table)
{
    XFontStruct* font = nullptr;
    if (table && XmeRenderTableGetDefaultFont(table, &font) && font)
        return font;
    static XFontStruct* const fixed = XLoadQueryFont(display, "fixed");
    return fixed;
}
