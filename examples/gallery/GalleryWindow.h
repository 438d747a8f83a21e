// GalleryWindow.h: the gallery's window: an outline of the pages on the left, a deck with the chosen page on the right.
#pragma once

#include "ApplicationPage.h"
#include "Page.h"

#include <Lm/LmDeck.h>
#include <Lm/LmOutline.h>
#include <Lm/LmWindow.h>

#include <Xm/List.h>

#include <memory>
#include <vector>

class LmOlNode;
class MenuPage;
class PreferencePage;

class GalleryWindow : public LmWindow {
public:
    GalleryWindow();
    ~GalleryWindow() override;

    const char* className() override { return "GalleryWindow"; }
    Widget setUpInterface(Widget parent) override;
    Boolean okToQuit() override;

    int pageCount() const { return static_cast<int>(_pages.size()); }
    const Page& page(int index) const { return *_pages[static_cast<size_t>(index)]; }
    /// Shows one page, 0..pageCount()-1.
    void choose(int index);

private:
    void chosen(XmListCallbackStruct* choice);
    void addPages();
    void addGroup(const char* name, std::vector<std::unique_ptr<Page>> pages);
    void addPageMenu();
    void showInMenu(int index);

    // what the menu bar's entries do, with the window as client data
    static void newWindow(Widget, XtPointer window, XtPointer) noexcept;
    static void quit(Widget, XtPointer window, XtPointer) noexcept;
    static void toggleFrame(Widget item, XtPointer window, XtPointer) noexcept;
    static void togglePageList(Widget item, XtPointer window, XtPointer) noexcept;
    static void choosePage(Widget item, XtPointer window, XtPointer) noexcept;

    std::unique_ptr<LmOutline> _outline;
    std::unique_ptr<LmDeck> _deck;
    std::vector<std::unique_ptr<Page>> _pages;
    std::vector<LmOlNode*> _nodes;                 // of the pages, in the outline
    ApplicationPage* _applicationPage = nullptr;   // one of them
    MenuPage* _menuPage = nullptr;                 // another
    PreferencePage* _preferencePage = nullptr;     // and a third
};
