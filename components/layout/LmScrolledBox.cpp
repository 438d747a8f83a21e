#include "LmScrolledBox.h"

#include "XmGrid.h"
#include "components/layout/Wheel.h"
#include "geometry/BoxLayout.h"
#include "support/resources.h"
#include "support/xt.h"

#include <X11/IntrinsicP.h>
#include <Xm/ArrowB.h>
#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>

#include <algorithm>
#include <iterator>
#include <utility>

static constexpr int specialOffset = 7;   // around the special widget, pixels

// --- making it ---------------------------------------------------------------------------------------------------------

LmScrolledBox::LmScrolledBox(const char* name, Widget parent) : LmComponent(name), _children(std::make_unique<LmWidgetList>())
{
    makeForms(parent);
    makeArrows();
    makeViewport();
}

void LmScrolledBox::makeForms(Widget parent)
{
    static XtActionsRec actions[] = {{lm::xtText("UnSelectAll"), unSelectCallback}};
    static XtAppContext known = nullptr;   // a table counts for the whole context
    XtAppContext context = XtWidgetToApplicationContext(parent);
    if (std::exchange(known, context) != context)
        XtAppAddActions(context, actions, std::size(actions));
    XtTranslations unSelectAll = XtParseTranslationTable("#override <Btn1Down>: UnSelectAll()");

    _w = _topForm = XtVaCreateManagedWidget(LmComponent::name(), xmFormWidgetClass, parent, XmNuserData, this, XmNresizePolicy,
                                            XmRESIZE_NONE, nullptr);
    installDestroyHandler();
    LmComponent* self = this;
    XtResource table[] = {
        lm::resource(self, _spacing, XmNspacing, XmCSpacing, "4"),
        lm::resource(self, _initialPlacement, "initialPlacement", "InitialPlacement", XmROrientation, nullptr),
    };
    table[1].default_type = lm::xtText(XtRImmediate);
    table[1].default_addr = lm::asPointer(Undecided);
    getResources(table, std::ssize(table));
    _spacing = std::max(_spacing, 0);

    _frame = XtVaCreateManagedWidget("frame", xmFrameWidgetClass, _topForm, XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment,
                                     XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    _innerForm =
        XtVaCreateManagedWidget("form", xmFormWidgetClass, _frame, XmNuserData, this, XmNresizePolicy, XmRESIZE_NONE, nullptr);
    XtOverrideTranslations(_topForm, unSelectAll);
    XtOverrideTranslations(_innerForm, unSelectAll);
}

Widget LmScrolledBox::makeArrow(const char* name, Widget grid, unsigned char direction, XtCallbackProc action)
{
    Widget arrow = XtVaCreateManagedWidget(name, xmArrowButtonWidgetClass, grid, XmNarrowDirection, direction, nullptr);
    XtAddCallback(arrow, XmNactivateCallback, action, this);
    return arrow;
}

void LmScrolledBox::makeArrows()
{
    _horizArrows =
        XtVaCreateWidget("horizArrows", xmGridWidgetClass, _innerForm, "numRows", 2, "defaultSpacing", 0, XmNtopAttachment,
                         XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    _arrowRight = makeArrow("arrowRight", _horizArrows, XmARROW_RIGHT, upArrowCallback);
    _arrowLeft = makeArrow("arrowLeft", _horizArrows, XmARROW_LEFT, downArrowCallback);
    _vertArrows =
        XtVaCreateWidget("vertArrows", xmGridWidgetClass, _innerForm, XmNnumColumns, 2, "defaultSpacing", 0, XmNbottomAttachment,
                         XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, nullptr);
    _arrowUp = makeArrow("arrowUp", _vertArrows, XmARROW_DOWN, upArrowCallback);
    _arrowDown = makeArrow("arrowDown", _vertArrows, XmARROW_UP, downArrowCallback);
}

void LmScrolledBox::makeViewport()
{
    _viewport =
        XtVaCreateManagedWidget("viewport", xmDrawingAreaWidgetClass, _innerForm, XmNtopAttachment, XmATTACH_FORM,
                                XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment,
                                XmATTACH_FORM, XmNmarginWidth, 0, XmNmarginHeight, 0, XmNresizePolicy, XmRESIZE_NONE, nullptr);
    _board = XtVaCreateManagedWidget("Bboard", xmDrawingAreaWidgetClass, _viewport, XmNuserData, this, XmNmarginWidth, _spacing,
                                     XmNmarginHeight, _spacing, XmNresizePolicy, XmRESIZE_ANY, XmNx, 0, XmNy, 0, nullptr);
    XtAddCallback(_viewport, XmNresizeCallback, resizeCallback, this);
    lm::grabWheel(_frame);
    lm::onEvent<&LmScrolledBox::turnWheel>(_frame, ButtonPressMask, this);
}

LmScrolledBox::~LmScrolledBox()
{
    for (int i = 0; i < _children->size(); ++i)
        XtRemoveCallback((*_children)[i], XmNdestroyCallback, widgetDestroyedCallback, this);
    if (!_viewport)
        return;
    XtRemoveCallback(_viewport, XmNresizeCallback, resizeCallback, this);
    lm::offEvent<&LmScrolledBox::turnWheel>(_frame, ButtonPressMask, this);
    for (Widget form : {_topForm, _innerForm})
        XtVaSetValues(form, XmNuserData, nullptr, nullptr);
}

void LmScrolledBox::widgetDestroyed()
{
    for (Widget* w : {&_topForm, &_innerForm, &_frame, &_board, &_viewport, &_horizArrows, &_vertArrows, &_arrowLeft,
                      &_arrowRight, &_arrowUp, &_arrowDown, &_special})
        *w = nullptr;
    LmComponent::widgetDestroyed();
}

// --- children ----------------------------------------------------------------------------------------------------------

bool LmScrolledBox::usable() const { return _board && !_board->core.being_destroyed; }

/// Whether a child takes part in layouts.
static bool counts(Widget child) { return !child->core.being_destroyed; }
static bool isSeen(Widget child) { return counts(child) && XtIsManaged(child); }

void LmScrolledBox::add(Widget w)
{
    if (!w || !counts(w) || !_entered.insert(w).second)
        return;
    _children->add(w);
    XtAddCallback(w, XmNdestroyCallback, widgetDestroyedCallback, this);
}

void LmScrolledBox::addBoardChildren()
{
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(_board, XmNchildren, &children, XmNnumChildren, &count, nullptr);
    for (Cardinal i = 0; i < count; ++i)
        add(children[i]);
}

/// The list forgets the child by itself.
void LmScrolledBox::widgetDestroyedCallback(Widget w, XtPointer clientData, XtPointer) noexcept
{
    auto* self = static_cast<LmScrolledBox*>(clientData);
    self->_entered.erase(w);
    self->_children->remove(w);
    self->layout(Undecided);
    self->adjustArrows();
}

void LmScrolledBox::getMaxChildDimensions(Dimension* width, Dimension* height)
{
    *width = *height = 0;
    for (int i = 0; i < _children->size(); ++i) {
        Widget child = (*_children)[i];
        if (!isSeen(child))
            continue;
        *width = std::max(*width, child->core.width);
        *height = std::max(*height, child->core.height);
    }
}

void LmScrolledBox::hideChildren()
{
    if (usable())
        XtUnmanageChild(_board);
}

void LmScrolledBox::showChildren()
{
    if (usable())
        XtManageChild(_board);
}

void LmScrolledBox::setBackground(Pixel background)
{
    if (!usable())
        return;
    XtVaSetValues(_board, XmNbackground, background, nullptr);
    XtVaSetValues(_viewport, XmNbackground, background, nullptr);
}

void LmScrolledBox::unSelectCallback(Widget w, XEvent*, String*, Cardinal*) noexcept
{
    XtPointer box = nullptr;
    XtVaGetValues(w, XmNuserData, &box, nullptr);
}

// --- the layout --------------------------------------------------------------------------------------------------------

void LmScrolledBox::layout(int placement)
{
    if (!usable())
        return;
    findSpecial();
    if (_placement == Undecided) {
        _placement = placement != Undecided ? placement : _initialPlacement != Undecided ? Tall : Wide;
        positionSpecial();
    }
    addBoardChildren();
    place(_frame->core.width, _frame->core.height);
}

/// Places the managed children in a frame of that size.
void LmScrolledBox::place(int width, int height)
{
    Dimension childWidth = 0, childHeight = 0;
    getMaxChildDimensions(&childWidth, &childHeight);
    int count = 0;
    for (int i = 0; i < _children->size(); ++i)
        count += counts((*_children)[i]) ? 1 : 0;
    if (count == 0)
        return;
    const auto cells = lm::BoxCells::of(_placement != Wide, width, height, childWidth, childHeight, _spacing, count);
    for (int i = 0, cell = 0; i < _children->size(); ++i) {
        Widget child = (*_children)[i];
        if (!isSeen(child))
            continue;
        const auto [x, y] = cells.place(cell++, child->core.width, child->core.height, _centerChildren);
        XtMoveWidget(child, static_cast<Position>(x), static_cast<Position>(y));
    }
    const auto length = [](int pixels) { return static_cast<Dimension>(std::clamp(pixels, 1, 32767)); };
    XtResizeWidget(_board, length(cells.boardWidth()), length(cells.boardHeight()), 0);
}

void LmScrolledBox::resizeCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmScrolledBox*>(clientData)->resize();
}

void LmScrolledBox::resize()
{
    if (_inResize || !usable() || reinterpret_cast<CompositeRec*>(_board)->composite.num_children == 0)
        return;
    addBoardChildren();
    Dimension childWidth = 0, childHeight = 0;
    getMaxChildDimensions(&childWidth, &childHeight);
    const int stepX = childWidth + _spacing, stepY = childHeight + _spacing;
    const lm::BoxShape shape = lm::boxShape(_viewport->core.width, _viewport->core.height, stepX, stepY);
    const int placement = shape == lm::BoxShape::Tall ? Tall : shape == lm::BoxShape::Wide ? Wide : _placement;
    if (placement != _placement) {
        if (_placement != Undecided)
            XtUnmanageChild(arrowsOf(_placement));
        _placement = placement;
        _inResize = true;
        findSpecial();
        positionSpecial();
    }
    layout(Undecided);
    makeViewable(stepX, stepY);
    adjustArrows();
    _inResize = false;
}

void LmScrolledBox::findSpecial()
{
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(_topForm, XmNchildren, &children, XmNnumChildren, &count, nullptr);
    const auto living = std::find_if(children + 1, children + count, counts);
    _special = living == children + count ? nullptr : *living;
}

void LmScrolledBox::positionSpecial()
{
    XtRemoveCallback(_viewport, XmNresizeCallback, resizeCallback, this);
    const bool tall = _placement != Wide;
    if (_special) {
        XtManageChild(_special);
        XtVaSetValues(_special, XmNleftAttachment, tall ? XmATTACH_FORM : XmATTACH_NONE, XmNbottomAttachment,
                      tall ? XmATTACH_FORM : XmATTACH_NONE, XmNtopAttachment, tall ? XmATTACH_NONE : XmATTACH_FORM,
                      XmNrightAttachment, tall ? XmATTACH_NONE : XmATTACH_FORM, XmNtopOffset, specialOffset, XmNbottomOffset,
                      specialOffset, XmNleftOffset, specialOffset, XmNrightOffset, specialOffset, nullptr);
    }
    const bool right = _special && !tall, below = _special && tall;   // of the frame, where the special widget is
    XtVaSetValues(_frame, XmNrightAttachment, right ? XmATTACH_WIDGET : XmATTACH_FORM, XmNrightWidget, right ? _special : nullptr,
                  XmNrightOffset, right ? specialOffset : 0, XmNbottomAttachment, below ? XmATTACH_WIDGET : XmATTACH_FORM,
                  XmNbottomWidget, below ? _special : nullptr, XmNbottomOffset, below ? specialOffset : 0, nullptr);
    XtAddCallback(_viewport, XmNresizeCallback, resizeCallback, this);
}

void LmScrolledBox::computeSize(Widget w, Dimension* width, Dimension* height, Dimension maxWidth, Dimension maxHeight)
{
    *width = *height = 0;
    if (!w || !usable())
        return;
    *width = w->core.width;
    *height = w->core.height;
    if (_children->size() == 0)
        return;
    Dimension childWidth = 0, childHeight = 0;
    getMaxChildDimensions(&childWidth, &childHeight);
    const int cellWidth = childWidth + _spacing, cellHeight = childHeight + _spacing;
    int wide = _board->core.width + w->core.width - _viewport->core.width;
    int high = _board->core.height + w->core.height - _viewport->core.height;
    if (maxWidth != 0 && wide > maxWidth) {
        wide -= cellWidth;
        high += cellHeight;
    }
    if (maxHeight != 0 && high > maxHeight) {
        wide += cellWidth;
        high -= cellHeight;
    }
    *width = static_cast<Dimension>(std::clamp(wide, 1, 65535));
    *height = static_cast<Dimension>(std::clamp(high, 1, 65535));
}

// --- scrolling ---------------------------------------------------------------------------------------------------------

static void moveBoard(Widget board, int x, int y) { XtMoveWidget(board, static_cast<Position>(x), static_cast<Position>(y)); }

void LmScrolledBox::reset()
{
    if (!usable())
        return;
    moveBoard(_board, 0, 0);
    adjustArrows();
}

void LmScrolledBox::makeViewable(int childWidth, int childHeight)
{
    if (!usable())
        return;
    const auto [x, y] =
        lm::keptBoardPlace(_placement != Wide, {_board->core.x, _board->core.y}, _board->core.width, _board->core.height,
                           _viewport->core.width, _viewport->core.height, childWidth, childHeight);
    moveBoard(_board, x, y);
}

void LmScrolledBox::makeViewable(Widget child)
{
    if (!usable() || !_entered.contains(child))
        return;
    const int left = _board->core.x + child->core.x, top = _board->core.y + child->core.y;
    int x = left < 0 ? 0 : _board->core.x, y = top < 0 ? 0 : _board->core.y;
    if (left >= _viewport->core.width)
        x = _spacing - child->core.x;
    if (top >= _viewport->core.height)
        y = _spacing - child->core.y;
    moveBoard(_board, x, y);
    adjustArrows();
}

void LmScrolledBox::scrollArea(int direction)
{
    if (!usable() || _children->size() == 0)
        return;
    Dimension width = 0, height = 0;
    getMaxChildDimensions(&width, &height);
    const bool tall = _placement != Wide;
    const int from = tall ? _board->core.y : _board->core.x;
    const auto target = static_cast<Position>(from + direction * ((tall ? height : width) + _spacing));
    for (const int at : lm::scrollSteps(from, target)) {
        moveBoard(_board, tall ? _board->core.x : at, tall ? at : _board->core.y);
        XFlush(XtDisplay(_board));   // each step is seen
    }
    adjustArrows();
}

void LmScrolledBox::upArrowCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmScrolledBox*>(clientData)->scrollArea(-1);
}

void LmScrolledBox::downArrowCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmScrolledBox*>(clientData)->scrollArea(1);
}

/// Only where an arrow would scroll, too.
void LmScrolledBox::turnWheel(XEvent* event)
{
    const int direction = -lm::wheelDirection(event);
    Widget on = _placement == Wide ? _arrowRight : _arrowUp, back = _placement == Wide ? _arrowLeft : _arrowDown;
    if (direction != 0 && XtIsManaged(arrowsOf(_placement)) && XtIsSensitive(direction < 0 ? on : back))
        scrollArea(direction);
}

void LmScrolledBox::adjustArrows()
{
    if (!usable())
        return;
    const bool tall = _placement != Wide;
    const int start = tall ? _board->core.y : _board->core.x, length = tall ? _board->core.height : _board->core.width;
    const bool back = start != 0, on = length + start > (tall ? _viewport->core.height : _viewport->core.width);
    XtSetSensitive(tall ? _arrowDown : _arrowLeft, back);
    XtSetSensitive(tall ? _arrowUp : _arrowRight, on);
    if (back || on)
        XtManageChild(arrowsOf(_placement));
    else
        XtUnmanageChild(arrowsOf(_placement));
}
