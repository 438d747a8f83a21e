// GraphArcs.h: the arcs of a graph, for those who draw them.
#pragma once

#include <X11/Intrinsic.h>

#include <set>
#include <unordered_set>
#include <utility>

namespace lm {

using GraphArc = std::pair<Widget, Widget>;

/// The arcs of one graph. Nodes that were destroyed are only noted, and their arcs dropped together: a thousand nodes
/// that go cost one walk.
class GraphArcs {
public:
    void add(GraphArc arc);
    /// False when it was not there.
    bool remove(GraphArc arc);
    void nodeDestroyed(Widget node);
    const std::set<GraphArc>& living();

private:
    std::set<GraphArc> _arcs;
    std::unordered_set<Widget> _gone;   // perhaps the addresses of new widgets already: emptied before an arc is added
};

/// The arcs of a graph; null for a widget of another class.
const std::set<GraphArc>* arcsOfGraph(Widget graph);

}   // namespace lm
