#include "LmFileSelectionDialog.h"

#include "support/resources.h"
#include "support/xmtext.h"

#include <cstdlib>
#include <cstring>
#include <utility>

LmFileSelectionDialog::LmFileSelectionDialog(const char* name) : LmDialogManager(name) { _showApply = true; }

LmFileSelectionDialog::~LmFileSelectionDialog() { std::free(_fileName); }

Widget LmFileSelectionDialog::createDialog(Widget parent)
{
    std::free(std::exchange(_fileName, nullptr));
    Widget dialog = XmCreateFileSelectionDialog(parent, lm::xtText(name()), nullptr, 0);
    Widget before = std::exchange(_baseWidget, dialog);   // the setters work on the base widget
    applyRemembered(XmNpattern, _filterPattern);
    applyRemembered(XmNdirectory, _directory);
    applyRemembered(XmNtextString, _selection);
    _baseWidget = before;
    return dialog;
}

void LmFileSelectionDialog::applyRemembered(const char* resource, std::string& remembered)
{
    const std::string text = remembered;
    if (!text.empty())
        setText(resource, text.c_str(), remembered);
}

void LmFileSelectionDialog::setText(const char* resource, const char* text, std::string& remembered)
{
    if (!_baseWidget) {
        remembered = text;
        return;
    }
    remembered.clear();
    XtVaSetValues(_baseWidget, resource, lm::compound(text).get(), nullptr);
}

void LmFileSelectionDialog::setDirectory(const char* directory)
{
    if (directory && *directory)
        setText(XmNdirectory, directory, _directory);
}

void LmFileSelectionDialog::setFilterPattern(const char* pattern)
{
    if (pattern)
        setText(XmNpattern, pattern, _filterPattern);
}

void LmFileSelectionDialog::setSelection(const char* name)
{
    if (name)
        setText(XmNtextString, name, _selection);
}

void LmFileSelectionDialog::keepFileName(Widget dialog, XtPointer callData)
{
    _callData = static_cast<XmFileSelectionBoxCallbackStruct*>(callData);
    XmString chosen = nullptr;
    XtVaGetValues(dialog, XmNdirSpec, &chosen, nullptr);
    const lm::XmText owner(chosen);
    std::free(_fileName);
    _fileName = strdup(lm::plainText(chosen).c_str());
}

void LmFileSelectionDialog::ok(Widget dialog, XtPointer callData)
{
    keepFileName(dialog, callData);
    LmDialogManager::ok(dialog, callData);
}

void LmFileSelectionDialog::apply(Widget dialog, XtPointer callData) { keepFileName(dialog, callData); }

void LmFileSelectionDialog::cancel(Widget dialog, XtPointer callData)
{
    _callData = static_cast<XmFileSelectionBoxCallbackStruct*>(callData);
    std::free(std::exchange(_fileName, nullptr));
    LmDialogManager::cancel(dialog, callData);
}

LmFileSelectionDialog* getTheFileSelectionDialog()
{
    static auto* dialog = new LmFileSelectionDialog("fileSelectionDialog");
    return dialog;
}
