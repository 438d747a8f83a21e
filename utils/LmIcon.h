// LmIcon.h: icons from compiled-in XPM data, in the colours of the widget that shows them.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

/// \file
/// Every function that makes a pixmap gives it to the caller, who frees it with XFreePixmap. The result is 0, and nothing is
/// reported, when `w` or the data is null, when the data breaks off before the lines that its header announces or holds lines
/// that are too short, and when libXpm cannot make the picture. XPM arrays have no length: a null entry ends one.
///
/// The icon functions with a number of colours replace the colours of a template. Its colour lines must have one character per
/// pixel and the form "X c #rrggbb"; the values there do not matter. Its header must announce that number of colours.

/// An icon in the widget's own colours: top shadow, background, bottom shadow.
LM_API Pixmap LmCreate3ColorIcon(Widget w, const char** xpm);
/// An icon on a background: the top shadow that Motif derives from it, the background, the bottom shadow.
LM_API Pixmap LmCreate3ColorIcon(Widget w, char** xpm, Pixel background);
/// An icon in three colours. The lines take topShadow, background, bottomShadow, which is not the order of the arguments.
LM_API Pixmap LmCreate3ColorIcon(Widget w, const char** xpm, Pixel background, Pixel topShadow, Pixel bottomShadow);
/// An icon in four colours, in the order of its colour lines.
LM_API Pixmap LmCreate4ColorIcon(Widget w, char** xpm, Pixel c1, Pixel c2, Pixel c3, Pixel c4);
/// An icon of as many colours as its header announces, in the order of its colour lines. 0 when that is more than `count`.
LM_API Pixmap LmCreateMultiColorIcon(Widget w, char** xpm, Pixel* colors, int count);

/// A picture of any XPM data. Colour lines with these symbols ("s" keys) take the widget's pixels: "topShadowColor",
/// "bottomShadowColor", "foreground", "background". Every name of the null-terminated list `symbols` (or null) is a symbol, too,
/// which takes the widget's resource of that name and class (a Pixel), black when there is none.
LM_API Pixmap LmCreateXPMPixmap(Widget w, const char** xpm, const char** symbols);

/// A picture of any XPM data, whose symbols "fillcolor", "background", "darkShadow" and "lightShadow" take these pixels.
LM_API Pixmap CreateXPMPixmap(Widget w, const char** xpm, Pixel fill, Pixel background, Pixel darkShadow, Pixel lightShadow);

/// A colour 1 % darker than `base`, allocated in the default colormap of the widget's screen; `base` itself when that fails.
LM_API Pixel getHilight(Widget w, Pixel ignored, Pixel base);

/// Shows a 3-colour icon on a label or button, and on a button while it is armed the same on its "armColor". The two pixmaps
/// stay the caller's through the pointers that are not null, and the application's otherwise: they must live as long as `w`.
/// An icon that cannot be made is stored as 0 and shown as none.
LM_API void LmInstallIcon(Widget w, const char** xpm, Pixmap* normal, Pixmap* armed);
LM_API void LmInstallIcon(Widget w, const char** xpm);   ///< The same; both pixmaps are the application's.
