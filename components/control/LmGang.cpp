#include "LmGang.h"

#include "XmGrid.h"
#include "support/resources.h"

#include <Xm/LabelG.h>
#include <Xm/Scale.h>
#include <Xm/ToggleB.h>

static const String defaults[] = {lm::xtText("*leftLabel.labelString:   Left"), lm::xtText("*gangToggle.labelString:  Gang"),
                                  lm::xtText("*rightLabel.labelString:  Right"), lm::xtText("*dash.labelString:  -"), nullptr};
static constexpr int tickCount = 11;

LmGang::LmGang(const char* name, Widget parent) : LmComponent(name)
{
    setDefaultResources(parent, defaults);
    _w = XtVaCreateWidget(LmComponent::name(), xmSpringBoxWidgetClass, parent, XmNorientation, XmVERTICAL, nullptr);
    installDestroyHandler();
    makeGrid();
    _gangToggle = XtVaCreateManagedWidget("gangToggle", xmToggleButtonWidgetClass, _w, "topSpring", 5, "bottomSpring", 5,
                                          XmNwidth, 88, XmNheight, 22, nullptr);
    XtAddCallback(_gangToggle, XmNvalueChangedCallback, toggleChanged, this);
}

void LmGang::makeGrid()
{
    _grid =
        XtVaCreateManagedWidget("grid", xmGridWidgetClass, _w, "numRows", 2, XmNnumColumns, 2, "leftSpring", 0, "rightSpring", 0,
                                "topSpring", 0, "bottomSpring", 0, "verticalSpring", 100, "horizontalSpring", 100, nullptr);
    for (const int column : {0, 1})
        XmGridSetColumnResizability(_grid, column, 1);
    XmGridSetRowResizability(_grid, 0, 0);
    XmGridSetRowResizability(_grid, 1, 100);
    _leftScale = makeScale("leftScale", 0);
    _rightScale = makeScale("rightScale", 1);
    _leftLabel = makeLabel("leftLabel", 0);
    _rightLabel = makeLabel("rightLabel", 1);
}

Widget LmGang::makeScale(const char* name, int column)
{
    Widget scale = XtVaCreateManagedWidget(name, xmScaleWidgetClass, _grid, "row", 1, "column", column, XmNshowValue, True,
                                           XmNscaleMultiple, 0, "gravity", CenterGravity, "resizeHorizontal", False, nullptr);
    for (int i = 0; i < tickCount; ++i)
        XtVaCreateManagedWidget("dash", xmLabelGadgetClass, scale, nullptr);
    return scale;
}

Widget LmGang::makeLabel(const char* name, int column)
{
    return XtVaCreateManagedWidget(name, xmLabelGadgetClass, _grid, "row", 0, "column", column, XmNrecomputeSize, True, "gravity",
                                   SouthGravity, "resizeVertical", False, "resizeHorizontal", False, nullptr);
}

void LmGang::toggleChanged(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmGang*>(clientData)->gang(w, callData);
}

void LmGang::gang(Widget, void* callData)
{
    _group.reset();
    if (!static_cast<XmToggleButtonCallbackStruct*>(callData)->set)
        return;
    _group = std::make_unique<LmGangedGroup>();
    _group->add(_leftScale);
    _group->add(_rightScale);
}

/// The group has forgotten the scales, which went first.
void LmGang::widgetDestroyed()
{
    _group.reset();
    _gangToggle = _grid = _leftLabel = _rightLabel = _leftScale = _rightScale = nullptr;
    LmComponent::widgetDestroyed();
}
