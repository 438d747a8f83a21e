// LmScheme.h: colour schemes for the kind of display the program runs on.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>
#include <X11/Xresource.h>

/// The scheme directory, with its trailing '/'. A program may change it, or set it to null (the current directory),
/// before it loads a scheme.
extern LM_API const char* resource_file_path;

/// The kind of display by the root visual of the default screen: 0 for grays and colour maps that programs share
/// (StaticGray, GrayScale, PseudoColor; scheme file "QR_Gray"), 1 for every other ("QR_Color").
LM_API int WhichDisplay(Display* display);

/// Merges the scheme file of the display's kind, from the scheme directory, over the database that `db` points to, which
/// is begun when it is null. When the file cannot be read it says so on standard error, writes the database
/// to "/tmp/QR_appl.db" for a look at it, and returns False; the database is as it was.
LM_API Boolean LoadScheme(XrmDatabase* db, Display* display);

/// Merges `file` over the database that `db` points to, which is begun when it is null. False, with a message on
/// standard error, when the file cannot be read.
LM_API Boolean LoadSchemeInDatabase(XrmDatabase* db, const char* file);

/// Merges `file` over the database of the widget's display; a null `file` is the scheme file of the display's kind in
/// the current directory. False, with messages on standard error, when it cannot be read.
LM_API Boolean LoadSchemeInWidget(Widget w, const char* file);

/// LoadScheme for the database of the widget's display.
LM_API Boolean TestFunction(Widget w);
