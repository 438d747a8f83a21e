#include "ListRecord.h"

#include <algorithm>
#include <cstring>

#include <malloc.h>

namespace lm {

bool recordIsKnown(const XmListPart& list)
{
    const bool sameMotif = XmVersion == xmUseVersion && XmUPDATE_LEVEL == 8;
    const bool inOrder = list.itemCount == list.LastItem && (list.itemCount == 0 || (list.items && list.InternalList));
    return sameMotif && inOrder;
}

namespace {

/// Grows an array of Motif's for `count` entries, with room to spare.
template <class Entry> void reserve(Entry*& array, int count)
{
    const auto wanted = static_cast<std::size_t>(count) * sizeof(Entry);
    if (array && malloc_usable_size(array) >= wanted)   // Motif itself shrinks the arrays: only the block knows its size
        return;
    const auto roomy = wanted + wanted / 2;
    array = reinterpret_cast<Entry*>(XtRealloc(reinterpret_cast<char*>(array), static_cast<Cardinal>(roomy)));
}

template <class Entry> void moveTail(Entry* array, int from, int to, int count)
{
    std::memmove(array + to, array + from, static_cast<std::size_t>(count) * sizeof(Entry));
}

void countMoreRows(XmListPart& list, int count)
{
    if (list.itemCount == 0)
        list.MaxWidth = 0;   // an empty list has a width of its own choosing
    list.itemCount += count;
    list.LastItem += count;
}

/// What follows the rows of the list: the selection and the location cursor.
void shiftPositions(XmListPart& list, int first, int count)
{
    for (int i = 0; i < list.selectedPositionCount; ++i)
        if (list.selectedPositions[i] > first)
            list.selectedPositions[i] += count;
    if (first > list.CurrentKbdItem || list.itemCount == 0)
        return;
    list.CurrentKbdItem += count;
    if (list.SelectionPolicy == XmEXTENDED_SELECT || list.SelectionPolicy == XmBROWSE_SELECT)
        list.LastHLItem += count;
}

}   // namespace

void openGap(XmListPart& list, int first, int count)
{
    const int total = list.itemCount + count;
    reserve(list.items, total);
    reserve(list.InternalList, total);
    const int behind = list.itemCount - first;
    moveTail(list.items, first, first + count, behind);
    moveTail(list.InternalList, first, first + count, behind);
    if (behind > 0)
        shiftPositions(list, first, count);
    countMoreRows(list, count);
}

void fillRow(XmListPart& list, int index, const RowRecord& row)
{
    auto* element = reinterpret_cast<Element*>(XtMalloc(sizeof(Element)));
    *element = Element{.height = row.height,
                       .width = row.width,
                       .selected = False,
                       .last_selected = False,
                       .LastTimeDrawn = True,
                       .length = row.length,
                       .first_char = 0};
    list.items[index] = XmStringCopy(row.label);
    list.InternalList[index] = element;
    list.MaxWidth = std::max(list.MaxWidth, row.width);
    list.MaxItemHeight = std::max(list.MaxItemHeight, row.height);
}

void appendRow(XmListPart& list, const RowRecord& row)
{
    const int last = list.itemCount;
    openGap(list, last, 1);
    fillRow(list, last, row);
}

void closeGap(XmListPart& list, int first, int count)
{
    for (int i = first; i < first + count; ++i) {
        XmStringFree(list.items[i]);
        XtFree(reinterpret_cast<char*>(list.InternalList[i]));
    }
    const int behind = list.itemCount - first - count;
    moveTail(list.items, first + count, first, behind);
    moveTail(list.InternalList, first + count, first, behind);
    list.itemCount -= count;
    list.LastItem -= count;
    list.StartItem = list.EndItem = list.OldStartItem = list.OldEndItem = 0;   // of a selection that is none
    if (list.top_position > first)
        list.top_position = std::max(first, list.top_position - count);
    list.top_position = std::min(list.top_position, list.itemCount - 1);
    list.CurrentKbdItem = std::min(list.CurrentKbdItem, list.itemCount - 1);
}

XmString takeLastRow(XmListPart& list)
{
    const int last = --list.itemCount;
    --list.LastItem;
    XtFree(reinterpret_cast<char*>(list.InternalList[last]));
    return list.items[last];
}

}   // namespace lm
