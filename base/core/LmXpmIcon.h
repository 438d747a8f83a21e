// LmXpmIcon.h: the icon of a top-level window, from an XPM file of the installation.
#pragma once

#include "support/LmExport.h"

#include <X11/Intrinsic.h>

/// The icon directory below the installation root: "config/gui/bitmaps".
extern LM_API const char* ICON_FILE_DIR;

/// Installs the icon `name` on the shell: the file "ROOT/ICON_FILE_DIR/NAME.xpm", where the root is the environment
/// variable ZENTAHOME as it was at the first call, else "/usr/zenta". The window's _NET_WM_ICON gets the same picture as
/// soon as the shell has a window.
/// A file that does not exist, that is no regular file or whose path has more than 1023 bytes is no icon and no fault;
/// other failures print a line on standard output and leave the shell as it is.
LM_API void loadXpmIcon(Widget shell, const char* name);

/// Installs a pixmap as the shell's icon, by way of an icon window where the shell has one or can get one, else as its
/// "iconPixmap". The pixmap stays the caller's and must live as long as the icon.
LM_API void setXpmIcon(Widget shell, Pixmap pixmap);
