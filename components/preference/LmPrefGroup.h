// LmPrefGroup: preference items in rows and columns.
#pragma once

#include "LmPrefItem.h"

#include <vector>

/// A container of preference items, which is an item itself, so that sheets nest.
///
/// Vertical: the items' labels stand right-aligned in one column, their widgets in a second one that takes up additional
/// width; all rows are as high as the highest. Horizontal: the items stand side by side, in equal columns when they are of
/// one type. Items added after the group was built get no widgets.
///
///   Widgets    "<name>Label", a label gadget, unless told not to; "<name>Base": vertical an XmForm with the XmRowColumns
///              "leftStuff" and "rightStuff", horizontal an XmRowColumn, with an XmRowColumn "container" around each item
///              when all are of one type
///   Errors     none; an item that is deleted leaves the group
class LM_API LmPrefGroup : public LmPrefItem {
public:
    /// `noLabel`: the group has no label of its own.
    LmPrefGroup(const char* name, char horizontal, char noLabel);
    ~LmPrefGroup() override;

    const char* className() override { return "LmPrefGroup"; }
    void show() override;
    /// Whether every item agrees.
    Boolean okToQuit() override;
    void widgetDestroyed() override;
    LmPrefItemType type() override { return PI_group; }
    /// Whether any item is changed.
    char changed() override;
    char isContainer() override { return true; }
    using LmPrefItem::build;
    void build(Widget labelParent, Widget baseParent) override;
    void updateValue() override;
    void revertValue() override;
    /// Reaches every item; the group's own widgets keep their sensitivity.
    void setActivated(char activated) override;
    /// Deletes the items, with theirs. For groups filled with items made by `new`: the group's destructor does not do it.
    void deleteChildren() override;
    /// The height the rows need, in pixels; 0 for an empty group.
    virtual Dimension baseHeight();
    virtual void buildVertical(Widget parent);     ///< Makes the two columns in `parent`, and the items in them.
    virtual void buildHorizontal(Widget parent);   ///< Makes the items side by side in `parent`.

    /// Appends an item (not owned), which takes over the group's activation.
    void addItem(LmPrefItem* item);
    int size() const { return static_cast<int>(_items.size()); }   ///< The number of items.
    /// The item at an index; null outside 0..size()-1.
    LmPrefItem* item(int i) const;

protected:
    /// Finds out whether all items are of one type, and tells them when they are not.
    void checkHomogeneous();
    /// The Xt event handler that gives all rows one height at the form's first MapNotify; the group is its client data.
    static void mapHandler(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;
    /// Builds every item, label and widget in `parent`.
    void buildItems(Widget parent);

    Widget _leftStuff = nullptr;    ///< the label column of a vertical group
    Widget _rightStuff = nullptr;   ///< the widget column of a vertical group
    char _horizontal;               ///< as constructed
    char _noLabel;                  ///< as constructed

private:
    void itemDeleted(LmCallbackObject* item, void* clientData, void* callData);

    std::vector<LmPrefItem*> _items;
};
