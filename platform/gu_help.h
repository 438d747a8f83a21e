// gu_help.h: the platform's help service.
#pragma once

#include "support/LmExport.h"

extern "C" {

/// Asks the platform for help: `request` 3 is the overview of the application of class `name`, 11 the index of all help
/// (`name` null). Help panes call it, with two zeros beside, while a program has installed no help functions of its own
/// (LmHelpPane::setHelpFunctions).
///
/// This one does nothing and returns 0. It is weak: a program that defines its own gets that called.
LM_API int gu_help(void* unused, const char* name, int request, int flags) __attribute__((weak));
}
