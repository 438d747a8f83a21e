// LmDialogManager: the base of every dialog.
#pragma once

#include "LmComponent.h"
#include "LmWidgetList.h"

#include <memory>
#include <string>
#include <vector>

class LmSimpleWindow;

/// One entry of a dialog manager's cache: a dialog and the parent it was made for. When the dialog is destroyed the entry
/// stays, empty. Deleting an entry destroys its dialog.
class LM_API LmDialog {
public:
    /// An entry for a dialog that was made for that parent. The dialog is the entry's from now on.
    LmDialog(Widget dialog, Widget parent);
    LmDialog(const LmDialog&) = delete;
    LmDialog& operator=(const LmDialog&) = delete;
    virtual ~LmDialog();

    Widget dialog() const { return _dialog; }             ///< null once destroyed
    Widget parent() const { return _parent; }             ///< the widget that the dialog was made for; null once destroyed
    Widget applyButton() const { return _applyButton; }   ///< the Apply button added to a message box; null if none
    LmDialog* next() const { return _next; }              ///< the next entry of the cache; null at its end

private:
    friend class LmDialogManager;
    void destroyHandler();
    void fill(Widget dialog, Widget parent);
    void clear();

    Widget _dialog = nullptr;
    Widget _parent = nullptr;
    Widget _applyButton = nullptr;
    LmDialog* _next = nullptr;
};

/// One kind of dialog (error, question, preferences ...), posted as often as needed.
///
/// A manager makes its Motif dialogs late, through createDialog(), keeps one for each parent and uses it again. A posting
/// fills in message, title and buttons, places the dialog over its parent, and either returns at once (post, postModal)
/// or runs events until the user has answered (postBlocked, postAndWait). Posting over a parent whose dialog is up makes
/// an extra dialog, which dies when it is taken down.
///
///   Widgets    the derived class's dialog (base widget: the first one made); "Apply", a push button gadget added to a
///              message box that shows Apply
///   Resources  of the dialog: "dialogTitle" "DialogTitle" XmString, default the program's name; "okLabelString",
///              "cancelLabelString", "applyLabelString", and "filterLabelString" of file selection boxes, "LabelString"
///              XmString: the buttons' labels, default "OK", "Cancel", "Apply", "Filter".
///              A message without a space and with fewer than 25 periods is the name and class of an XmString resource of
///              the dialog that holds the text; default the message itself. Titles and labels given for one posting
///              are names of such resources, too.
///   Callbacks  prepostCallback, before a dialog appears; call data: the dialog widget
///   Errors     a parent that is gone or iconified is replaced by the main window, or the application's shell. A dialog
///              destroyed while it waits answers REASON_NONE. When createDialog() makes nothing, nothing is posted.
class LM_API LmDialogManager : public LmComponent {
public:
    /// What the user answered.
    enum LmDialogReason : int {
        REASON_CANCEL = 0,
        REASON_OK = 1,
        REASON_APPLY = 2,
        REASON_NONE = 3   ///< no answer yet, or the dialog was destroyed without one
    };

    static const char* prepostCallback;   ///< "prepostCallback"

    /// No widget is made before the first posting.
    explicit LmDialogManager(const char* name);
    ~LmDialogManager() override;

    const char* className() override { return "LmDialogManager"; }
    /// Posts with everything at its default.
    void show() override;
    /// Takes the newest posted dialog down.
    void hide() override;

    /// Has the window manager's close request act as Cancel. Called once for each dialog made.
    virtual void setUpWindowManagerProperties(Widget dialog);
    /// Finds the dialog and fills it for one posting, with the application busy; waitForDialog() is to follow. Null, and
    /// not busy, when no dialog could be made. The strings are copied, but for `helpString`, which must live as long as
    /// the dialog is up.
    virtual Widget prepost(const char* message, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB,
                           XtPointer clientData, const char* helpString, LmSimpleWindow* parentWindow);
    /// OK was pressed in the dialog: records the answer, and takes the dialog down unless it is kept.
    virtual void ok(Widget dialog, XtPointer callData);
    /// Cancel was pressed, or the dialog closed by the window manager: the same.
    virtual void cancel(Widget dialog, XtPointer callData);
    /// Apply was pressed: records the answer and leaves the dialog up.
    virtual void apply(Widget dialog, XtPointer callData);
    /// Makes a dialog below `parent`; the manager owns it. Null: nothing is posted.
    virtual Widget createDialog(Widget parent) = 0;
    /// Posts without keeping the user from other windows. `message` null keeps the dialog's text. A callback that is given
    /// shows its button; `clientData` is theirs. Over `parentWidget`, else over `parentWindow` (both may be null).
    /// Returns the dialog, null when there is none.
    virtual Widget post(const char* message, XtCallbackProc okCB = nullptr, XtCallbackProc cancelCB = nullptr,
                        XtCallbackProc applyCB = nullptr, XtPointer clientData = nullptr, const char* helpString = nullptr,
                        LmSimpleWindow* parentWindow = nullptr, Widget parentWidget = nullptr);
    /// The same; until the dialog goes, no other window of the application takes input.
    virtual Widget postModal(const char* message, XtCallbackProc okCB = nullptr, XtCallbackProc cancelCB = nullptr,
                             XtCallbackProc applyCB = nullptr, XtPointer clientData = nullptr, const char* helpString = nullptr,
                             LmSimpleWindow* parentWindow = nullptr, Widget parentWidget = nullptr);
    /// The same, and runs events until the dialog is down. Returns null when the dialog was destroyed meanwhile.
    virtual Widget postBlocked(const char* message, XtCallbackProc okCB = nullptr, XtCallbackProc cancelCB = nullptr,
                               XtCallbackProc applyCB = nullptr, XtPointer clientData = nullptr, const char* helpString = nullptr,
                               LmSimpleWindow* parentWindow = nullptr, Widget parentWidget = nullptr);
    /// Posts modally, runs events until the user has answered, and returns the answer. The three flags say which buttons
    /// this posting shows: 1 shown, 0 not, negative as the manager has it.
    virtual LmDialogReason postAndWait(const char* message, int showOK, int showCancel, int showApply, const char* helpString,
                                       LmSimpleWindow* parentWindow, Widget parentWidget);
    /// The help button was pressed, with the posting's help string. Nothing here.
    virtual void help(const char* helpString);

    /// The long form without callbacks.
    Widget prepost(const char* message, const char* helpString, LmSimpleWindow* parentWindow);
    /// The long form with the manager's buttons. (A null third argument needs a cast.)
    LmDialogReason postAndWait(const char* message, const char* helpString, LmSimpleWindow* parentWindow);
    /// The long form with the manager's buttons, over a widget.
    LmDialogReason postAndWait(const char* message, const char* helpString, Widget parentWidget);

    /// Takes the newest posted dialog down, if any.
    void unpost();
    /// Takes a dialog down: a cached one is kept for the next posting, an extra one destroyed. Null: nothing.
    void unpost(Widget dialog);
    /// Takes every posted dialog down.
    void unpostAll();
    /// The newest posted dialog, or null.
    Widget lastPosted() const;
    /// The answer of the present or last posting.
    LmDialogReason action() const { return _action; }

    /// The title of the next posting only; null: the default.
    void setTitle(const char* title);
    /// The button labels of the next posting only; null: the default.
    void setButtonLabels(const char* ok, const char* cancel, const char* apply);

    /// Whether OK is shown even without a callback of its own. Initially so.
    void setShowOK(bool show) { _showOK = show; }
    /// Whether Cancel is shown without a callback of its own. Initially so.
    void setShowCancel(bool show) { _showCancel = show; }
    /// Whether Apply is. Initially not.
    void setShowApply(bool show) { _showApply = show; }
    /// Whether each parent has a dialog of its own (initially true), or one dialog serves all.
    void setAllowMultipleDialogs(bool allow) { _allowMultipleDialogs = allow; }
    /// Whether a dialog that is up is used again instead of another one. Initially false.
    void setReusePostedDialog(bool reuse) { _reusePostedDialog = reuse; }
    /// Whether OK and Cancel leave the dialog up; waiting postings then end with any recorded answer. Initially false.
    void setKeepPosted(bool keep) { _keepPosted = keep; }
    /// Whether the main window never serves as the parent. Initially false.
    void setSkipMainWindow(bool skip) { _skipMainWindow = skip; }

    /// The dialog to use for a parent; made when there is none idle. Null when createDialog() makes none.
    Widget findDialog(Widget parent);
    /// The window's shell if it is open, else the main window's if that is shown, else the application's.
    Widget findValidParent(LmSimpleWindow* window) const;
    /// Shows a dialog that prepost() filled, waits until it is drawn, and ends the busy state of prepost().
    void waitForDialog(Widget dialog, LmSimpleWindow* parentWindow, Widget parentWidget);
    /// Empties the cache entry of a dialog; the dialog is then no longer used.
    void clearCache(Widget dialog);
    /// The cache entry of a dialog, or null.
    LmDialog* getCacheInfo(Widget dialog) const;

    /// The Xt procedures behind the buttons, with the manager as client data: of OK.
    static void okXtCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;
    static void cancelXtCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;   ///< Of Cancel.
    static void applyXtCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;    ///< Of Apply.
    static void helpXtCallback(Widget w, XtPointer clientData, XtPointer callData) noexcept;     ///< Of Help.
    /// The close request's procedure, with the dialog as client data: runs the dialog's cancel callbacks.
    static void handleWMDeleteCallback(Widget shell, XtPointer clientData, XtPointer callData) noexcept;
    /// The map callback of a dialog, with the parent as client data: places the dialog.
    static void LmDialogMapped(Widget dialog, XtPointer clientData, XtPointer callData) noexcept;

protected:
    /// Records the answer given in a dialog, for action() and for whoever waits for that dialog.
    void recordAnswer(Widget dialog, LmDialogReason reason);

    LmDialogReason _action = REASON_NONE;   ///< the answer of the present or last posting
    bool _showOK = true;                    ///< whether OK is shown without a callback of its own
    bool _showCancel = true;                ///< whether Cancel is
    bool _showApply = false;                ///< whether Apply is
    bool _allowMultipleDialogs = true;      ///< one dialog for each parent, or one for all
    bool _reusePostedDialog = false;        ///< whether a dialog that is up is used again
    bool _keepPosted = false;               ///< whether OK and Cancel leave the dialog up
    Widget _parentWidget = nullptr;         ///< for the next posting only
    LmWidgetList _postedDialogs;            ///< oldest first
    bool _skipMainWindow = false;           ///< whether the main window never serves as the parent

private:
    struct Wait;   // a posting that runs events until it is answered

    Widget newDialog(Widget parent);
    Widget idleOrNewDialog(Widget parent);
    LmDialog* entryOf(Widget parent) const;
    void remember(Widget dialog, Widget parent);
    void fillTitle(Widget dialog);
    void fillButtons(Widget dialog, XtCallbackProc okCB, XtCallbackProc cancelCB, XtCallbackProc applyCB, XtPointer clientData,
                     const char* helpString);
    Widget applyButtonOf(Widget dialog, bool wanted);
    Widget present(Widget dialog, unsigned char style, LmSimpleWindow* parentWindow, Widget parentWidget);
    void presentAndWait(Wait& wait, LmSimpleWindow* parentWindow, Widget parentWidget);
    void untilAnswered(Wait& wait);
    LmDialogReason waitForAnswer(const char* message, const char* helpString, LmSimpleWindow* parentWindow, Widget parentWidget);

    std::string _title, _okLabel, _cancelLabel, _applyLabel;   // for the next posting only; empty: the default
    LmDialog* _cache = nullptr;                                // first entry; owned
    std::vector<Wait*> _waits;                                 // innermost last
};

/// Centres a dialog over its parent, when both have windows. Without `force` a dialog that lies within the parent stays,
/// and so does one that would leave the screen on the left or at the top.
LM_API void LmRepositionDialog(Widget dialog, Widget parent, bool force);
