#include "base/dialog/MessageBoxes.h"

#include "support/resources.h"

Widget lm::createBox(BoxMaker make, Widget parent, const char* name)
{
    Arg stays = {xtText(XmNautoUnmanage), False};
    return make(parent, xtText(name), &stays, 1);
}

Widget lm::createOkBox(BoxMaker make, Widget parent, const char* name)
{
    Widget box = createBox(make, parent, name);
    XtUnmanageChild(XmMessageBoxGetChild(box, XmDIALOG_CANCEL_BUTTON));
    return box;
}
