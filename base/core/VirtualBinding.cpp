#include "VirtualBinding.h"

#include <algorithm>
#include <string>

namespace lm {

namespace {

struct NamedModifier {
    std::string_view name;
    Modifiers mask;
};

constexpr NamedModifier namedModifiers[] = {
    {"Shift", ShiftMask}, {"Lock", LockMask}, {"Ctrl", ControlMask}, {"Meta", Mod1Mask}, {"Alt", Mod1Mask},
    {"Mod1", Mod1Mask},   {"Mod2", Mod2Mask}, {"Mod3", Mod3Mask},    {"Mod4", Mod4Mask}, {"Mod5", Mod5Mask},
};

constexpr std::string_view blanks = " \t";

void skipBlanks(std::string_view& text) { text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size())); }

bool skip(std::string_view& text, std::string_view expected)
{
    if (!text.starts_with(expected))
        return false;
    text.remove_prefix(expected.size());
    return true;
}

/// Takes what stands before the first of `ends`, or everything.
std::string_view take(std::string_view& text, std::string_view ends)
{
    const std::string_view taken = text.substr(0, text.find_first_of(ends));
    text.remove_prefix(taken.size());
    return taken;
}

std::optional<Modifiers> takeModifiers(std::string_view& text)
{
    Modifiers modifiers = 0;
    for (skipBlanks(text); !text.empty() && text.front() != '<'; skipBlanks(text)) {
        const std::string_view name = take(text, " \t<");
        const auto found = std::ranges::find(namedModifiers, name, &NamedModifier::name);
        if (found == std::end(namedModifiers))
            return std::nullopt;
        modifiers |= found->mask;
    }
    return modifiers;
}

std::optional<KeyBinding> takeKey(std::string_view& text)
{
    const std::optional<Modifiers> modifiers = takeModifiers(text);
    if (!modifiers || !skip(text, "<Key>"))
        return std::nullopt;
    const KeySym keysym = XStringToKeysym(std::string(take(text, ",: \t\n")).c_str());
    if (keysym == NoSymbol)
        return std::nullopt;
    return KeyBinding{keysym, *modifiers};
}

}   // namespace

std::optional<std::vector<KeyBinding>> parseVirtualBinding(std::string_view text)
{
    std::vector<KeyBinding> keys;
    do {
        const std::optional<KeyBinding> key = takeKey(text);
        if (!key)
            return std::nullopt;
        keys.push_back(*key);
        skipBlanks(text);
    } while (skip(text, ","));
    if (!text.empty())
        return std::nullopt;
    return keys;
}

}   // namespace lm
