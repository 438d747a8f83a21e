#include "Charts.h"

#include <Lm/support/text.h>
#include <Lm/support/xmtext.h>

#include <algorithm>
#include <array>
#include <cmath>

#include <sys/statvfs.h>

// Names of colours are names of resources, too.
static constexpr std::array colours = {"#3b6ea5", "#d98c3f", "#5d9b62", "#b0504a", "#8b6fb0", "#c9b04a", "#4aa3a8", "#9aa5b1"};
static constexpr int swatch = 10;   // pixels

// --- the pie -----------------------------------------------------------------------------------------------------------

void SharePie::showShares(const Entry* directory, Measure measure)
{
    _directory = directory ? shownName(directory->name) : "";
    _shares.clear();
    if (directory)
        _shares = sharesOf(*directory, measure, colours.size());
    fill();
    update();
}

void SharePie::resize()
{
    fill();
    LmPie::resize();
}

static int widthOf(XmFontList font, const std::string& text) { return XmStringWidth(font, lm::compound(text.c_str()).get()); }

/// The text, cut so that it is not wider than that, in pixels.
std::string SharePie::fitting(const std::string& text, int room)
{
    std::string cut = text;
    for (size_t left = text.size(); left > 0 && widthOf(_fontList, cut) > room;)
        cut = std::string(lm::utf8Prefix(text, --left)) + "...";
    return cut;
}

/// The disc is as large as the room below the labels allows; they start in its middle. Where that is too small, there are fewer.
void SharePie::fill()
{
    constexpr int smallest = 40;
    reset(1000, 1);
    if (_shares.empty() || graphWidth() < 4 * swatch)
        return;
    const auto room = [this](size_t most) {   // for the disc's radius
        setRadius(1);
        addLabels(merged(_shares, most), graphWidth());
        return graphHeight() - neededHeight() - 1;
    };
    size_t most = _shares.size();
    while (most > 1 && room(most) < smallest)
        --most;
    _discRadius = std::clamp(room(most), 1, (graphWidth() - 1) / 2);
    setRadius(_discRadius);
    addLabels(merged(_shares, most), graphWidth() - _discRadius - 2 * swatch);
}

void SharePie::addLabels(const std::vector<Share>& shares, int room)
{
    reset(1000, 12);
    setTitle(fitting(_directory, room).c_str());
    size_t colour = 0;
    for (const Share& share : shares) {
        const int percent = (share.thousandths + 5) / 10;
        const std::string part = percent > 0 ? "  " + std::to_string(percent) + " %" : "  < 1 %";
        const std::string name = fitting(shownName(share.name), room - widthOf(_fontList, part));
        add(share.thousandths, 1, &share == &shares.back() ? colours.back() : colours[colour++], (name + part).c_str());
    }
}

/// The pie, and beside each label the colour of its slice.
void SharePie::draw()
{
    LmPie::draw();
    constexpr int gap = 5;   // below each line
    int y = _shares.empty() ? 0 : XmStringHeight(_fontList, lm::compound(_directory.c_str()).get()) + gap;
    for (const LmMeterItem& item : _items) {
        const int height = XmStringHeight(_fontList, lm::compound(item.label.get()).get());
        setForeground(item.pixel);
        fillRectangle(_discRadius - swatch / 2, y + (height - swatch) / 2, swatch, swatch);
        y += height + gap;
    }
}

// --- the meter ---------------------------------------------------------------------------------------------------------

std::string RoomMeter::showRoom(const std::string& path, const Room& room, Units units)
{
    _ours = _others = 0;
    std::string text;
    struct statvfs system;
    if (statvfs(path.c_str(), &system) == 0 && system.f_blocks > 0) {
        const auto whole = static_cast<double>(system.f_blocks) * static_cast<double>(system.f_frsize);
        const double used = whole - static_cast<double>(system.f_bfree) * static_cast<double>(system.f_frsize);
        const double ours = std::min(static_cast<double>(room.allocated), used);
        _ours = static_cast<int>(ours * 1000 / whole);
        _others = static_cast<int>((used - ours) * 1000 / whole);
        text = "File system: " + sizeText(std::llround(used), units) + " of " + sizeText(std::llround(whole), units) + " used";
    }
    fill();
    update();
    return text;
}

void RoomMeter::resize()
{
    fill();
    LmMeter::resize();
}

/// Across, a horizontal meter counts in units of its width.
void RoomMeter::fill()
{
    reset(1000, graphWidth());
    add(_ours, 1, colours[0], nullptr);
    add(_others, 1, colours.back(), nullptr);
    Pixel background = 0;
    XtVaGetValues(_baseWidget, XmNbackground, &background, nullptr);
    add(1000 - _ours - _others, 1, background, nullptr);
}
