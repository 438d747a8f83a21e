#include "RowList.h"

#include "ListRecord.h"
#include "SvScrollBar.h"
#include "support/xt.h"

#include <algorithm>
#include <climits>
#include <vector>

namespace lm {

namespace {

constexpr int Many = 256;       // rows from which on the record is changed directly
constexpr int IconMargin = 2;   // between the icons of two rows, at least

/// Every callback that gets an XmListCallbackStruct.
const char* const selectionCallbacks[] = {XmNsingleSelectionCallback, XmNmultipleSelectionCallback, XmNextendedSelectionCallback,
                                          XmNbrowseSelectionCallback, XmNdefaultActionCallback};

Dimension dimension(int pixels) { return static_cast<Dimension>(std::clamp(pixels, 0, USHRT_MAX)); }

}   // namespace

RowList::RowList(ScrolledListRec* widget)
    : _widget(widget),
      _looks(XtDisplayOfObject(reinterpret_cast<Widget>(widget))),
      _painter(widget, _looks),
      _hook(XtAppAddBlockHook(XtWidgetToApplicationContext(reinterpret_cast<Widget>(widget)), aboutToBlock, this))
{
    for (const char* name : selectionCallbacks)
        on<&RowList::tellLength>(self(), name, this);
    on<&RowList::activate>(self(), XmNdefaultActionCallback, this);
    const EventMask input = KeyPressMask | ButtonPressMask | ButtonReleaseMask | Button1MotionMask | FocusChangeMask;
    XtAddEventHandler(self(), input, False, noticed, this);
    replaceScrollBar();
}

RowList::~RowList() { XtRemoveBlockHook(_hook); }

RowList* RowList::of(Widget widget)
{
    if (!widget || !XtIsSubclass(widget, lmScrolledListWidgetClass) || widget->core.being_destroyed)
        return nullptr;
    return reinterpret_cast<ScrolledListRec*>(widget)->scrolledList.rows;
}

// --- when to draw ----------------------------------------------------------------------------------------------------
// XmList changes rows in many places. Before the program waits for the next event, we look. That moment does not come while
// work procedures run, so what the user does is looked at soon after it, too.

void RowList::aboutToBlock(XtPointer self) noexcept { static_cast<RowList*>(self)->show(); }

void RowList::noticed(Widget, XtPointer self, XEvent*, Boolean*) noexcept
{
    auto* rows = static_cast<RowList*>(self);
    if (!rows->_timer)
        rows->_timer = TimerHandle(after<&RowList::showSoon>(XtWidgetToApplicationContext(rows->self()), 0, rows));
}

void RowList::showSoon()
{
    _timer.fired();
    show();
}

void RowList::show()
{
    if (!_widget->scrolledList.update)
        return;
    adoptVisible();
    _painter.paint();
}

/// A row that an ordinary call has added stands right of the icons' column, too, so it is wider than that call thought.
void RowList::adoptVisible()
{
    if (_column == 0)
        return;
    bool adopted = false;
    const int end = std::min(list().top_position + list().visibleItemCount, list().itemCount);
    for (int row = list().top_position; row < end; ++row)
        if (list().InternalList[row]->length >= -1) {
            dress(row, 0, list().InternalList[row]->width);
            adopted = true;
        }
    if (adopted)
        widthsChanged();
}

// --- callbacks -------------------------------------------------------------------------------------------------------

void RowList::tellLength(XmListCallbackStruct* call) { call->item_length = call->item ? XmStringLength(call->item) : 0; }

void RowList::activate(XmListCallbackStruct* call) { XtCallCallbackList(self(), _widget->scrolledList.activateCallback, call); }

/// Motif's own bar cannot be annotated. Ours takes its name, its callbacks and its place.
void RowList::replaceScrollBar()
{
    Widget old = reinterpret_cast<Widget>(list().vScrollBar);
    if (!old)
        return;
    Arg args[] = {{const_cast<char*>(XmNorientation), XmVERTICAL},
                  {const_cast<char*>(XmNunitType), XmPIXELS},
                  {const_cast<char*>(XmNshadowThickness), _widget->primitive.shadow_thickness},
                  {const_cast<char*>(XmNhighlightThickness), 0},
                  {const_cast<char*>(XmNtraversalOn), False}};
    Widget bar = SvCreateScrollBar(XtParent(self()), XtName(old), args, XtNumber(args));
    for (const char* name : {XmNvalueChangedCallback, XmNdragCallback, XmNincrementCallback, XmNdecrementCallback,
                             XmNpageIncrementCallback, XmNpageDecrementCallback, XmNtoTopCallback, XmNtoBottomCallback}) {
        XtCallbackList callbacks = nullptr;
        XtVaGetValues(old, name, &callbacks, nullptr);
        if (callbacks)
            XtAddCallbacks(bar, name, callbacks);
        on<&RowList::show>(bar, name, this);
    }
    const bool shown = XtIsManaged(old);
    XtVaSetValues(XtParent(self()), XmNverticalScrollBar, bar, nullptr);
    list().vScrollBar = reinterpret_cast<XmScrollBarWidget>(bar);
    XtDestroyWidget(old);
    if (shown)
        XtManageChild(bar);
}

// --- looks -----------------------------------------------------------------------------------------------------------

/// Gives a row its look, and the width of its label with what stands before it.
void RowList::dress(int row, int lookNumber, int textWidth)
{
    Element& element = *list().InternalList[row];
    element.length = -2 - lookNumber;
    element.width = dimension(textWidth + extraWidth(_looks.look(lookNumber)));
    list().MaxWidth = std::max(list().MaxWidth, element.width);
    _painter.spoil(row);
}

void RowList::setLook(int position, const RowLook& look)
{
    const int row = position - 1;
    const Element& element = *list().InternalList[row];
    const int before = element.length < -1 ? extraWidth(_looks.look(lookNumber(element))) : 0;
    const Dimension widest = list().MaxWidth;
    dress(row, _looks.number(look), element.width - before);
    if (list().MaxWidth != widest)
        widthsChanged();
    show();
}

void RowList::setIndent(int position, int pixels)
{
    RowLook look = lookAt(position);
    look.indent = std::clamp(pixels, 0, SHRT_MAX);
    setLook(position, look);
}

void RowList::setStyle(int position, const RowStyle* style)
{
    RowLook look = lookAt(position);
    look.style = style ? _looks.number(*style) : 0;
    fitHeight();
    setLook(position, look);
}

void RowList::setIcon(int position, Pixmap icon)
{
    RowLook look = lookAt(position);
    look.icon = icon;
    _looks.size(icon);
    fitHeight();
    fitColumn();
    setLook(position, look);
}

/// Moves the labels when a wider icon has come, or the icons went.
void RowList::fitColumn()
{
    const int column = _painter.iconColumn();
    if (column == _column)
        return;
    const int more = column - _column;
    _column = column;
    widenAll(more);
    _painter.spoil();
}

/// Rows stand so far apart that every icon and every style's font fits.
void RowList::fitHeight()
{
    const int icon = _widget->scrolledList.showIcons ? _looks.tallestIcon() + IconMargin : 0;
    const int missing = std::max(icon, _looks.tallestLine()) - (list().MaxItemHeight + list().spacing);
    if (missing <= 0 || size() == 0)
        return;
    XtVaSetValues(self(), XmNlistSpacing, list().ItemSpacing + missing, nullptr);
    _painter.spoil();
}

void RowList::widenAll(int pixels)
{
    int widest = 0;
    for (int row = 0; row < list().itemCount; ++row) {
        Element& element = *list().InternalList[row];
        if (element.length < -1)
            element.width = dimension(element.width + pixels);
        widest = std::max<int>(widest, element.width);
    }
    if (list().itemCount == 0)
        return;
    list().MaxWidth = dimension(widest);
    widthsChanged();
}

/// The list's own width and the horizontal scroll bar follow the widest row.
void RowList::widthsChanged()
{
    if (list().SizePolicy != XmCONSTANT) {
        const int borders =
            2 * (list().margin_width + list().HighlightThickness + static_cast<int>(_widget->primitive.shadow_thickness));
        XtVaSetValues(self(), XmNwidth, dimension(list().MaxWidth + borders), nullptr);
    }
    recordChanged();
}

/// XmList's own resize procedure computes anew what the scroll bars show and how many rows fit.
void RowList::recordChanged() { xmListClassRec.core_class.resize(self()); }

// --- more and fewer rows ---------------------------------------------------------------------------------------------

LabelSizes& RowList::sizes()
{
    if (!_sizesKnown)
        _sizes.use(list().font);
    _sizesKnown = true;
    return _sizes;
}

int RowList::lookOf(const NewRow& row)
{
    if (row.indent == _lastRow.indent && row.icon == _lastRow.icon && row.style == _lastRow.style)
        return _lastLook;
    RowLook look{.indent = std::clamp(row.indent, 0, SHRT_MAX), .style = 0, .icon = row.icon};
    if (row.style)
        look.style = _looks.number(*row.style);
    _looks.size(row.icon);
    _lastRow = row;
    _lastLook = _looks.number(look);
    return _lastLook;
}

void RowList::insert(int position, int count, RowSource& source)
{
    if (count <= 0)
        return;
    _lastRow = {};   // styles are compared by address, which holds for one call
    _lastLook = 0;
    if (position < 1 || position > size())
        position = size() + 1;
    const int widest = list().MaxWidth, tallest = list().MaxItemHeight;
    if (count >= Many && recordIsKnown(list()))
        insertDirectly(position, count, source);
    else
        insertByCall(position, count, source);

    fitHeight();
    fitColumn();
    if (list().MaxWidth != widest || list().MaxItemHeight != tallest)
        widthsChanged();
    show();
}

void RowList::insertByCall(int position, int count, RowSource& source)
{
    std::vector<XmString> labels(static_cast<std::size_t>(count));
    std::vector<int> looks(static_cast<std::size_t>(count));
    NewRow row;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        source.next(row);
        labels[i] = row.label;
        looks[i] = lookOf(row);
    }
    XmListAddItemsUnselected(self(), labels.data(), count, position);
    for (int i = 0; i < count; ++i) {
        const int index = position - 1 + i;
        dress(index, looks[static_cast<std::size_t>(i)], list().InternalList[index]->width);
    }
}

/// All rows but the last go into the record; the last one goes the ordinary way and brings everything else up to date.
void RowList::insertDirectly(int position, int count, RowSource& source)
{
    const LabelSizes& measure = sizes();
    const int first = position - 1;
    NewRow row;
    source.next(row);
    lookOf(row);
    fitColumn();   // here it costs nothing; most trees show their widest icon in the first row
    openGap(list(), first, count - 1);
    for (int i = 0; i < count - 1; ++i) {
        if (i > 0)
            source.next(row);
        const int number = lookOf(row);
        const LabelSize size = measure.of(row.label, row.text);
        fillRow(list(), first + i,
                {row.label, dimension(size.width + extraWidth(_looks.look(number))), size.height, -2 - number});
    }
    source.next(row);
    const int number = lookOf(row);
    XmListAddItemUnselected(self(), row.label, position + count - 1);
    dress(first + count - 1, number, list().InternalList[first + count - 1]->width);
}

void RowList::add(XmString label, int position)
{
    if (!label)
        return;
    const bool atEnd = position < 1 || position > size();
    if (_widget->scrolledList.update || !atEnd || size() == 0 || !recordIsKnown(list())) {
        XmListAddItemUnselected(self(), label, atEnd ? 0 : position);
        const int row = atEnd ? size() - 1 : position - 1;
        dress(row, 0, list().InternalList[row]->width);
        if (_column > 0)
            widthsChanged();
        show();
        return;
    }
    const LabelSize size = sizes().of(label, nullptr);
    appendRow(list(), {label, dimension(size.width + _column), size.height, -2});
    _appending = true;
}

/// Motif hears of the rows appended while updates were off: the last one is taken away and added the ordinary way.
void RowList::finishAppending()
{
    if (!_appending)
        return;
    _appending = false;
    if (size() > 1 && !list().InternalList[size() - 1]->selected) {
        const Element last = *list().InternalList[size() - 1];
        const XmText label(takeLastRow(list()));
        XmListAddItemUnselected(self(), label.get(), 0);
        list().InternalList[size() - 1]->length = last.length;
        list().InternalList[size() - 1]->width = last.width;
    }
    widthsChanged();
}

void RowList::remove(int position, int count)
{
    if (!has(position) || count <= 0)
        return;
    count = std::min(count, size() - position + 1);
    if (count == size())
        return removeAll();
    const int first = position - 1;
    const int cursor = list().CurrentKbdItem;
    const bool nothingSelected = list().selectedPositionCount == 0 && list().selectedItemCount == 0;
    if (count >= Many && nothingSelected && recordIsKnown(list()))
        removeDirectly(position, count);
    else
        XmListDeleteItemsPos(self(), count, position);

    // The location cursor stays on its row, and goes to the next one when its own is gone.
    const int kept = cursor < first ? cursor : std::max(first, cursor - count);
    list().CurrentKbdItem = std::min(kept, size() - 1);
    if (list().SelectionPolicy == XmEXTENDED_SELECT || list().SelectionPolicy == XmBROWSE_SELECT)
        list().LastHLItem = list().CurrentKbdItem;
    show();
}

void RowList::removeDirectly(int position, int count)
{
    const int first = position - 1;
    Dimension width = 0, height = 0;
    for (int row = first; row < first + count; ++row) {
        width = std::max(width, list().InternalList[row]->width);
        height = std::max(height, list().InternalList[row]->height);
    }
    closeGap(list(), first, count - 1);
    list().InternalList[first]->width = width;   // so that the call looks for the widest of the others when it was here
    list().InternalList[first]->height = height;
    XmListDeleteItemsPos(self(), 1, position);
    if (list().top_position + list().visibleItemCount > size())
        XmListSetBottomPos(self(), 0);
}

void RowList::removeAll()
{
    XmListDeleteAllItems(self());
    _appending = false;
    show();
}

// --- resources -------------------------------------------------------------------------------------------------------

void RowList::fontChanged()
{
    _sizesKnown = false;
    const int column = std::exchange(_column, 0);
    for (int row = 0; row < size(); ++row) {   // XmList has measured the labels alone
        Element& element = *list().InternalList[row];
        if (element.length < -1)
            element.width = dimension(element.width + _looks.look(lookNumber(element)).indent);
    }
    _column = column;
    widenAll(column);
}

void RowList::showIconsChanged()
{
    fitHeight();
    fitColumn();
    _painter.spoil();
}

void RowList::updateChanged()
{
    if (!_widget->scrolledList.update)
        return;
    finishAppending();
    show();
}

void insertRows(Widget widget, int position, int count, RowSource& source)
{
    if (RowList* rows = RowList::of(widget))
        rows->insert(position, count, source);
}

void restyleRow(Widget widget, int position, const RowStyle* style)
{
    RowList* rows = RowList::of(widget);
    if (rows && rows->has(position))
        rows->setStyle(position, style);
}

}   // namespace lm
