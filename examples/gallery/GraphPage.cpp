#include "GraphPage.h"

#include <Lm/XmGraph.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/PushBG.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <string_view>

static constexpr int margin = 10;

/// The library's own classes, each with the one it derives from, which stands before it.
static constexpr struct {
    const char* name;
    const char* base;
} classes[] = {
    {"LmCallbackObject", ""},
    {"LmModel", "LmCallbackObject"},
    {"LmComponent", "LmCallbackObject"},
    {"LmApp", "LmComponent"},
    {"LmSimpleWindow", "LmComponent"},
    {"LmWindow", "LmSimpleWindow"},
    {"LmOverview", "LmWindow"},
    {"LmForkWindow", "LmWindow"},
    {"LmMenuItem", "LmCallbackObject"},
    {"LmMenuAction", "LmMenuItem"},
    {"LmMenuToggle", "LmMenuItem"},
    {"LmMenu", "LmMenuItem"},
    {"LmSubMenu", "LmMenu"},
    {"LmMenuBar", "LmMenu"},
    {"LmDialogManager", "LmComponent"},
    {"LmQuestionDialog", "LmDialogManager"},
    {"LmBusyDialog", "LmDialogManager"},
    {"LmDoubleBuffer", "LmComponent"},
    {"LmTabArea", "LmDoubleBuffer"},
    {"LmMeter", "LmDoubleBuffer"},
    {"LmPie", "LmMeter"},
    {"LmOutline", "LmComponent"},
    {"LmOutlineASB", "LmOutline"},
    {"LmTextIO", "LmComponent"},
};

GraphPage::GraphPage(Widget parent) : Page("graphPage", parent)
{
    Widget buttons = row::across("graphButtons", body());
    XtVaSetValues(buttons, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, nullptr);
    lm::on<&GraphPage::openOverview>(row::button("openOverview", buttons), XmNactivateCallback, this);
    lm::on<&GraphPage::turn>(row::button("turnGraph", buttons), XmNactivateCallback, this);

    Widget frame =
        XtVaCreateManagedWidget("graphFrame", xmScrolledWindowWidgetClass, body(), XmNscrollingPolicy, XmAUTOMATIC,
                                XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, buttons, XmNtopOffset, margin, XmNleftAttachment,
                                XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, nullptr);
    _graph = XmCreateGraph(frame, "graph", nullptr, 0);
    addNodes();
    XtManageChild(_graph);
}

void GraphPage::addNodes()
{
    for (const auto& entry : classes)
        _nodes.push_back(XtVaCreateManagedWidget(entry.name, xmPushButtonGadgetClass, _graph, nullptr));
    arrange();
    for (std::size_t i = 0; i < std::size(classes); ++i)
        for (std::size_t base = 0; base < i; ++base)
            if (std::string_view(classes[i].base) == classes[base].name)
                XmGraphAddArc(_graph, _nodes[base], _nodes[i]);
}

/// One step along the generations for each class, across from its base.
void GraphPage::arrange()
{
    std::vector<int> generations;
    for (std::size_t i = 0; i < std::size(classes); ++i) {
        int generation = 0;
        for (std::size_t base = 0; base < i; ++base)
            if (std::string_view(classes[i].base) == classes[base].name)
                generation = generations[base] + 1;
        generations.push_back(generation);
        const int along = margin + static_cast<int>(i) * (_isTurned ? 60 : 34);
        const int across = margin + generation * (_isTurned ? 70 : 190);
        XtVaSetValues(_nodes[i], XmNx, _isTurned ? along : across, XmNy, _isTurned ? across : along, nullptr);
    }
}

void GraphPage::turn()
{
    _isTurned = !_isTurned;
    arrange();
}

void GraphPage::openOverview()
{
    if (!_overview)
        _overview = std::make_unique<LmOverview>("classOverview", _graph);
    _overview->show();
}
