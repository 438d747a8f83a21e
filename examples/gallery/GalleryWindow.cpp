#include "GalleryWindow.h"

#include "ChartPage.h"
#include "ConsolePage.h"
#include "ControlPage.h"
#include "DialogPage.h"
#include "FileSetPage.h"
#include "Geometry.h"
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
#include <Lm/LmOlNode.h>
#include <Lm/LmResource.h>
#include <Lm/LmSubMenu.h>
#include <Lm/support/handles.h>
#include <Lm/support/resources.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/ToggleBG.h>

static constexpr int margin = 10, indentation = 14;

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

GalleryWindow::~GalleryWindow()
{
    if (_baseWidget)
        rememberGeometry(*this);
}

Widget GalleryWindow::setUpInterface(Widget parent)
{
    XtAddCallback(parent, XmNhelpCallback, _LmSmartHelpCallback, nullptr);   // F1, and what is picked for help
    Widget form = XtVaCreateWidget("form", xmFormWidgetClass, parent, XmNmarginWidth, margin, XmNmarginHeight, margin, nullptr);
    _outline = std::make_unique<LmOutline>("pages", form, XmCONSTANT);
    _outline->setIndentationWidth(indentation);
    XtVaSetValues(_outline->baseWidget(), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment,
                  XmATTACH_FORM, nullptr);
    _deck = std::make_unique<LmDeck>("deck", form);
    XtVaSetValues(_deck->baseWidget(), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM, XmNrightAttachment,
                  XmATTACH_FORM, XmNleftAttachment, XmATTACH_WIDGET, XmNleftWidget, _outline->baseWidget(), XmNleftOffset, margin,
                  nullptr);
    addPages();
    addPageMenu();
    _outline->displayAll();
    lm::on<&GalleryWindow::chosen>(_outline->listWidget(), XmNbrowseSelectionCallback, this);
    _deck->show();
    choose(0);
    return form;
}

Boolean GalleryWindow::okToQuit() { return !_applicationPage || (_applicationPage->mayClose() && _preferencePage->mayClose()); }

/// Pages of these types, in this order.
template <class... Pages, class... Arguments> static std::vector<std::unique_ptr<Page>> make(Arguments... arguments)
{
    std::vector<std::unique_ptr<Page>> pages;
    (pages.push_back(std::make_unique<Pages>(arguments...)), ...);
    return pages;
}

void GalleryWindow::addPages()
{
    Widget deck = _deck->baseWidget();
    auto application = make<ApplicationPage>(deck, this);
    _applicationPage = static_cast<ApplicationPage*>(application.front().get());
    application.push_back(std::make_unique<MenuPage>(deck));
    _menuPage = static_cast<MenuPage*>(application.back().get());
    application.push_back(std::make_unique<DialogPage>(deck, this));
    application.push_back(std::make_unique<PreferencePage>(deck, this));
    _preferencePage = static_cast<PreferencePage*>(application.back().get());

    addGroup("applicationGroup", std::move(application));
    addGroup("displayGroup", make<OutlinePage, GraphPage, ChartPage>(deck));
    addGroup("textGroup", make<SearchPage, FileSetPage, ConsolePage>(deck));
    addGroup("layoutGroup", make<TabPage, GridPage, ResizerPage, ScrollPage>(deck));
    addGroup("controlGroup", make<ControlPage, ModifiedPage>(deck));
}

/// The group's title is a resource of its name.
void GalleryWindow::addGroup(const char* name, std::vector<std::unique_ptr<Page>> pages)
{
    char* group = lm::xtText(name);
    char* title = static_cast<char*>(LmGetResource(_deck->baseWidget(), name, "Group", XtRString, name));
    for (auto& page : pages) {
        char* labels[] = {title, lm::xtText(page->title()), nullptr};
        char* keys[] = {group, lm::xtText(page->name()), nullptr};
        _nodes.push_back(_outline->createPath(labels, keys));
        _deck->addView(page.get());
        page->show();
        _pages.push_back(std::move(page));
    }
}

void GalleryWindow::chosen(XmListCallbackStruct* choice)
{
    for (int i = 0; i < pageCount(); ++i)
        if (_nodes[static_cast<size_t>(i)]->whereDisplayed() == choice->item_position)
            choose(i);
}

void GalleryWindow::choose(int index)
{
    if (index < 0 || index >= pageCount())
        return;
    for (int i = 0; i < pageCount(); ++i)   // the keyboard stays on the page that is seen
        XtVaSetValues(_pages[static_cast<size_t>(i)]->baseWidget(), XmNtraversalOn, i == index, nullptr);
    _deck->pop(_pages[static_cast<size_t>(index)].get());
    _outline->select(_nodes[static_cast<size_t>(index)]->whereDisplayed());
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
    Widget list = self->_outline->baseWidget();
    if (shown)
        XtManageChild(list);
    XtVaSetValues(self->_deck->baseWidget(), XmNleftAttachment, shown ? XmATTACH_WIDGET : XmATTACH_FORM, XmNleftWidget,
                  shown ? list : nullptr, nullptr);
    if (!shown)
        XtUnmanageChild(list);
}

void GalleryWindow::choosePage(Widget item, XtPointer window, XtPointer) noexcept
{
    auto* self = static_cast<GalleryWindow*>(window);
    if (XmToggleButtonGadgetGetState(item))
        self->choose(pageMenu(self)->getItemPosition(item));
}
