// SvScrollBar.h: a scroll bar whose trough the application may paint, for marks beside the slider.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

extern "C" {

/// The class of annotated scroll bars, a subclass of XmScrollBar: all that a scroll bar has works, and XmIsScrollBar is true
/// of it, so it can be the bar of a scrolled window.
///
/// Callbacks: "troughPixmapCallback" (class "Callback") paints the trough; call data SvTroughCallbackStruct. It runs before the
/// bar is first drawn, and again after its size, its colours or the number of its rows changed, once for any number of changes
/// before the next redraw. What it paints stays right behind the moving slider without further calls. While no callback is
/// registered the trough is the plain one. A callback that was added or removed after the bar was drawn counts from the next
/// painting on: call SvScrollBarRedisplay.
/// Errors: a trough of more than four million pixels, or none, is not painted.
LM_API extern WidgetClass svScrollBarWidgetClass;

/// Call data of "troughPixmapCallback".
struct SvTroughCallbackStruct {
    int reason;      ///< XmCR_EXPOSE
    XEvent* event;   ///< what made the bar paint; null when SvScrollBarRedisplay did
    int width;       ///< of the trough and of the pixmap, in pixels
    int height;      ///< of the trough and of the pixmap, in pixels
    int unused;      ///< always 0
    int rows;        ///< what the whole trough stands for: maximum minus minimum of the bar
    Pixmap pixmap;   ///< to paint on, in the coordinates of the trough; filled with the trough's colour. The bar's own
};

/// Makes an annotated scroll bar, not managed, as XmCreateScrollBar does.
LM_API Widget SvCreateScrollBar(Widget parent, const char* name, ArgList args, Cardinal count);

/// Paints the trough anew, running "troughPixmapCallback" before it returns. A null widget, one of another class, and a bar
/// that is not realized, is being destroyed or is running those callbacks already are ignored. The callbacks may destroy the bar.
LM_API void SvScrollBarRedisplay(Widget scrollBar);
}
