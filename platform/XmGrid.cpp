#include "platform/XmGrid.h"

#include "platform/GridRecords.h"
#include "support/resources.h"

#include <Xm/Form.h>

#include <cstdlib>
#include <cstring>
#include <iterator>
#include <utility>

using namespace lm::grid;

namespace {

// --- class methods -----------------------------------------------------------------------------------------------------

void initialize(Widget, Widget made, ArgList, Cardinal*)
{
    GridPart& grid = partOf(made);
    grid.rows = new std::vector<lm::GridTrack>;
    grid.columns = new std::vector<lm::GridTrack>;
    grid.layingOut = False;
    grid.fixedWidth = made->core.width != 0;
    grid.fixedHeight = made->core.height != 0;
    const Size empty = naturalSize(made);
    if (!grid.fixedWidth)
        made->core.width = asDimension(empty.width);
    if (!grid.fixedHeight)
        made->core.height = asDimension(empty.height);
}

void destroy(Widget w)
{
    delete partOf(w).rows;
    delete partOf(w).columns;
}

void realize(Widget w, XtValueMask* mask, XSetWindowAttributes* attributes)
{
    xmManagerClassRec.core_class.realize(w, mask, attributes);
    layOut(w);
}

void resize(Widget w) { layOut(w); }

void expose(Widget w, XEvent* event, Region region) { XmeRedisplayGadgets(w, event, region); }

void changeManaged(Widget w)
{
    layOutAnew(w);
    XmeNavigChangeManaged(w);
}

XtGeometryResult queryGeometry(Widget w, XtWidgetGeometry* intended, XtWidgetGeometry* preferred)
{
    const Size liked = likedSize(w);
    preferred->request_mode = CWWidth | CWHeight;
    preferred->width = asDimension(liked.width);
    preferred->height = asDimension(liked.height);
    return XmeReplyToQueryGeometry(w, intended, preferred);
}

/// What the child would get if its request were granted, and whether that is what it asks for.
XtGeometryResult answerQuery(Widget grid, Widget child, const XtWidgetGeometry& request, XtWidgetGeometry* reply)
{
    const std::vector<Widget> children = managedChildren(grid);
    Size room = sizeOf(grid);
    if (const Size liked = roomToAsk(grid); liked != room) {
        XtWidgetGeometry wish = {}, offer = {};
        wish.request_mode = CWWidth | CWHeight | XtCWQueryOnly;
        wish.width = asDimension(liked.width);
        wish.height = asDimension(liked.height);
        const XtGeometryResult result = XtMakeGeometryRequest(grid, &wish, &offer);
        if (result == XtGeometryYes)
            room = liked;
        else if (result == XtGeometryAlmost)
            room = {offer.request_mode & CWWidth ? offer.width : room.width,
                    offer.request_mode & CWHeight ? offer.height : room.height};
    }
    const auto index = std::find(children.begin(), children.end(), child) - children.begin();
    const lm::Rect place = placesIn(grid, children, room)[static_cast<std::size_t>(index)];
    const int border = 2 * (request.request_mode & CWBorderWidth ? request.border_width : child->core.border_width);
    reply->request_mode = CWWidth | CWHeight;
    reply->width = asDimension(place.width - border);
    reply->height = asDimension(place.height - border);
    const bool same = (!(request.request_mode & CWWidth) || request.width == reply->width) &&
                      (!(request.request_mode & CWHeight) || request.height == reply->height);
    if (same)
        return XtGeometryYes;
    return sizeOf(child) == Size{reply->width, reply->height} ? XtGeometryNo : XtGeometryAlmost;
}

/// Notes what the child asks for, and lays out. A child that gets something else is resized at once and told no: it may
/// not ask for a compromise that its neighbours have no part in.
XtGeometryResult grant(Widget grid, Widget child, const XtWidgetGeometry& request)
{
    if (request.request_mode & CWBorderWidth)
        child->core.border_width = request.border_width;
    if (!partOf(grid).autoLayout)
        return XtGeometryNo;
    askForRoom(grid);
    const Size before = sizeOf(child);
    const lm::Rect old = {child->core.x, child->core.y, before.width, before.height};
    layOut(grid, child);
    const bool asked = (!(request.request_mode & CWWidth) || request.width == child->core.width) &&
                       (!(request.request_mode & CWHeight) || request.height == child->core.height);
    if (asked)
        return XtGeometryYes;
    const lm::Rect now = {child->core.x, child->core.y, child->core.width, child->core.height};
    child->core.x = static_cast<Position>(old.x);
    child->core.y = static_cast<Position>(old.y);
    child->core.width = asDimension(old.width);
    child->core.height = asDimension(old.height);
    XmeConfigureObject(child, static_cast<Position>(now.x), static_cast<Position>(now.y), asDimension(now.width),
                       asDimension(now.height), child->core.border_width);
    return XtGeometryNo;
}

XtGeometryResult geometryManager(Widget child, XtWidgetGeometry* request, XtWidgetGeometry* reply)
{
    Widget grid = XtParent(child);
    GridConstraintPart& own = constraintOf(child);
    const bool changed = own.changed;
    own.changed = False;
    if (partOf(grid).layingOut || (!changed && !(request->request_mode & (CWWidth | CWHeight | CWBorderWidth))))
        return XtGeometryNo;
    wantedSize(child);   // before we overwrite it: the child may have chosen another size since
    const GridConstraintPart saved = own;
    if (request->request_mode & CWWidth)
        own.wantedWidth = std::max<Dimension>(request->width, 1);
    if (request->request_mode & CWHeight)
        own.wantedHeight = std::max<Dimension>(request->height, 1);
    if (!(request->request_mode & XtCWQueryOnly))
        return grant(grid, child, *request);
    const XtGeometryResult result = answerQuery(grid, child, *request, reply);
    own = saved;
    return result;
}

/// A new size of the grid itself is the application's; otherwise new resources lead to a new natural size, which Xt asks
/// the parent for after this.
Boolean setValues(Widget old, Widget, Widget now, ArgList, Cardinal*)
{
    GridPart &was = partOf(old), &grid = partOf(now);
    const bool widthSet = now->core.width != old->core.width, heightSet = now->core.height != old->core.height;
    if (widthSet)
        grid.fixedWidth = now->core.width != 0;
    if (heightSet)
        grid.fixedHeight = now->core.height != 0;
    const bool changed = was.numRows != grid.numRows || was.numColumns != grid.numColumns || was.spacing != grid.spacing ||
                         was.orientation != grid.orientation || was.marginWidth != grid.marginWidth ||
                         was.marginHeight != grid.marginHeight || (grid.autoLayout && !was.autoLayout);
    if (!(widthSet || heightSet || (changed && grid.autoLayout)))
        return False;
    const Size liked = roomToAsk(now);
    noteNatural(now);
    now->core.width = asDimension(liked.width);
    now->core.height = asDimension(liked.height);
    if (sizeOf(now) == sizeOf(old))
        layOut(now);
    return False;
}

/// The parent did not grant the natural size as it was: what it offers is taken, else the grid lays out as it is.
void setValuesAlmost(Widget, Widget now, XtWidgetGeometry* request, XtWidgetGeometry* reply)
{
    *request = *reply;
    if (request->request_mode == 0)
        layOut(now);
}

void constraintInitialize(Widget, Widget child, ArgList, Cardinal*)
{
    GridConstraintPart& own = constraintOf(child);
    own.wantedWidth = own.wantedHeight = own.givenWidth = own.givenHeight = 0;
    own.changed = False;
}

/// A move that the child does not ask for makes Xt send a geometry request when the child's record is complete.
Boolean constraintSetValues(Widget old, Widget, Widget child, ArgList, Cardinal*)
{
    const GridConstraintPart& was = constraintOf(old);
    GridConstraintPart& own = constraintOf(child);
    const auto laidBy = [](const GridConstraintPart& c) {
        return std::vector<int>{c.row,   c.column, c.gravity, c.fillsWidth, c.fillsHeight, c.left,
                                c.right, c.top,    c.bottom,  c.horizontal, c.vertical};
    };
    if (laidBy(was) == laidBy(own) || !XtIsManaged(child) || !XtIsRealized(XtParent(child)))
        return False;
    own.changed = True;
    if (child->core.x == old->core.x)
        ++child->core.x;
    return False;
}

/// Gravity by number or by name.
Boolean convertGravity(Display* display, XrmValue* args, Cardinal* count, XrmValue* from, XrmValue* to, XtPointer* data)
{
    const char* text = reinterpret_cast<const char*>(from->addr);
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    if (end == text || *end != '\0')
        return XtCvtStringToGravity(display, args, count, from, to, data);
    static int gravity;
    gravity = static_cast<int>(number);
    if (!to->addr)
        to->addr = reinterpret_cast<XPointer>(&gravity);
    else if (to->size >= sizeof gravity)
        std::memcpy(to->addr, &gravity, sizeof gravity);
    to->size = sizeof gravity;
    return True;
}

const char* const gravityType = "XmGridGravity";

void classInitialize() { XtSetTypeConverter(XtRString, gravityType, convertGravity, nullptr, 0, XtCacheNone, nullptr); }

// --- resources ---------------------------------------------------------------------------------------------------------

XtResource entry(const char* name, const char* cls, const char* type, std::size_t size, std::size_t offset, const char* value)
{
    return {lm::xtText(name), lm::xtText(cls),  lm::xtText(type), static_cast<Cardinal>(size), static_cast<Cardinal>(offset),
            XtRString,        lm::xtText(value)};
}

XtResource ownInt(const char* name, const char* cls, std::size_t offset, const char* value)
{
    return entry(name, cls, XtRInt, sizeof(int), offset, value);
}

XtResource gridResources[] = {
    ownInt("numRows", "NumRows", offsetof(GridRec, grid.numRows), "0"),
    ownInt("numColumns", "NumColumns", offsetof(GridRec, grid.numColumns), "0"),
    ownInt("defaultSpacing", "DefaultSpacing", offsetof(GridRec, grid.spacing), "4"),
    entry("orientation", "Orientation", XmROrientation, 1, offsetof(GridRec, grid.orientation), "HORIZONTAL"),
    entry("autoLayout", "AutoLayout", XtRBoolean, sizeof(Boolean), offsetof(GridRec, grid.autoLayout), "True"),
    entry("marginWidth", "MarginWidth", XtRDimension, sizeof(Dimension), offsetof(GridRec, grid.marginWidth), "0"),
    entry("marginHeight", "MarginHeight", XtRDimension, sizeof(Dimension), offsetof(GridRec, grid.marginHeight), "0"),
};

XtResource cellConstraints[] = {
    ownInt("row", "Row", offsetof(GridConstraintRec, grid.row), "-1"),
    ownInt("column", "Column", offsetof(GridConstraintRec, grid.column), "-1"),
    entry("gravity", "Gravity", gravityType, sizeof(int), offsetof(GridConstraintRec, grid.gravity), "5"),
    entry("resizeHorizontal", "ResizeHorizontal", XtRBoolean, sizeof(Boolean), offsetof(GridConstraintRec, grid.fillsWidth),
          "True"),
    entry("resizeVertical", "ResizeVertical", XtRBoolean, sizeof(Boolean), offsetof(GridConstraintRec, grid.fillsHeight), "True"),
};

XtResource springConstraints[] = {
    ownInt("leftSpring", "Spring", offsetof(GridConstraintRec, grid.left), "50"),
    ownInt("rightSpring", "Spring", offsetof(GridConstraintRec, grid.right), "50"),
    ownInt("topSpring", "Spring", offsetof(GridConstraintRec, grid.top), "50"),
    ownInt("bottomSpring", "Spring", offsetof(GridConstraintRec, grid.bottom), "50"),
    ownInt("horizontalSpring", "Spring", offsetof(GridConstraintRec, grid.horizontal), "0"),
    ownInt("verticalSpring", "Spring", offsetof(GridConstraintRec, grid.vertical), "0"),
};

// --- the classes -------------------------------------------------------------------------------------------------------

/// What both classes have alike.
GridClassRec classRecord(WidgetClass superclass, const char* name, XtResource* constraints, Cardinal count)
{
    GridClassRec record = {};
    CoreClassPart& core = record.core_class;
    core.superclass = superclass;
    core.class_name = lm::xtText(name);
    core.widget_size = sizeof(GridRec);
    core.realize = XtInheritRealize;
    core.xrm_class = NULLQUARK;
    core.compress_motion = True;
    core.compress_exposure = XtExposeCompressMaximal;
    core.compress_enterleave = True;
    core.resize = XtInheritResize;
    core.expose = XtInheritExpose;
    core.set_values_almost = XtInheritSetValuesAlmost;
    core.version = XtVersion;
    core.tm_table = XtInheritTranslations;
    core.query_geometry = XtInheritQueryGeometry;
    core.display_accelerator = XtInheritDisplayAccelerator;
    record.composite_class = {XtInheritGeometryManager, XtInheritChangeManaged, XtInheritInsertChild, XtInheritDeleteChild,
                              nullptr};
    record.constraint_class.resources = constraints;
    record.constraint_class.num_resources = count;
    record.constraint_class.constraint_size = sizeof(GridConstraintRec);
    record.manager_class.translations = XtInheritTranslations;
    record.manager_class.parent_process = XmInheritParentProcess;
    return record;
}

GridClassRec gridClass()
{
    GridClassRec record =
        classRecord(reinterpret_cast<WidgetClass>(&xmManagerClassRec), "XmGrid", cellConstraints, XtNumber(cellConstraints));
    CoreClassPart& core = record.core_class;
    core.class_initialize = classInitialize;
    core.initialize = initialize;
    core.realize = realize;
    core.resources = gridResources;
    core.num_resources = XtNumber(gridResources);
    core.destroy = destroy;
    core.resize = resize;
    core.expose = expose;
    core.set_values = setValues;
    core.set_values_almost = setValuesAlmost;
    core.query_geometry = queryGeometry;
    record.composite_class.geometry_manager = geometryManager;
    record.composite_class.change_managed = changeManaged;
    record.constraint_class.initialize = constraintInitialize;
    record.constraint_class.set_values = constraintSetValues;
    return record;
}

GridClassRec gridClassRecord = gridClass();
GridClassRec springBoxClassRecord =
    classRecord(reinterpret_cast<WidgetClass>(&gridClassRecord), "XmSpringBox", springConstraints, XtNumber(springConstraints));

constexpr const char* dialogGrid = "dialogGrid";
constexpr const char* gridOnly[] = {"numRows", "numColumns", "defaultSpacing", "orientation", "autoLayout"};

/// The grid behind what a caller names; null when there is none.
Widget gridOf(Widget w)
{
    if (!w || !XtIsSubclass(w, xmGridWidgetClass))
        return XmGridOfDialog(w);
    return w;
}

void setTrack(Widget w, std::vector<lm::GridTrack>* GridPart::*tracks, int index, int lm::GridTrack::*property, int value)
{
    Widget grid = gridOf(w);
    if (!grid || index < 0 || index >= lm::GridLayout::maxTracks)
        return;
    auto& all = *(partOf(grid).*tracks);
    const auto at = static_cast<std::size_t>(index);
    if (at >= all.size())
        all.resize(at + 1);
    if (std::exchange(all[at].*property, value) != value)
        layOutAnew(grid);
}

}   // namespace

WidgetClass xmGridWidgetClass = reinterpret_cast<WidgetClass>(&gridClassRecord);
WidgetClass xmSpringBoxWidgetClass = reinterpret_cast<WidgetClass>(&springBoxClassRecord);

Widget XmCreateGrid(Widget parent, char* name, ArgList args, Cardinal count)
{
    return XtCreateWidget(name, xmGridWidgetClass, parent, args, count);
}

Widget XmCreateSpringBox(Widget parent, char* name, ArgList args, Cardinal count)
{
    return XtCreateWidget(name, xmSpringBoxWidgetClass, parent, args, count);
}

Widget XmCreateGridDialog(Widget parent, char* name, ArgList args, Cardinal count)
{
    Widget form = XmCreateFormDialog(parent, name, args, count);
    std::vector<Arg> own;
    std::copy_if(args, args + count, std::back_inserter(own), [](const Arg& arg) {
        return std::any_of(std::begin(gridOnly), std::end(gridOnly),
                           [&](const char* n) { return std::strcmp(n, arg.name) == 0; });
    });
    for (const char* side : {XmNtopAttachment, XmNbottomAttachment, XmNleftAttachment, XmNrightAttachment})
        own.push_back({lm::xtText(side), XmATTACH_FORM});
    XtManageChild(XmCreateGrid(form, lm::xtText(dialogGrid), own.data(), static_cast<Cardinal>(own.size())));
    return form;
}

Widget XmGridOfDialog(Widget dialog) { return dialog && XmIsForm(dialog) ? XtNameToWidget(dialog, dialogGrid) : nullptr; }

void XmGridSetRowResizability(Widget grid, int row, int weight)
{
    setTrack(grid, &GridPart::rows, row, &lm::GridTrack::weight, weight);
}

void XmGridSetColumnResizability(Widget grid, int column, int weight)
{
    setTrack(grid, &GridPart::columns, column, &lm::GridTrack::weight, weight);
}

void XmGridSetRowMargin(Widget grid, int row, int margin)
{
    setTrack(grid, &GridPart::rows, row, &lm::GridTrack::margin, margin);
}

void XmGridSetColumnMargin(Widget grid, int column, int margin)
{
    setTrack(grid, &GridPart::columns, column, &lm::GridTrack::margin, margin);
}
