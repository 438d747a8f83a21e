#include "LmGenericDialog.h"

#include "support/resources.h"
#include "utils/CompoundResource.h"

#include <Xm/MessageB.h>

#include <string>

Widget LmGenericDialog::createDialog(Widget parent)
{
    const std::string prefix = std::string(name()) + ".", labelClass = prefix + XmCLabelString;
    const auto label = [&](const char* resource, const char* fallback) {
        return lm::compoundResource(parent, (prefix + resource).c_str(), labelClass.c_str(), fallback);
    };
    const lm::XmText ok = label(XmNokLabelString, "OK"), cancel = label(XmNcancelLabelString, "Cancel"),
                     help = label(XmNhelpLabelString, "Help");
    Arg args[] = {{lm::xtText(XmNdialogType), XmDIALOG_TEMPLATE},
                  {lm::xtText(XmNokLabelString), reinterpret_cast<XtArgVal>(ok.get())},
                  {lm::xtText(XmNhelpLabelString), reinterpret_cast<XtArgVal>(help.get())},
                  {lm::xtText(XmNcancelLabelString), reinterpret_cast<XtArgVal>(cancel.get())},
                  {lm::xtText(XmNautoUnmanage), False}};
    return XmCreateTemplateDialog(parent, lm::xtText(name()), args, XtNumber(args));
}
