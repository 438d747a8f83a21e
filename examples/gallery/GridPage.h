// GridPage.h: a grid of fields whose columns share the room by weights, above a spring box of buttons.
#pragma once

#include "Page.h"

class GridPage : public Page {
public:
    explicit GridPage(Widget parent);

    const char* className() override { return "GridPage"; }

private:
    void makeFields(Widget grid);
    void makeButtons(Widget grid);
    void shareOut();
    void pushAside();

    Widget _share, _fields = nullptr, _buttons[3] = {}, _aside;
};
