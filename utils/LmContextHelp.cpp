#include "LmContextHelp.h"

void LmAddContextSmartHelpCallback(Widget) {}
