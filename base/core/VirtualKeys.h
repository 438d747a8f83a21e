// VirtualKeys.h: Motif's table of virtual keys ("osfHelp is F1"), made without asking the server about every key.
#pragma once

#include "ResourceDefaults.h"

#include <optional>
#include <string>

namespace lm {

/// Motif asks the server for the mapping of every key it binds, 34 round trips for the usual table, although Xt has
/// the whole mapping already. So XmDisplay is made to convert nothing, and the table is filled afterwards.
///
/// Before XmDisplay exists: has it convert nothing, and answers the text that fillVirtualKeys() then needs. Nothing,
/// and Motif does the work itself, when the user has bindings of his own, or for one old keyboard that Motif treats apart.
std::optional<std::string> postponeVirtualKeys(Display* display, const Program& program);

/// Fills the table from the text, exactly as Motif would, unless Motif has filled it. Must come before any shell: menus
/// grab their keys when they are realized. The resource database then holds the text, as if the user had written it.
void fillVirtualKeys(Widget xmDisplay, const Program& program, const std::string& text);

}   // namespace lm
