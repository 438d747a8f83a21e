// LmVersion: which Lumora this is.
#pragma once

#include "support/LmExport.h"

extern "C" {
/// Prints one line to standard output: the library's name, its version and, in parentheses, when it was built.
LM_API void libzentalm_print_verid();
/// Writes the same line, with its newline and a final NUL, into `buffer`, which has room for at least 128 bytes.
LM_API void libzentalm_sprintf_verid(char* buffer);
}
