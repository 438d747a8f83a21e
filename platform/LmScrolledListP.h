// LmScrolledListP.h: the record of the row list, for the files that implement it.
#pragma once

#include "LmScrolledList.h"

#include <Xm/ListP.h>

namespace lm {

class RowList;

/// What the row list adds to a Motif list.
struct ScrolledListPart {
    Boolean showIcons;                  ///< the resource
    Boolean update;                     ///< the resource
    XtCallbackList activateCallback;    ///< the resource
    XtCallbackList unrealizeCallback;   ///< Xt runs it for classes that declare it
    RowList* rows;                      ///< owned: Xt makes and frees the record as plain memory
};

/// The record of one row list.
struct ScrolledListRec {
    CorePart core;                   ///< as every widget
    XmPrimitivePart primitive;       ///< as every XmPrimitive
    XmListPart list;                 ///< as every XmList
    ScrolledListPart scrolledList;   ///< the row list's own
};

}   // namespace lm
