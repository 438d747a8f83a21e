// TabPage.h: a calendar: a strip of years beside a deck of months, a strip of months below it.
#pragma once

#include "Page.h"

#include <Lm/LmDeck.h>
#include <Lm/LmTabPanel.h>

class TabPage : public Page {
public:
    explicit TabPage(Widget parent);

    const char* className() override { return "TabPage"; }

private:
    void place();
    void yearChosen(LmCallbackObject*, void*, void* choice);
    void monthChosen(LmCallbackObject*, void*, void* choice);

    Widget _grid;
    LmTabPanel _years, _months;
    LmDeck _deck;
};
