#include "RowLooks.h"

#include "support/XErrorTrap.h"

#include <algorithm>

namespace lm {

std::size_t RowLooks::Hash::operator()(const RowLook& look) const
{
    const auto row = static_cast<std::uint64_t>(look.indent) << 32 ^ static_cast<std::uint64_t>(look.style) << 48;
    return std::hash<std::uint64_t>()((row ^ look.icon) * 0x9e3779b97f4a7c15U);
}

int RowLooks::number(const RowLook& look)
{
    if (look == _looks.front())
        return 0;
    const auto [place, isNew] = _numbers.try_emplace(look, static_cast<int>(std::ssize(_looks)));
    if (isNew)
        _looks.push_back(look);
    return place->second;
}

namespace {

/// What stands behind the handle of a font list: copies share it, so two handles of one table are the same font.
const void* tableBehind(XmFontList font) { return font ? *reinterpret_cast<const void* const*>(font) : nullptr; }

}   // namespace

int RowLooks::number(const RowStyle& style)
{
    const auto [place, isNew] = _styleNumbers.try_emplace({tableBehind(style.font), style.foreground, style.background},
                                                          static_cast<int>(std::ssize(_styles)));
    if (!isNew)
        return place->second;

    OwnedStyle added{style, nullptr};
    if (style.font) {   // our copy keeps the table, so its address names it for as long as we do
        added.font.reset(XmFontListCopy(style.font));
        added.style.font = added.font.get();
        const XmText sample(XmStringCreateLocalized(const_cast<char*>("Ag")));
        _tallestLine = std::max(_tallestLine, static_cast<int>(XmStringHeight(style.font, sample.get())));
    }
    _styles.push_back(std::move(added));
    return place->second;
}

const IconSize& RowLooks::size(Pixmap icon)
{
    const auto [place, isNew] = _icons.try_emplace(icon);
    IconSize& size = place->second;
    if (!isNew || icon == None)
        return size;

    const XErrorTrap trap(_display);
    Window root = None;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    if (XGetGeometry(_display, icon, &root, &x, &y, &width, &height, &border, &depth)) {
        size = {static_cast<int>(width), static_cast<int>(height), depth};
        _widestIcon = std::max(_widestIcon, size.width);
        _tallestIcon = std::max(_tallestIcon, size.height);
    }
    return size;
}

}   // namespace lm
