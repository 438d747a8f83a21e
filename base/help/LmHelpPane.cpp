#include "LmHelpPane.h"

LmHelpPane::LmHelpPane(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmSubMenu(name, desc, defaultClientData, nullptr)
{}

LmHelpPane::LmHelpPane(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmSubMenu(parent, name, desc, defaultClientData, nullptr)
{}
