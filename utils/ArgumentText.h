// ArgumentText.h: the arguments of a program as one block of bytes.
#pragma once

#include "LmNameList.h"

#include <string>
#include <string_view>

namespace lm {

/// The arguments one after the other, each followed by a NUL byte.
std::string joinArguments(const LmNameList& arguments);

/// The arguments in such a block. The last one may lack its NUL byte; an empty block holds none.
LmNameList splitArguments(std::string_view block);

}   // namespace lm
