#include "LmRunOnce.h"

#include "ArgumentText.h"
#include "LmApp.h"
#include "RequireApplication.h"
#include "support/XErrorTrap.h"
#include "support/handles.h"
#include "support/xt.h"

#include <X11/Xatom.h>

#include <chrono>
#include <string>
#include <thread>

#include <sys/utsname.h>

const char* const LmRunOnce::invokedCallback = "invokedCallback";

using namespace std::chrono_literals;

static constexpr std::size_t longestBlock = 1024 * 1024;   // bytes of arguments
static constexpr std::size_t longestHostName = 100;
static constexpr auto patience = 10s;   // with a running instance that does not read what it was left

/// While it lives, no other client is served.
class ServerGrab {
public:
    explicit ServerGrab(Display* display) : _display(display) { XGrabServer(_display); }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;
    ~ServerGrab()
    {
        XUngrabServer(_display);
        XFlush(_display);
    }

private:
    Display* _display;
};

static std::string instanceName(const char* name, Boolean perHost)
{
    std::string program = name && *name ? name : theApplication->name();
    utsname host = {};
    if (!perHost || uname(&host) != 0)
        return program;
    return std::string(host.nodename).substr(0, longestHostName) + "_" + program;
}

LmRunOnce::LmRunOnce(const LmNameList* args, Boolean perHost, const char* name, Boolean openOnInvoke)
    : _openOnInvoke(openOnInvoke)
{
    lm::requireApplication("LmRunOnce");
    _shell = theApplication->baseWidget();
    if (!XtIsRealized(_shell))
        XtRealizeWidget(_shell);
    lm::on<&LmRunOnce::forgetShell>(_shell, XtNdestroyCallback, this);
    _instance = XInternAtom(XtDisplay(_shell), instanceName(name, perHost).c_str(), False);
    if (const Window owner = becomeOwner()) {
        handOver(owner, args);
        theApplication->terminate(0);
        return;   // a terminate() of the application's own may come back
    }
    if (args)
        _arguments = *args;
    XtAddEventHandler(_shell, NoEventMask, True, handleClientMessageCallback, this);
}

LmRunOnce::~LmRunOnce()
{
    if (!_shell)
        return;
    lm::off<&LmRunOnce::forgetShell>(_shell, XtNdestroyCallback, this);
    XtRemoveEventHandler(_shell, NoEventMask, True, handleClientMessageCallback, this);
    Display* display = XtDisplay(_shell);
    if (XGetSelectionOwner(display, _instance) == XtWindow(_shell))
        XSetSelectionOwner(display, _instance, None, CurrentTime);
}

/// The window of the running instance; None when that is now ours. Most starts find out without stopping the server; only
/// a first one asks again while nobody else can answer the question meanwhile.
Window LmRunOnce::becomeOwner()
{
    Display* display = XtDisplay(_shell);
    if (const Window owner = XGetSelectionOwner(display, _instance))
        return owner;
    const ServerGrab grab(display);
    const Window owner = XGetSelectionOwner(display, _instance);
    if (owner == None)
        XSetSelectionOwner(display, _instance, XtWindow(_shell), CurrentTime);
    return owner;
}

// --- the later start ---------------------------------------------------------------------------------------------------

static bool hasProperty(Display* display, Window window, Atom property)
{
    Atom type = None;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    const int status =
        XGetWindowProperty(display, window, property, 0, 0, False, AnyPropertyType, &type, &format, &items, &left, &data);
    const lm::XString owner(reinterpret_cast<char*>(data));
    return status == Success && type != None;
}

static void write(Display* display, Window window, Atom property, const std::string& block)
{
    XChangeProperty(display, window, property, XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(block.data()), static_cast<int>(block.size()));
}

/// Writes the property when there is none, and says whether it did.
static bool writeUnlessPresent(Display* display, Window window, Atom property, const std::string& block)
{
    const ServerGrab grab(display);
    if (hasProperty(display, window, property))
        return false;
    write(display, window, property, block);
    return true;
}

/// Another start's arguments are not overwritten: the running instance removes the property when it has read it. It may
/// be busy for long, so there is an end to waiting. No event is waited for: the window may be our own, and selecting
/// events on it would undo what Xt selected.
static void leaveArguments(Display* display, Window owner, Atom property, const std::string& block)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (std::chrono::steady_clock::now() < end) {
        if (writeUnlessPresent(display, owner, property, block))
            return;
        std::this_thread::sleep_for(10ms);
    }
    write(display, owner, property, block);
}

void LmRunOnce::handOver(Window owner, const LmNameList* args)
{
    Display* display = XtDisplay(_shell);
    const lm::XErrorTrap trap(display);   // the owner may end at any moment
    const std::string block = args ? lm::joinArguments(*args) : "";
    if (!block.empty() && block.size() <= longestBlock)
        leaveArguments(display, owner, _instance, block);
    XEvent message = {};
    message.xclient.type = ClientMessage;
    message.xclient.window = owner;
    message.xclient.message_type = _instance;
    message.xclient.format = 8;
    XSendEvent(display, owner, False, NoEventMask, &message);
    XFlush(display);
}

// --- the running instance ----------------------------------------------------------------------------------------------

void LmRunOnce::handleClientMessageCallback(Widget, XtPointer clientData, XEvent* event, Boolean*) noexcept
{
    auto* once = static_cast<LmRunOnce*>(clientData);
    if (event->type == ClientMessage && event->xclient.message_type == once->_instance)
        once->handleClientMessage();
}

/// Takes the property over. False when there is none, or none that can be used.
bool LmRunOnce::receiveArguments()
{
    Display* display = XtDisplay(_shell);
    Atom type = None;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(display, XtWindow(_shell), _instance, 0, longestBlock / 4, False, AnyPropertyType, &type, &format,
                           &items, &left, &data) != Success)
        return false;
    const lm::XString block(reinterpret_cast<char*>(data));
    if (type != None)
        XDeleteProperty(display, XtWindow(_shell), _instance);   // the next start may write
    if (type != XA_STRING || format != 8 || left != 0)
        return false;
    _arguments = lm::splitArguments({block.get(), items});
    return true;
}

void LmRunOnce::handleClientMessage()
{
    if (!_shell || !theApplication)
        return;
    const bool received = receiveArguments();
    const lm::Watch here(liveness());
    if (_openOnInvoke) {
        if (received && _arguments.exists("-iconic")) {
            theApplication->iconify();
        } else {
            theApplication->show();
            theApplication->open();
        }
        theApplication->raise();
    }
    if (here)
        callCallbacks(invokedCallback, nullptr);
}
