#include "GalleryWindow.h"

#include "ChartPage.h"
#include "ConsolePage.h"
#include "ControlPage.h"
#include "DialogPage.h"
#include "FileSetPage.h"
#include "GraphPage.h"
#include "GridPage.h"
#include "MenuPage.h"
#include "ModifiedPage.h"
#include "OutlinePage.h"
#include "PreferencePage.h"
#include "ResizerPage.h"
#include "ScrollPage.h"
#include "SearchPage.h"
#include "TabPage.h"

#include <Lm/LmApp.h>
#include <Lm/LmContextHelp.h>
#include <Lm/LmHelpPane.h>
#include <Lm/LmMenuBar.h>
#include <Lm/LmMenuToggle.h>
#include <Lm/LmMenuUndoManager.h>
#include <Lm/LmSubMenu.h>
#include <Lm/support/handles.h>
#include <Lm/support/resources.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/ToggleBG.h>

static constexpr int margin = 10;

/// Puts "Click for Help" before the entries that the help pane will add.
static void addContextHelp(LmMenuBar& bar)
{
    bar.addHelpPane();
    LmHelpPane* pane = bar.helpPane();
    pane->addAction("helpOnContextMenuItem", LmHelpPane::contextCallback, pane);
}

GalleryWindow::GalleryWindow() : LmWindow("gallery")
{
    // clang-format off
    LmMenuDesc fileTable[] = {
        {MENU_ACTION, "newWindow", newWindow},
        {MENU_SEPARATOR},
        {MENU_ACTION, "quitGallery", quit},
        {MENU_END}};
    LmMenuDesc editTable[] = {
        {MENU_SEPARATOR},
        {MENU_TOGGLE, "frameSheet", toggleFrame},
        {MENU_TOGGLE, "listPages", togglePageList},
        {MENU_END}};
    LmMenuDesc barTable[] = {
        {MENU_SUBMENU, "fileMenu", nullptr, fileTable},
        {MENU_SUBMENU, "editMenu", nullptr, editTable},
        {MENU_RADIO_SUBMENU, "viewMenu"},
        {MENU_END}};
    // clang-format on
    setMenuBar(barTable);
    static_cast<LmSubMenu*>(menu()->findNamedItem("editMenu", false, false))->add(getTheUndoManager(), 0);
    addContextHelp(*menu());
    for (const char* toggle : {"frameSheet", "listPages"})
        static_cast<LmMenuToggle*>(menu()->findNamedItem(toggle, false, true))->setVisualState(true);
}

Widget GalleryWindow::setUpInterface(Widget parent)
{
    XtAddCallback(parent, XmNhelpCallback, _LmSmartHelpCallback, nullptr);   // F1, and what is picked for help
    Widget form = XtVaCreateWidget("form", xmFormWidgetClass, parent, XmNmarginWidth, margin, XmNmarginHeight, margin, nullptr);
    Arg place[] = {{lm::xtText(XmNtopAttachment), XmATTACH_FORM},
                   {lm::xtText(XmNbottomAttachment), XmATTACH_FORM},
                   {lm::xtText(XmNleftAttachment), XmATTACH_FORM}};
    _list = XmCreateScrolledList(form, lm::xtText("pages"), nullptr, 0);
    XtSetValues(XtParent(_list), place, 3);
    _deck = XtVaCreateManagedWidget("deck", xmFormWidgetClass, form, XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment,
                                    XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_WIDGET,
                                    XmNleftWidget, XtParent(_list), XmNleftOffset, margin, nullptr);
    addPages();
    addPageMenu();
    lm::on<&GalleryWindow::chosen>(_list, XmNbrowseSelectionCallback, this);
    XtManageChild(_list);
    choose(0);
    return form;
}

Boolean GalleryWindow::okToQuit() { return !_applicationPage || (_applicationPage->mayClose() && _preferencePage->mayClose()); }

void GalleryWindow::addPages()
{
    _pages.push_back(std::make_unique<ApplicationPage>(_deck, this));
    _applicationPage = static_cast<ApplicationPage*>(_pages.back().get());
    _pages.push_back(std::make_unique<MenuPage>(_deck));
    _menuPage = static_cast<MenuPage*>(_pages.back().get());
    _pages.push_back(std::make_unique<DialogPage>(_deck, this));
    _pages.push_back(std::make_unique<PreferencePage>(_deck, this));
    _preferencePage = static_cast<PreferencePage*>(_pages.back().get());
    _pages.push_back(std::make_unique<SearchPage>(_deck));
    _pages.push_back(std::make_unique<FileSetPage>(_deck));
    _pages.push_back(std::make_unique<ChartPage>(_deck));
    _pages.push_back(std::make_unique<ConsolePage>(_deck));
    _pages.push_back(std::make_unique<TabPage>(_deck));
    _pages.push_back(std::make_unique<OutlinePage>(_deck));
    _pages.push_back(std::make_unique<GraphPage>(_deck));
    _pages.push_back(std::make_unique<GridPage>(_deck));
    _pages.push_back(std::make_unique<ResizerPage>(_deck));
    _pages.push_back(std::make_unique<ScrollPage>(_deck));
    _pages.push_back(std::make_unique<ControlPage>(_deck));
    _pages.push_back(std::make_unique<ModifiedPage>(_deck));
    for (const auto& page : _pages) {
        const lm::XmText title(XmStringCreateLocalized(lm::xtText(page->title())));
        XmListAddItemUnselected(_list, title.get(), 0);
        XtVaSetValues(page->baseWidget(), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment,
                      XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    }
}

void GalleryWindow::choose(int index)
{
    if (index < 0 || index >= pageCount())
        return;
    for (int i = 0; i < pageCount(); ++i) {
        if (i != index)
            _pages[static_cast<size_t>(i)]->hide();
    }
    _pages[static_cast<size_t>(index)]->show();
    XmListSelectPos(_list, index + 1, False);
    showInMenu(index);
}

// --- the menu bar ------------------------------------------------------------------------------------------------------

static LmMenu* pageMenu(GalleryWindow* window)
{
    return static_cast<LmMenu*>(window->menu()->findNamedItem("viewMenu", false, false));
}

void GalleryWindow::addPageMenu()
{
    for (const auto& page : _pages)
        pageMenu(this)->addToggle(page->name(), choosePage, this, 0)->setLabel(page->title());
}

void GalleryWindow::showInMenu(int index)
{
    LmMenu& pages = *pageMenu(this);
    for (int i = 0; i < pages.numItems(); ++i)
        static_cast<LmMenuToggle*>(pages[i])->setVisualState(i == index);
}

void GalleryWindow::newWindow(Widget, XtPointer window, XtPointer) noexcept
{
    static_cast<GalleryWindow*>(window)->_applicationPage->openAnother();
}

void GalleryWindow::quit(Widget, XtPointer, XtPointer) noexcept { theApplication->quitYourself(); }

void GalleryWindow::toggleFrame(Widget item, XtPointer window, XtPointer) noexcept
{
    static_cast<GalleryWindow*>(window)->_menuPage->setFramed(XmToggleButtonGadgetGetState(item));
}

void GalleryWindow::togglePageList(Widget item, XtPointer window, XtPointer) noexcept
{
    auto* self = static_cast<GalleryWindow*>(window);
    const bool shown = XmToggleButtonGadgetGetState(item);
    Widget list = XtParent(self->_list);
    if (shown)
        XtManageChild(list);
    XtVaSetValues(self->_deck, XmNleftAttachment, shown ? XmATTACH_WIDGET : XmATTACH_FORM, XmNleftWidget, shown ? list : nullptr,
                  nullptr);
    if (!shown)
        XtUnmanageChild(list);
}

void GalleryWindow::choosePage(Widget item, XtPointer window, XtPointer) noexcept
{
    auto* self = static_cast<GalleryWindow*>(window);
    if (XmToggleButtonGadgetGetState(item))
        self->choose(pageMenu(self)->getItemPosition(item));
}
