// The rows of an outline's nodes: their numbers, and what the list shows of them.
#include "LabelText.h"
#include "LmOlDisplayParams.h"
#include "LmOlNode.h"
#include "LmScrolledList.h"
#include "OlBranch.h"
#include "platform/RowSource.h"

#include <array>

// --- numbers ---------------------------------------------------------------------------------------------------------

int LmOlNode::rowOfParent() const { return _parent ? _parent->whereDisplayed() : 0; }

int LmOlNode::whereDisplayed() const
{
    if (!_shown)
        return 0;
    int row = 0;
    const LmOlNode* node = this;
    for (; node && node->_shown && node->_attached; node = node->_parent)
        row += node->_parent->_branch->rows[static_cast<std::size_t>(node->_place)];
    return node && node->_shown ? row + node->_place : row;
}

void LmOlNode::setRow(int row)
{
    _shown = row != 0;
    if (_attached)
        _parent->_branch->rows[static_cast<std::size_t>(_place)] = row - rowOfParent();
    else
        _place = row;
}

int LmOlNode::countVisibleItems()
{
    _itemCount = 0;
    walkToCount();
    return _itemCount;
}

void LmOlNode::walkToCount()
{
    std::vector<LmOlNode*> waiting{this};
    while (!waiting.empty()) {
        const LmOlNode* node = waiting.back();
        waiting.pop_back();
        if (!node->_open)
            continue;
        for (LmOlNode* child : node->_branch->tidyChildren()) {
            child->_shown = false;
            ++_itemCount;
            waiting.push_back(child);
        }
    }
}

int lm::OutlineSteps::rowOfChild(const LmOlNode& node, int row, int i)
{
    const LmOlNode& child = *node.child(i);
    return child._shown ? row + node._branch->rows[static_cast<std::size_t>(i)] : 0;
}

int lm::OutlineSteps::hideDescendants(LmOlNode& start)
{
    int hidden = 0;
    std::vector<LmOlNode*> waiting{&start};
    while (!waiting.empty()) {
        const LmOlNode* node = waiting.back();
        waiting.pop_back();
        for (LmOlNode* child : node->_branch->tidyChildren())
            if (child->_shown) {
                child->_shown = false;
                ++hidden;
                if (!child->_branch->children.empty())
                    waiting.push_back(child);
            }
    }
    return hidden;
}

void lm::OutlineSteps::moveRowsBehind(LmOlNode& start, int by)
{
    for (const LmOlNode* node = &start; node->_attached; node = node->_parent) {
        std::vector<int>& rows = node->_parent->_branch->rows;
        for (auto later = static_cast<std::size_t>(node->_place) + 1; later < rows.size(); ++later)
            rows[later] += by;
    }
}

namespace lm {

/// Goes through a node and its descendants below open nodes in display order, and knows the level and the row of each.
class TreeRows {
public:
    TreeRows(LmOlNode* start, int level) { _waiting.push_back({start, level, start->rowOfParent()}); }

    struct At {
        LmOlNode* node = nullptr;
        int level = 0;
        int parentRow = 0;   // 0 when the parent is not shown
    };

    /// The next node; its children follow when it is open, unless they are skipped.
    At next()
    {
        const At at = _waiting.back();
        _waiting.pop_back();
        return at;
    }
    bool isOver() const { return _waiting.empty(); }

    /// To be called with every node that next() gave and whose children shall follow, after its row is set.
    void goInto(const At& at)
    {
        const std::vector<LmOlNode*>& children = at.node->_branch->tidyChildren();
        const int row = rowOf(at);
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            _waiting.push_back({*child, at.level + 1, row});
    }

    static int rowOf(const At& at)
    {
        if (!at.node->_shown)
            return 0;
        if (!at.node->_attached)
            return at.node->_place;
        return at.parentRow + at.node->_parent->_branch->rows[static_cast<std::size_t>(at.node->_place)];
    }
    static void setRow(const At& at, int row)
    {
        at.node->_shown = true;
        if (at.node->_attached)
            at.node->_parent->_branch->rows[static_cast<std::size_t>(at.node->_place)] = row - at.parentRow;
        else
            at.node->_place = row;
    }

private:
    std::vector<At> _waiting;
};

}   // namespace lm

void LmOlNode::correctPositions(LmOlNode* start)
{
    lm::TreeRows rows(this, 0);
    while (!rows.isOver()) {
        const auto at = rows.next();
        if (at.node == start) {
            _correctionOn = 1;
            continue;
        }
        if (_correctionOn)
            lm::TreeRows::setRow(at, ++_itemCount);
        if (at.node->_open)
            rows.goInto(at);
    }
}

// --- the list --------------------------------------------------------------------------------------------------------

namespace {

/// The style of an attribute set, as the list knows it; null for the plain one.
const lm::RowStyle* styleOf(const LmOlDisplayParams& params, int attr)
{
    return attr > 0 && attr < params.setCount() ? &params.style(attr) : nullptr;
}

/// Gives the list the rows of a subtree and notes their numbers in the nodes.
class SubtreeRows : public lm::RowSource {
public:
    SubtreeRows(LmOlNode* start, int level, const LmOlDisplayParams& params) : _walk(start, level), _params(params) {}

    /// The start itself has no row of its own, or has it already.
    void skipStart() { _walk.goInto(_walk.next()); }

    void next(lm::NewRow& row) override
    {
        const auto at = _walk.next();
        lm::TreeRows::setRow(at, nextRow());
        if (at.node->isOpen())
            _walk.goInto(at);
        else
            lm::OutlineSteps::hideDescendants(*at.node);
        describe(*at.node, at.level, row);
    }

private:
    static int nextRow()
    {
        const int row = LmOlNode::getItemCount() + 1;
        LmOlNode::setItemCount(row);
        return row;
    }

    void describe(const LmOlNode& node, int level, lm::NewRow& row) const
    {
        row.label = node.name();
        row.text = lm::OutlineSteps::lineOf(node);
        row.style = styleOf(_params, node.attrIndex());
        row.indent = _params.indentation() * (level - 1);
        row.icon = None;
        if (node.nchild() > 0)
            row.icon = node.isOpen() ? _params.openPixmap() : _params.closedPixmap(node.maxChildAttrIndex());
    }

    lm::TreeRows _walk;
    const LmOlDisplayParams& _params;
};

}   // namespace

const char* lm::OutlineSteps::lineOf(const LmOlNode& node) { return node._inOneBlock ? textOf(node._name) : nullptr; }

int lm::OutlineSteps::countOpen(const LmOlNode& start)
{
    int count = 0;
    std::vector<const LmOlNode*> waiting{&start};
    while (!waiting.empty()) {
        const LmOlNode* node = waiting.back();
        waiting.pop_back();
        if (!node->_open)
            continue;
        const std::vector<LmOlNode*>& children = node->_branch->tidyChildren();
        count += static_cast<int>(children.size());
        for (const LmOlNode* child : children)
            if (!child->_branch->children.empty())
                waiting.push_back(child);
    }
    return count;
}

void LmOlNode::display(int level, LmOlDisplayParams* params)
{
    if (level == 0)   // the root is never seen
        return lm::OutlineSteps::displayChildren(*this, level, *params);
    SubtreeRows rows(this, level, *params);
    lm::insertRows(params->widget(), _itemCount + 1, 1 + lm::OutlineSteps::countOpen(*this), rows);
}

void lm::OutlineSteps::displayChildren(LmOlNode& node, int level, const LmOlDisplayParams& params)
{
    const int count = countOpen(node);
    if (count == 0)
        return;
    SubtreeRows rows(&node, level, params);
    rows.skipStart();
    insertRows(params.widget(), LmOlNode::getItemCount() + 1, count, rows);
}

void LmOlNode::recolour(int row, int attr, LmOlDisplayParams* params)
{
    _attrIndex = static_cast<std::int16_t>(attr);
    if (row > 0)
        lm::restyleRow(params->widget(), row, styleOf(*params, attr));
}

/// Up to the first ancestor that knows it already; those that are closed show it in their icon.
void LmOlNode::noteInAncestors(int attr, bool highlighted, LmOlDisplayParams* params)
{
    for (LmOlNode* node = _parent; node; node = node->_parent) {
        const bool was = highlighted ? node->setMaxChildAttrIndex(attr) : node->unsetMaxChildAttrIndex(attr);
        if (was == highlighted)
            return;
        if (!node->_open && node->_shown)
            LmListSetPositionIcon(params->widget(), node->whereDisplayed(), params->closedPixmap(node->maxChildAttrIndex()));
    }
}

void LmOlNode::highlight(int attr, LmOlDisplayParams* params)
{
    if (attr <= _attrIndex)
        return;
    recolour(whereDisplayed(), attr, params);
    noteInAncestors(attr, true, params);
}

void LmOlNode::unhighlight(int attr, LmOlDisplayParams* params)
{
    lm::TreeRows rows(this, 0);
    while (!rows.isOver()) {
        const auto at = rows.next();
        if (at.node->_attrIndex == attr) {
            at.node->recolour(lm::TreeRows::rowOf(at), 0, params);
            at.node->noteInAncestors(attr, false, params);
        }
        if (at.node->maxChildAttrIndex() >= attr)
            rows.goInto(at);
    }
}
