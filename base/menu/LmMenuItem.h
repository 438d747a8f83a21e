// LmMenuItem: the base of everything that stands in a menu.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

class LmComponentList;
class LmMenu;

/// What an item of a menu is; also the kinds of entries of menu tables (LmMenuDesc).
enum LmMenuItemType : int {
    MENU_END = 0,   ///< ends a table
    MENU_ACTION = 1,
    MENU_ACTION_WIDGET = 2,
    MENU_SUBMENU = 3,
    MENU_RADIO_SUBMENU = 4,
    MENU_SEPARATOR = 5,
    MENU_LABEL = 6,
    MENU_TOGGLE = 7,
    MENU_OPTION = 8,
    MENU_POPUP = 9,
    MENU_BAR = 10,
    MENU_CONFIRM_FIRST_ACTION = 11,
    MENU_ACTION_OBJECT = 12,
    MENU_ACTION_STUB = 13
};

/// One entry of a menu, which may be a menu itself.
///
/// An item lives unbuilt until its menu builds it under a pane; whatever is set before takes effect then. Widgets are
/// made unmanaged and managed in batches of up to 25. When its widget is destroyed, or remove()d, the item is unbuilt
/// again and can be put into another menu.
///
///   Widgets    the derived class's, of the item's name; its "userData" is the item
///   Resources  the label text itself, class "LabelString" XmString: replaces the label set by setLabel(); default the text
///   Errors     none reported
class LM_API LmMenuItem : public LmComponent {
public:
    /// The name is the widget's, and the label's default. An item without a name (null) is never found by name.
    explicit LmMenuItem(const char* name);
    LmMenuItem();
    /// Takes the item out of its menu.
    ~LmMenuItem() override;

    const char* className() override { return "LmMenuItem"; }
    /// Undoes hide(). Unlike other components the item needs no widget for that.
    void show() override;
    /// Keeps the item out of its menu's sight, also when it is built later.
    void hide() override;
    void widgetDestroyed() override;

    /// Replaces the label; null changes nothing. The text is also the name of the resource that may replace it.
    virtual void setLabel(const char* text);
    /// The text of setLabel(); null if there was none.
    virtual const char* getLabel() { return _label.get(); }
    /// Whether the item is a menu.
    virtual bool isContainer() { return false; }
    virtual LmMenuItemType menuType() = 0;   ///< What kind of item this is.
    /// Makes the widget under a pane, once.
    virtual void build(Widget parent);

    /// Builds the item under `parent` and shows it.
    void show(Widget parent);
    /// The place among its siblings that the widget is to take when built; -1: the last.
    void setPosition(int position) { _position = position; }
    void activate();     ///< Makes the item sensitive, also when it is built later.
    void deactivate();   ///< Makes the item insensitive, also when it is built later.
    /// Destroys the widget and takes the item out of its menu; the item itself is now the caller's. Returns the index
    /// that it had there, -1 when the menu did not hold it, 0 when it had no menu.
    int remove();
    /// The widget; null before the item is built. A null widget first has every menu built that waits for idle time.
    Widget baseWidget() const;
    /// The item's name; null when it has none.
    const char* name() const { return _isNamed ? LmComponent::name() : nullptr; }
    /// The menu that holds the item, or null.
    LmMenu* parentMenu() const { return _parentMenu; }
    bool isBuilt() const { return _isBuilt; }     ///< Whether the item has its widget.
    bool isHidden() const { return _isHidden; }   ///< Whether hide() keeps the item out of sight.

    /// Manages every widget that was built but not yet managed.
    static void manageAll();

protected:
    /// What of an item's settings its widget takes over.
    enum class Takes { Everything, OnlyItsPlace };

    /// The part of build() that all items share: makes the widget, with its label, queues it for being managed, and sets
    /// its sensitivity. False, and nothing done, when the item is built already.
    bool makeWidget(WidgetClass kind, Widget parent, Takes takes = Takes::Everything);
    /// Sets the sensitivity that was chosen before the widget existed.
    void applySensitivity();
    /// Keeps `text` as the label and shows it in `labelled`, null when there is no widget yet. Null `text` does nothing.
    void setLabelOf(Widget labelled, const char* text);
    /// Destroys the widget (inside a dispatch: soon); the item is unbuilt from here on.
    void dropWidget();
    /// The widget of any item as it is: completes nothing.
    static Widget widgetOf(const LmMenuItem* item) { return item->_baseWidget; }

    static constexpr int batchSize = 25;          ///< how many widgets are managed together
    static Widget _unmanagedWidgets[batchSize];   ///< built, not yet managed
    static int _numUnmanagedWidgets;              ///< how many of them
    static LmComponentList* _workProcList;        ///< the submenus that wait for idle time; null when none does

    int _position = -1;           ///< where among its siblings the widget goes; -1: the last
    int _sensitive = -1;          ///< -1 never set, else 0 or 1
    bool _isBuilt = false;        ///< what isBuilt() answers
    bool _isHidden = false;       ///< what isHidden() answers
    bool _outlivesMenu = false;   ///< whether a dying menu lets go of the item instead of deleting it

private:
    friend class LmMenu;              // enters and takes out items
    friend class LmMenuAction;        // counts,
    friend class LmMenuUndoManager;   // and so does it
    bool _isNamed;
    int _undoEntries = 0;   // how many entries of undo stacks are this item; here, where it costs no memory

protected:
    LmMenu* _parentMenu = nullptr;   ///< the menu that holds the item; null for none
    lm::CString _label;              ///< the text of setLabel(); null if there was none

private:
    void queueForManaging();
    static void unqueue(Widget w);
    static void completePendingBuilds();
};
