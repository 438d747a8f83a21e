// LmTabArea: a strip of tabs.
#pragma once

#include "LmDoubleBuffer.h"
#include "support/handles.h"

#include <memory>
#include <vector>

class LmPopupMenu;
namespace lm {
class TabLayout;
enum class TabEnd;
}   // namespace lm

/// The call data of the tab callbacks.
struct LmTabCallbackStruct {
    char* label;        ///< the tab's; null if there is none
    void* clientData;   ///< the tab's; null if there is none
    int tabIndex;       ///< -1 if there is none
    XEvent* event;      ///< what the user did; null if it was the program
};

/// A strip of tabs like those of file folders, of which one is selected. Tabs have a label, and may have client data and a
/// pixmap, both the application's. A horizontal strip stands below the pages it selects, a vertical one left of them. When
/// the tabs do not fit, a run of them shows, always with the selected one; a press on the stack of edges at an end pops up a
/// menu of all tabs. LmTabPanel is this strip between two areas for the application's own.
///
/// A label is first looked up as a string resource of the drawing area, of that name and class, and replaced by its value;
/// so are labels by which tabs are found.
///
///   Widgets    XmDrawingArea of the component's name (base widget); "tabLabel", an XmLabel that never shows: its
///              "background", "foreground", "fontList", "marginWidth" and "marginHeight" are those of the tabs;
///              "popupMenu" with items "tabMenuItem", while it is needed
///   Resources  of the drawing area, pixels: "uniformTabs" "UniformTabs" Boolean false: all as wide as the widest;
///              "lineThickness" "LineThickness" int 1; "sideOffset" "SideOffset" int 17: the run of a slanted side;
///              "endSpacing" "EndSpacing" int 9, "endMultiplier" "EndMultiplier" int 3: the distance of the edges at an end,
///              and their number; "pixmapSpacing" "PixmapSpacing" int 3; "curvature" "Curvature" int 3: steps of rounding,
///              "curveMultiplier" "CurveMultiplier" int 2: pixels of a step; "selectedTabBackground"
///              "SelectedTabBackground" Pixel, looked up for the parent, which also has the default, its background;
///              "tabHeight" "TabHeight" int 0: of the label band, 0: the font's; "additionalMarginWidth"
///              "AdditionalMarginWidth" int 4, "additionalMarginHeight" "AdditionalMarginHeight" int 2: added to the label's.
///              A number below 0 counts as 0
///   Callbacks  tabSelectCallback, when a tab is selected, also again, or none is left; tabPopupCallback, when button 3 is
///              pressed, over a tab or beside them. Call data of both: LmTabCallbackStruct*, valid during the callback
///   Errors     for an index or label that no tab has, operations return false and change nothing
class LM_API LmTabArea : public LmDoubleBuffer {
public:
    static const char* const tabSelectCallback;   ///< "tabSelectCallback"
    static const char* const tabPopupCallback;    ///< "tabPopupCallback"

    /// `tabHeight`: of the label band, pixels; 0: as the resource says.
    LmTabArea(const char* name, Widget parent, char horizontal, int tabHeight);
    ~LmTabArea() override;

    const char* className() override { return "LmTabArea"; }
    void widgetDestroyed() override;
    void afterRealizeHook() override;

    /// Adds a tab at the end, or (sorted) before the first whose label is greater; returns its index. The first tab is
    /// selected at once. Label copied.
    int addTab(const char* label, void* clientData, char sorted);
    /// Adds `n` tabs. `clientData` may be null: none has any.
    void addTabs(const char* const* labels, void** clientData, int n, char sorted);
    /// Removes a tab. In place of the selected one, that before it is selected.
    char removeTab(int index);
    char removeTab(const char* label);   ///< The same for the first tab of that label.
    /// Selects a tab, shows it and announces it, with the event (may be null). Without tabs any index selects none.
    char selectTab(int index, XEvent* event);
    char selectTab(const char* label, XEvent* event);   ///< The same for the first tab of that label.
    /// A tab's label, which stays the area's, and client data; both null for a bad index. The outputs may be null.
    char getTab(int index, char** label, void** clientData);
    /// A tab's pixmap; 0 for none.
    char tabPixmap(int index, Pixmap* out);
    char tabPixmap(const char* label, Pixmap* out);   ///< The same for the first tab of that label.
    /// Gives a tab a pixmap, of the screen's depth or of depth 1, which stays the caller's; 0 takes it away.
    char setTabPixmap(int index, Pixmap pixmap);
    char setTabPixmap(const char* label, Pixmap pixmap);   ///< The same for the first tab of that label.
    char setTabLabel(int index, const char* label);        ///< Replaces a tab's label; copied.
    char setTabClientData(int index, void* clientData);    ///< Replaces a tab's client data, which stays the caller's.

    char horiz() const { return _horizontal; }                    ///< Whether the strip is horizontal.
    int size() const { return static_cast<int>(_tabs.size()); }   ///< The number of tabs.
    /// The index of the selected tab; -1 for none.
    int selectedTab() const { return _selected; }
    Pixel selectedTabBg() const { return _selectedTabBackground; }   ///< The background of the selected tab.
    Pixel tabBg() const { return _tabBackground; }                   ///< The background of the other tabs.
    Pixel labelFg() const { return _labelForeground; }               ///< What labels are drawn in.
    /// What lines and labels are drawn with; shared: not to be changed.
    GC gc() const { return _lineGC.get(); }
    int lineThickness() const { return _lineThickness; }   ///< The resource, pixels.
    /// The height of the label band, pixels.
    int tabHeight() const { return _tabHeight; }

protected:
    void draw() override;
    void resize() override;
    /// Redraws when the program is idle.
    void scheduleUpdate();
    void drawTab(int index, char selected);   ///< Draws one tab, with label and pixmap.
    /// A button was pressed.
    void input(XEvent* event);
    /// The first tab of that label, looked up; -1 for none.
    int findLabel(const char* label);
    /// The tab at a point of the drawing area; -1 for none.
    int findTab(int x, int y);
    /// Whether a tab is at a point of the drawing area.
    char matchTab(int index, int x, int y);
    /// A tab's width along the strip without its slanted sides; with margins, and without (and uniformity).
    int tabWidth(int index);
    int computeWidth(int index);   ///< tabWidth() without margins and uniformity.
    /// Where a tab starts along the strip, pixels.
    int tabOffset(int index);
    /// Chooses the tabs that show.
    void computeTabLayout();
    /// The last tab of a run that starts with this one.
    int computeEndTab(int start);
    void drawLeftEnd();    ///< Draws the stack of edges that stands for tabs hidden before the run.
    void drawRightEnd();   ///< Draws the one for tabs hidden behind the run.
    /// Pops up the menu of all tabs, the nearest hidden one at the right (left) end under the pointer.
    void postMenu(XButtonEvent* event, char right);
    /// Selects the tab of a menu item.
    void menuSelect(Widget item);
    void createTabMenu();    ///< Makes the menu of all tabs, unless it is there.
    void tabsChanged();      ///< Throws menu and layout away; both are made anew when they are needed.
    void invalidateMenu();   ///< Throws the menu away.
    /// Three points that round the corner at x, y, which opens in the directions dx and dy, 1 or -1.
    void curveCorner(int x, int y, int dx, int dy, XPoint* out);
    /// The Xt procedures of inputCallback, the menu's items and the pending redraw, with the object as client data.
    static void input_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    static void menu_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept;   ///< An item of the menu was chosen.
    static Boolean update_stub(XtPointer clientData) noexcept;                            ///< The program is idle: redraws.

private:
    struct Tab {
        lm::CString label;
        void* clientData;
        lm::XmText xmLabel;
        int labelWidth;
        Pixmap pixmap = None;
        unsigned pixmapWidth = 0, pixmapHeight = 0, pixmapDepth = 0;
    };
    void loadResources();
    void takeLooks(int tabHeight);
    void createContexts();
    void growToMinimum();
    Tab newTab(const char* label, void* clientData);
    lm::CString resolved(const char* label);
    bool isTab(int index) const { return index >= 0 && index < size(); }
    Tab& tab(int index) { return _tabs[static_cast<size_t>(index)]; }
    int pixmapExtra(const Tab& tab) const;
    lm::TabLayout& layout();
    void drawBaseLine();
    void drawLabel(int index);
    void drawPixmap(int index, bool selected);
    void drawEnd(lm::TabEnd end);
    void announce(const char* callback, int index, XEvent* event);
    int heightOfItems(int from, int to);

    Widget _tabLabel = nullptr;
    char _horizontal;
    Boolean _uniformTabs = False;   // resource
    std::vector<Tab> _tabs;
    Pixel _selectedTabBackground = 0, _tabBackground = 0, _labelForeground = 0;
    int _marginWidth = 0, _marginHeight = 0, _tabHeight = 0, _textHeight = 0;
    XmFontList _fontList = nullptr;                                                                      // the label's
    int _lineThickness = 1, _sideOffset = 17, _endSpacing = 9, _endMultiplier = 3, _pixmapSpacing = 3;   // resources
    int _curvature = 3, _curveMultiplier = 2;
    lm::SharedGC _lineGC, _tabGC, _selectedGC;
    int _selected = -1;
    lm::WorkProcHandle _updateId;
    bool _selectionOnly = false;                     // while selectTab() redraws
    std::unique_ptr<LmPopupMenu> _menu;              // null until needed
    int _menuOffsetLeft = 0, _menuOffsetRight = 0;   // from the menu's top to its item next to a hidden end
    XFontStruct* _fixedFont = nullptr;

    std::unique_ptr<lm::TabLayout> _layout;   // with the run that shows
    bool _isLaidOut = false;                  // whether it knows the tabs as they are
    int _announcing = 0;
    std::vector<lm::CString> _oldLabels;   // kept until those who were told them are done
};
