#include "LmApp.h"

#include "LmBusyDialog.h"
#include "LmComponentList.h"
#include "LmCursorList.h"
#include "LmFormat.h"
#include "LmLocateHighlight.h"
#include "LmResource.h"
#include "LmSimpleWindow.h"
#include "LmWidgetTools.h"
#include "base/core/AppDefaults.h"
#include "base/core/EventLoop.h"
#include "base/core/PendingEvents.h"
#include "base/core/RequireApplication.h"
#include "base/core/SearchPath.h"
#include "base/core/StartUp.h"
#include "support/handles.h"
#include "support/resources.h"
#include "uiUtl.h"

#include <X11/Shell.h>
#include <X11/cursorfont.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>

LmApp* theApplication = nullptr;

Cursor LmApp::_normalCursor = None;
Cursor LmApp::_busyCursor = None;
int LmApp::LumoraMajorRelease = 1;
int LmApp::LumoraMinorRelease = 0;
char LmApp::LumoraReleaseString[] = "Lumora Release: 1.0";

void lm::requireApplication(const char* className)
{
    if (theApplication)
        return;
    std::fprintf(stderr, "%s: construct the application object first\n", className);
    std::exit(1);
}

// --- start-up ----------------------------------------------------------------------------------------------------------

/// The arguments of a program that was given none: its name.
static char noName[] = "main";
static char* noArguments[] = {noName, nullptr};

static const char* lastPathComponent(const char* path)
{
    const char* slash = std::strrchr(path, '/');
    return slash ? slash + 1 : path;
}

LmApp::LmApp(const char* appClassName, int* argc, char** argv, XrmOptionDescRec* options, int numOptions)
    : LmComponent("lumora"),
      _windows(new LmComponentList)
{
    theApplication = this;
    const bool given = argc && *argc > 0 && argv && argv[0];
    _argc = given ? *argc : 1;
    _argv = given ? argv : noArguments;
    setlocale(LC_ALL, "");
    setName(*lastPathComponent(_argv[0]) ? lastPathComponent(_argv[0]) : noName);
    _appClassName = appClassName;

    openDisplay(options, numOptions);
    static XrmOptionDescRec ownOptions[] = {
        {lm::xtText("-scheme"), lm::xtText("*scheme"), XrmoptionSepArg, nullptr},
        {lm::xtText("-debugLevel"), lm::xtText("*debugLevel"), XrmoptionSepArg, nullptr},
    };
    parseCommandLine(ownOptions, std::ssize(ownOptions));
    if (given)
        *argc = _argc;
    if (const char* wanted = std::getenv("LUMORA_WARNINGS"); !wanted || std::strcmp(wanted, "1") != 0)
        XtAppSetWarningHandler(_appContext, silentErrorHandler);
    lm::loadClassFileFromDefaultPath(_display);
    lm::prepareDisplay(_display);

    createShell();
    loadDefaults();
    placeShell();
    XDefineCursor(_display, XtWindow(_baseWidget), normalCursor());
    uiUtlLoadScheme(_display);
}

LmApp::LmApp(Widget w) : _windows(new LmComponentList)
{
    theApplication = this;
    _baseWidget = w;
    _appContext = XtWidgetToApplicationContext(w);
    _display = XtDisplayOfObject(w);
    String program = nullptr, programClass = nullptr;
    XtGetApplicationNameAndClass(_display, &program, &programClass);
    setName(program);
    _appClassName = strdup(programClass);   // kept as long as the process, as the object is
    installDestroyHandler();
}

LmApp::~LmApp()
{
    delete _windows;
    std::free(_shellGeometry);
    std::free(_versionString);
    if (theApplication == this)
        theApplication = nullptr;
}

void LmCreateAppStub(Widget w)
{
    if (!theApplication && w)
        new LmApp(w);   // lives until the process ends
}

void LmApp::openDisplay(XrmOptionDescRec* options, int numOptions)
{
    set_XFILESEARCHPATH();
    XtSetLanguageProc(nullptr, uiUtlLanguageProc, nullptr);
    XtToolkitInitialize();
    _appContext = XtCreateApplicationContext();
    const char* nameOfItsOwn = *lastPathComponent(_argv[0]) ? nullptr : name();   // Xt makes none of an empty argument
    _display = XtOpenDisplay(_appContext, nullptr, nameOfItsOwn, _appClassName, options, static_cast<Cardinal>(numOptions),
                             &_argc, _argv);
    if (!_display)
        XtAppError(_appContext, LmFormat("%s: Can't Open Display", _appClassName));
}

void LmApp::parseCommandLine(XrmOptionDescRec* options, int numOptions)
{
    XrmDatabase database = XtDatabase(_display);
    String xtName = nullptr, xtClass = nullptr;
    XtGetApplicationNameAndClass(_display, &xtName, &xtClass);
    if (std::strcmp(xtName, name()) != 0) {   // Xt was told another name: its own look-ups are to find the options too
        std::vector<char*> copy(_argv, _argv + _argc);
        copy.push_back(nullptr);
        int count = _argc;
        XrmParseCommand(&database, options, numOptions, xtName, &count, copy.data());
    }
    XrmParseCommand(&database, options, numOptions, name(), &_argc, _argv);
}

void LmApp::createShell()
{
    const Screen* screen = ScreenOfDisplay(_display, 0);
    _baseWidget =
        XtVaAppCreateShell(nullptr, _appClassName, applicationShellWidgetClass, _display, XtNmappedWhenManaged, False, XtNx,
                           WidthOfScreen(screen) / 2, XtNy, HeightOfScreen(screen) / 2, XtNwidth, 1, XtNheight, 1, nullptr);
    installDestroyHandler();
}

void LmApp::loadDefaults()
{
    XtResource table[] = {
        lm::resource(this, _iconic, "iconic", "Iconic", "FALSE"),
        lm::resource(this, _usePopupPlanes, "usePopupPlanes", "UsePopupPlanes", "FALSE"),
    };
    getResources(table, std::ssize(table));
    setDefaultResources(_baseWidget, lm::applicationDefaults());
}

/// The user's geometry is for the main window: it is kept, and the hidden shell becomes a pixel in the middle.
void LmApp::placeShell()
{
    String geometry = nullptr;
    XtVaGetValues(_baseWidget, XtNgeometry, &geometry, nullptr);
    if (geometry)
        _shellGeometry = strdup(geometry);
    const Screen* screen = ScreenOfDisplay(_display, 0);
    static std::string middle;   // the shell keeps the pointer
    middle = LmFormat("1x1+%d+%d", WidthOfScreen(screen) / 2, HeightOfScreen(screen) / 2);
    XtVaSetValues(_baseWidget, XtNgeometry, middle.c_str(), nullptr);
    XtRealizeWidget(_baseWidget);
}

char* LmApp::argv(int index) const { return index >= 0 && index < _argc ? _argv[index] : nullptr; }

// --- windows -----------------------------------------------------------------------------------------------------------

/// A copy: what a window does may change the registry.
std::vector<LmSimpleWindow*> LmApp::windows() const
{
    std::vector<LmSimpleWindow*> copy;
    for (int i = 0; i < _windows->size(); ++i)
        copy.push_back(static_cast<LmSimpleWindow*>((*_windows)[i]));
    return copy;
}

/// Calls `action` on each window registered now that still lives when its turn comes.
template <class Action> static void forEachWindow(const LmApp& application, Action action)
{
    for (LmSimpleWindow* window : application.windows()) {
        if (LmComponent::isComponent(window))
            action(window);
    }
}

LmSimpleWindow* LmApp::mainWindow() const
{
    if (_mainWindow)
        return _mainWindow;
    return _windows->size() > 0 ? static_cast<LmSimpleWindow*>((*_windows)[0]) : nullptr;
}

void LmApp::addWindow(LmSimpleWindow* window)
{
    if (_windows->size() == 0 && !_mainWindow)
        _mainWindow = window;
    _windows->add(window);
}

void LmApp::removeWindow(LmSimpleWindow* window)
{
    _windows->remove(window);
    if (_mainWindow == window)
        _mainWindow = nullptr;
    if (_windows->size() == 0)
        terminate(0);
}

void LmApp::show()
{
    forEachWindow(*this, [](LmSimpleWindow* window) { window->show(); });
}

void LmApp::hide()
{
    forEachWindow(*this, [](LmSimpleWindow* window) { window->hide(); });
}

void LmApp::raise()
{
    forEachWindow(*this, [](LmSimpleWindow* window) { window->raise(); });
}

void LmApp::lower()
{
    forEachWindow(*this, [](LmSimpleWindow* window) { window->lower(); });
}

void LmApp::iconify()
{
    forEachWindow(*this, [](LmSimpleWindow* window) { window->iconify(); });
}

void LmApp::open()
{
    forEachWindow(*this, [](LmSimpleWindow* window) { window->open(); });
}

// --- events and the end ------------------------------------------------------------------------------------------------

void LmApp::afterRealizeHook() {}

void LmApp::run()
{
    if (_baseWidget && lm::asInt(LmGetResource(_baseWidget, "locateHighlight", "LocateHighlight", XtRBoolean, "FALSE")) != 0)
        LmSetupLocateHighlight();
    _iconic = False;
    afterRealizeHook();
    for (;;)
        lm::dispatchNextEvent();
}

void LmApp::handlePendingEvents()
{
    XSync(_display, False);
    lm::PendingEvents(_appContext).handle();
}

void LmApp::handleRawEvent(XEvent* event)
{
    forEachWindow(*this, [=](LmSimpleWindow* window) { window->handleRawEvent(event); });
}

void LmApp::terminate(int status) { std::exit(status); }

static void deleteIfItAgrees(LmSimpleWindow* window)
{
    if (LmComponent::isComponent(window) && window->okToQuit())
        delete window;
}

void LmApp::quitYourself()
{
    if (_quitting)
        return;
    _quitting = True;
    const std::vector<LmSimpleWindow*> asked = windows();
    LmSimpleWindow* const last = mainWindow();
    for (auto window = asked.rbegin(); window != asked.rend(); ++window) {
        if (*window != last)
            deleteIfItAgrees(*window);
    }
    deleteIfItAgrees(last);
    _quitting = False;
}

// --- busy state and cursors --------------------------------------------------------------------------------------------

void LmApp::busy(const char* message, LmSimpleWindow* parent)
{
    if (++_busyCount == 1)
        enterBusyState();
    if (message)
        getTheBusyDialog()->postModal(message, nullptr, nullptr, nullptr, nullptr, nullptr, parent, nullptr);
    if (_baseWidget)
        XmUpdateDisplay(_baseWidget);
}

void LmApp::enterBusyState()
{
    forEachWindow(*this, [this](LmSimpleWindow* window) {
        window->busy();
        setPopupCursors(window->baseWidget(), busyCursor());
    });
    setPopupCursors(_baseWidget, busyCursor());
}

void LmApp::veryBusy(const char* message, LmSimpleWindow* parent) { busy(message, parent); }

void LmApp::notBusy()
{
    if (--_busyCount > 0)
        return;
    getTheBusyDialog()->unpost();
    leaveBusyState();
}

void LmApp::leaveBusyState()
{
    forEachWindow(*this, [this](LmSimpleWindow* window) {
        window->notBusy();
        setPopupCursors(window->baseWidget(), normalCursor());
    });
    setPopupCursors(_baseWidget, normalCursor());
}

void LmApp::progressing(const char* message)
{
    if (_busyCount == 0)
        return;
    if (message)
        getTheBusyDialog()->post(message);
    Cursor cursor = _busyCursor;
    if (!cursor && _busyCursors)
        cursor = _busyCursors->next();
    forEachWindow(*this, [=](LmSimpleWindow* window) { setPopupCursors(window->baseWidget(), cursor); });
    if (_baseWidget)
        XmUpdateDisplay(_baseWidget);
}

Cursor LmApp::busyCursor()
{
    if (!_busyCursor && !_busyCursors)
        createCursors();
    if (_busyCursor)
        return _busyCursor;
    return _busyCursors ? _busyCursors->current() : None;
}

Cursor LmApp::normalCursor()
{
    if (!_normalCursor)
        createCursors();
    return _normalCursor;
}

void LmApp::createCursors()
{
    if (!_busyCursor && !_busyCursors)
        _busyCursors = new LmBusyCursors;   // its frames are made when shown; kept until the process ends
    if (!_normalCursor)
        createNormalCursor();
}

void LmApp::createNormalCursor()
{
    const auto pixel = [this](const char* name, const char* cls, const char* fallback) {
        Pixel value = 0;
        LmGetResource(_baseWidget, name, cls, XtRPixel, fallback, &value, sizeof value);
        return value;
    };
    XColor colors[2] = {};
    colors[0].pixel = pixel("normalCursorForeground", "Foreground", "Black");
    colors[1].pixel = pixel("normalCursorBackground", "Background", "White");
    lm::queryColors(_display, colors, 2);
    _normalCursor = XCreateFontCursor(_display, XC_left_ptr);
    XRecolorCursor(_display, _normalCursor, &colors[0], &colors[1]);
}

void LmApp::setBusyDialog(LmBusyDialog* dialog) { LmBusyDialog::setBusyDialog(dialog); }

void LmApp::setNormalCursor(Cursor cursor)
{
    if (cursor)
        _normalCursor = cursor;
    if (_baseWidget && _busyCount == 0)
        setPopupCursors(_baseWidget, normalCursor());
}

void LmApp::setBusyCursor(Cursor cursor)
{
    if (cursor)
        _busyCursor = cursor;
    if (_baseWidget && _busyCount != 0)
        setPopupCursors(_baseWidget, busyCursor());
}

void LmApp::setBusyCursor(LmCursorList* cursors)
{
    if (cursors) {
        _busyCursors = cursors;
        _busyCursor = None;
    }
    if (_baseWidget && _busyCount != 0)
        setPopupCursors(_baseWidget, busyCursor());
}

void LmApp::showCursor(Cursor cursor)
{
    if (!_baseWidget)
        return;
    if (!cursor)
        cursor = _busyCount != 0 ? busyCursor() : normalCursor();
    setPopupCursors(_baseWidget, cursor);
}

void LmApp::setVersionString(const char* text)
{
    char* chosen = nullptr;
    if (text) {
        const void* value = _baseWidget ? LmGetResource(_baseWidget, text, "VersionString", XtRString, text) : text;
        chosen = strdup(static_cast<const char*>(value));
    }
    std::free(_versionString);   // only now: the text may be our own
    _versionString = chosen;
}
