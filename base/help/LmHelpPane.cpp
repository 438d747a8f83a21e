#include "LmHelpPane.h"

#include "LmApp.h"
#include "LmContextHelp.h"
#include "LmFormat.h"
#include "LmHelpIndex.h"
#include "LmInfoDialog.h"
#include "LmMenuAction.h"
#include "LmMenuLabel.h"
#include "LmResource.h"
#include "base/help/HelpFile.h"
#include "base/help/HelpMap.h"
#include "base/help/HelpRequest.h"
#include "base/help/PickWidget.h"
#include "gu_help.h"
#include "support/calldata.h"

#include <Xm/RowColumn.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <utility>

LmHelpFunction LmHelpPane::HelpFunc = nullptr;
LmHelpMapfileFunction LmHelpPane::EClassMapfile = nullptr;
LmHelpMapfileFunction LmHelpPane::Mapfile = nullptr;
bool LmHelpPane::useNativeHelp = false;

void LmHelpPane::setHelpFunctions(LmHelpFunction helpFunc, LmHelpMapfileFunction eclassMapfileFunc,
                                  LmHelpMapfileFunction mapfileFunc)
{
    HelpFunc = helpFunc;
    EClassMapfile = eclassMapfileFunc;
    Mapfile = mapfileFunc;
    useNativeHelp = true;
}

static Widget applicationWidget() { return theApplication ? theApplication->baseWidget() : nullptr; }

static const char* applicationClass()
{
    const char* given = theApplication ? theApplication->applicationClass() : nullptr;
    return given ? given : "";
}

void myHelpMsg(const char* key)
{
    if (key)
        lm::requestHelp(key, 0, applicationWidget());
}

// --- the pane and its entries ------------------------------------------------------------------------------------------

LmHelpPane::LmHelpPane(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmSubMenu(name, desc, defaultClientData, nullptr)
{
    create();
}

LmHelpPane::LmHelpPane(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmHelpPane(name, desc, defaultClientData)
{
    LmHelpPane::build(parent);
    completeBuild();
}

void LmHelpPane::create()
{
    if (Widget w = applicationWidget())
        _useOldMenuArrangement =
            lm::asInt(LmGetResource(w, "useOldMenuArrangement", "UseOldMenuArrangement", XtRBoolean, "FALSE")) != 0;
}

static const char* nameOfShell(Widget w)
{
    while (w && !XtIsShell(w))
        w = XtParent(w);
    return w ? XtName(w) : nullptr;
}

void LmHelpPane::build(Widget parent)
{
    if (!std::exchange(_hasEntries, true)) {
        if (const char* shell = nameOfShell(parent))
            _shellName.reset(strdup(shell));
        addEntries();
    }
    LmSubMenu::build(parent);
    XtVaSetValues(parent, XmNmenuHelpWidget, widgetOf(this), nullptr);
}

void LmHelpPane::addEntries()
{
    if (_useOldMenuArrangement)
        addOldArrangement();
    else
        addStandardArrangement();
    forEachSensitivity([this](const char* entry, bool enabled) {
        if (!enabled)
            deactivateItem(entry);
    });
}

void LmHelpPane::addOldArrangement()
{
    addAction("aboutApplication", versionCallback, this);
    addAction("helpOnWindowMenuItem", overviewCallback, this);
    addAction("helpOnContextMenuItemOld", contextCallback, this);
    addAction("helpIndexMenuItemOld", indexCallback, this);
}

void LmHelpPane::addStandardArrangement()
{
    const std::vector<lm::HelpEntry> entries = readTasks();
    addAction("helpOverviewMenuItem", overviewCallback, this);
    addTaskEntries(entries);
    addAction("helpIndexMenuItem", indexCallback, this);
    addSeparator();
    addAction("helpVersionMenuItem", versionCallback, this);
}

std::vector<lm::HelpEntry> LmHelpPane::readTasks()
{
    const char* directory = std::getenv("DEFHELPPATH");
    std::optional<std::string> text;
    for (const std::string& path :
         lm::placesOfHelpMap(directory ? directory : "/usr/share/help/", setlocale(LC_ALL, nullptr), applicationClass())) {
        if (!text)
            text = lm::readHelpFile(path.c_str());
    }
    if (!text)
        return {};
    lm::HelpMap map = lm::parseHelpMap(*text, applicationClass(), _shellName.get());
    _contextEnabled = map.context;
    _overviewEnabled = map.overview;
    _keysEnabled = map.keys;
    _tutorialEnabled = map.tutorial;
    _indexEnabled = map.index;
    auto entries = lm::helpEntries(map.tasks);
    for (lm::HelpTask& task : map.tasks) {
        std::unique_ptr<LmHelpTaskData> data(new LmHelpTaskData{this, static_cast<int>(_tasks.size())});
        _tasks.push_back(
            {task.visible, std::move(task.name), std::move(task.label), task.level, std::move(task.key), std::move(data)});
    }
    return entries;
}

void LmHelpPane::addTaskEntries(const std::vector<lm::HelpEntry>& entries)
{
    if (_tasks.empty())
        return;
    std::vector<LmMenu*> menus = {this};   // down to the one that takes the next entry
    for (const lm::HelpEntry& entry : entries) {
        const LmHelpTaskInfo& task = _tasks[entry.task];
        menus.resize(static_cast<size_t>(entry.depth) + 1);
        LmMenu* menu = menus.back();
        if (entry.isGroup)
            menus.push_back(menu->addSubmenu(task.label.c_str()));
        else
            menu->addAction(task.label.c_str(), taskCallback, task.callbackData.get());
    }
    addSeparator();
}

template <class Apply> void LmHelpPane::forEachSensitivity(Apply apply)
{
    apply("helpOnContextMenuItem", _contextEnabled);
    apply("helpOverviewMenuItem", _overviewEnabled);
    apply("helpKeysMenuItem", _keysEnabled);
    apply("helpTutorialMenuItem", _tutorialEnabled);
    apply("helpIndexMenuItem", _indexEnabled);
}

void LmHelpPane::setItemSensitivities(bool context, bool overview, bool index, bool keys, bool tutorial)
{
    _contextEnabled = context;
    _overviewEnabled = overview;
    _indexEnabled = index;
    _keysEnabled = keys;
    _tutorialEnabled = tutorial;
    forEachSensitivity([this](const char* entry, bool enabled) {
        if (enabled)
            activateItem(entry);
        else
            deactivateItem(entry);
    });
}

// --- the help file -----------------------------------------------------------------------------------------------------

void LmHelpPane::setHelpFilePathname(const char* path)
{
    if (path)
        _helpFilePathname = path;
}

void LmHelpPane::setupDefaultHelpFilePathname()
{
    const char* home = std::getenv("ZENTAHOME");
    const char* program = theApplication ? theApplication->argv(0) : nullptr;
    if (!program)
        program = theApplication ? theApplication->name() : "";
    const char* slash = std::strrchr(program, '/');
    _helpFilePathname = std::string(home ? home : "/usr/zenta") + "/doc/help/" + (slash ? slash + 1 : program);
}

// --- what the entries do -----------------------------------------------------------------------------------------------

/// The pane that an entry belongs to; null when it is gone.
static LmHelpPane* paneOf(XtPointer clientData)
{
    auto* pane = static_cast<LmHelpPane*>(clientData);
    return LmComponent::isComponent(pane) ? pane : nullptr;
}

std::string LmHelpPane::keyFor(const char* what) const { return _shellName ? LmFormat("%s.%s", _shellName.get(), what) : what; }

void LmHelpPane::overviewCallback(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    if (!useNativeHelp) {
        gu_help(nullptr, applicationClass(), 3, 0);
        return;
    }
    const LmHelpPane* pane = paneOf(clientData);
    if (pane && pane->_shellName)
        lm::requestHelp(pane->keyFor("overview"), lm::timeOfCall(callData), applicationWidget());
    else
        myHelpMsg("overview");
}

void LmHelpPane::indexCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    if (!useNativeHelp) {
        gu_help(nullptr, nullptr, 11, 0);
        return;
    }
    const LmHelpPane* pane = paneOf(clientData);
    const bool ofWindow = pane && pane->_useOldMenuArrangement;
    myHelpIndexMsg(ofWindow ? pane->keyFor("index").c_str() : applicationClass());
}

void LmHelpPane::tutorialCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    const LmHelpPane* pane = paneOf(clientData);
    myHelpMsg(pane ? pane->keyFor("tutorial").c_str() : "tutorial");
}

void LmHelpPane::keysCallback(Widget, XtPointer, XtPointer) noexcept {}

void LmHelpPane::versionCallback(Widget, XtPointer, XtPointer) noexcept
{
    if (!theApplication)
        return;
    if (LmComponent::isComponent(theApplication->aboutDialog()))
        theApplication->aboutDialog()->post(nullptr);
    else if (theApplication->versionString())
        getTheInfoDialog()->post(theApplication->versionString());
    else
        getTheInfoDialog()->post(LmFormat("Application Name: %s", theApplication->name()));
}

void LmHelpPane::contextCallback(Widget w, XtPointer clientData, XtPointer) noexcept
{
    const LmHelpPane* pane = paneOf(clientData);
    Widget cascade = pane ? widgetOf(pane) : nullptr;
    lm::helpOnPickedWidget(cascade ? cascade : w);
}

void LmHelpPane::taskCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    const auto* task = static_cast<LmHelpTaskData*>(clientData);
    const LmHelpPane* pane = task ? paneOf(task->pane) : nullptr;
    if (pane && task->index >= 0 && static_cast<size_t>(task->index) < pane->_tasks.size())
        myHelpMsg(pane->_tasks[static_cast<size_t>(task->index)].helpKey.c_str());
}
