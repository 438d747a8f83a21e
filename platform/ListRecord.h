// ListRecord.h: rows put into and taken out of the record of an XmList, many at once.
#pragma once

#include <Xm/ListP.h>

namespace lm {

// Motif keeps a list's rows in two arrays and one small block per row, and measures, redraws and scrolls at every call.
// For a hundred thousand rows that is most of the time. These functions change the record the way Motif's own calls do and
// leave one row for such a call, which then brings sizes, scroll bars and picture up to date for all of them.

/// Whether this is the Motif whose record we know and the list's record is in order. If not, use the public calls.
bool recordIsKnown(const XmListPart& list);

/// What XmList's item record keeps of a row.
struct RowRecord {
    XmString label = nullptr;   ///< copied
    Dimension width = 0;
    Dimension height = 0;
    int length = -1;   ///< XmList's own cache of the label's length; -1: not known
};

/// Makes room for `count` rows from index `first` on (0 to itemCount). Each must be filled with fillRow before anything
/// else looks at the list.
void openGap(XmListPart& list, int first, int count);
void fillRow(XmListPart& list, int index, const RowRecord& row);

/// Takes away the rows from index `first` on, `count` of them; at least one row stays. Nothing may be selected.
void closeGap(XmListPart& list, int first, int count);

/// Appends a row; the arrays grow by half, so that each row costs the same however many there are.
void appendRow(XmListPart& list, const RowRecord& row);

/// Takes the last row away and hands its label over. It must not be selected, and not be the only one.
XmString takeLastRow(XmListPart& list);

}   // namespace lm
