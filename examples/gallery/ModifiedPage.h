// ModifiedPage.h: settings whose corners tell which of them were changed.
#pragma once

#include "Page.h"

#include <Lm/LmModifiedAttachment.h>

#include <array>

class ModifiedPage : public Page {
public:
    explicit ModifiedPage(Widget parent);

    const char* className() override { return "ModifiedPage"; }

private:
    Widget row(const char* labelName, Widget above);
    Widget field(const char* name, Widget above, LmModifiedAttachment& attachment, const char* value);
    void addControls(Widget above);
    void addButtons(Widget above);
    void scaleMoved(XmScaleCallbackStruct* data);
    void toggled(XmToggleButtonCallbackStruct* data);
    void valueShown(LmCallbackObject*, void*, void*);
    void save();
    void revert();
    void count();

    LmModifiedAttachment _user, _server, _port, _volume, _sound;
    std::array<LmModifiedAttachment*, 5> _all{&_user, &_server, &_port, &_volume, &_sound};
    Widget _scale = nullptr;
    Widget _toggle = nullptr;
    Widget _state = nullptr;
};
