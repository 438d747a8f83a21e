// ScrollPage.h: a long text beside a scroll bar that shows where a word stands in it, and a box of coloured cells.
#pragma once

#include "Page.h"

#include <Lm/LmScroll.h>
#include <Lm/LmScrolledBox.h>

class ScrollPage : public Page {
public:
    explicit ScrollPage(Widget parent);

    const char* className() override { return "ScrollPage"; }

private:
    void makeText();
    void makeCells();
    void centre();
    void scrolled(LmCallbackObject*, void*, void* data);

    LmScroll _text;
    LmScrolledBox _cells;
    Widget _centre;
};
