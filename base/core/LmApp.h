// LmApp: the one application object of a program.
#pragma once

#include "LmComponent.h"

#include <vector>

class LmBusyDialog;
class LmComponentList;
class LmCursorList;
class LmDialogManager;
class LmSimpleWindow;

/// The application: display, resources, event loop, top-level windows, busy state and orderly quit.
///
/// A program makes one LmApp first, then its windows, and calls run(), which never returns. The program ends when its
/// last window is deleted or when it calls terminate().
///
///     int main(int argc, char** argv)
///     {
///         LmApp app("Hello", &argc, argv, nullptr, 0);
///         (new HelloWindow("hello"))->show();
///         app.run();
///     }
///
///   Widgets    an application shell of the program's name, never mapped; parent of every top-level window
///   Resources  "iconic" "Iconic" Boolean FALSE: windows made before run() start iconified
///              "usePopupPlanes" "UsePopupPlanes" Boolean FALSE: for components that can
///              "normalCursorForeground" "Foreground" Pixel Black, "normalCursorBackground" "Background" Pixel White
///              "locateHighlight" "LocateHighlight" Boolean FALSE: buttons light up under the pointer
///              "geometry" "Geometry" String: size and place of the main window
///              "scheme" "Scheme" String: the colour and font scheme, a file or the name of one
///   Options    -scheme NAME, -debugLevel N ("*debugLevel"), and Xt's own
///   Errors     a display that cannot be opened ends the program with status 1. Xt's warnings are discarded, unless
///              LUMORA_WARNINGS=1 is in the environment. The server's death ends the program with status 1.
class LM_API LmApp : public LmComponent {
public:
    /// Starts the program up: locale, search path, display, command line, application shell, default resources, cursor
    /// and scheme. Recognised options leave argv, and `*argc` counts what remains. `options` (may be null with 0) are the
    /// application's own. `appClassName` and argv are not copied and must outlive the object. A null or empty vector or
    /// first argument counts as the program name "main".
    LmApp(const char* appClassName, int* argc, char** argv, XrmOptionDescRec* options, int numOptions);
    /// Adopts the Xt application that made `w`, which becomes the base widget. Nothing is parsed or loaded.
    explicit LmApp(Widget w);
    ~LmApp() override;

    const char* className() override { return "LmApp"; }
    /// The window operations work on every registered window, in order of registration.
    void show() override;
    void hide() override;
    void afterRealizeHook() override;

    /// The event loop: never returns. Sets up locate highlighting when the resource asks for it (LmSetupLocateHighlight()) and
    /// runs afterRealizeHook() first. Events that no widget takes go to handleRawEvent().
    virtual void run();
    /// Ends the process with that exit status. An override that returns keeps the program alive.
    virtual void terminate(int status);
    /// Handles everything that is pending now, and what arrives meanwhile for at most half a second more.
    virtual void handlePendingEvents();
    /// Asks every window, the main window last, whether it may close, and deletes those that agree. A call from inside
    /// does nothing.
    virtual void quitYourself();
    /// Offers an event that no widget took to every window.
    virtual void handleRawEvent(XEvent* event);
    virtual void raise();     ///< LmSimpleWindow::raise() of every window.
    virtual void lower();     ///< LmSimpleWindow::lower() of every window.
    virtual void iconify();   ///< LmSimpleWindow::iconify() of every window.
    virtual void open();      ///< LmSimpleWindow::open() of every window.
    /// The cursor of the busy state: the fixed one if set, else the present frame of the animated one.
    virtual Cursor busyCursor();
    /// The cursor of the normal state, an arrow in the colours of the resources.
    virtual Cursor normalCursor();
    /// Enters the busy state, or one level deeper: busy cursors, no input to any window, and the message, if any, in the
    /// busy dialog over `parent` (null: the application chooses). Each call needs a notBusy().
    virtual void busy(const char* message = nullptr, LmSimpleWindow* parent = nullptr);
    /// The same, for longer work; a derived class may show it differently.
    virtual void veryBusy(const char* message = nullptr, LmSimpleWindow* parent = nullptr);
    /// Leaves one level of the busy state.
    virtual void notBusy();
    /// Shows that busy work goes on: next frame of the cursor, and the message, if any, in the busy dialog.
    virtual void progressing(const char* message = nullptr);

    Display* display() const { return _display; }   ///< The connection to the X server.
    /// Xt's context, which all timers, inputs and work procedures of the program belong to.
    XtAppContext appContext() const { return _appContext; }
    /// The number of arguments that neither Xt nor the library understood, with the program's own name.
    int argc() const { return _argc; }
    /// One of them; null outside 0..argc()-1.
    char* argv(int index) const;
    /// The arguments as a vector, ended by null.
    char** arguments() const { return _argv; }
    /// The class given at construction.
    const char* applicationClass() const { return _appClassName; }
    /// The user's geometry for the main window, or null.
    const char* shellGeometry() const { return _shellGeometry; }
    /// The window set by setMainWindow(), else the first registered one, else null.
    LmSimpleWindow* mainWindow() const;
    /// Whether windows start iconified now; run() ends that.
    Boolean iconic() const { return _iconic; }
    Boolean usePopupPlanes() const { return _usePopupPlanes; }   ///< The resource "usePopupPlanes".
    /// How many busy() calls wait for their notBusy().
    int busyCount() const { return _busyCount; }
    /// The registered windows, in order of registration.
    std::vector<LmSimpleWindow*> windows() const;

    /// Registers a window; windows call it themselves. The first one becomes the main window, unless one is set.
    void addWindow(LmSimpleWindow* window);
    /// Unregisters a window; when none is left, calls terminate(0).
    void removeWindow(LmSimpleWindow* window);
    /// Sets the main window; null clears it.
    void setMainWindow(LmSimpleWindow* window) { _mainWindow = window; }

    /// Sets the normal cursor (None: only shows the present one again) and shows it, unless busy.
    void setNormalCursor(Cursor cursor);
    /// Sets a fixed busy cursor (None: only shows the present one again) and shows it when busy.
    void setBusyCursor(Cursor cursor);
    /// Sets an animated busy cursor (null: only shows the present one again), not owned, and shows it when busy.
    void setBusyCursor(LmCursorList* cursors);
    /// Shows a cursor on every shell of the application; None: the one of the present state.
    void showCursor(Cursor cursor);

    /// Has later busy states use another busy dialog (not owned); null: the default one.
    void setBusyDialog(LmBusyDialog* dialog);

    /// Sets the text of the Version entry of help panes; the text is also the name of the resource (class
    /// "VersionString") that may replace it.
    void setVersionString(const char* text);
    /// The version text in force, or null.
    const char* versionString() const { return _versionString; }
    /// Sets the dialog (not owned; null: none) that the Version entry of help panes posts in place of the text.
    void setAboutDialog(LmDialogManager* dialog) { _aboutDialog = dialog; }
    LmDialogManager* aboutDialog() const { return _aboutDialog; }   ///< The dialog set by setAboutDialog(); null for none.

    static Cursor _normalCursor;         ///< shared by the whole program; None until needed or set
    static Cursor _busyCursor;           ///< the fixed busy cursor; None: the animated one is used
    static int LumoraMajorRelease;       ///< 1
    static int LumoraMinorRelease;       ///< 0
    static char LumoraReleaseString[];   ///< "Lumora Release: 1.0"

protected:
    /// Takes the options of a table (Xt's form) out of the arguments and into the database under the program's name.
    void parseCommandLine(XrmOptionDescRec* options, int numOptions);
    /// Makes the cursors that do not exist yet.
    void createCursors();

private:
    void openDisplay(XrmOptionDescRec* options, int numOptions);
    void createShell();
    void loadDefaults();
    void placeShell();
    void createNormalCursor();
    void enterBusyState();
    void leaveBusyState();

    LmComponentList* _windows;   // owned; the windows are not
    Boolean _quitting = False;
    LmCursorList* _busyCursors = nullptr;   // null until needed
    LmDialogManager* _aboutDialog = nullptr;
    char** _argv = nullptr;
    int _argc = 0;
    char* _shellGeometry = nullptr;   // owned; malloc
    LmSimpleWindow* _mainWindow = nullptr;
    char* _versionString = nullptr;   // owned; malloc
    Display* _display = nullptr;
    XtAppContext _appContext = nullptr;
    const char* _appClassName = nullptr;
    int _busyCount = 0;
    Boolean _iconic = False;           // resource
    Boolean _usePopupPlanes = False;   // resource
};

/// The application object; null until one is constructed.
extern LM_API LmApp* theApplication;

/// For a program that made its own Xt application: constructs the application object on its shell, unless there is one.
LM_API void LmCreateAppStub(Widget w);

/// Keeps the application busy while it lives.
class LM_API LmBusyScope {
public:
    /// Calls busy() of the application with these arguments.
    explicit LmBusyScope(const char* message = nullptr, LmSimpleWindow* parent = nullptr)
    {
        theApplication->busy(message, parent);
    }
    LmBusyScope(const LmBusyScope&) = delete;
    LmBusyScope& operator=(const LmBusyScope&) = delete;
    ~LmBusyScope() { theApplication->notBusy(); }
};
