// SampleWindow.h: the window of the start-up measurements: a menu bar of 5 menus with 10 items, a text, 20 buttons.
#pragma once

#include <X11/Intrinsic.h>

/// Makes it in the main window. Returns the work area, which the caller manages.
Widget makeSampleView(Widget mainWindow);

/// With the argument "later" on the command line: adds another scrolled text when the window has been up for 0.1 s.
void obeyArguments(int argc, char** argv, Widget view);
