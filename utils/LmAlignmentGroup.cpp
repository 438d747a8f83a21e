#include "LmAlignmentGroup.h"

#include "LmOptionMenu.h"

#include <Xm/Xm.h>

#include <algorithm>

namespace {

template <class Value> Value get(Widget w, const char* resource)
{
    Value value = 0;
    XtVaGetValues(w, resource, &value, nullptr);
    return value;
}

template <class Action> void forEach(const LmWidgetList& list, Action action)
{
    for (int i = 0; i < list.size(); ++i)
        action(list[i]);
}

/// Gives every member the largest value of a size, and of what was seen before.
void giveLargest(const LmWidgetList& list, const char* resource, Dimension& largest)
{
    forEach(list, [&](Widget w) { largest = std::max(largest, get<Dimension>(w, resource)); });
    forEach(list, [&](Widget w) { XtVaSetValues(w, resource, largest, nullptr); });
}

/// Lines up the near edges, or, with the resource of a size, the far ones.
void lineUp(const LmWidgetList& list, const char* coordinate, const char* size, Position& furthest)
{
    const auto extent = [size](Widget w) { return size ? get<Dimension>(w, size) : 0; };
    forEach(list,
            [&](Widget w) { furthest = std::max(furthest, static_cast<Position>(get<Position>(w, coordinate) + extent(w))); });
    forEach(list, [&](Widget w) { XtVaSetValues(w, coordinate, static_cast<Position>(furthest - extent(w)), nullptr); });
}

}   // namespace

void LmAlignmentGroup::add(LmOptionMenu* menu)
{
    for (int i = 0; menu && i < menu->numItems(); i += 2)
        LmWidgetList::add((*menu)[i]->baseWidget());
}

void LmAlignmentGroup::alignLeft() { lineUp(*this, XmNx, nullptr, _maxX); }

void LmAlignmentGroup::alignRight() { lineUp(*this, XmNx, XmNwidth, _maxX); }

void LmAlignmentGroup::alignTop() { lineUp(*this, XmNy, nullptr, _maxY); }

void LmAlignmentGroup::alignBottom() { lineUp(*this, XmNy, XmNheight, _maxY); }

void LmAlignmentGroup::alignWidth() { giveLargest(*this, XmNwidth, _maxWidth); }

void LmAlignmentGroup::alignHeight() { giveLargest(*this, XmNheight, _maxHeight); }

void LmAlignmentGroup::distributeHorizontal() { distribute(XmNx); }

void LmAlignmentGroup::distributeVertical() { distribute(XmNy); }

void LmAlignmentGroup::distribute(const char* coordinate)
{
    if (size() < 2)
        return;
    const int first = get<Position>((*this)[0], coordinate), last = get<Position>((*this)[size() - 1], coordinate);
    const int step = (last - first) / (size() - 1);
    for (int i = 0; i < size(); ++i)
        XtVaSetValues((*this)[i], coordinate, static_cast<Position>(first + i * step), nullptr);
}

void LmAlignmentGroup::makeNormal()
{
    forEach(*this, [](Widget w) {
        XtWidgetGeometry preferred = {};
        XtQueryGeometry(w, nullptr, &preferred);
        XtVaSetValues(w, XmNwidth, preferred.width, XmNheight, preferred.height, nullptr);
    });
}
