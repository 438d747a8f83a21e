#include "TextDialog.h"

#include <Lm/support/resources.h>

#include <Xm/Text.h>

#include <map>

extern const std::map<std::string, const char*> pageSources;   // made by the build from the files themselves

TextDialog::TextDialog(const char* name, const char* textName, bool wrapped)
    : LmGenericDialog(name),
      _textName(textName),
      _isWrapped(wrapped)
{
    setShowOK(false);
    setAllowMultipleDialogs(false);
}

Widget TextDialog::createDialog(Widget parent)
{
    Widget dialog = LmGenericDialog::createDialog(parent);
    Arg look[] = {{lm::xtText(XmNeditMode), XmMULTI_LINE_EDIT},
                  {lm::xtText(XmNeditable), False},
                  {lm::xtText(XmNcursorPositionVisible), False},
                  {lm::xtText(XmNwordWrap), _isWrapped},
                  {lm::xtText(XmNscrollHorizontal), !_isWrapped}};
    _text = XmCreateScrolledText(dialog, lm::xtText(_textName), look, XtNumber(look));
    XtManageChild(_text);
    return dialog;
}

void TextDialog::showText(const std::string& title, const std::string& text)
{
    setTitle(title.c_str());
    setButtonLabels(nullptr, "Close", nullptr);
    if (post(nullptr))
        XmTextSetString(_text, lm::xtText(text.c_str()));
}

void showCodeOf(const char* pageClass)
{
    static auto* dialog = new TextDialog("galleryCode", "codeText", false);   // kept as long as the program
    const auto source = pageSources.find(pageClass);
    if (source != pageSources.end())
        dialog->showText("examples/gallery/" + source->first + ".cpp", source->second);
}
