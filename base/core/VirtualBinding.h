// VirtualBinding.h: the text of one virtual key's binding, such as "Shift<Key>Escape,<Key>Delete".
#pragma once

#include <X11/Intrinsic.h>

#include <optional>
#include <string_view>
#include <vector>

namespace lm {

/// A key as a binding names it: the symbol on it and the modifiers to hold.
struct KeyBinding {
    KeySym keysym;
    Modifiers modifiers;

    bool operator==(const KeyBinding&) const = default;
};

/// The keys of a comma list of `[Shift|Lock|Ctrl|Meta|Alt|Mod1..Mod5 ...]<Key>keysym`, in order; needs no server.
/// Nothing unless the whole text is of that form: Motif's own syntax is wider (`~`, `None`, `<KeyUp>`, a numeric
/// keysym), and a text that uses the rest of it is Motif's to convert.
std::optional<std::vector<KeyBinding>> parseVirtualBinding(std::string_view text);

}   // namespace lm
