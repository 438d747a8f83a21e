// RowSource.h: rows given to a row list by the thousand.
#pragma once

#include "RowLooks.h"

namespace lm {

/// A row to be inserted. All pointers are borrowed for the time of the call that gets them.
struct NewRow {
    XmString label = nullptr;
    const char* text = nullptr;        ///< the label's text, when it is one line without tabs; saves measuring it
    const RowStyle* style = nullptr;   ///< null: plain
    int indent = 0;
    Pixmap icon = None;
};

/// Gives the rows one after the other.
class RowSource {
public:
    virtual ~RowSource() = default;
    virtual void next(NewRow& row) = 0;
};

/// Inserts `count` rows before the one at `position` (1 to the number of rows and one more).
void insertRows(Widget list, int position, int count, RowSource& source);

/// Gives a row the style; null: plain, in the list's own colours whatever they become.
void restyleRow(Widget list, int position, const RowStyle* style);

}   // namespace lm
