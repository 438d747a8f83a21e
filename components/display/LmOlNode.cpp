#include "LmOlNode.h"

#include "LabelText.h"
#include "OlBranch.h"
#include "support/xmtext.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>
#include <new>
#include <string>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size)
#define ASAN_UNPOISON_MEMORY_REGION(address, size)
#endif

int LmOlNode::_itemCount = 0;
char LmOlNode::_correctionOn = 0;
int LmOlNode::_foundLevel = 0;
unsigned lm::OutlineSteps::edits = 0;

namespace {

constexpr int NodesPerBlock = 1024;
constexpr std::size_t IndexFrom = 32;   // children from which on an index pays

struct FreeNode {
    FreeNode* next;
};
FreeNode* freeNodesHead = nullptr;

/// Puts the places of a new block on the free list, the last of them first.
void addBlock()
{
    // Kept for ever, as nodes come and go; the list is what the leak checker finds them by.
    static auto* blocks = new std::vector<char*>;
    char* block = static_cast<char*>(::operator new(NodesPerBlock * sizeof(LmOlNode)));
    blocks->push_back(block);
    for (int i = 0; i < NodesPerBlock; ++i)
        freeNodesHead = new (block + static_cast<std::size_t>(i) * sizeof(LmOlNode)) FreeNode{freeNodesHead};
    ASAN_POISON_MEMORY_REGION(block, NodesPerBlock * sizeof(LmOlNode));
}

/// What all plain leaves have for a branch. Never written to.
lm::OlBranch& emptyBranch()
{
    static lm::OlBranch empty;
    return empty;
}

}   // namespace

// --- making and editing ----------------------------------------------------------------------------------------------

void* LmOlNode::operator new(std::size_t size)
{
    if (size != sizeof(LmOlNode))   // of a derived class
        return ::operator new(size);
    if (!freeNodesHead)
        addBlock();
    FreeNode* node = freeNodesHead;
    ASAN_UNPOISON_MEMORY_REGION(node, sizeof(LmOlNode));
    freeNodesHead = node->next;
    return node;
}

void LmOlNode::operator delete(void* node, std::size_t size)
{
    if (size != sizeof(LmOlNode))
        return ::operator delete(node);
    freeNodesHead = new (node) FreeNode{freeNodesHead};
    ASAN_POISON_MEMORY_REGION(node, sizeof(LmOlNode));
}

LmOlNode::LmOlNode(char* name) : LmOlNode(name, name, nullptr) {}

LmOlNode::LmOlNode(char* name, void* hook) : LmOlNode(name, name, hook) {}

LmOlNode::LmOlNode(char* name, char* key, void* hook)
    : _branch(&emptyBranch()),
      _open(true),
      _shown(false),
      _attached(false),
      _inOneBlock(false),
      _keyFollows(false)
{
    const lm::LabelText made = lm::makeLabel(name, key);
    _name = made.label;
    _inOneBlock = made.inOneBlock;
    _keyFollows = made.keyFollows;
    if (!_inOneBlock)
        ownBranch().key.reset(strdup(key ? key : ""));
    if (hook)
        setHook(hook);
}

/// Trees may be 50,000 levels deep, so the descendants are collected first and each dies childless.
LmOlNode::~LmOlNode()
{
    ++lm::OutlineSteps::edits;
    if (_attached)
        _parent->removeChild(this);
    std::vector<LmOlNode*> doomed;
    const auto takeChildren = [&](LmOlNode& node) {
        std::vector<LmOlNode*>& children = node._branch->tidyChildren();
        for (std::size_t place = 0; place < children.size(); ++place) {
            LmOlNode* child = children[place];
            const bool isElsewhere = child->_attached && (child->_parent != &node || child->_place != static_cast<int>(place));
            if (isElsewhere)
                continue;
            child->_attached = false;
            doomed.push_back(child);
        }
        children.clear();
    };
    takeChildren(*this);
    while (!doomed.empty()) {
        LmOlNode* node = doomed.back();
        doomed.pop_back();
        takeChildren(*node);
        delete node;
    }
    XmStringFree(_name);
    if (_branch != &emptyBranch())
        delete _branch;
}

lm::OlBranch& LmOlNode::ownBranch()
{
    if (_branch == &emptyBranch())
        _branch = new lm::OlBranch;
    return *_branch;
}

char* LmOlNode::key() const { return _inOneBlock ? const_cast<char*>(lm::keyOf(_name, _keyFollows)) : _branch->key.get(); }

/// Leaves the place among the parent's children; the row that the list shows stays.
void LmOlNode::becomeFree()
{
    const int row = whereDisplayed();
    _attached = false;
    _place = row;
}

void LmOlNode::setParent(LmOlNode* parent)
{
    if (parent == _parent)
        return;
    ++lm::OutlineSteps::edits;
    becomeFree();
    _parent = parent;
}

LmOlNode* LmOlNode::child(int i) const { return _branch->tidyChildren()[static_cast<std::size_t>(i)]; }

int LmOlNode::nchild() const { return _branch->size(); }

void* LmOlNode::getHook() const { return _branch->hook; }

void LmOlNode::setHook(void* hook) { ownBranch().hook = hook; }

namespace {

bool isAncestor(const LmOlNode* suspect, const LmOlNode* node)
{
    while (node && node != suspect)
        node = node->getParent();
    return node;
}

}   // namespace

void LmOlNode::addChild(LmOlNode* child)
{
    if (!child || child == this || (child->nchild() > 0 && isAncestor(child, this)))
        return;
    ++lm::OutlineSteps::edits;
    const int row = child->whereDisplayed();
    lm::OlBranch& branch = ownBranch();
    child->_parent = this;
    child->_attached = true;
    child->_place = static_cast<std::int32_t>(branch.children.size());
    branch.children.push_back(child);
    branch.rows.push_back(0);
    child->setRow(row);
    if (branch.index)
        branch.index->insert(child);
}

void LmOlNode::removeChild(LmOlNode* child)
{
    if (!child)
        return;
    lm::OlBranch& branch = *_branch;
    const bool isOurs = child->_attached && child->_parent == this;
    const auto place =
        isOurs ? branch.children.begin() + child->_place : std::find(branch.children.begin(), branch.children.end(), child);
    if (place == branch.children.end())
        return;
    ++lm::OutlineSteps::edits;
    if (isOurs)
        child->becomeFree();
    *place = nullptr;
    ++branch.gaps;
    branch.index.reset();
}

void lm::OlBranch::closeGaps()
{
    std::size_t to = 0;
    for (std::size_t from = 0; from < children.size(); ++from) {
        LmOlNode* child = children[from];
        if (!child)
            continue;
        if (child->_attached && child->_parent->_branch == this)
            child->_place = static_cast<std::int32_t>(to);
        children[to] = child;
        rows[to++] = rows[from];
    }
    children.resize(to);
    rows.resize(to);
    gaps = 0;
}

int LmOlNode::maxChildAttrIndex() const { return std::max(0, static_cast<int>(std::bit_width(_branch->childAttrMask)) - 1); }

int LmOlNode::setMaxChildAttrIndex(int i)
{
    if (i < 0 || i > 31)
        return 0;
    const unsigned bit = 1U << i;
    const bool was = _branch->childAttrMask & bit;
    if (!was)
        ownBranch().childAttrMask |= bit;
    return was;
}

int LmOlNode::unsetMaxChildAttrIndex(int i)
{
    if (i < 0 || i > 31)
        return 0;
    const unsigned bit = 1U << i;
    const bool was = _branch->childAttrMask & bit;
    if (was)
        ownBranch().childAttrMask &= ~bit;
    return was;
}

// --- searching -------------------------------------------------------------------------------------------------------

template <class Test> LmOlNode* LmOlNode::searchBy(int startLevel, Test isIt)
{
    LmOlNode* found = nullptr;
    lm::walkTree(this, startLevel, [&](LmOlNode* node, int level) {
        if (!isIt(node))
            return false;
        found = node;
        _foundLevel = level;
        return true;
    });
    return found;
}

LmOlNode* LmOlNode::search(XmString name, int level)
{
    return searchBy(level, [&](const LmOlNode* node) { return XmStringCompare(node->name(), name); });
}

LmOlNode* LmOlNode::search(char* key, int level)
{
    if (!key)
        return nullptr;
    return searchBy(level, [&](const LmOlNode* node) { return std::strcmp(node->key(), key) == 0; });
}

/// Rows grow from child to child, so at each level the node is the last child that is not behind the row, or below it.
LmOlNode* LmOlNode::search(int position, int level)
{
    LmOlNode* node = this;
    for (int row = whereDisplayed(); row != position; ++level) {
        if (!node->_open)
            return nullptr;
        const std::vector<LmOlNode*>& children = node->_branch->tidyChildren();
        const std::vector<int>& rows = node->_branch->rows;
        const auto isNotBehind = [&](LmOlNode* const& child) {
            return child->_shown && row + rows[static_cast<std::size_t>(&child - children.data())] <= position;
        };
        const auto behind = std::partition_point(children.begin(), children.end(), isNotBehind);
        if (behind == children.begin())
            return nullptr;
        node = behind[-1];
        row += rows[static_cast<std::size_t>(behind - children.begin()) - 1];
    }
    _foundLevel = level;
    return node;
}

LmOlNode* LmOlNode::getNodeAt(int position, int* level)
{
    _foundLevel = 0;
    LmOlNode* node = search(position, 0);
    *level = _foundLevel;
    return node;
}

LmOlNode* LmOlNode::getNodeOf(char* key, int* level)
{
    _foundLevel = 0;
    LmOlNode* node = search(key, 0);
    *level = _foundLevel;
    return node;
}

LmOlNode* LmOlNode::getNodeOf(XmString name, int* level)
{
    _foundLevel = 0;
    LmOlNode* node = search(name, 0);
    *level = _foundLevel;
    return node;
}

LmOlNode* lm::OutlineSteps::childWithKey(LmOlNode& node, const char* key)
{
    OlBranch& branch = *node._branch;
    const std::vector<LmOlNode*>& children = branch.tidyChildren();
    if (children.size() < IndexFrom) {
        const auto hasKey = [&](const LmOlNode* child) { return std::strcmp(child->key(), key) == 0; };
        const auto found = std::find_if(children.begin(), children.end(), hasKey);
        return found == children.end() ? nullptr : *found;
    }
    if (!branch.index) {
        branch.index = std::make_unique<KeyIndex>();
        for (LmOlNode* child : children)
            branch.index->insert(child);
    }
    return branch.index->find(key).node;
}

LmOlNode* LmOlNode::pathToNode(char** keys)
{
    LmOlNode* node = this;
    for (; node && keys && *keys; ++keys)
        node = lm::OutlineSteps::childWithKey(*node, *keys);
    return node;
}

void LmOlNode::print(int startLevel)
{
    lm::walkTree(this, startLevel, [](const LmOlNode* node, int level) {
        const std::string indentation(static_cast<std::size_t>(std::max(0, level)) * 4, ' ');
        std::printf("%s%s\n", indentation.c_str(), lm::plainText(node->name()).c_str());
        return false;
    });
}
