#include "LmForkWindow.h"

#include "LmForkIO.h"

#include <Xm/Form.h>

#include <cstring>

LmForkWindow::LmForkWindow(const char* name, const char* prompt) : LmWindow(name), _prompt(prompt ? strdup(prompt) : nullptr)
{
    Widget form = XtVaCreateWidget("forkWindowForm", xmFormWidgetClass, mainWindowWidget(), nullptr);
    _forkIO = std::make_unique<LmForkIO>(this->name(), form, prompt);
    XtVaSetValues(_forkIO->baseWidget(), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment,
                  XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    _forkIO->show();
    addView(form);
}

LmForkWindow::~LmForkWindow() = default;
