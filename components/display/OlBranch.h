// OlBranch.h: what a node of an outline has beyond a label, when it has more.
#pragma once

#include "KeyIndex.h"
#include "LmOlNode.h"
#include "support/handles.h"

#include <memory>
#include <vector>

namespace lm {

/// The children of a node and the rest that a plain leaf does not have.
///
/// The rows of children are kept relative to the node's own row. So when rows come or go above, one number changes for
/// each later sibling of the nodes on the way up, not one for each of a hundred thousand nodes below.
struct OlBranch {
    /// The children without gaps.
    std::vector<LmOlNode*>& tidyChildren()
    {
        if (gaps > 0)
            closeGaps();
        return children;
    }
    int size() const { return static_cast<int>(children.size()) - gaps; }

    std::vector<LmOlNode*> children;   // null where one was removed: gaps are closed when somebody looks
    std::vector<int> rows;             // of each child that is shown, relative to the node's
    int gaps = 0;
    std::unique_ptr<KeyIndex> index;   // of the children by key, once there are many and somebody asked
    void* hook = nullptr;
    unsigned childAttrMask = 1;
    CString key;   // when it is not in the label's block

private:
    void closeGaps();
};

/// Calls `visit(node, level)` with a node and its descendants, parents before children, in closed parts, too, until it answers
/// true. Trees may be 50,000 levels deep, so this does not recurse.
template <class Visit> void walkTree(LmOlNode* start, int level, Visit visit)
{
    struct At {
        LmOlNode* node;
        int level;
    };
    std::vector<At> waiting{{start, level}};
    while (!waiting.empty()) {
        const At at = waiting.back();
        waiting.pop_back();
        if (visit(at.node, at.level))
            return;
        for (int i = at.node->nchild() - 1; i >= 0; --i)
            waiting.push_back({at.node->child(i), at.level + 1});
    }
}

/// The parts of a toggle, for the outline.
struct OutlineSteps {
    /// Marks all shown descendants as not shown; returns how many they were.
    static int hideDescendants(LmOlNode& node);
    /// The shown nodes behind the node and its descendants moved by so many rows.
    static void moveRowsBehind(LmOlNode& node, int by);
    /// How many descendants stand below open nodes only.
    static int countOpen(const LmOlNode& node);
    /// Shows the descendants below open nodes, whose rows follow the counter of rows.
    static void displayChildren(LmOlNode& node, int level, const LmOlDisplayParams& params);
    /// The row of the i-th child of a node whose own row is given, 0 when it is not shown.
    static int rowOfChild(const LmOlNode& node, int row, int i);
    /// The first child with the key, or null.
    static LmOlNode* childWithKey(LmOlNode& node, const char* key);
    /// The label's text when it is one line without tabs, else perhaps null.
    static const char* lineOf(const LmOlNode& node);
    /// Counts the public edits of all trees; whoever keeps an index of one sees by it that somebody else edited.
    static unsigned edits;
};

/// While it lives, edits are the outline's own: its index follows them, and nobody else's is made wrong by them.
class OwnEdits {
public:
    OwnEdits() = default;
    OwnEdits(const OwnEdits&) = delete;
    OwnEdits& operator=(const OwnEdits&) = delete;
    ~OwnEdits() { OutlineSteps::edits = _before; }

private:
    unsigned _before = OutlineSteps::edits;
};

}   // namespace lm
