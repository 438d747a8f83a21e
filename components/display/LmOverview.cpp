#include "LmOverview.h"

#include "LmMenuToggle.h"
#include "LmSubMenu.h"
#include "XmGraph.h"
#include "support/resources.h"
#include "support/xt.h"

#include <Xm/Xm.h>

String LmOverview::_resources[] = {
    lm::xtText("*overview_main_menu*showOverviewArcs*labelString:  \tShow Arcs "),
    lm::xtText("*overview_main_menu*skewOverviewScale*labelString: \tScale To Fit"),
    lm::xtText("*overview_main_menu*close*labelString:             \tClose"),
    lm::xtText("*overview_main_menu*labelString:                   \tAdmin"),
    lm::xtText("*overview_main_menu*showOverviewArcs*mnemonic:     \tS"),
    lm::xtText("*overview_main_menu*skewOverviewScale*mnemonic:    \tF"),
    lm::xtText("*overview_main_menu*close*mnemonic:                \tC"),
    lm::xtText("*overview_main_menu*mnemonic:                      \tA"),
    nullptr,
};

LmOverview::LmOverview(const char* name, Widget graph) : LmWindow(name), _graph(graph)
{
    if (_graph)
        lm::on<&LmOverview::graphDestroyed>(_graph, XmNdestroyCallback, this);
}

LmOverview::~LmOverview()
{
    if (_graph)
        lm::off<&LmOverview::graphDestroyed>(_graph, XmNdestroyCallback, this);
}

Widget LmOverview::setUpInterface(Widget parent)
{
    setDefaultResources(parent, _resources);
    LmSubMenu* menu = addMenuPane("overview_main_menu");
    Boolean skewed = False;
    if (_graph)
        XtVaGetValues(_graph, lm::xtText("skewOverviewScale"), &skewed, nullptr);
    menu->addToggle("skewOverviewScale", &LmOverview::skewOverviewScaleCallback, this, False)->setStateAndNotify(skewed);
    menu->addToggle("showOverviewArcs", &LmOverview::showOverviewArcsCallback, this, False)->setVisualState(true);
    menu->addSeparator();
    menu->addAction("close", &LmOverview::closeOverviewCallback, this);
    return XmGraphCreateOverView(_graph, parent);
}

void LmOverview::handleWmDeleteMessage() { hide(); }

static void setOnGraph(XtPointer window, const char* resource, XtPointer callData)
{
    Widget graph = static_cast<LmOverview*>(window)->graph();
    if (graph && callData)
        XtVaSetValues(graph, lm::xtText(resource), static_cast<XmToggleButtonCallbackStruct*>(callData)->set != XmUNSET, nullptr);
}

void LmOverview::skewOverviewScaleCallback(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    setOnGraph(clientData, "skewOverviewScale", callData);
}

void LmOverview::showOverviewArcsCallback(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    setOnGraph(clientData, "showOverviewArcs", callData);
}

void LmOverview::closeOverviewCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmOverview*>(clientData)->hide();
}
