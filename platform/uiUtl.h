// uiUtl.h: the language and the colour scheme of a program, set up once at start-up.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

extern "C" {

/// A language procedure for XtSetLanguageProc: sets the locale to `language` ("" means the environment's), the "C" locale
/// where Xlib does not support it, and the locale's modifiers. Returns the locale in force. `closure` is not used.
LM_API String uiUtlLanguageProc(Display* display, String language, XtPointer closure);

/// Merges the scheme that the resource "scheme" (class "Scheme") names over the display's resource database.
///
/// An absolute path is that file; any other name is looked for in the scheme directory (`resource_file_path`) and then
/// among the installed schemes. Fonts of a scheme count on a local display only, since every text drawn in them waits
/// for the server once, unless the resource "schemeFonts" (class "SchemeFonts") is true.
/// Errors: one line on standard error when no such scheme can be read. Without the resource nothing happens.
LM_API void uiUtlLoadScheme(Display* display);
}
