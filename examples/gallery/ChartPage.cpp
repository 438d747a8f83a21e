#include "ChartPage.h"

#include <Xm/Xm.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

struct Share {
    const char* colour;
    int value;
    const char* label;
};
static const Share shares[] = {{"#3b6ea5", 38, "programs"}, {"#d98c3f", 27, "documents"}, {"#5d9b62", 20, "pictures"}};

static void fill(LmMeter& meter, int thickness, int step)
{
    meter.reset(100, thickness);
    int extent = 1;
    for (const Share& share : shares) {
        meter.add(share.value, extent, share.colour, share.label);
        extent += step;
    }
}

ChartPage::ChartPage(Widget parent)
    : Page("chartPage", parent),
      _row(row::across("charts", body())),
      _left(row::down("leftCharts", _row)),
      _right(row::across("rightCharts", _row)),
      _across("across", _left),
      _up("up", _right),
      _pie("pie", _left),
      _marks("marks", _right, False, False, False),
      _level("level", _right)
{
    fill(_across, 320, 0);   // across, a meter counts in units of its width
    fill(_up, 40, 0);
    fill(_pie, 12, 1);
    _pie.setTitle("The disk");
    _marks.setScale(-80, 6, 20, 5);
    _marks.addLabel(0);
    for (LmComponent* chart : std::initializer_list<LmComponent*>{&_across, &_pie, &_up, &_level, &_marks})
        chart->show();
    _clock.addCallback(LmPeriodic::timerCallback, this, &ChartPage::tick, nullptr);
    _clock.start(0);
}

/// A level that swings, and a peak that falls slowly behind it. Values count from the top.
void ChartPage::tick(LmCallbackObject*, void*, void*)
{
    const int value = 55 + static_cast<int>(40 * std::sin(_ticks * 0.35) * std::cos(_ticks * 0.11));
    const int peak = std::min(value, _level.peak() > 110 ? value : _level.peak() + 1);
    _level.setValue(value, peak);
    ++_ticks;
}
