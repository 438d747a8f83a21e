// xmtext.h: compound strings, from text and back.
#pragma once

#include "LmExport.h"
#include "handles.h"

#include <string>

namespace lm {

/// A compound string of the text, in the locale's encoding; newlines separate lines. Null counts as empty.
LM_API XmText compound(const char* text);

/// The whole text of a compound string, lines separated by newlines. (Motif's own conversions stop at the first line.)
/// Null gives the empty text.
LM_API std::string plainText(XmString text);

}   // namespace lm
