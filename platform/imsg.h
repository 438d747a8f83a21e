// imsg.h: message output of the platform's message library.
#pragma once

#include "support/LmExport.h"

extern "C" {

/// Prints as printf does on standard output, which is destination 0 (no other is known). The third argument is not
/// used; the format's own arguments follow it. Returns the number of bytes printed, negative after a failure.
LM_API int imsg_print(int destination, const char* format, int unused, ...) __attribute__((format(printf, 2, 4)));

/// Formats as sprintf does into `buffer`, which must hold the whole result. The third argument is not used; the
/// format's own arguments follow it. Returns the length of the result, negative after a failure.
LM_API int imsg_sprintf(char* buffer, const char* format, int unused, ...) __attribute__((format(printf, 2, 4)));
}
