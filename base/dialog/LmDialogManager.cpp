#include "LmDialogManager.h"

#include "LmApp.h"
#include "LmContextHelp.h"
#include "LmSimpleWindow.h"
#include "LmWidgetTools.h"
#include "base/core/EventLoop.h"
#include "base/core/RequireApplication.h"
#include "base/core/WindowProperties.h"
#include "base/dialog/DialogButtons.h"
#include "geometry/Placement.h"
#include "support/WidgetWatch.h"
#include "support/resources.h"
#include "support/xt.h"
#include "utils/CompoundResource.h"

#include <X11/Shell.h>
#include <Xm/MessageB.h>
#include <Xm/Protocols.h>
#include <Xm/PushBG.h>
#include <Xm/SelectioB.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <utility>

const char* LmDialogManager::prepostCallback = "prepostCallback";

// --- cache entries -----------------------------------------------------------------------------------------------------

LmDialog::LmDialog(Widget dialog, Widget parent) { fill(dialog, parent); }

LmDialog::~LmDialog()
{
    if (Widget dialog = _dialog) {
        clear();
        XtDestroyWidget(dialog);
    }
}

void LmDialog::fill(Widget dialog, Widget parent)
{
    _dialog = dialog;
    _parent = parent;
    if (_dialog)
        lm::on<&LmDialog::destroyHandler>(_dialog, XmNdestroyCallback, this);
}

void LmDialog::clear()
{
    if (_dialog)
        lm::off<&LmDialog::destroyHandler>(_dialog, XmNdestroyCallback, this);
    destroyHandler();
}

void LmDialog::destroyHandler() { _dialog = _parent = _applyButton = nullptr; }

// --- the manager -------------------------------------------------------------------------------------------------------

static bool isUsable(Widget w) { return w && !isBeingDestroyed(w); }

static bool isUp(Widget dialog) { return isUsable(dialog) && XtIsManaged(dialog); }

LmDialogManager::LmDialogManager(const char* name) : LmComponent(name) { lm::requireApplication("LmDialogManager"); }

LmDialogManager::~LmDialogManager()
{
    while (LmDialog* entry = _cache) {
        _cache = entry->_next;
        delete entry;
    }
}

void LmDialogManager::show() { post(nullptr); }

void LmDialogManager::hide() { unpost(); }

void LmDialogManager::help(const char*) {}

void LmDialogManager::setTitle(const char* title) { _title = title ? title : ""; }

void LmDialogManager::setButtonLabels(const char* ok, const char* cancel, const char* apply)
{
    _okLabel = ok ? ok : "";
    _cancelLabel = cancel ? cancel : "";
    _applyLabel = apply ? apply : "";
}

// --- finding a dialog --------------------------------------------------------------------------------------------------

Widget LmDialogManager::findValidParent(LmSimpleWindow* window) const
{
    const auto isOpen = [](LmSimpleWindow* w) {
        return LmComponent::isComponent(w) && w->baseWidget() && w->iconState() != LmSimpleWindow::CLOSED;
    };
    if (isOpen(window))
        return window->baseWidget();
    LmSimpleWindow* main = theApplication->mainWindow();
    if (!_skipMainWindow && isOpen(main) && main->visibleState() == 1)
        return main->baseWidget();
    return theApplication->baseWidget();
}

LmDialog* LmDialogManager::getCacheInfo(Widget dialog) const
{
    LmDialog* entry = dialog ? _cache : nullptr;
    while (entry && entry->_dialog != dialog)
        entry = entry->_next;
    return entry;
}

void LmDialogManager::clearCache(Widget dialog)
{
    if (LmDialog* entry = getCacheInfo(dialog))
        entry->clear();
}

LmDialog* LmDialogManager::entryOf(Widget parent) const
{
    LmDialog* entry = _cache;
    while (entry && entry->_parent != parent)
        entry = entry->_next;
    return entry;
}

/// Enters a dialog into the cache: in the place of one that was destroyed, so that windows that come and go leave
/// nothing behind, else at the end.
void LmDialogManager::remember(Widget dialog, Widget parent)
{
    LmDialog** place = &_cache;
    while (*place && (*place)->_dialog)
        place = &(*place)->_next;
    if (*place)
        (*place)->fill(dialog, parent);
    else
        *place = new LmDialog(dialog, parent);
}

Widget LmDialogManager::newDialog(Widget parent)
{
    Widget dialog = createDialog(parent);
    if (!dialog)
        return nullptr;
    if (!_baseWidget) {
        _baseWidget = dialog;
        installDestroyHandler();
    }
    LmAddContextSmartHelpCallback(dialog);
    setUpWindowManagerProperties(dialog);
    return dialog;
}

Widget LmDialogManager::findDialog(Widget parent)
{
    if (!_allowMultipleDialogs && isUsable(_baseWidget))
        return _baseWidget;
    if (_reusePostedDialog) {
        for (LmDialog* entry = _cache; entry; entry = entry->_next) {
            if (isUp(entry->_dialog))
                return entry->_dialog;
        }
    }
    return idleOrNewDialog(parent);
}

Widget LmDialogManager::idleOrNewDialog(Widget parent)
{
    LmDialog* entry = entryOf(parent);
    if (entry && isUsable(entry->_dialog) && !XtIsManaged(entry->_dialog))
        return entry->_dialog;
    Widget dialog = newDialog(parent);
    const bool isExtra = entry && entry->_dialog;   // the parent's own one is up: this one is destroyed when it goes down
    if (dialog && !isExtra)
        remember(dialog, parent);
    return dialog;
}

void LmDialogManager::setUpWindowManagerProperties(Widget dialog)
{
    Widget shell = XtParent(dialog);
    if (!shell || !XtIsShell(shell))
        return;
    const lm::WindowAtoms& atoms = lm::windowAtoms(XtDisplay(shell));
    XmAddProtocolCallback(shell, atoms.wmProtocols, atoms.wmDeleteWindow, handleWMDeleteCallback, dialog);
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, nullptr);
}

// --- filling a dialog --------------------------------------------------------------------------------------------------

/// A text with blanks or many periods is meant to be read; anything else may be the name of a resource.
static bool isLiteral(std::string_view message)
{
    return message.empty() || message.find(' ') != std::string_view::npos || std::ranges::count(message, '.') >= 25;
}

static void fillMessage(Widget dialog, const char* message)
{
    const lm::XmText text = isLiteral(message)
                                ? lm::XmText(XmStringCreateLtoR(lm::xtText(message), lm::xtText(XmFONTLIST_DEFAULT_TAG)))
                                : lm::compoundResource(dialog, message, message, message);
    lm::setText(dialog, XmIsSelectionBox(dialog) ? XmNselectionLabelString : XmNmessageString, text.get());
}

Widget LmDialogManager::prepost(const char* message, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB,
                                XtPointer clientData, const char* helpString, LmSimpleWindow* parentWindow)
{
    theApplication->busy();
    Widget given = std::exchange(_parentWidget, nullptr);
    Widget parent = given ? given : findValidParent(parentWindow);
    Widget dialog = findDialog(parent);
    if (!dialog) {
        theApplication->notBusy();
        return nullptr;
    }
    if (parent == theApplication->baseWidget())
        LmRepositionDialog(dialog, parent, true);
    if (!_postedDialogs.exists(dialog))
        _postedDialogs.add(dialog);
    fillTitle(dialog);
    if (message)
        fillMessage(dialog, message);
    XtVaSetValues(dialog, XmNuserData, helpString ? helpString : "help", nullptr);
    fillButtons(dialog, okCB, cancelCB, applyCB, clientData, helpString);
    setButtonLabels(nullptr, nullptr, nullptr);
    return dialog;
}

Widget LmDialogManager::prepost(const char* message, const char* helpString, LmSimpleWindow* parentWindow)
{
    return prepost(message, nullptr, nullptr, nullptr, nullptr, helpString, parentWindow);
}

void LmDialogManager::fillTitle(Widget dialog)
{
    const std::string once = std::exchange(_title, {});
    const lm::XmText title = once.empty() ? lm::compoundResource(dialog, "dialogTitle", XmCDialogTitle, theApplication->name())
                                          : lm::compoundResource(dialog, once.c_str(), XmCDialogTitle, once.c_str());
    if (title)
        lm::setText(dialog, XmNdialogTitle, title.get());
}

/// A button's label: the one of this posting, else the dialog's own.
static lm::XmText buttonLabel(Widget dialog, const std::string& once, const char* resource, const char* fallback)
{
    if (!once.empty())
        return lm::labelResource(dialog, once.c_str());
    return lm::compoundResource(dialog, resource, XmCLabelString, fallback);
}

static void addIfGiven(Widget w, const char* list, XtCallbackProc callback, XtPointer clientData)
{
    if (w && callback)
        XtAddCallback(w, list, callback, clientData);
}

/// The Apply button of the dialog. A message box has none of its own: one is added when it is wanted.
Widget LmDialogManager::applyButtonOf(Widget dialog, bool wanted)
{
    const lm::StockDialog stock(dialog);
    if (stock.isSelectionBox())
        return stock.child(XmDIALOG_APPLY_BUTTON);
    LmDialog* entry = getCacheInfo(dialog);
    Widget button = entry ? entry->_applyButton : XtNameToWidget(dialog, "Apply");
    if (!button && wanted) {
        button = XtVaCreateWidget("Apply", xmPushButtonGadgetClass, dialog, nullptr);
        if (entry)
            entry->_applyButton = button;
    }
    return button;
}

void LmDialogManager::fillButtons(Widget dialog, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB,
                                  XtPointer clientData, const char* helpString)
{
    const lm::StockDialog stock(dialog);
    if (stock.isCustom())
        return;
    const bool showOK = _showOK || okCB, showCancel = _showCancel || cancelCB, showApply = _showApply || applyCB;
    for (const char* list : {XmNhelpCallback, XmNokCallback, XmNcancelCallback})
        XtRemoveAllCallbacks(dialog, list);

    if (helpString)
        XtAddCallback(dialog, XmNhelpCallback, helpXtCallback, this);
    else
        LmAddContextSmartHelpCallback(dialog);
    stock.showChild(XmDIALOG_HELP_BUTTON, helpString != nullptr);

    XtAddCallback(dialog, XmNokCallback, okXtCallback, this);
    addIfGiven(dialog, XmNokCallback, okCB, clientData);
    if (showOK)
        lm::setText(dialog, XmNokLabelString, buttonLabel(dialog, _okLabel, "okLabelString", "OK").get());
    stock.showChild(XmDIALOG_OK_BUTTON, showOK);

    XtAddCallback(dialog, XmNcancelCallback, cancelXtCallback, this);
    addIfGiven(dialog, XmNcancelCallback, cancelCB, clientData);
    if (showCancel)
        XtVaSetValues(dialog, XmNcancelLabelString, buttonLabel(dialog, _cancelLabel, "cancelLabelString", "Cancel").get(),
                      nullptr);
    stock.showChild(XmDIALOG_CANCEL_BUTTON, showCancel);

    Widget applyButton = applyButtonOf(dialog, showApply);
    Widget caller = stock.isSelectionBox() ? dialog : applyButton;   // whose callback list announces Apply
    const char* list = stock.isSelectionBox() ? XmNapplyCallback : XmNactivateCallback;
    if (showApply) {
        const bool filters = stock.isFileSelectionBox();
        const lm::XmText label =
            buttonLabel(dialog, _applyLabel, filters ? "filterLabelString" : "applyLabelString", filters ? "Filter" : "Apply");
        lm::setText(caller, stock.isSelectionBox() ? XmNapplyLabelString : XmNlabelString, label.get());
    }
    lm::setManaged(applyButton, showApply);
    if (caller) {
        XtRemoveAllCallbacks(caller, list);
        XtAddCallback(caller, list, applyXtCallback, this);
        addIfGiven(caller, list, applyCB, clientData);
    }
    stock.showChild(XmDIALOG_SEPARATOR, showOK || showCancel || showApply);
}

// --- posting -----------------------------------------------------------------------------------------------------------

/// One posting that runs events until it is answered. Several may be under way, also of one manager: an answer belongs to
/// the dialog it was given in.
struct LmDialogManager::Wait {
    explicit Wait(Widget d) : dialog(d), watch(d) {}
    Widget dialog;
    lm::WidgetWatch watch;
    LmDialogReason answer = REASON_NONE;
};

/// Motif refuses another style while the dialog is up.
static void setStyle(Widget dialog, unsigned char style)
{
    if (!XtIsManaged(dialog))
        XtVaSetValues(dialog, XmNdialogStyle, style, nullptr);
}

/// Shows a dialog that prepost() filled; null when there is none, or when it was destroyed meanwhile.
Widget LmDialogManager::present(Widget dialog, unsigned char style, LmSimpleWindow* parentWindow, Widget parentWidget)
{
    if (!dialog)
        return nullptr;
    setStyle(dialog, style);
    const lm::WidgetWatch watch(dialog);
    waitForDialog(dialog, parentWindow, parentWidget);
    return watch ? dialog : nullptr;
}

/// Shows a dialog modally and runs events until it is answered.
void LmDialogManager::presentAndWait(Wait& wait, LmSimpleWindow* parentWindow, Widget parentWidget)
{
    const lm::Watch here(liveness());
    setStyle(wait.dialog, XmDIALOG_FULL_APPLICATION_MODAL);
    _waits.push_back(&wait);
    waitForDialog(wait.dialog, parentWindow, parentWidget);
    if (here)
        untilAnswered(wait);
}

Widget LmDialogManager::post(const char* message, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB,
                             XtPointer clientData, const char* helpString, LmSimpleWindow* parentWindow, Widget parentWidget)
{
    _parentWidget = parentWidget;
    Widget dialog = prepost(message, okCB, cancelCB, applyCB, clientData, helpString, parentWindow);
    return present(dialog, XmDIALOG_MODELESS, parentWindow, parentWidget);
}

Widget LmDialogManager::postModal(const char* message, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB,
                                  XtPointer clientData, const char* helpString, LmSimpleWindow* parentWindow, Widget parentWidget)
{
    _parentWidget = parentWidget;
    Widget dialog = prepost(message, okCB, cancelCB, applyCB, clientData, helpString, parentWindow);
    return present(dialog, XmDIALOG_FULL_APPLICATION_MODAL, parentWindow, parentWidget);
}

Widget LmDialogManager::postBlocked(const char* message, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB,
                                    XtPointer clientData, const char* helpString, LmSimpleWindow* parentWindow,
                                    Widget parentWidget)
{
    _parentWidget = parentWidget;
    Widget dialog = prepost(message, okCB, cancelCB, applyCB, clientData, helpString, parentWindow);
    if (!dialog)
        return nullptr;
    Wait wait(dialog);
    presentAndWait(wait, parentWindow, parentWidget);
    return wait.watch ? dialog : nullptr;
}

LmDialogManager::LmDialogReason LmDialogManager::waitForAnswer(const char* message, const char* helpString,
                                                               LmSimpleWindow* parentWindow, Widget parentWidget)
{
    _parentWidget = parentWidget;
    Widget dialog = prepost(message, helpString, parentWindow);
    if (!dialog)
        return REASON_NONE;
    Wait wait(dialog);
    presentAndWait(wait, parentWindow, parentWidget);
    return wait.answer;
}

LmDialogManager::LmDialogReason LmDialogManager::postAndWait(const char* message, int showOK, int showCancel, int showApply,
                                                             const char* helpString, LmSimpleWindow* parentWindow,
                                                             Widget parentWidget)
{
    const bool saved[] = {_showOK, _showCancel, _showApply};
    _showOK = showOK < 0 ? _showOK : showOK != 0;
    _showCancel = showCancel < 0 ? _showCancel : showCancel != 0;
    _showApply = showApply < 0 ? _showApply : showApply != 0;
    const lm::Watch here(liveness());
    const LmDialogReason answer = waitForAnswer(message, helpString, parentWindow, parentWidget);
    if (here) {
        _showOK = saved[0];
        _showCancel = saved[1];
        _showApply = saved[2];
    }
    return answer;
}

LmDialogManager::LmDialogReason LmDialogManager::postAndWait(const char* message, const char* helpString,
                                                             LmSimpleWindow* parentWindow)
{
    return waitForAnswer(message, helpString, parentWindow, nullptr);
}

LmDialogManager::LmDialogReason LmDialogManager::postAndWait(const char* message, const char* helpString, Widget parentWidget)
{
    return waitForAnswer(message, helpString, nullptr, parentWidget);
}

/// Runs events until the dialog is down, destroyed, or, when dialogs are kept, answered.
void LmDialogManager::untilAnswered(Wait& wait)
{
    const lm::Watch here(liveness());
    lm::dispatchUntil(
        [&] { return !here || !wait.watch || (_keepPosted ? wait.answer != REASON_NONE : !XtIsManaged(wait.dialog)); });
    if (here)
        std::erase(_waits, &wait);
}

/// Whether an event says that the window is visible at last.
static bool isExposeOf(const XEvent& event, Widget w)
{
    return event.type == Expose && XtIsRealized(w) && event.xexpose.window == XtWindow(w);
}

static void setFlag(XtPointer flag, XtIntervalId*) noexcept { *static_cast<bool*>(flag) = true; }

/// Waits until a dialog is drawn: its first expose event, 25 events of others, or a second, whichever comes first.
static void waitUntilDrawn(Widget dialog, const lm::WidgetWatch& watch)
{
    bool drawn = false, late = false;
    int others = 0;
    lm::TimerHandle timer(XtAppAddTimeOut(theApplication->appContext(), 1000, setFlag, &late));
    lm::dispatchUntil([&] { return drawn || others >= 25 || late || !watch || !XtIsManaged(dialog); },
                      [&](const XEvent& event) {
                          if (watch && isExposeOf(event, dialog))
                              drawn = true;
                          else
                              ++others;
                      });
    if (late)
        timer.fired();
}

void LmDialogManager::waitForDialog(Widget dialog, LmSimpleWindow* parentWindow, Widget parentWidget)
{
    const lm::Watch here(liveness());
    const lm::WidgetWatch watch(dialog);
    _action = REASON_NONE;
    callCallbacks(prepostCallback, dialog);
    Widget parent = here && !parentWidget ? findValidParent(parentWindow) : parentWidget;
    if (watch && XtIsManaged(dialog)) {
        LmRepositionDialog(dialog, parent, false);
        theApplication->notBusy();
        XmUpdateDisplay(dialog);
        return;
    }
    if (watch && parent == theApplication->baseWidget())
        LmRepositionDialog(dialog, parent, true);
    if (watch && parent)
        XtAddCallback(dialog, XmNmapCallback, LmDialogMapped, parent);
    theApplication->handlePendingEvents();
    if (watch) {
        XtManageChild(dialog);
        XSync(theApplication->display(), False);
        waitUntilDrawn(dialog, watch);
    }
    if (watch && parent)
        XtRemoveCallback(dialog, XmNmapCallback, LmDialogMapped, parent);
    theApplication->notBusy();
    if (watch)
        XmUpdateDisplay(dialog);
}

// --- answers -----------------------------------------------------------------------------------------------------------

void LmDialogManager::recordAnswer(Widget dialog, LmDialogReason reason)
{
    _action = reason;
    for (Wait* wait : _waits) {
        if (wait->dialog == dialog)
            wait->answer = reason;
    }
}

void LmDialogManager::ok(Widget dialog, XtPointer)
{
    recordAnswer(dialog, REASON_OK);
    if (!_keepPosted)
        unpost(dialog);
}

void LmDialogManager::cancel(Widget dialog, XtPointer)
{
    recordAnswer(dialog, REASON_CANCEL);
    if (!_keepPosted)
        unpost(dialog);
}

void LmDialogManager::apply(Widget dialog, XtPointer) { recordAnswer(dialog, REASON_APPLY); }

void LmDialogManager::okXtCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmDialogManager*>(clientData)->ok(w, callData);
}

void LmDialogManager::cancelXtCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    static_cast<LmDialogManager*>(clientData)->cancel(w, callData);
}

void LmDialogManager::applyXtCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    Widget dialog = XmIsPushButtonGadget(w) ? XtParent(w) : w;
    static_cast<LmDialogManager*>(clientData)->apply(dialog, callData);
}

void LmDialogManager::helpXtCallback(Widget w, XtPointer clientData, XtPointer) noexcept
{
    const char* helpString = nullptr;
    XtVaGetValues(w, XmNuserData, &helpString, nullptr);
    static_cast<LmDialogManager*>(clientData)->help(helpString);
}

void LmDialogManager::handleWMDeleteCallback(Widget, XtPointer clientData, XtPointer callData) noexcept
{
    XtCallCallbacks(static_cast<Widget>(clientData), XmNcancelCallback, callData);
}

// --- taking down -------------------------------------------------------------------------------------------------------

Widget LmDialogManager::lastPosted() const { return _postedDialogs[_postedDialogs.size() - 1]; }

void LmDialogManager::unpost() { unpost(lastPosted()); }

void LmDialogManager::unpost(Widget dialog)
{
    if (!dialog)
        return;
    _postedDialogs.remove(dialog);
    if (getCacheInfo(dialog))
        XtUnmanageChild(dialog);
    else
        XtDestroyWidget(dialog);
}

void LmDialogManager::unpostAll()
{
    while (Widget dialog = lastPosted())
        unpost(dialog);
}

// --- placing -----------------------------------------------------------------------------------------------------------

static lm::Rect sizeOf(Widget w)
{
    Dimension width = 0, height = 0;
    XtVaGetValues(w, XmNwidth, &width, XmNheight, &height, nullptr);
    return {0, 0, width, height};
}

/// Where the widget's window is; asks the server.
static lm::Rect onScreen(Widget w)
{
    lm::Rect place = sizeOf(w);
    Window child = None;
    XTranslateCoordinates(XtDisplay(w), XtWindow(w), RootWindowOfScreen(XtScreen(w)), 0, 0, &place.x, &place.y, &child);
    return place;
}

void LmRepositionDialog(Widget dialog, Widget parent, bool force)
{
    if (!isUsable(dialog) || !isUsable(parent) || !XtIsRealized(dialog) || !XtIsRealized(parent))
        return;
    const lm::Rect over = onScreen(parent);
    const std::optional<lm::Point> place = force ? lm::centredOver(over, sizeOf(dialog)) : lm::recentred(over, onScreen(dialog));
    if (!place)
        return;
    char geometry[32];   // not by LmFormat: the message now being posted may be its last result
    std::snprintf(geometry, sizeof geometry, "+%d+%d", place->x, place->y);
    XtVaSetValues(dialog, XmNx, static_cast<Position>(place->x), XmNy, static_cast<Position>(place->y), XmNgeometry, geometry,
                  XmNdefaultPosition, False, nullptr);
}

void LmDialogManager::LmDialogMapped(Widget dialog, XtPointer clientData, XtPointer) noexcept
{
    LmRepositionDialog(dialog, static_cast<Widget>(clientData), true);
}
