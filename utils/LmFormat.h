// LmFormat.h: short texts put together with printf formats, and two string joins.
#pragma once

#include "support/LmExport.h"

/// Formats as printf does into one static buffer of 1024 bytes and returns it. Every call overwrites the previous
/// result, so a text that is kept is copied; the previous result may be among the arguments, and the format itself.
/// Longer results are cut at 1023 bytes, never inside a UTF-8 character. Never null; a failed conversion gives "".
LM_API const char* LmFormat(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// `a` followed by `b`, both non-null, as a new array that the caller releases with `delete[]`.
LM_API char* strconcat(const char* a, const char* b);

/// `a`, a period when both are non-null, and `b`, as a new array that the caller releases with `delete[]`.
/// A null side is left out: two nulls give the empty string.
LM_API char* strdotconcat(const char* a, const char* b);
