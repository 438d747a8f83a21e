// ResizerPage.h: cards on a board that are moved and resized by grips.
#pragma once

#include "Page.h"

#include <Lm/LmResizer.h>

#include <memory>

class ResizerPage : public Page {
public:
    explicit ResizerPage(Widget parent);
    ~ResizerPage() override;

    const char* className() override { return "ResizerPage"; }

private:
    void makeResizer();
    void setSteps();
    void hold(Widget card);
    static void cardPressed(Widget card, XtPointer page, XEvent*, Boolean*) noexcept;
    void moved(LmCallbackObject*, void*, void*);

    Widget _live, _steps, _place, _board, _card = nullptr;
    std::unique_ptr<LmResizer> _resizer;
};
