// ChartPage.h: meters, a pie, and a level meter with its scale.
#pragma once

#include "Page.h"

#include <Lm/LmMeter.h>
#include <Lm/LmPeriodic.h>
#include <Lm/LmPie.h>
#include <Lm/LmTickMarks.h>
#include <Lm/LmVuMeter.h>

class ChartPage : public Page {
public:
    explicit ChartPage(Widget parent);

    const char* className() override { return "ChartPage"; }

private:
    void tick(LmCallbackObject*, void*, void*);

    Widget _row, _left, _right;   // before the charts that stand in them
    LmMeter _across, _up;
    LmPie _pie;
    LmTickMarks _marks;
    LmVuMeter _level;
    LmPeriodic _clock{100};
    int _ticks = 0;
};
