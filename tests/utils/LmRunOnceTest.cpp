#include "tests/support/OnScreen.h"

#include "LmRunOnce.h"
#include "support/handles.h"

#include <X11/Xatom.h>

#include <algorithm>
#include <chrono>
#include <memory>

#include <fcntl.h>
#include <poll.h>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace lmtest;

namespace {

constexpr const char* program = LUMORA_BINARY_DIR "/tests/once";
constexpr int patience = 60000;   // milliseconds

/// One start of tests/programs/once.cpp. It ends with this object at the latest.
class Start {
public:
    explicit Start(std::vector<std::string> arguments)
    {
        int input[2] = {}, output[2] = {};
        EXPECT_EQ(pipe2(input, O_CLOEXEC) + pipe2(output, O_CLOEXEC), 0);
        arguments.insert(arguments.begin(), program);
        std::vector<char*> vector;
        for (std::string& argument : arguments)
            vector.push_back(argument.data());
        vector.push_back(nullptr);
        _process = fork();
        if (_process == 0) {
            dup2(input[0], STDIN_FILENO);
            dup2(output[1], STDOUT_FILENO);
            execv(program, vector.data());
            _exit(127);
        }
        for (int end : {input[0], output[1]})
            close(end);
        _input = lm::FileDescriptor(input[1]);
        _output = lm::FileDescriptor(output[0]);
    }
    ~Start() { end(); }

    /// The next line of its output; "" at the end.
    std::string line()
    {
        std::string text;
        char byte = 0;
        pollfd ready = {_output.get(), POLLIN, 0};
        while (poll(&ready, 1, patience) == 1 && read(_output.get(), &byte, 1) == 1 && byte != '\n')
            text += byte;
        return text;
    }
    /// Has it end if it still runs; its exit status, or -1 when it was killed.
    int end()
    {
        _input = lm::FileDescriptor();
        return exitStatus();
    }
    /// Waits until it ends by itself.
    int exitStatus()
    {
        if (_process > 0) {
            waitpid(_process, &_status, 0);
            _process = -1;
        }
        return WIFEXITED(_status) ? WEXITSTATUS(_status) : -1;
    }

private:
    pid_t _process = -1;
    int _status = 0;
    lm::FileDescriptor _input, _output;
};

std::string argumentsOf(const LmRunOnce& once)
{
    std::string text;
    for (int i = 0; i < once.numArgs(); ++i)
        text.append(lm::CString(once.arg(i)).get()).append("|");
    return text;
}

/// Another client of the server.
struct Client {
    Display* display = XOpenDisplay(nullptr);
    Atom atom(const std::string& name) { return XInternAtom(display, name.c_str(), False); }
    Window ownerOf(const std::string& name) { return XGetSelectionOwner(display, atom(name)); }
    ~Client() { XCloseDisplay(display); }
};

/// Starts the program again by hand, with a property of any kind.
void invokeByHand(Atom type, int format, const std::string& data)
{
    Client client;
    const Window owner = client.ownerOf("lmtest");
    XChangeProperty(client.display, owner, client.atom("lmtest"), type, format, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(data.data()), static_cast<int>(data.size()) / (format / 8));
    XEvent message = {};
    message.xclient = {ClientMessage, 0, False, client.display, owner, client.atom("lmtest"), 8, {}};
    XSendEvent(client.display, owner, False, NoEventMask, &message);
    XSync(client.display, False);
    settle();
}

/// A start of the instance "other" in a child process. After that many of its requests `happens` is called with another
/// connection. 0: it handed over; 5: it became the running instance.
int startDuringWhich(int requests, void (*happens)(Display*))
{
    static int requestsLeft;
    static void (*action)(Display*);
    requestsLeft = requests;
    action = happens;
    return exitStatusOf([] {
        static char* arguments[] = {nullptr};
        int count = 0;
        LmApp application("LmTest", &count, arguments, nullptr, 0);
        static Display* const other = XOpenDisplay(nullptr);
        XSetAfterFunction(application.display(), [](Display*) {
            if (--requestsLeft == 0)
                action(other);
            return 0;
        });
        const LmNameList words("words");
        const LmRunOnce once(&words, False, "other", False);
        XSetAfterFunction(application.display(), nullptr);
        _exit(5);
    });
}

Window ownersWindow(Display* display)
{
    const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(display, XInternAtom(display, "other", False), window, CurrentTime);
    XSync(display, False);
    return window;
}

struct RunOnceOnScreen : OnScreen {};

}   // namespace

TEST_F(RunOnceOnScreen, ASecondStartHandsItsArgumentsOverAndEnds)
{
    Start first({"own"});
    ASSERT_EQ(first.line(), "running");

    EXPECT_EQ(Start({"two words", "", "\xC3\xA4rger", "-iconic", ""}).exitStatus(), 0);
    EXPECT_EQ(first.line(), "invoked <two words> <> <\xC3\xA4rger> <-iconic> <>");
    EXPECT_EQ(Start({}).exitStatus(), 0);
    EXPECT_EQ(first.line(), "invoked <two words> <> <\xC3\xA4rger> <-iconic> <>");
    EXPECT_EQ(Start({""}).exitStatus(), 0);
    EXPECT_EQ(first.line(), "invoked <>");
    Start perHost({"-perhost"});
    EXPECT_EQ(perHost.line(), "running") << "another name";
    EXPECT_EQ(Start({"-perhost", "x"}).exitStatus(), 0);
    EXPECT_EQ(perHost.line(), "invoked <-perhost> <x>");

    first.end();
    EXPECT_EQ(Start({"own"}).line(), "running");
}

TEST_F(RunOnceOnScreen, WindowsAreOpenedOrIconifiedWhenAsked)
{
    Start first({"-open", "-iconic"});
    ASSERT_EQ(first.line(), "running");
    Start({}).exitStatus();
    EXPECT_EQ(first.line(), "invoked show open raise <-open> <-iconic>");
    Start({"file", "-iconic"}).exitStatus();
    EXPECT_EQ(first.line(), "invoked iconify raise <file> <-iconic>");
    Start({"file"}).exitStatus();
    EXPECT_EQ(first.line(), "invoked show open raise <file>");
}

TEST_F(RunOnceOnScreen, OfTwentyStartsAtOnceOneStaysAndHearsOfTheOthers)
{
    constexpr int count = 20;
    std::vector<std::unique_ptr<Start>> starts;
    std::vector<std::string> expected, heard;
    for (int i = 0; i < count; ++i)
        starts.push_back(std::make_unique<Start>(std::vector<std::string>{"start", std::to_string(i)}));
    Start* running = nullptr;
    for (int i = 0; i < count; ++i) {
        const std::string said = starts[static_cast<std::size_t>(i)]->line();   // a line, or the end
        if (said == "running") {
            EXPECT_EQ(std::exchange(running, starts[static_cast<std::size_t>(i)].get()), nullptr) << "two are running";
            continue;
        }
        EXPECT_EQ(said, "");
        EXPECT_EQ(starts[static_cast<std::size_t>(i)]->exitStatus(), 0);
        expected.push_back("invoked <start> <" + std::to_string(i) + ">");
    }
    ASSERT_NE(running, nullptr);
    for (int i = 1; i < count; ++i)
        heard.push_back(running->line());
    std::ranges::sort(expected);
    std::ranges::sort(heard);
    EXPECT_EQ(heard, expected);
}

TEST_F(RunOnceOnScreen, OnlyGoodArgumentsReplaceThoseOfTheStartBefore)
{
    LmNameList own("own");
    auto once = std::make_unique<LmRunOnce>(&own, False, nullptr, False);
    const Heard invoked(*once, LmRunOnce::invokedCallback);
    const std::string megabyte(1024 * 1024, 'x');
    invokeByHand(XA_INTEGER, 8, "new");
    invokeByHand(XA_STRING, 32, std::string(16, 'x'));
    invokeByHand(XA_STRING, 8, megabyte + "x");
    EXPECT_EQ(argumentsOf(*once), "own|");
    invokeByHand(XA_STRING, 8, std::string("new\0list", 8));
    EXPECT_EQ(argumentsOf(*once), "new|list|");
    invokeByHand(XA_STRING, 8, megabyte);
    EXPECT_EQ(argumentsOf(*once), megabyte + "|");
    EXPECT_EQ(invoked.values.size(), 5U);

    once->addCallback(
        LmRunOnce::invokedCallback,
        [](LmCallbackObject*, void* owner, void*) { static_cast<std::unique_ptr<LmRunOnce>*>(owner)->reset(); }, &once);
    const Window shell = XtWindow(app().baseWidget());
    EXPECT_EQ(Client().ownerOf("lmtest"), shell);
    invokeByHand(XA_STRING, 8, "last");
    EXPECT_EQ(once, nullptr);
    EXPECT_EQ(Client().ownerOf("lmtest"), None);

    utsname host = {};
    uname(&host);
    const LmRunOnce perHost(nullptr, True, "", False);
    EXPECT_EQ(perHost.numArgs(), 0);
    EXPECT_EQ(Client().ownerOf(std::string(host.nodename).substr(0, 100) + "_lmtest"), shell);
}

/// Before it looks for an owner, and between its question and its claim.
TEST(RunOnce, AnotherInstanceMayComeFirst)
{
    for (int requests = 1; requests <= 2; ++requests)
        EXPECT_EQ(startDuringWhich(requests, [](Display* other) { ownersWindow(other); }), 0) << requests;
    EXPECT_EQ(startDuringWhich(1, [](Display*) {}), 5);
}

/// Before it looks for the owner, after that, and while it writes.
TEST(RunOnce, AnOwnerMayVanishAtAnyMoment)
{
    static auto& client = *new Client;   // the children leave through exit() and must not close our connection
    static Window window;
    int handedOver = 0;
    for (int requests = 1; requests <= 8; ++requests) {
        window = ownersWindow(client.display);
        const int status = startDuringWhich(requests, [](Display* other) {
            XDestroyWindow(other, window);
            XFlush(other);   // served at once, or when the server is free again
        });
        EXPECT_TRUE(status == 0 || status == 5) << status << " after " << requests;
        handedOver += status == 0;
    }
    EXPECT_GE(handedOver, 3);
}
