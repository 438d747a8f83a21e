// LmRunOnce: one running instance of a program; a second start hands its arguments over and ends.
#pragma once

#include "LmCallbackObject.h"
#include "LmNameList.h"

#include <X11/Intrinsic.h>

/// Makes a program run once on a display. Make it after the application object and before the windows:
///
///     LmNameList arguments;            // taken before LmApp, which takes the options that Xt knows out of argv
///     LmApp app("Editor", &argc, argv, nullptr, 0);
///     LmRunOnce once(&arguments, False, nullptr, True);
///     once.addCallback(LmRunOnce::invokedCallback, openFiles, nullptr);
///
/// In the first instance the object remembers the arguments and waits; every later start hands its own over and ends with
/// status 0 in this constructor, through terminate() of the application object. Of several programs started at the same
/// moment exactly one stays, and the arguments of each reach it, one start after the other.
///
/// Instances find each other by the selection named after the program, which the application shell of the running one
/// owns. Arguments travel as the property of that name on its window, followed by a client message of that type.
///
///   Callbacks  invokedCallback, when another start was handed over; its arguments are arg(0) to arg(numArgs() - 1); call
///              data: null. A start without arguments leaves those of the one before
///   Errors     none reported. Arguments of more than 1 MB together, and a property that is not text, leave those of
///              the start before, too. When the running instance ends at that moment, the other still ends with status 0.
///              Without the application object the program ends with status 1
class LM_API LmRunOnce : public LmCallbackObject {
public:
    static const char* const invokedCallback;   ///< "invokedCallback"

    /// Stays, or hands over. `args` (null: none) is copied. `perHost`: programs of other hosts on this display do not count.
    /// `name` is what the instances have in common; null or empty: the program's name. `openOnInvoke`: with each start
    /// handed over the windows are opened and raised, or iconified when "-iconic" is among its arguments.
    LmRunOnce(const LmNameList* args, Boolean perHost, const char* name, Boolean openOnInvoke);
    /// Lets another instance run.
    ~LmRunOnce() override;

    const char* className() override { return "LmRunOnce"; }

    /// The number of arguments of the latest start, this one's own at first.
    int numArgs() const { return _arguments.size(); }
    /// A copy of one of them, which the caller frees with `free`; null outside 0..numArgs()-1.
    char* arg(int i) const { return _arguments[i]; }
    /// Does nothing.
    void show() {}
    /// Another start left its message: takes its arguments over, shows the windows, announces.
    void handleClientMessage();

    /// The application shell's event procedure: runs handleClientMessage() for the messages of this program.
    static void handleClientMessageCallback(Widget w, XtPointer clientData, XEvent* event, Boolean* goOn) noexcept;

private:
    Window becomeOwner();
    void handOver(Window owner, const LmNameList* args);
    bool receiveArguments();
    void forgetShell() { _shell = nullptr; }

    Atom _instance = None;   // of the selection, the property and the message
    LmNameList _arguments;
    Boolean _openOnInvoke;
    Widget _shell = nullptr;   // the application's; null once destroyed
};
