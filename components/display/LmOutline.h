// LmOutline: a tree as a list of rows that open and close; with marks in its scroll bar.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

#include <memory>

class LmOlDisplayParams;
class LmOlNode;

namespace lm {
class KeyIndex;
}   // namespace lm

/// An outline: each node of a tree is a row, indented by its depth, with an arrow when it has children. A double click or
/// Return on such a row opens or closes it in place. Rows can be highlighted in up to four styles; a closed node shows in its
/// arrow that something below it is. Build the tree from pairs of keys or from paths, then call displayAll().
///
/// Keys name nodes and should be unique. Paths are lists of keys from the top, ended by null; an empty path is the root,
/// which is invisible. Rows count from 1. What does not exist (a key, a path, a row) is ignored.
///
///   Widgets    the row list of the component's name, in a scrolled window (the base widget) of that name and "SW"
///   Resources  those of the row list (LmScrolledList.h), which is an XmList: "fontList", "visibleItemCount" ...
///   Errors     none reported
class LM_API LmOutline : public LmComponent {
public:
    /// `sizePolicy` is the list's XmNlistSizePolicy: XmVARIABLE (0), XmCONSTANT or XmRESIZE_IF_POSSIBLE.
    LmOutline(const char* name, Widget parent, Boolean sizePolicy);
    ~LmOutline() override;

    /// Opens or closes the node at the row. A row whose node has no children stays as it is.
    virtual void toggleChildren(int position);

    /// Puts a node with the key `child` below the one with the key `parent`; what is missing is made, with the key as label.
    /// A top-level child moves below a parent that is new; a child that has another parent already stays there.
    void add(char* parent, char* child);
    /// Appends a node for each name (null ends them) to the node at the path.
    void addChildren(char** path, char** names);
    /// The same with keys and data of their own (`keys` and `hooks` are as long as `labels`, whose end the null tells).
    /// Tabs in the labels are expanded while that is switched on; the labels must then be strings of malloc, and
    /// are replaced in the array.
    void addChildren(char** path, char** labels, char** keys, void** hooks);
    /// Walks down along the keys and makes what is missing, with the label beside the key. Returns the last node.
    LmOlNode* createPath(char** labels, char** keys);

    /// Shows the tree, once something was added.
    void displayAll();
    /// Empties tree and list.
    void reset();
    /// Prints the tree on standard output.
    void printTree();

    Widget listWidget() const { return _list; }   ///< The row list; null once destroyed.
    /// Whether the last toggle opened a node (1) or not (0); its row, and how many rows came or went. All are 0 when it
    /// changed nothing.
    int effectOfLastToggle(int& position, int& count) const;
    /// The data of the node at the row, or null.
    void* getHookAt(int position);
    /// Pixels per level, for the next display; ignored unless above 0.
    void setIndentationWidth(int pixels);

    /// Adds a style and returns its number, 1 to 4; 0 when there are four. A null font keeps the list's. A style with a higher
    /// number hides one with a lower number.
    int setHighlightAttributes(Pixel foreground, Pixel background, Pixel markColor, XmFontList font);
    /// The same, as the style of keywords.
    int setKeywordAttributes(Pixel foreground, Pixel background, XmFontList font);
    void displayAsKeyword(char** path);   ///< Highlights the node at the path in the keyword style.
    /// Highlights the nodes with the keys (null ends them), or the one at the row; takes a highlight away from all nodes.
    void highlight(char** keys, int attr);
    void highlight(int position, int attr);   ///< Highlights the node at the row.
    void unhighlight(int attr);               ///< Takes the highlight away from all nodes.
    /// Selects the row, without notification.
    void select(int position);

    /// Closes the node at the path for the next displayAll().
    void closePath(char** path);
    /// 1 when the node at the path is closed, 0 when it is open, -1 when there is none or it has no children.
    int isPathClosed(char** path);

    /// Calls the function with every node in the keyword style, parents before children, in closed parts, too.
    /// While there is no keyword style, these are the nodes without any. The function may not change the tree.
    void walkAllKeywords(void* clientData, void (*fn)(void*, LmOlNode*));
    /// walkAllKeywords() for the subtree of a node.
    void visitEveryKeyword(LmOlNode* start, void* clientData, void (*fn)(void*, LmOlNode*));

    /// Whether the long form of addChildren() expands tabs; off at first.
    void setTabProcessing(Boolean on) { _tabProcessing = on; }
    /// Replaces the tabs of the labels by blanks, so that what follows a tab starts at the same place in all of them.
    /// Nothing happens while that is switched off.
    void processTabs(char** labels, int n);

    /// The Xt procedure behind the double click; client data is the outline.
    static void activateCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

    void widgetDestroyed() override;

protected:
    LmOlNode* root() const { return _root.get(); }                      ///< The invisible root of the tree.
    const LmOlDisplayParams* params() const { return _params.get(); }   ///< How the rows are drawn.

private:
    void makeRoot();
    LmOlNode* nodeAt(int position, int* level);
    LmOlNode* nodeAtPath(char** path) const;
    LmOlNode* nodeWithKey(const char* key);
    void indexWholeTree();
    LmOlNode* append(LmOlNode* parent, char* label, char* key, void* hook);
    void moveBelow(LmOlNode* node, LmOlNode* parent);
    bool isTopLevel(const LmOlNode* node) const;
    void setUpdate(Boolean on);
    void clearRows();
    void close(LmOlNode* node);
    void open(LmOlNode* node, int level);

    lm::CString _rootKey;
    std::unique_ptr<LmOlNode> _root;
    bool _needsDisplay = false;
    Widget _list = nullptr;
    std::unique_ptr<LmOlDisplayParams> _params;
    int _keywordAttr = 0;
    int _lastToggleOpened = 0;
    int _lastTogglePosition = 0;
    int _lastToggleCount = 0;
    bool _tabProcessing = false;
    std::unique_ptr<lm::KeyIndex> _index;   // null until somebody looks for a key
    unsigned _editsSeen = 0;                // of trees, when the index was right
};

/// An outline whose scroll bar shows where the rows of chosen styles are, also those in closed nodes.
///
///   Widgets    as LmOutline; the marks are in the list's vertical scroll bar
class LM_API LmOutlineASB : public LmOutline {
public:
    LmOutlineASB(const char* name, Widget parent);   ///< No style is marked at first.

    void toggleChildren(int position) override;
    /// Has rows of the style marked. Numbers other than 0 to 4 are ignored.
    void setAnnotation(int attr, Boolean on);

    void displayAll();   ///< As LmOutline, with the marks.
    /// Also scrolls the first marked row to the middle.
    void highlight(char** keys, int attr);
    void highlight(int position, int attr);   ///< As LmOutline, with the marks.
    void unhighlight(int attr);               ///< As LmOutline, with the marks.

    /// The Xt procedure behind "troughPixmapCallback"; client data is the outline.
    static void ASBpixmapCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;

    void widgetDestroyed() override;

private:
    bool isBarRealized() const;
    void redisplayBar();
    void paintAsbPixmap(const struct SvTroughCallbackStruct& trough);

    Widget _scrollBar = nullptr;
    bool _annotate[5] = {};
    static int autoScrollPos;
};
