#include "LmCompletionField.h"

#include "LmNameList.h"
#include "support/handles.h"
#include "support/resources.h"
#include "support/text.h"

#include <Xm/TextF.h>

#include <cstring>
#include <string>

const char* const LmCompletionField::enterCallback = "enterCallback";
bool LmCompletionField::_completing = false;

LmCompletionField::LmCompletionField(const char* name, Widget parent) : LmComponent(name), _names(std::make_unique<LmNameList>())
{
    _w = XmCreateTextField(parent, lm::xtText(this->name()), nullptr, 0);
    installDestroyHandler();
    XtVaSetValues(_w, XmNaudibleWarning, 0, XmNverifyBell, False, nullptr);
    XtAddCallback(_w, XmNmodifyVerifyCallback, expandCallback, this);
    XtAddCallback(_w, XmNactivateCallback, activateCallback, this);
}

LmCompletionField::~LmCompletionField()
{
    if (!_w)
        return;
    // Destruction may be put off, and the widget announce something before it.
    XtRemoveCallback(_w, XmNmodifyVerifyCallback, expandCallback, this);
    XtRemoveCallback(_w, XmNactivateCallback, activateCallback, this);
}

LmCompletionField* LmCreateCompletionField(const char* name, Widget parent)
{
    auto* field = new LmCompletionField(name, parent);
    field->show();
    return field;
}

char* LmCompletionField::getText() const { return _baseWidget ? XmTextFieldGetString(_baseWidget) : XtNewString(lm::xtText("")); }

void LmCompletionField::add(const char* name) { _names->add(name); }

void LmCompletionField::clear(LmNameList* list)
{
    if (!list)
        _names->clear();
    else if (list != _names.get())
        _names.reset(list);
}

static bool isTypedSpace(const XmTextVerifyCallbackStruct* modification)
{
    const XmTextBlock inserted = modification ? modification->text : nullptr;
    return inserted && inserted->ptr && inserted->length == 1 && *inserted->ptr == ' ';
}

void LmCompletionField::expand(XmTextVerifyCallbackStruct* modification)
{
    if (_completing || !isTypedSpace(modification))
        return;
    _completing = true;
    complete(modification);   // may end with the field destroyed: the mark belongs to none
    _completing = false;
}

/// The common prefix of the matches as far as it consists of whole characters.
static std::string shownPrefix(const LmNameList& matches)
{
    const lm::CString prefix(matches.mostCommonString());
    const char* first = matches.at(0);
    return std::string(lm::utf8Prefix(first ? first : "", std::strlen(prefix.get())));
}

void LmCompletionField::complete(XmTextVerifyCallbackStruct* modification)
{
    const lm::Watch here(liveness());
    const lm::XtString text(getText());
    _matches.reset();
    char* completed = nullptr;
    int numMatches = 0;
    std::unique_ptr<LmNameList> found(_names->completeName(text.get(), completed, numMatches));
    const lm::CString owner(completed);
    modification->doit = False;
    if (!here || !_w)
        return;
    if (numMatches == 1) {
        replaceText(completed);
        return;
    }
    if (numMatches < 2 || !found)
        return;
    Display* display = XtDisplay(_w);
    _matches = std::move(found);
    replaceText(shownPrefix(*_matches).c_str());
    XBell(display, 0);
}

/// Callbacks of the text field may destroy the component meanwhile.
void LmCompletionField::replaceText(const char* text)
{
    const lm::Watch here(liveness());
    XmTextFieldSetString(_w, lm::xtText(text ? text : ""));
    if (here && _w)
        XmTextFieldSetInsertionPosition(_w, XmTextFieldGetLastPosition(_w));
}

void LmCompletionField::expandCallback(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmCompletionField*>(clientData)->expand(static_cast<XmTextVerifyCallbackStruct*>(callData));
}

void LmCompletionField::activateCallback(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    auto* field = static_cast<LmCompletionField*>(clientData);
    const lm::Watch here(field->liveness());
    field->callCallbacks(enterCallback, nullptr);
    if (here)
        field->activate(static_cast<XmTextVerifyCallbackStruct*>(callData));
}
