#include "LmScrolledList.h"

#include "RowList.h"
#include "support/resources.h"

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

namespace {

using lm::RowList;
using lm::ScrolledListRec;

ScrolledListRec& record(Widget w) { return *reinterpret_cast<ScrolledListRec*>(w); }

void forgetWindow(Widget, XtPointer rows, XtPointer) noexcept { static_cast<RowList*>(rows)->painter().forgetWindow(); }

void initialize(Widget, Widget w, ArgList, Cardinal*) noexcept
{
    auto* rows = new RowList(&record(w));
    record(w).scrolledList.rows = rows;
    XtAddCallback(w, XtNunrealizeCallback, forgetWindow, rows);
}

void destroy(Widget w) noexcept { delete std::exchange(record(w).scrolledList.rows, nullptr); }

void realize(Widget w, XtValueMask* mask, XSetWindowAttributes* wanted) noexcept
{
    xmListClassRec.core_class.realize(w, mask, wanted);
    record(w).scrolledList.rows->painter().makeWindow();
}

void resize(Widget w) noexcept
{
    xmListClassRec.core_class.resize(w);
    if (RowList* rows = record(w).scrolledList.rows)
        rows->painter().resize();
}

void expose(Widget w, XEvent* event, Region region) noexcept
{
    RowList& rows = *record(w).scrolledList.rows;
    if (event && rows.painter().owns(event->xany.window))
        rows.painter().spoil();
    else
        xmListClassRec.core_class.expose(w, event, region);
    rows.show();
}

/// Whether the rows would be drawn the same, in the same places. (What XmList draws anew we see by itself.)
bool looksAlike(const ScrolledListRec& a, const ScrolledListRec& b)
{
    const auto look = [](const ScrolledListRec& w) {
        return std::tuple(w.core.background_pixel, w.core.sensitive, w.core.ancestor_sensitive, w.primitive.foreground,
                          w.primitive.bottom_shadow_color, w.primitive.highlight_color, w.primitive.highlight_thickness,
                          w.primitive.shadow_thickness, w.list.font, w.list.selectColor, w.list.spacing, w.list.margin_width,
                          w.list.margin_height, w.list.StrDir, w.list.SelectionMode, w.scrolledList.showIcons);
    };
    return look(a) == look(b);
}

Boolean setValues(Widget before, Widget, Widget w, ArgList, Cardinal*) noexcept
{
    const ScrolledListRec& old = record(before);
    const ScrolledListRec& now = record(w);
    RowList& rows = *now.scrolledList.rows;
    if (!looksAlike(old, now))
        rows.painter().recolour();
    if (old.primitive.shadow_thickness != now.primitive.shadow_thickness)
        rows.painter().resize();
    if (old.list.font != now.list.font)
        rows.fontChanged();
    if (old.scrolledList.showIcons != now.scrolledList.showIcons)
        rows.showIconsChanged();
    if (old.scrolledList.update != now.scrolledList.update)
        rows.updateChanged();
    return False;
}

XtResource callbackResource(const char* name, std::size_t offset)
{
    return {lm::xtText(name),
            lm::xtText(XmCCallback),
            lm::xtText(XtRCallback),
            sizeof(XtCallbackList),
            static_cast<Cardinal>(offset),
            lm::xtText(XtRImmediate),
            nullptr};
}

XtResource resources[] = {
    {lm::xtText("showIcons"), lm::xtText("ShowIcons"), lm::xtText(XtRBoolean), sizeof(Boolean),
     static_cast<Cardinal>(offsetof(ScrolledListRec, scrolledList.showIcons)), lm::xtText(XtRImmediate),
     reinterpret_cast<XtPointer>(False)},
    {lm::xtText(XtNupdate), lm::xtText("Update"), lm::xtText(XtRBoolean), sizeof(Boolean),
     static_cast<Cardinal>(offsetof(ScrolledListRec, scrolledList.update)), lm::xtText(XtRImmediate),
     reinterpret_cast<XtPointer>(True)},
    callbackResource(XmNactivateCallback, offsetof(ScrolledListRec, scrolledList.activateCallback)),
    callbackResource(XtNunrealizeCallback, offsetof(ScrolledListRec, scrolledList.unrealizeCallback)),
};

struct ScrolledListClassRec {
    CoreClassPart core;
    XmPrimitiveClassPart primitive;
    XmListClassPart list;
    XtPointer extension;
};

ScrolledListClassRec classRecord = {
    .core = {.superclass = reinterpret_cast<WidgetClass>(&xmListClassRec),
             .class_name = lm::xtText("XmList"),   // it is one: schemes and users that colour lists mean it, too
             .widget_size = sizeof(ScrolledListRec),
             .class_initialize = nullptr,
             .class_part_initialize = nullptr,
             .class_inited = False,
             .initialize = initialize,
             .initialize_hook = nullptr,
             .realize = realize,
             .actions = nullptr,
             .num_actions = 0,
             .resources = resources,
             .num_resources = XtNumber(resources),
             .xrm_class = NULLQUARK,
             .compress_motion = True,
             .compress_exposure = XtExposeCompressMultiple,
             .compress_enterleave = True,
             .visible_interest = False,
             .destroy = destroy,
             .resize = resize,
             .expose = expose,
             .set_values = setValues,
             .set_values_hook = nullptr,
             .set_values_almost = XtInheritSetValuesAlmost,
             .get_values_hook = nullptr,
             .accept_focus = nullptr,
             .version = XtVersion,
             .callback_private = nullptr,
             .tm_table = const_cast<char*>(XtInheritTranslations),
             .query_geometry = XtInheritQueryGeometry,
             .display_accelerator = nullptr,
             .extension = nullptr},
    .primitive = {.border_highlight = XmInheritBorderHighlight,
                  .border_unhighlight = XmInheritBorderUnhighlight,
                  .translations = const_cast<char*>(XtInheritTranslations),
                  .arm_and_activate = nullptr,
                  .syn_resources = nullptr,
                  .num_syn_resources = 0,
                  .extension = nullptr},
    .list = {.extension = nullptr},
    .extension = nullptr,
};

void destroyParent(Widget list, XtPointer, XtPointer) noexcept { XtDestroyWidget(XtParent(list)); }

/// The row list, when it has the row.
RowList* rowsWith(Widget list, int position)
{
    RowList* rows = RowList::of(list);
    return rows && rows->has(position) ? rows : nullptr;
}

}   // namespace

WidgetClass lmScrolledListWidgetClass = reinterpret_cast<WidgetClass>(&classRecord);

Widget LmCreateScrolledList(Widget parent, const char* name, ArgList args, Cardinal count)
{
    std::vector<Arg> frameArgs(args, args + count);
    const auto add = [&](const char* resource, XtArgVal value) { frameArgs.push_back({const_cast<char*>(resource), value}); };
    add(XmNscrollingPolicy, XmAPPLICATION_DEFINED);
    add(XmNvisualPolicy, XmVARIABLE);
    add(XmNscrollBarDisplayPolicy, XmSTATIC);
    add(XmNshadowThickness, 0);
    const std::string listName = name ? name : "";
    Widget frame = XtCreateManagedWidget((listName + "SW").c_str(), xmScrolledWindowWidgetClass, parent, frameArgs.data(),
                                         static_cast<Cardinal>(frameArgs.size()));
    Widget list = XtCreateWidget(listName.c_str(), lmScrolledListWidgetClass, frame, args, count);
    XtAddCallback(list, XmNdestroyCallback, destroyParent, nullptr);
    return list;
}

void LmListAddItem(Widget list, XmString item, int position)
{
    if (RowList* rows = RowList::of(list))
        rows->add(item, position);
}

void LmListSetPositionIndent(Widget list, int position, int pixels)
{
    if (RowList* rows = rowsWith(list, position))
        rows->setIndent(position, pixels);
}

void LmListSetPositionAttributes(Widget list, int position, XmFontList font, Pixel foreground, Pixel background)
{
    const lm::RowStyle style{font, foreground, background};
    lm::restyleRow(list, position, &style);
}

void LmListSetPositionIcon(Widget list, int position, Pixmap icon)
{
    if (RowList* rows = rowsWith(list, position))
        rows->setIcon(position, icon);
}

int LmListGetPositionIndent(Widget list, int position)
{
    const RowList* rows = rowsWith(list, position);
    return rows ? rows->lookAt(position).indent : 0;
}

Pixmap LmListGetPositionIcon(Widget list, int position)
{
    const RowList* rows = rowsWith(list, position);
    return rows ? rows->lookAt(position).icon : None;
}

void LmListDeletePos(Widget list, int position) { LmListDeleteItemsPos(list, 1, position); }

void LmListDeleteItemsPos(Widget list, int count, int position)
{
    if (RowList* rows = rowsWith(list, position))
        rows->remove(position, count);
}

void LmListDeleteAllItems(Widget list)
{
    if (RowList* rows = RowList::of(list))
        rows->removeAll();
}

void LmListDeselectAllItems(Widget list)
{
    if (RowList* rows = RowList::of(list)) {
        XmListDeselectAllItems(list);
        rows->show();
    }
}

void LmListSelectPos(Widget list, int position, Boolean notify)
{
    if (!rowsWith(list, position))
        return;
    XmListSelectPos(list, position, notify);   // a callback may destroy the list
    if (RowList* rows = RowList::of(list))
        rows->show();
}
