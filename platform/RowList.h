// RowList.h: the rows of a row list: what XmList's record does not keep of them, and the ways to change many at once.
#pragma once

#include "LabelSizes.h"
#include "LmScrolledListP.h"
#include "RowLooks.h"
#include "RowPainter.h"
#include "RowSource.h"
#include "support/handles.h"

namespace lm {

/// The C++ half of a row list.
///
/// A row's look travels with it through every XmList call: its number stands in the item's `length`, which XmList only
/// passes on to callbacks, as -2, -3 ... (XmList's own values are -1, unknown, and 0 upwards, rows of an ordinary call).
class RowList {
public:
    explicit RowList(ScrolledListRec* widget);
    RowList(const RowList&) = delete;
    RowList& operator=(const RowList&) = delete;
    ~RowList();

    /// The rows of a row list; null for any other widget, and for one that is being destroyed.
    static RowList* of(Widget widget);
    static int lookNumber(const Element& row) { return row.length < -1 ? -2 - row.length : 0; }

    int size() const { return _widget->list.itemCount; }
    bool has(int position) const { return position > 0 && position <= size(); }

    void insert(int position, int count, RowSource& source);
    void add(XmString label, int position);
    void remove(int position, int count);
    void removeAll();

    const RowLook& lookAt(int position) const { return _looks.look(lookNumber(*list().InternalList[position - 1])); }
    void setIndent(int position, int pixels);
    /// A null style is the list's own.
    void setStyle(int position, const RowStyle* style);
    void setIcon(int position, Pixmap icon);

    /// After a change of the resources with these names.
    void fontChanged();
    void showIconsChanged();
    void updateChanged();

    /// Draws what has changed, unless updates are off.
    void show();
    RowPainter& painter() { return _painter; }

private:
    class Filling;

    static void aboutToBlock(XtPointer self) noexcept;
    static void noticed(Widget, XtPointer self, XEvent*, Boolean*) noexcept;
    void showSoon();
    void tellLength(XmListCallbackStruct* call);
    void activate(XmListCallbackStruct* call);
    void replaceScrollBar();

    XmListPart& list() const { return _widget->list; }
    Widget self() const { return reinterpret_cast<Widget>(_widget); }
    int extraWidth(const RowLook& look) const { return look.indent + _column; }
    void dress(int row, int lookNumber, int textWidth);
    void setLook(int position, const RowLook& look);
    void adoptVisible();
    void fitColumn();
    void fitHeight();
    void widenAll(int pixels);
    void widthsChanged();
    void recordChanged();
    void finishAppending();
    void insertByCall(int position, int count, RowSource& source);
    void insertDirectly(int position, int count, RowSource& source);
    void removeDirectly(int position, int count);
    LabelSizes& sizes();
    int lookOf(const NewRow& row);

    ScrolledListRec* _widget;
    RowLooks _looks;
    RowPainter _painter;
    LabelSizes _sizes;
    bool _sizesKnown = false;
    int _column = 0;           // the icons' column as it is in the widths of the rows
    bool _appending = false;   // rows were appended that Motif has not heard of yet
    NewRow _lastRow;           // and its look: most rows look like the one before
    int _lastLook = 0;
    XtBlockHookId _hook;
    TimerHandle _timer;
};

}   // namespace lm
