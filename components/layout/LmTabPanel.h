// LmTabPanel: a strip of tabs between two areas for the application's own.
#pragma once

#include "LmTabArea.h"

/// A strip of tabs, LmTabArea, whose base line goes on over an area at each end. The panel holds no pages: the application
/// switches its own when a tab is selected, with an LmDeck for example.
///
///   Widgets    XmForm of the component's name (base widget); in it the forms "outer1" with "area1" and "marg1" before the
///              strip, "outer2" with "area2" and "marg2" behind it, and "tabArea". Put your own into area1() and area2()
///   Resources  of the form: "margin" "Margin" int 5: from the strip's far edge to the form's, pixels; "margin1" "Margin1"
///              int 5, "margin2" "Margin2" int 5: between the areas and the strip
///   Callbacks  tabSelectCallback and tabPopupCallback, those of the strip
///   Errors     as LmTabArea
class LM_API LmTabPanel : public LmComponent {
public:
    static const char* const tabSelectCallback;   ///< "tabSelectCallback"
    static const char* const tabPopupCallback;    ///< "tabPopupCallback"

    /// `horizontal`: the strip lies below the pages, else left of them. `tabHeight`: as LmTabArea.
    LmTabPanel(const char* name, Widget parent, char horizontal, int tabHeight);
    ~LmTabPanel() override;

    const char* className() override { return "LmTabPanel"; }

    // --- as LmTabArea ---
    /// As LmTabArea::addTab().
    int addTab(const char* label, void* clientData, char sorted) { return _tabArea->addTab(label, clientData, sorted); }
    /// As LmTabArea::addTabs().
    void addTabs(const char* const* labels, void** clientData, int n, char sorted)
    {
        _tabArea->addTabs(labels, clientData, n, sorted);
    }
    char removeTab(int index) { return _tabArea->removeTab(index); }                         ///< As LmTabArea::removeTab().
    char removeTab(const char* label) { return _tabArea->removeTab(label); }                 ///< As LmTabArea::removeTab().
    char selectTab(int index, XEvent* event) { return _tabArea->selectTab(index, event); }   ///< As LmTabArea::selectTab().
    /// As LmTabArea::selectTab().
    char selectTab(const char* label, XEvent* event) { return _tabArea->selectTab(label, event); }
    /// As LmTabArea::getTab().
    char getTab(int index, char** label, void** clientData) { return _tabArea->getTab(index, label, clientData); }
    char tabPixmap(int index, Pixmap* out) { return _tabArea->tabPixmap(index, out); }   ///< As LmTabArea::tabPixmap().
    /// As LmTabArea::tabPixmap().
    char tabPixmap(const char* label, Pixmap* out) { return _tabArea->tabPixmap(label, out); }
    /// As LmTabArea::setTabPixmap().
    char setTabPixmap(int index, Pixmap pixmap) { return _tabArea->setTabPixmap(index, pixmap); }
    /// As LmTabArea::setTabPixmap().
    char setTabPixmap(const char* label, Pixmap pixmap) { return _tabArea->setTabPixmap(label, pixmap); }
    /// As LmTabArea::setTabLabel().
    char setTabLabel(int index, const char* label) { return _tabArea->setTabLabel(index, label); }
    /// As LmTabArea::setTabClientData().
    char setTabClientData(int index, void* clientData) { return _tabArea->setTabClientData(index, clientData); }

    char horiz() const { return _tabArea->horiz(); }   ///< Whether the strip is horizontal.
    int size() const { return _tabArea->size(); }      ///< The number of tabs.
    /// The panel's own background.
    Pixel tabBg() const { return _background; }
    Pixel selectedTabBg() const { return _tabArea->selectedTabBg(); }   ///< The background of the selected tab.
    Pixel labelFg() const { return _tabArea->labelFg(); }               ///< What labels are drawn in.
    /// The background of tabs that are not selected.
    Pixel labelBg() const { return _tabArea->tabBg(); }
    GC gc() const { return _tabArea->gc(); }                          ///< As LmTabArea::gc(): shared, not to be changed.
    int lineThickness() const { return _tabArea->lineThickness(); }   ///< The strip's resource, pixels.
    int tabHeight() const { return _tabArea->tabHeight(); }           ///< The height of the label band, pixels.
    int selectedTab() const { return _tabArea->selectedTab(); }       ///< The index of the selected tab; -1 for none.

    /// The forms at the left (upper) and the right (lower) end.
    Widget area1() const { return _area1; }
    Widget area2() const { return _area2; }   ///< The form at the right (lower) end.

protected:
    /// Announces tabSelectCallback with what the strip announced.
    void tabSelect(LmCallbackObject* area, void* clientData, void* callData);
    /// Announces tabPopupCallback with what the strip announced.
    void tabPopup(LmCallbackObject* area, void* clientData, void* callData);

    /// The forms around the strip.
    Widget _area1 = nullptr, _area2 = nullptr, _outer1 = nullptr, _outer2 = nullptr, _marg1 = nullptr, _marg2 = nullptr;
    std::unique_ptr<LmTabArea> _tabArea;   ///< the strip
    /// The resources.
    int _margin = 5, _margin1 = 5, _margin2 = 5;
    Pixel _background = 0;   ///< of the form

private:
    void makeParts();
    void attachStrip();
};

/// Makes a horizontal tab panel and shows it. Makes sure that there is an application object.
extern "C" LM_API LmTabPanel* LmCreateTabPanel(const char* name, Widget parent);
