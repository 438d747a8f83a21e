// SampleWindow.h: the window that the start-up measurements show: a menu bar of 5 menus with 10 items, a text, 20 buttons.
#pragma once

#include <X11/Intrinsic.h>

/// Makes it in the shell.
void makeSampleWindow(Widget shell);

/// Adds one more scrolled text to the window and shows it.
void addScrolledText(Widget shell);
