// LmSimpleWindow: a top-level window with one view.
#pragma once

#include "LmComponent.h"
#include "support/handles.h"

/// A top-level window: a shell, a Motif main window in it, and one view that a derived class makes.
///
/// Windows are made with `new` and deleted by the window manager's close request, if okToQuit() agrees; deleting the last
/// one ends the program. The view is made late: show() or build() calls setUpInterface() when there is none yet.
///
///   Widgets    an application shell (base widget) and an XmMainWindow in it, both of the window's name
///   Resources  the title text itself, class "Title" String: replaces the title; default the text
///              the icon name itself, class "IconName" String: replaces the icon name; default the text
///              "<program>.useXpmIcon" String: "true" loads the program's icon (loadXpmIcon)
///              "<window>.keyboardFocusPolicy" String: "pointer" or "explicit"
///   Properties WM_NAME and _NET_WM_NAME follow setTitle(), WM_ICON_NAME and _NET_WM_ICON_NAME setIconName(); _NET_WM_PID
///   Protocols  WM_DELETE_WINDOW closes the window, _WM_QUIT_APP asks the application to quit
///   Errors     none reported; without a shell every operation does nothing
class LM_API LmSimpleWindow : public LmComponent {
public:
    /// Whether the window is iconified. The value 2, which has no name, means that there is no shell yet.
    enum IconState : int {
        OPEN = 0,    ///< the shell is mapped
        CLOSED = 1   ///< iconified
    };

    /// Makes the shell and the main window, unrealized, and registers with the application. The arguments (null with 0
    /// for none) go to the shell, as many as fit beside the window's own: 13 in all.
    LmSimpleWindow(const char* name, ArgList args = nullptr, Cardinal argCount = 0);
    ~LmSimpleWindow() override;

    const char* className() override { return "LmSimpleWindow"; }
    /// Builds the view if there is none, realizes the shell and pops it up.
    void show() override;
    /// Pops the shell down.
    void hide() override;
    /// The main window widget, the parent of views; baseWidget() is the shell.
    operator Widget() override { return _mainWindowWidget; }
    void widgetDestroyed() override;
    void afterRealizeHook() override;

    /// De-iconifies the window, unless it was hidden.
    virtual void open();
    /// Raises the window, unless it was hidden.
    virtual void raise();
    virtual void lower();   ///< Lowers the window, if it is realized.
    /// The same as iconify().
    virtual void iconize();
    /// Iconifies the window; before the first show(): it will appear iconified.
    virtual void iconify();
    /// Makes the view now, without showing the window.
    virtual void build();
    virtual Widget mainWindowWidget() { return _mainWindowWidget; }   ///< The XmMainWindow in the shell; null once destroyed.
    /// The work area; null while there is none.
    virtual Widget viewWidget() { return _viewWidget; }
    /// Makes the view as a child of `parent`, the main window widget, and returns it; null (the default): no view.
    virtual Widget setUpInterface(Widget parent);
    /// A hook between realizing the shell and popping it up at the first show().
    virtual void setUpWindowProperties() {}
    /// The window was opened or iconified. Overrides call this one, which stores the state.
    virtual void stateChanged(IconState state) { _iconState = state; }
    /// The window manager's close request: deletes the window if okToQuit() agrees.
    virtual void handleWmDeleteMessage();
    /// The quit request: asks the application to quit.
    virtual void handleWmQuitMessage();
    /// An event that no widget took. Nothing here.
    virtual void handleRawEvent(XEvent*) {}
    /// Blocks input to the window. The application calls it; programs call the application's busy().
    virtual void busy();
    virtual void veryBusy();   ///< The same as busy(); a derived class may show it differently.
    virtual void notBusy();    ///< Lets input through to the window again.

    /// Makes `w` the view and manages it. A view inside a scrolled window of the main window: that one becomes the view.
    void addView(Widget w);
    /// Makes the component's base widget the view, and shows the component.
    void addView(LmComponent* component);
    /// Unmanages the view, if any, and forgets it.
    void removeView();

    /// The shell's title, in the bytes given; owned by the shell, null without one.
    const char* getTitle();
    /// Sets the title: the value of the resource of that name, else the text. With BRAMBLEON_ROOT in the environment, the
    /// last component of its path follows in parentheses.
    void setTitle(const char* title);
    /// Sets the icon's name: the value of the resource of that name, else the text.
    void setIconName(const char* name);
    /// Replaces the class part of the window's WM_CLASS. The window must be realized.
    void setClassHint(const char* resClass);

    IconState iconState() const { return _iconState; }   ///< The state that stateChanged() stored.
    /// 1 after show(), 0 after hide(), build() or addView(), 2 before any of them.
    int visibleState() const { return _visibleState; }
    /// 0 after raise(), 1 after lower(), 2 before either.
    int stackingState() const { return _stackingState; }
    /// Whether the window shows the busy state.
    Boolean isBusy() const { return _busy; }

    /// The protocol callbacks, with the window as client data.
    static void deleteWindowCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// The quit request's callback, with the window as client data.
    static void quitAppCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    /// Follows the shell's MapNotify and UnmapNotify events, with the window as client data.
    static void stateChangedEventHandler(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;

protected:
    /// True only while setUpInterface() runs.
    Boolean buildingInterface() const { return _buildingInterface; }

private:
    void createShell(ArgList args, Cardinal argCount);
    void listenToWindowManager();
    void makeView();
    void showFirstTime();
    void createBusyWindow();
    void publishNames();
    void viewDestroyed();
    void forgetView();

    IconState _iconState = static_cast<IconState>(2);
    int _visibleState = 2;
    int _stackingState = 2;
    Widget _mainWindowWidget = nullptr;
    Boolean _buildingInterface = False;
    Widget _viewWidget = nullptr;
    Window _busyWindow = None;   // dies with the shell's window
    Boolean _busy;
};
