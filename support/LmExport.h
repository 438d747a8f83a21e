// LmExport.h: the mark of what leaves the library.
#pragma once

/// Marks a class, function or variable as part of the library's interface. The library hides every other symbol.
#define LM_API __attribute__((visibility("default")))
