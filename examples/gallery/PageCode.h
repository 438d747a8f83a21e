// PageCode.h: "Show the code" of the gallery.
#pragma once

/// Shows the source file of a page.
void showCodeOf(const char* pageClass);
