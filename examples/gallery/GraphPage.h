// GraphPage.h: a graph in a scrolled window, and the window with its overview.
#pragma once

#include "Page.h"

#include <Lm/LmOverview.h>

#include <memory>
#include <vector>

class GraphPage : public Page {
public:
    explicit GraphPage(Widget parent);

    const char* className() override { return "GraphPage"; }

private:
    void addNodes();
    void arrange();
    void turn();
    void openOverview();

    Widget _graph = nullptr;
    std::vector<Widget> _nodes;
    std::unique_ptr<LmOverview> _overview;
    bool _isTurned = false;
};
