// LmResource.h: values of the X resource database, looked up for a widget or for the program.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>

/// \file
/// A representation type is an Xt type name ("String", XtRBoolean, "Pixel", "Int", "XmString" ...), to the letter.
/// A value comes back as a machine word of 8 bytes: 8 bytes as they are, 4, 2 and 1 bytes with their sign extended. So
/// an Int is read with lm::asInt, a Pixel with reinterpret_cast<Pixel>. Sizes may be 1, 2, 4 and 8; a size that the type
/// contradicts (an Int in 8 bytes, a Pixel in 4) is corrected where the result is a word, and no value is ever cut.
/// The type "Widget" is refused everywhere: its converter cannot work for a look-up.
///
/// The overloads with `void* defaultValue` and `const char* defaultValue` are told apart by a cast when the default is
/// a literal null.

/// The String value, owned by the database; null when absent.
LM_API char* LmGetResource(Widget w, const char* name, const char* className);

/// The String value, owned by the database; the default itself when absent.
LM_API void* LmGetResource(Widget w, const char* name, const char* className, const char* defaultValue);

/// The value converted to `type`, of `size` bytes; when absent the default, which is the value itself.
LM_API void* LmGetResource(Widget w, const char* name, const char* className, const char* type, int size, void* defaultValue);

/// The same with a default in text, converted as a database value is.
LM_API void* LmGetResource(Widget w, const char* name, const char* className, const char* type, int size,
                           const char* defaultValue);

/// The general look-up, under the program's name and class, the names and classes of the widgets from below the root
/// down to `w`, and `name` and `className` (whose periods and asterisks divide them into levels).
/// Returns 0 when the resource is absent and has no default, and, with an Xt warning, when it cannot be converted.
/// A String is the database's or the default pointer; an "XmString" is a copy that the caller frees with XmStringFree.
LM_API void* LmGetResource(Widget w, const char* name, const char* className, const char* type, const char* defaultValue);

/// The general look-up into a buffer of `resultSize` bytes. Returns 0 when the value was copied, with its own size;
/// 3 when the buffer is too small for it; 1 when it is absent without default, cannot be converted, or is of type "String"
/// or "XmString" (both with an Xt warning). The buffer changes with status 0 only.
LM_API int LmGetResource(Widget w, const char* name, const char* className, const char* type, const char* defaultValue,
                         void* result, unsigned int resultSize);

/// The same for a value of `size` bytes. Returns 1 for another size than 1, 2, 4 and 8 and for one the type cannot have.
LM_API int LmGetResource(Widget w, const char* name, const char* className, const char* type, int size, const char* defaultValue,
                         void* result, unsigned int resultSize);

/// The value of the program's resource, under its name and application class; null when absent. Owned by the database.
/// The name and the class in full are cut at 499 bytes each.
LM_API char* LmGetResource(const char* name, const char* className);

/// The same in the database of any display, for any program name and class.
LM_API char* LmGetDefault(Display* display, const char* programName, const char* programClass, const char* name,
                          const char* className);

/// Fills both arrays with the instance names and class names from the root of `w`'s tree (index 0) down to `w` and
/// returns how many there are (0 for null). The arrays must hold the depth of the tree; the strings stay the toolkit's.
LM_API int GetNamesAndClasses(Widget w, char** names, char** classes);

/// The instance names from the root down to `w`, joined by periods; the caller releases it with `free`.
LM_API char* widgetPathName(Widget w);
