// LmCompletionField: a line of text that a typed space completes to one of a set of names.
#pragma once

#include "LmComponent.h"

#include <Xm/Xm.h>

#include <memory>

class LmNameList;

/// A text field with a list of names. A typed space is not inserted: it completes the whole text, wherever the cursor
/// stands. One name that begins with the text replaces it; of several, their longest common prefix does, and the bell
/// rings; with none nothing changes. Pasted and all other characters, and deletions, are taken as they are. A completed
/// name may contain spaces itself. Names compare byte by byte; a character that the common prefix cuts is not shown.
///
///   Widgets    a text field of the component's name, not managed before show()
///   Resources  none of its own; the field's XmNaudibleWarning and XmNverifyBell are set so that only completion rings
///   Callbacks  enterCallback, when Return is pressed, before activate(); call data: null
///   Errors     none: null names are not added; without its widget the field has no text
class LM_API LmCompletionField : public LmComponent {
public:
    static const char* const enterCallback;   ///< "enterCallback"

    LmCompletionField(const char* name, Widget parent);   ///< A field without names.
    ~LmCompletionField() override;

    const char* className() override { return "LmCompletionField"; }
    /// The completion: runs before every modification of the text and may refuse it.
    virtual void expand(XmTextVerifyCallbackStruct* modification);
    /// Return was pressed; runs after enterCallback. Does nothing here.
    virtual void activate(XmTextVerifyCallbackStruct*) {}

    /// The text, which the caller frees with XtFree.
    char* getText() const;
    /// Adds a copy of the name to the names.
    void add(const char* name);
    /// Makes `list` the names, owned by the field from now on; null: removes all names.
    void clear(LmNameList* list);
    /// The names that the last completion found, when they were two or more, else null; owned by the field.
    const LmNameList* matches() const { return _matches.get(); }

    /// The text field's verify procedure: runs expand() of the field given as client data.
    static void expandCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// The text field's activate procedure: announces enterCallback and runs activate().
    static void activateCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

private:
    void complete(XmTextVerifyCallbackStruct* modification);
    void replaceText(const char* text);

    std::unique_ptr<LmNameList> _matches;
    std::unique_ptr<LmNameList> _names;

    static bool _completing;   // of any field: replacing the text runs the verify procedures again
};

/// Makes a completion field and shows it.
LM_API LmCompletionField* LmCreateCompletionField(const char* name, Widget parent);
