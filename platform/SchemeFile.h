// SchemeFile.h: where colour schemes are, and how one is read.
#pragma once

#include "support/LmExport.h"
#include "support/handles.h"

#include <string>
#include <vector>

/// The scheme directory, with its trailing '/'. A program may change it, or set it to null (the current directory).
extern LM_API const char* resource_file_path;

namespace lm {

/// The database in a file; empty when it cannot be read. Only a regular file is opened for reading: a FIFO or a device
/// would keep the program waiting.
XrmOwner readDatabaseFile(const std::string& path);

/// Where a scheme of that name is looked for, in order: an absolute path is itself; any other name is looked for in
/// the scheme directory and in the installed schemes (below LUMORA_DATA when that is set).
std::vector<std::string> placesOfScheme(const std::string& name);

/// A copy of the database without what chooses fonts: every resource whose own name speaks of a font or a render table.
XrmOwner withoutFonts(XrmDatabase scheme);

}   // namespace lm
