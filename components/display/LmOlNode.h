// LmOlNode: a node of an outline's tree.
#pragma once

#include "support/LmExport.h"

#include <Xm/Xm.h>

#include <cstddef>
#include <cstdint>

class LmOlDisplayParams;

namespace lm {
struct OlBranch;
class TreeRows;
struct OutlineSteps;
}   // namespace lm

/// A labelled entry of an outline, with its children. Nodes are made with `new` (from a pool of their own: blocks of 1,024,
/// the last freed first) and owned by their parent once they are added. Keys identify nodes; a tree should have each once.
///
/// A node that is shown knows its row in the list, counted from 1. Most programs leave nodes to LmOutline.
class LM_API LmOlNode {
public:
    /// Key and label are both `name`.
    explicit LmOlNode(char* name);
    LmOlNode(char* name, void* hook);   ///< The same, with the application's data.
    /// Label, key and the application's data, which is not owned. Null texts count as empty.
    LmOlNode(char* name, char* key, void* hook);
    LmOlNode(const LmOlNode&) = delete;
    LmOlNode& operator=(const LmOlNode&) = delete;
    /// Destroys the children, too.
    ~LmOlNode();

    void* operator new(std::size_t size);                 ///< Takes a place from the pool.
    void operator delete(void* node, std::size_t size);   ///< Gives the place back to the pool.

    /// The key and the label, the node's own.
    char* key() const;
    XmString name() const { return _name; }   ///< The label, the node's own.
    /// The parent; null for a root. setParent only sets it: the children of neither node change.
    LmOlNode* getParent() const { return _parent; }
    void setParent(LmOlNode* parent);   ///< Only sets what getParent() answers.
    /// The child, counted from 0. No range check.
    LmOlNode* child(int i) const;
    int nchild() const;   ///< The number of children.
    /// The row, or 0 while the node is not shown.
    int whereDisplayed() const;
    /// The application's data.
    void* getHook() const;
    void setHook(void* hook);   ///< Sets what getHook() answers.
    /// 1 when the children are shown with the node. These change nothing in the list.
    int isOpen() const { return _open; }
    void Open() { _open = true; }     ///< Has the children count as shown with the node.
    void Close() { _open = false; }   ///< Has them count as not shown.
    /// The attribute set that the row is drawn with, 0 is the plain one. Setting it changes nothing in the list.
    int attrIndex() const { return _attrIndex; }
    void setAttrIndex(int i) { _attrIndex = static_cast<std::int16_t>(i); }   ///< Sets what attrIndex() answers.

    /// Appends the child, which the node owns from now on. Null is ignored.
    void addChild(LmOlNode* child);
    /// Takes the child (the first of its kind) out; it is the caller's now and still names its old parent. A node that is
    /// no child is ignored.
    void removeChild(LmOlNode* child);

    /// The highest attribute set that a descendant was highlighted with; 0 for none.
    int maxChildAttrIndex() const;
    /// Notes, or forgets, that some descendant is highlighted with set i (0 to 31). Return whether it was noted before.
    int setMaxChildAttrIndex(int i);
    int unsetMaxChildAttrIndex(int i);   ///< Forgets that; returns whether it was noted.

    /// The counter of rows that the numbering and display operations use.
    static void setItemCount(int count) { _itemCount = count; }
    static int getItemCount() { return _itemCount; }   ///< What setItemCount() set, and the operations made of it.
    /// To be called before correctPositions.
    static void initCorrection() { _correctionOn = 0; }

    /// Depth first, parents before children: the first node with the label, or the key, in closed parts, too; or the node
    /// at the row, in the parts that are open. Null when there is none. `level` is this node's; the level of the node found is
    /// kept for getNodeAt and getNodeOf, which start at level 0 and tell it (0 when nothing was found).
    LmOlNode* search(XmString name, int level);
    LmOlNode* search(char* key, int level);           ///< The first node with the key.
    LmOlNode* search(int position, int level);        ///< The node at the row.
    LmOlNode* getNodeAt(int position, int* level);    ///< The node at the row, and its level.
    LmOlNode* getNodeOf(char* key, int* level);       ///< The first node with the key, and its level.
    LmOlNode* getNodeOf(XmString name, int* level);   ///< The first node with the label, and its level.
    /// Follows the keys (a null ends them) downwards, at each step to the first child with the key. Null when there is none;
    /// this node for an empty list.
    LmOlNode* pathToNode(char** keys);

    /// How many descendants stand below open nodes only; all of them are now marked as not shown. walkToCount adds to
    /// the counter, countVisibleItems starts it at 0.
    int countVisibleItems();
    void walkToCount();   ///< countVisibleItems(), added to the counter.
    /// Numbers the shown nodes behind `start` and its subtree, in display order, from the counter + 1 on.
    void correctPositions(LmOlNode* start);

    /// Inserts the rows of the node (none at level 0) and of its open descendants into the list, from the counter + 1 on.
    void display(int level, LmOlDisplayParams* params);
    /// Draws the node with the set unless it has a higher one; ancestors remember it, and closed ones show it in their icon.
    void highlight(int attr, LmOlDisplayParams* params);
    /// Takes the set away from the node and from the descendants that have it.
    void unhighlight(int attr, LmOlDisplayParams* params);
    /// Prints the labels of the subtree, four blanks per level.
    void print(int level);

private:
    friend struct lm::OutlineSteps;
    friend struct lm::OlBranch;
    friend class lm::TreeRows;

    template <class Test> LmOlNode* searchBy(int startLevel, Test isIt);
    lm::OlBranch& ownBranch();
    int rowOfParent() const;
    void setRow(int row);
    void becomeFree();
    void recolour(int row, int attr, LmOlDisplayParams* params);
    void noteInAncestors(int attr, bool highlighted, LmOlDisplayParams* params);

    // A tree may hold a hundred thousand nodes, most of them plain leaves: 32 bytes each.
    LmOlNode* _parent = nullptr;   // in a free node: the next free one
    XmString _name;
    lm::OlBranch* _branch;     // children, hook and the like; plain leaves share an empty one
    std::int32_t _place = 0;   // among the parent's children; the row itself when there is no such parent
    std::int16_t _attrIndex = 0;
    bool _open : 1;
    bool _shown : 1;
    bool _attached : 1;     // `_place` is the place among the children of `_parent`
    bool _inOneBlock : 1;   // the key stands in the label's block (LabelText)
    bool _keyFollows : 1;

    static int _itemCount;
    static char _correctionOn;
    static int _foundLevel;
};
