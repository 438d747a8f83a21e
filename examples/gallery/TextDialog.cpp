#include "TextDialog.h"

#include <Lm/support/resources.h>

#include <Xm/Text.h>

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
