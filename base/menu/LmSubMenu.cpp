#include "LmSubMenu.h"

#include "LmApp.h"
#include "LmComponentList.h"
#include "LmContextHelp.h"
#include "LmWidgetTools.h"
#include "base/core/RequireApplication.h"
#include "base/menu/Panes.h"
#include "support/resources.h"
#include "support/xt.h"

#include <Xm/CascadeBG.h>
#include <Xm/RepType.h>
#include <Xm/RowColumn.h>

#include <utility>
#include <vector>

/// How long a pane is filled in idle time before events get their turn, in milliseconds. The last item and the managing of
/// its batch come on top.
static constexpr int slice = 1;

/// Lets resource files name tear-off models.
static void installTearOffConverter()
{
    static bool tearOffCvtInstalled = false;
    if (!std::exchange(tearOffCvtInstalled, true))
        XmRepTypeInstallTearOffModelConverter();
}

LmSubMenu::LmSubMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData, LmSubMenu* sharedMenu)
    : LmMenu(name, desc, defaultClientData),
      _sharedMenu(sharedMenu)
{
    installTearOffConverter();
}

LmSubMenu::LmSubMenu(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData, LmSubMenu* sharedMenu)
    : LmSubMenu(name, desc, defaultClientData, sharedMenu)
{
    LmSubMenu::build(parent);
    completeBuild();
}

LmSubMenu::~LmSubMenu()
{
    dropWidget();
    LmSubMenu::widgetDestroyed();   // the pane, should it have outlived the cascade button
}

void LmSubMenu::widgetDestroyed()
{
    removeWorkProc();
    if (Widget pane = std::exchange(_pulldown, nullptr)) {
        lm::off<&LmSubMenu::paneDestroyed>(pane, XmNdestroyCallback, this);
        lm::destroyPane(pane);
    }
    LmMenu::widgetDestroyed();
}

void LmSubMenu::paneDestroyed()
{
    removeWorkProc();
    _pulldown = nullptr;
    dropItems();
}

LmSubMenu* LmSubMenu::subMenu() { return isComponent(_sharedMenu) ? _sharedMenu : this; }

Widget LmSubMenu::pulldown() { return subMenu()->_pulldown; }

// --- pane and cascade button -------------------------------------------------------------------------------------------

void LmSubMenu::build(Widget parent)
{
    if (!_pulldown && subMenu() == this)
        createPane(parent);
    if (!_baseWidget)
        createCascade(parent);
}

static XtArgVal tearOffModel(int tearOff) { return tearOff ? XmTEAR_OFF_ENABLED : XmTEAR_OFF_DISABLED; }

void LmSubMenu::createPane(Widget parent)
{
    Arg args[] = {{lm::xtText(XmNnumColumns), 1}, {lm::xtText(XmNtearOffModel), tearOffModel(_tearOff)}};
    _pulldown = XmCreatePulldownMenu(parent, lm::xtText(LmComponent::name()), args, _tearOff != -1 ? 2 : 1);
    lm::on<&LmSubMenu::paneDestroyed>(_pulldown, XmNdestroyCallback, this);
    LmAddContextSmartHelpCallback(_pulldown);
}

/// The shared menu may stand nowhere itself: it then gets its pane here, below a cascade button that is not shown.
Widget LmSubMenu::paneToShow(Widget parent)
{
    LmSubMenu* shown = subMenu();
    if (shown != this && !shown->_pulldown) {
        shown->_isHidden = true;
        shown->build(parent);
    }
    return shown->_pulldown;
}

void LmSubMenu::createCascade(Widget parent)
{
    arrangeFilling();
    Arg args[] = {{lm::xtText(XmNsubMenuId), reinterpret_cast<XtArgVal>(paneToShow(parent))},
                  {lm::xtText(XmNuserData), reinterpret_cast<XtArgVal>(static_cast<LmMenuItem*>(this))}};
    _baseWidget = XtCreateWidget(LmComponent::name(), xmCascadeButtonGadgetClass, parent, args, 2);
    lm::on<&LmSubMenu::cascadePressed>(_baseWidget, XmNcascadingCallback, this);
    lm::on<&LmSubMenu::cascadePressed>(_baseWidget, XmNactivateCallback, this);
    if (_label) {
        const lm::XmText label(XmStringCreate(_label.get(), lm::xtText(XmFONTLIST_DEFAULT_TAG)));
        XtVaSetValues(_baseWidget, XmNlabelString, label.get(), nullptr);
    }
    installDestroyHandler();
    applySensitivity();
    if (!_isHidden)
        XtManageChild(_baseWidget);
}

void LmSubMenu::showTearOff(bool show)
{
    _tearOff = show;
    if (_pulldown && !isBeingDestroyed(_pulldown))
        XtVaSetValues(_pulldown, XmNtearOffModel, tearOffModel(_tearOff), nullptr);
}

// --- filling the pane --------------------------------------------------------------------------------------------------

void LmSubMenu::arrangeFilling()
{
    if (!_useWorkProcs) {
        fill(-1);
        return;
    }
    lm::requireApplication("LmSubMenu");
    removeWorkProc();
    _workProcId = lm::WorkProcHandle(XtAppAddWorkProc(theApplication->appContext(), buildCallback, this));
    if (!_workProcList)
        _workProcList = new LmComponentList;
    _workProcList->add(this);
}

void LmSubMenu::leaveWorkProcList()
{
    if (!_workProcList)
        return;
    _workProcList->removeLast(this);
    if (_workProcList->size() == 0)
        delete std::exchange(_workProcList, nullptr);
}

void LmSubMenu::removeWorkProc()
{
    if (!_workProcId)
        return;
    _workProcId = {};
    leaveWorkProcList();
}

void LmSubMenu::completeBuild()
{
    removeWorkProc();
    fill(-1);
}

Boolean LmSubMenu::buildCallback(XtPointer submenu) noexcept { return static_cast<LmSubMenu*>(submenu)->fill(slice); }

/// Fills the pane, for a while or (negative) to the end.
Boolean LmSubMenu::fill(int milliseconds)
{
    manageAll();
    _isBuilt = true;
    const bool filled = !_pulldown || buildItems(_pulldown, milliseconds);
    manageAll();
    if (!filled)
        return False;
    if (_workProcId) {
        _workProcId.fired();
        leaveWorkProcList();
    }
    return True;
}

void LmSubMenu::cascadePressed()
{
    LmSubMenu* shown = subMenu();
    if (shown->_workProcId)
        shown->completeBuild();   // posted before idle time came
    cascading(this);
}

void LmSubMenu::cascading(LmSubMenu* which)
{
    if (subMenu() != this)
        _sharedMenu->cascading(which);
}

// --- radio submenus ----------------------------------------------------------------------------------------------------

LmRadioSubMenu::LmRadioSubMenu(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmSubMenu(name, desc, defaultClientData, nullptr)
{}

LmRadioSubMenu::LmRadioSubMenu(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData)
    : LmSubMenu(parent, name, desc, defaultClientData, nullptr)
{
    setRadioBehavior();
}

void LmRadioSubMenu::build(Widget parent)
{
    LmSubMenu::build(parent);
    setRadioBehavior();
}

void LmRadioSubMenu::setRadioBehavior()
{
    if (_pulldown)
        XtVaSetValues(_pulldown, XmNradioBehavior, True, nullptr);
}
