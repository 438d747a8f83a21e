// TextDialog.h: a dialog with a text to read.
#pragma once

#include <Lm/LmGenericDialog.h>

#include <string>

class TextDialog : public LmGenericDialog {
public:
    /// `textName` is the name of the text widget; long lines are wrapped, or scrolled.
    TextDialog(const char* name, const char* textName, bool wrapped);

    Widget createDialog(Widget parent) override;
    void showText(const std::string& title, const std::string& text);

private:
    const char* _textName;
    bool _isWrapped;
    Widget _text = nullptr;
};
