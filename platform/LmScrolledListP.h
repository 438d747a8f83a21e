// LmScrolledListP.h: the record of the row list, for the files that implement it.
#pragma once

#include "LmScrolledList.h"

#include <Xm/ListP.h>

namespace lm {

class RowList;

struct ScrolledListPart {
    Boolean showIcons;
    Boolean update;
    XtCallbackList activateCallback;
    XtCallbackList unrealizeCallback;   // Xt runs it for classes that declare it
    RowList* rows;                      // owned: Xt makes and frees the record as plain memory
};

struct ScrolledListRec {
    CorePart core;
    XmPrimitivePart primitive;
    XmListPart list;
    ScrolledListPart scrolledList;
};

}   // namespace lm
