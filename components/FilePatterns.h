// FilePatterns.h: names and typed patterns as words of a shell that cannot do anything else with them.
#pragma once

#include <string>
#include <string_view>

namespace lm {

/// The name as one word of the shell, whatever bytes it consists of.
std::string shellWord(std::string_view name);

/// Whether the text holds one of the six characters that make it a pattern: "*?[]~$".
bool holdsPattern(std::string_view text);

/// The typed patterns as words of the shell. Blanks separate them; quotes and the backslash quote, a quote that is not closed
/// is a character; "*", "?", "[", "]", "~" at the start of a word, $NAME and ${NAME} keep their meaning, the last two as
/// a part of one word whatever their value; everything else stands for itself. A word that starts with '-' starts with "./-".
std::string shellPatterns(std::string_view text);

}   // namespace lm
