// LmParseCommand: a command line, taken apart into words.
#pragma once

#include "support/LmExport.h"

/// Takes a command apart as execvp wants it. `*path` becomes the first word; `*argv` the words, ended by null, the first
/// one without its directories. Both are new (malloc): release them with LmFreeParsedCommand.
///
/// Only spaces separate words; a tab, a newline and a backslash are characters like any other. From the second word on,
/// spaces between single or double quotes do not separate. A word that begins and ends with the same quote loses these
/// two; all other quotes stay. Every text parses: an empty one, or null, to one empty word.
LM_API void LmParseCommand(const char* command, char** path, char*** argv);

/// Releases what LmParseCommand made. Null is allowed for both.
LM_API void LmFreeParsedCommand(char* path, char** argv);
