#include "LmSimpleWindow.h"

#include "LmApp.h"
#include "LmContextHelp.h"
#include "LmResource.h"
#include "LmWidgetTools.h"
#include "LmXpmIcon.h"
#include "base/core/RequireApplication.h"
#include "base/core/WindowProperties.h"
#include "base/core/WindowTitle.h"
#include "support/resources.h"
#include "support/xt.h"

#include <X11/Shell.h>
#include <X11/Xutil.h>
#include <Xm/DropSMgr.h>
#include <Xm/MainW.h>
#include <Xm/Protocols.h>
#include <Xm/ScrolledW.h>

#include <strings.h>

#include <utility>
#include <vector>

// --- construction ------------------------------------------------------------------------------------------------------

/// How many shell arguments, with the window's own, a caller's arguments may fill up to.
static constexpr size_t callersLimit = 13;

static const char* checkedName(const char* name)
{
    lm::requireApplication("LmSimpleWindow");
    return name;
}

static bool sameWord(const char* text, const char* word) { return text && strcasecmp(text, word) == 0; }

static void applyFocusPolicy(Widget shell, const char* windowName)
{
    const char* policy = XGetDefault(XtDisplay(shell), windowName, "keyboardFocusPolicy");
    if (sameWord(policy, "pointer"))
        XtVaSetValues(shell, XmNkeyboardFocusPolicy, XmPOINTER, nullptr);
    else if (sameWord(policy, "explicit"))
        XtVaSetValues(shell, XmNkeyboardFocusPolicy, XmEXPLICIT, nullptr);
}

LmSimpleWindow::LmSimpleWindow(const char* name, ArgList args, Cardinal argCount)
    : LmComponent(checkedName(name)),
      _busy(theApplication->busyCount() > 0)
{
    theApplication->addWindow(this);
    createShell(args, argCount);
    listenToWindowManager();
    Boolean iconic = False;
    XtVaGetValues(_baseWidget, XtNiconic, &iconic, nullptr);
    setTitle(getTitle());
    _iconState = iconic ? CLOSED : OPEN;
    XtAddEventHandler(_baseWidget, StructureNotifyMask, False, stateChangedEventHandler, this);
    installDestroyHandler();

    _mainWindowWidget = XtCreateWidget(LmComponent::name(), xmMainWindowWidgetClass, _baseWidget, nullptr, 0);
    if (sameWord(XGetDefault(XtDisplay(_baseWidget), theApplication->name(), "useXpmIcon"), "true"))
        loadXpmIcon(_baseWidget, lm::xtText(theApplication->name()));
    XtManageChild(_mainWindowWidget);
    applyFocusPolicy(_baseWidget, LmComponent::name());
    LmAddContextSmartHelpCallback(_mainWindowWidget);
}

void LmSimpleWindow::createShell(ArgList args, Cardinal argCount)
{
    std::vector<Arg> list;
    const auto add = [&list](const char* name, XtArgVal value) { list.push_back({lm::xtText(name), value}); };

    if (theApplication->mainWindow() == this) {
        if (const char* geometry = theApplication->shellGeometry())
            add(XtNgeometry, reinterpret_cast<XtArgVal>(geometry));
        add(XtNargc, theApplication->argc());
        add(XtNargv, reinterpret_cast<XtArgVal>(theApplication->arguments()));
    }
    for (Cardinal i = 0; i < argCount && list.size() < callersLimit; ++i)
        list.push_back(args[i]);
    if (theApplication->iconic()) {
        add(XtNiconic, True);
        _iconState = CLOSED;
    }
    add(XmNdeleteResponse, XmDO_NOTHING);

    _baseWidget = XtCreatePopupShell(name(), applicationShellWidgetClass, theApplication->baseWidget(), list.data(),
                                     static_cast<Cardinal>(list.size()));
    XmDropSiteStartUpdate(_baseWidget);
}

void LmSimpleWindow::listenToWindowManager()
{
    const lm::WindowAtoms& atoms = lm::windowAtoms(XtDisplay(_baseWidget));
    XmAddProtocolCallback(_baseWidget, atoms.wmProtocols, atoms.wmDeleteWindow, deleteWindowCallback, this);
    XmAddProtocolCallback(_baseWidget, atoms.wmProtocols, atoms.wmQuitApp, quitAppCallback, this);
}

LmSimpleWindow::~LmSimpleWindow()
{
    theApplication->removeWindow(this);
    forgetView();
    if (_baseWidget) {   // the shell's end may be put off, and its window unmapped before
        XtRemoveEventHandler(_baseWidget, StructureNotifyMask, False, stateChangedEventHandler, this);
        const lm::WindowAtoms& atoms = lm::windowAtoms(XtDisplay(_baseWidget));
        XmRemoveProtocolCallback(_baseWidget, atoms.wmProtocols, atoms.wmDeleteWindow, deleteWindowCallback, this);
        XmRemoveProtocolCallback(_baseWidget, atoms.wmProtocols, atoms.wmQuitApp, quitAppCallback, this);
    }
}

void LmSimpleWindow::widgetDestroyed()
{
    _mainWindowWidget = nullptr;
    _viewWidget = nullptr;
    _busyWindow = None;
    LmComponent::widgetDestroyed();
}

// --- the view ----------------------------------------------------------------------------------------------------------

Widget LmSimpleWindow::setUpInterface(Widget) { return nullptr; }

/// The scrolled window around a view, when it stands directly in the main window; else the view itself.
static Widget workWindowOf(Widget view, Widget mainWindow)
{
    Widget parent = XtParent(view);
    const bool scrolled = parent && parent != mainWindow && XmIsScrolledWindow(parent) && XtParent(parent) == mainWindow;
    return scrolled ? parent : view;
}

void LmSimpleWindow::addView(Widget w)
{
    if (!w || !_mainWindowWidget)
        return;
    forgetView();
    XtManageChild(w);
    _viewWidget = workWindowOf(w, _mainWindowWidget);
    lm::on<&LmSimpleWindow::viewDestroyed>(_viewWidget, XmNdestroyCallback, this);
    XtVaSetValues(_mainWindowWidget, XmNworkWindow, _viewWidget, nullptr);
    _visibleState = 0;
}

void LmSimpleWindow::addView(LmComponent* component)
{
    if (!component)
        return;
    addView(component->baseWidget());
    component->show();
}

void LmSimpleWindow::removeView()
{
    if (_viewWidget)
        XtUnmanageChild(_viewWidget);
    forgetView();
}

void LmSimpleWindow::forgetView()
{
    if (Widget view = std::exchange(_viewWidget, nullptr))
        lm::off<&LmSimpleWindow::viewDestroyed>(view, XmNdestroyCallback, this);
}

void LmSimpleWindow::viewDestroyed() { _viewWidget = nullptr; }

void LmSimpleWindow::makeView()
{
    if (_viewWidget || !_mainWindowWidget)
        return;
    _buildingInterface = True;
    Widget view = setUpInterface(_mainWindowWidget);
    _buildingInterface = False;
    addView(view);
}

void LmSimpleWindow::build()
{
    if (!_mainWindowWidget)
        return;
    makeView();
    XtManageChild(_mainWindowWidget);
    _visibleState = 0;
}

// --- showing and hiding ------------------------------------------------------------------------------------------------

void LmSimpleWindow::afterRealizeHook() {}

void LmSimpleWindow::show()
{
    if (!_baseWidget)
        return;
    if (XtIsRealized(_baseWidget))
        XtPopup(_baseWidget, XtGrabNone);
    else
        showFirstTime();
    _visibleState = 1;
}

void LmSimpleWindow::showFirstTime()
{
    makeView();
    LmComponent::show();
    if (_iconState == CLOSED)
        iconify();
    XtVaSetValues(_baseWidget, XtNmappedWhenManaged, False, nullptr);
    XtRealizeWidget(_baseWidget);
    publishNames();
    setUpWindowProperties();
    XtPopup(_baseWidget, XtGrabNone);
    createBusyWindow();
    if (_busy) {
        busy();
        setPopupCursors(_baseWidget, theApplication->busyCursor());
    }
    XmDropSiteEndUpdate(_baseWidget);
}

/// An input-only window over the whole shell: mapped, it takes the pointer events that the widgets must not get.
void LmSimpleWindow::createBusyWindow()
{
    Display* display = theApplication->display();
    const auto width = static_cast<unsigned>(DisplayWidth(display, DefaultScreen(display)));
    const auto height = static_cast<unsigned>(DisplayHeight(display, DefaultScreen(display)));
    Visual* visual = DefaultVisualOfScreen(XtScreen(_baseWidget));
    _busyWindow =
        XCreateWindow(display, XtWindow(_baseWidget), 0, 0, width, height, 0, CopyFromParent, InputOnly, visual, 0, nullptr);
}

void LmSimpleWindow::hide()
{
    if (_baseWidget)
        XtPopdown(_baseWidget);
    _visibleState = 0;
}

void LmSimpleWindow::open()
{
    if (_baseWidget && _visibleState != 0) {
        XtVaSetValues(_baseWidget, XtNiconic, False, nullptr);
        if (XtIsRealized(_baseWidget))
            XMapWindow(XtDisplay(_baseWidget), XtWindow(_baseWidget));
    }
    _iconState = OPEN;
}

void LmSimpleWindow::raise()
{
    if (_baseWidget && XtIsRealized(_baseWidget) && _visibleState != 0)
        XRaiseWindow(XtDisplay(_baseWidget), XtWindow(_baseWidget));
    _stackingState = 0;
}

void LmSimpleWindow::lower()
{
    if (_baseWidget && XtIsRealized(_baseWidget))
        XLowerWindow(XtDisplay(_baseWidget), XtWindow(_baseWidget));
    _stackingState = 1;
}

void LmSimpleWindow::iconize() { iconify(); }

void LmSimpleWindow::iconify()
{
    if (_baseWidget) {
        XtVaSetValues(_baseWidget, XtNiconic, True, nullptr);
        if (XtIsRealized(_baseWidget))
            XIconifyWindow(XtDisplay(_baseWidget), XtWindow(_baseWidget), XScreenNumberOfScreen(XtScreen(_baseWidget)));
        else
            ForceShellIconic(_baseWidget);
    }
    _iconState = CLOSED;
}

void LmSimpleWindow::busy()
{
    _busy = True;
    if (_busyWindow)
        XMapRaised(theApplication->display(), _busyWindow);   // above children that were made since
    if (_baseWidget)
        XmUpdateDisplay(_baseWidget);
}

void LmSimpleWindow::veryBusy() { busy(); }

void LmSimpleWindow::notBusy()
{
    _busy = False;
    if (_busyWindow)
        XUnmapWindow(theApplication->display(), _busyWindow);
}

// --- names -------------------------------------------------------------------------------------------------------------

const char* LmSimpleWindow::getTitle()
{
    String title = nullptr;
    if (_baseWidget)
        XtVaGetValues(_baseWidget, XtNtitle, &title, nullptr);
    return title;
}

/// What the user's resources make of a text that is its own resource name.
static const char* chosenText(Widget shell, const char* text, const char* resourceClass)
{
    return static_cast<const char*>(LmGetResource(shell, text, resourceClass, XtRString, text));
}

void LmSimpleWindow::setTitle(const char* title)
{
    if (!_baseWidget || !title)
        return;
    const std::string shown = lm::titleInTree(chosenText(_baseWidget, title, "Title"), std::getenv("BRAMBLEON_ROOT"));
    XtVaSetValues(_baseWidget, XtNtitle, shown.c_str(), nullptr);
    if (XtIsRealized(_baseWidget))
        lm::setUtf8Property(_baseWidget, lm::windowAtoms(XtDisplay(_baseWidget)).netWmName, shown.c_str());
}

void LmSimpleWindow::setIconName(const char* name)
{
    if (!_baseWidget || !name)
        return;
    const char* shown = chosenText(_baseWidget, name, "IconName");
    XtVaSetValues(_baseWidget, XtNiconName, shown, nullptr);
    if (XtIsRealized(_baseWidget))
        lm::setUtf8Property(_baseWidget, lm::windowAtoms(XtDisplay(_baseWidget)).netWmIconName, shown);
}

/// What window managers of today read beside the old names, on the window that now exists.
void LmSimpleWindow::publishNames()
{
    const lm::WindowAtoms& atoms = lm::windowAtoms(XtDisplay(_baseWidget));
    String title = nullptr, iconName = nullptr;
    XtVaGetValues(_baseWidget, XtNtitle, &title, XtNiconName, &iconName, nullptr);
    lm::setUtf8Property(_baseWidget, atoms.netWmName, title);
    lm::setUtf8Property(_baseWidget, atoms.netWmIconName, iconName);
    lm::setProcessId(_baseWidget);
}

void LmSimpleWindow::setClassHint(const char* resClass)
{
    if (!_baseWidget || !XtIsRealized(_baseWidget) || !resClass)
        return;
    XClassHint hint = {};
    if (!XGetClassHint(XtDisplay(_baseWidget), XtWindow(_baseWidget), &hint))
        return;
    const lm::XString oldName(hint.res_name), oldClass(hint.res_class);
    hint.res_class = lm::xtText(resClass);
    XSetClassHint(XtDisplay(_baseWidget), XtWindow(_baseWidget), &hint);
}

// --- the window manager's messages -------------------------------------------------------------------------------------

void LmSimpleWindow::handleWmDeleteMessage()
{
    if (okToQuit())
        delete this;
}

void LmSimpleWindow::handleWmQuitMessage() { theApplication->quitYourself(); }

void LmSimpleWindow::deleteWindowCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmSimpleWindow*>(clientData)->handleWmDeleteMessage();
}

void LmSimpleWindow::quitAppCallback(Widget, XtPointer clientData, XtPointer) noexcept
{
    static_cast<LmSimpleWindow*>(clientData)->handleWmQuitMessage();
}

void LmSimpleWindow::stateChangedEventHandler(Widget, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    auto* window = static_cast<LmSimpleWindow*>(clientData);
    if (event->type == MapNotify)
        window->stateChanged(OPEN);
    else if (event->type == UnmapNotify)
        window->stateChanged(CLOSED);
}
