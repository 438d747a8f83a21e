// HelpFile.h: reading the files of help.
#pragma once

#include <optional>
#include <string>

namespace lm {

/// The bytes of a regular file; nothing when it cannot be read, for a null path, and for a path that does not fit
/// 1024 bytes with its end mark. (Opening a FIFO would keep the program waiting.)
std::optional<std::string> readHelpFile(const char* path);

}   // namespace lm
