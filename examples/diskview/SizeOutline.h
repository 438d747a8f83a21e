// SizeOutline.h: a tree of sizes as an outline, largest first.
#pragma once

#include "Task.h"
#include "Tree.h"
#include "Words.h"

#include <Lm/LmOlNode.h>
#include <Lm/LmOutline.h>

#include <functional>
#include <memory>
#include <set>
#include <vector>

/// How the sizes are shown.
struct Look {
    Measure measure = Measure::Apparent;
    Units units = Units::Decimal;
    std::int64_t markAbove = 0;   ///< entries larger than this are marked; bytes
};

/// The outline. Its rows are made in idle time, behind what is shown; then they replace it in one step, and what was open,
/// chosen and in sight is so again.
///
///   Resources  of the list: "markBackground", "markColor", "excludedForeground" (class "Color")
///   Callbacks  shownCallback, when the rows of the latest build() are shown; chosenCallback, when the user chose a row
class SizeOutline : public LmOutlineASB {
public:
    static const char* const shownCallback;
    static const char* const chosenCallback;

    SizeOutline(const char* name, Widget parent);
    ~SizeOutline() override;

    const char* className() override { return "SizeOutline"; }
    /// Shows that tree, which must live until clear() or the next build().
    void build(Tree& tree, const Look& look);
    /// Shows nothing, and forgets the tree.
    void clear();
    /// The entry that the user chose last; null: none.
    Entry* chosen() const { return _chosen; }
    void toggleChildren(int position) override;

private:
    struct Branch {
        Entry* entry;
        LmOlNode* node;                 // null for an entry at the top: its node is made last
        std::vector<LmOlNode*> below;   // of such an entry
        std::vector<Entry*> waiting;    // the children that have no nodes yet, the smallest first
    };

    bool makeNodes();
    LmOlNode* makeNode(Entry& entry);
    void begin(Entry& entry, LmOlNode* node);
    std::string labelOf(const Entry& entry) const;
    int styleOf(const Entry& entry) const;
    void forgetUnshown();
    void takeShown();
    bool deleteNodes();
    void show();
    void choose(XmListCallbackStruct* choice);

    Task _making, _deleting;
    Tree* _tree = nullptr;
    Look _look;
    std::vector<Branch> _branches;   // those begun, the innermost last
    std::vector<Branch> _made;       // at the top, complete
    std::size_t _nextTop = 0;
    std::vector<Entry*> _tops;
    std::vector<LmOlNode*> _nodes;   // by the entries' numbers
    std::vector<LmOlNode*> _old;     // shown once, and to be deleted
    std::set<std::size_t> _open;     // numbers of entries
    Entry* _chosen = nullptr;
    int _markStyle = 0, _excludedStyle = 0;
};
