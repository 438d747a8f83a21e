// ControlPage.h: buttons that repeat, boxes of toggles, ganged scales, icon buttons and groups.
#pragma once

#include "Page.h"

#include <Lm/LmCheckBox.h>
#include <Lm/LmGang.h>
#include <Lm/LmIconButton.h>
#include <Lm/LmRadioGroup.h>
#include <Lm/LmRepeatButton.h>

#include <memory>

class ControlPage : public Page {
public:
    explicit ControlPage(Widget parent);

    const char* className() override { return "ControlPage"; }

private:
    void makeCounter(Widget parent);
    void makeBoxes(Widget parent);
    void makeIcons(Widget parent);
    void makeRadioButtons(Widget parent);
    void less(LmCallbackObject*, void*, void*) { count(-1); }
    void more(LmCallbackObject*, void*, void*) { count(1); }
    void count(int by);
    void toggled(LmCallbackObject* box, void*, void* index);
    void pressed();

    int _count = 0;
    Widget _number = nullptr, _said = nullptr;
    std::unique_ptr<LmRepeatButton> _less, _more;
    std::unique_ptr<LmCheckBox> _extras;
    std::unique_ptr<LmRadioBox> _sizes;
    std::unique_ptr<LmIconButton> _plain, _highlighting;
    std::unique_ptr<LmGang> _gang;
    LmRadioGroup _group;
};
