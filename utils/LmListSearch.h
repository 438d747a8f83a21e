// LmListSearch: finds items of a list while the user types.
#pragma once

#include "support/LmExport.h"
#include "support/alive.h"
#include "support/handles.h"

#include <Xm/Xm.h>

/// Joins a text widget to a list. While the user types, the first item that contains the text is selected and, when it is
/// out of view, scrolled to the middle; more characters search on from there, Return moves to the next match, and the
/// empty text deselects all and scrolls to the top. Case does not count. The bell rings once when the search begins to
/// fail. The object owns neither widget, and either may be destroyed first.
///
///     LmListSearch search(list, text, False);   // lives as long as the search is wanted
///
///   Widgets    none of its own: an XmList and an XmText or XmTextField of the application
///   Callbacks  the list's own selection callbacks tell of each new match
///   Errors     a text widget of another class is reported at each change: "LmListSearch: Unknown text widget type" on
///              standard error. An item whose text cannot be had is passed over: "init failed" or "decode failed" on
///              standard output. Null widgets search nothing
class LM_API LmListSearch {
public:
    /// Starts searching `list` for what is typed into `text`. `iconList` tells that the list is one with icons.
    LmListSearch(Widget list, Widget text, Boolean iconList);
    LmListSearch(const LmListSearch&) = delete;
    LmListSearch& operator=(const LmListSearch&) = delete;
    ~LmListSearch();

    /// The text may have changed, or Return was pressed: searches.
    void search_change(Widget w, char* clientData, XmAnyCallbackStruct* event);
    /// Selects the first match from position `startPos` (from 1) on, and answers 1; or deselects all and answers 0.
    int do_search(int startPos, const char* text);
    /// The position (from 1) of the match, 0 when there is none.
    int currentPos() const { return _currentPos; }

    /// The text widget's procedure: runs search_change() of the object given as client data.
    static void search_change_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;

    /// What is done to a plain list. `data` is not used.
    static void xmListSetPos(Widget list, int position, char* data);
    static void xmListSetMiddlePos(Widget list, int position, char* data);   ///< Scrolls the item to the middle.
    static int xmListIsViewablePos(Widget list, int position, char* data);   ///< 1 when the item is in view, else 0.
    static void xmListDeselectAllItems(Widget list, char* data);             ///< Deselects every item.
    static void xmListSelectPos(Widget list, int position, char* data);      ///< Selects the item, with its callbacks.
    /// The same for a list with icons, which obeys the same calls.
    static void iconListSetPos(Widget list, int position, char* data);
    static void iconListSetMiddlePos(Widget list, int position, char* data);   ///< As xmListSetMiddlePos().
    static int iconListIsViewablePos(Widget list, int position, char* data);   ///< As xmListIsViewablePos().
    static void iconListDeselectAllItems(Widget list, char* data);             ///< As xmListDeselectAllItems().
    static void iconListSelectPos(Widget list, int position, char* data);      ///< As xmListSelectPos().

private:
    int startOf(const char* text, const char* lastText) const;
    void clearSearch();
    int noMatch();
    void select(int position, XmString item);
    void followItem(XmString item);
    void forgetList() { _list = nullptr; }
    void forgetText() { _text = nullptr; }

    Widget _list;             // null once destroyed
    Widget _text;             // null once destroyed
    lm::XtString _lastText;   // of the search before; null at first
    Boolean _failed = False;
    int _currentPos = 0;   // from 1
    void (*_setPos)(Widget, int, char*);
    void (*_setMiddlePos)(Widget, int, char*);
    int (*_isViewablePos)(Widget, int, char*);
    void (*_deselectAllItems)(Widget, char*);
    void (*_selectPos)(Widget, int, char*);
    lm::Alive _alive;
};
