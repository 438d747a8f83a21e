// LmScrolledList.h: a Motif list whose rows have an indentation, an icon and a style.
#pragma once

#include "support/LmExport.h"

#include <Xm/List.h>
#include <Xm/Xm.h>

extern "C" {

/// A list in a scrolled window, one row below the other. It is an XmList in every respect: each resource, callback, key
/// and XmList... call works on it, and rows that such a call adds look plain. Rows are numbered from 1; a row that does not
/// exist is ignored by every function below, and so is a widget of another class.
///
///   Resources  showIcons             ShowIcons    Boolean   False   show the icons of the rows
///              update                Update       Boolean   True    False: nothing is drawn until it is True again;
///                                                                   the list's record is true meanwhile
///              (XmNactivateCallback) activateCallback   Callback   a double click or Return on a row; the call data
///                                                                   is an XmListCallbackStruct with its item_position
///   Widgets    the list, in a scrolled window of its name and "SW"; "VertScrollBar", an annotated scroll bar
///
/// A row is as high as the list's font wants; when an icon or the font of a style is higher, XmNlistSpacing is raised.
/// Labels stand right of a column that is as wide as the widest icon.
LM_API extern WidgetClass lmScrolledListWidgetClass;

/// Makes a list inside a scrolled window of its own, which is managed and is the list's parent; the list is not managed.
/// The arguments go to both. Destroying the list destroys the scrolled window.
LM_API Widget LmCreateScrolledList(Widget parent, const char* name, ArgList args, Cardinal count);

/// Inserts a row with the label (copied) before the row that has the position now; 0 or a position behind the end appends.
LM_API void LmListAddItem(Widget list, XmString item, int position);

/// Indents the row's icon and label, in pixels (0 to 32767).
LM_API void LmListSetPositionIndent(Widget list, int position, int pixels);

/// Draws the row with this font and these colours. A null font keeps the list's font. The font is copied.
LM_API void LmListSetPositionAttributes(Widget list, int position, XmFontList font, Pixel foreground, Pixel background);

/// Shows the icon in front of the row's label; None removes it. The pixmap is the caller's and must live as long as it is
/// shown; one of depth 1 is drawn in the row's colours. An id that is no pixmap shows nothing. Its size is asked for once.
LM_API void LmListSetPositionIcon(Widget list, int position, Pixmap icon);

/// The row's indent; 0 for a plain row, and for one that does not exist.
LM_API int LmListGetPositionIndent(Widget list, int position);
/// The row's icon; None for a plain row, and for one that does not exist.
LM_API Pixmap LmListGetPositionIcon(Widget list, int position);

/// Removes one row.
LM_API void LmListDeletePos(Widget list, int position);
/// Removes `count` rows from `position` on, fewer when the list ends.
LM_API void LmListDeleteItemsPos(Widget list, int count, int position);
/// Removes all rows.
LM_API void LmListDeleteAllItems(Widget list);

/// As XmListDeselectAllItems.
LM_API void LmListDeselectAllItems(Widget list);
/// As XmListSelectPos.
LM_API void LmListSelectPos(Widget list, int position, Boolean notify);
}
