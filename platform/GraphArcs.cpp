#include "platform/GraphArcs.h"

void lm::GraphArcs::add(GraphArc arc)
{
    living();
    _arcs.insert(arc);
}

bool lm::GraphArcs::remove(GraphArc arc)
{
    living();
    return _arcs.erase(arc) != 0;
}

void lm::GraphArcs::nodeDestroyed(Widget node)
{
    if (!_arcs.empty())
        _gone.insert(node);
}

const std::set<lm::GraphArc>& lm::GraphArcs::living()
{
    if (!_gone.empty())
        std::erase_if(_arcs, [this](const GraphArc& arc) { return _gone.contains(arc.first) || _gone.contains(arc.second); });
    _gone.clear();
    return _arcs;
}
