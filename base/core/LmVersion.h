// LmVersion: which Lumora this is.
#pragma once

#include "support/LmExport.h"

/// The version of the headers that a program is compiled with: its first number. While it stays, programs run with
/// every later library.
#define LM_VERSION_MAJOR 1
#define LM_VERSION_MINOR 0   ///< the second number of the version
#define LM_VERSION_MICRO 0   ///< the third number of the version
/// "1.0.0"
#define LM_VERSION_STRING "1.0.0"
/// The version as one number: `#if LM_VERSION >= LM_VERSION_NUMBER(1, 2, 0)`.
#define LM_VERSION_NUMBER(major, minor, micro) ((major)*10000 + (minor)*100 + (micro))
/// The version of the headers as such a number.
#define LM_VERSION LM_VERSION_NUMBER(LM_VERSION_MAJOR, LM_VERSION_MINOR, LM_VERSION_MICRO)

extern "C" {
/// Prints one line to standard output: the library's name, its version and, in parentheses, when it was built.
LM_API void libzentalm_print_verid();
/// Writes the same line, with its newline and a final NUL, into `buffer`, which has room for at least 128 bytes.
LM_API void libzentalm_sprintf_verid(char* buffer);
}
