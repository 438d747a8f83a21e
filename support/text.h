// text.h: UTF-8, the encoding of all text inside.
#pragma once

#include "LmExport.h"

#include <string>
#include <string_view>

namespace lm {

/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
LM_API bool isUtf8(std::string_view bytes);

/// The bytes with everything that is not well-formed UTF-8 replaced by U+FFFD, one for each broken sequence.
LM_API std::string toUtf8(std::string_view bytes);

/// The length of the well-formed UTF-8 character that the text starts with: 1 to 4 bytes; 0 when there is none.
LM_API size_t utf8Length(std::string_view text);

/// The text without the start of a character that breaks off at its end.
LM_API std::string_view withoutPartialEnd(std::string_view text);

/// The longest start of the text that has at most `limit` bytes and cuts no character.
LM_API std::string_view utf8Prefix(std::string_view text, size_t limit);

}   // namespace lm
