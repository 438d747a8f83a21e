#include "tests/support/OnScreen.h"

#include "LmRunOnce.h"
#include "support/handles.h"

#include <X11/Xatom.h>

#include <cstring>
#include <memory>
#include <set>

using namespace lmtest;

namespace {

/// One start of tests/programs/once.cpp, with arguments as a shell takes them. It ends with the server at the latest.
struct Start {
    explicit Start(const std::string& arguments) : output(popen((LUMORA_BINARY_DIR "/tests/once " + arguments).c_str(), "re")) {}
    /// The next line of its output; "" at the end.
    std::string line()
    {
        char text[1000] = "";
        return fgets(text, sizeof text, output) ? std::string(text, strcspn(text, "\n")) : "";
    }
    /// What it exits with, when it ends by itself.
    int exitStatus()
    {
        while (!line().empty()) {}
        return WEXITSTATUS(pclose(output));
    }

    FILE* output;
};

/// Another client of the server.
struct Client {
    Display* display = XOpenDisplay(nullptr);
    Atom atom(const std::string& name) { return XInternAtom(display, name.c_str(), False); }
    Window ownerOf(const std::string& name) { return XGetSelectionOwner(display, atom(name)); }
    Window own(const std::string& name)
    {
        const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display, atom(name), window, CurrentTime);
        XSync(display, False);
        return window;
    }
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

/// A start in a child process; after that many of its requests `happens` is called with another connection.
/// 0: it handed over; 5: it became the running instance.
int startDuringWhich(int requests, void (*happens)(Client&))
{
    static int requestsLeft = 0;
    static void (*action)(Client&) = nullptr;
    requestsLeft = requests, action = happens;
    return exitStatusOf([] {
        LmApp application("LmTest", nullptr, nullptr, nullptr, 0);
        static auto& other = *new Client;
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

using RunOnceOnScreen = OnScreen;

}   // namespace

TEST(RunOnce, ASecondStartHandsItsArgumentsOverAndEnds)
{
    Start first("-open -iconic own");
    ASSERT_EQ(first.line(), "running");

    EXPECT_EQ(Start("").exitStatus(), 0);
    EXPECT_EQ(first.line(), "show open raise invoked <-open> <-iconic> <own>");
    EXPECT_EQ(Start("'two words' '' \xC3\xA4rger -iconic ''").exitStatus(), 0);
    EXPECT_EQ(first.line(), "iconify raise invoked <two words> <> <\xC3\xA4rger> <-iconic> <>");
    Start perHost("-perhost");
    EXPECT_EQ(perHost.line(), "running") << "another name";
    EXPECT_EQ(Start("-perhost -iconic").exitStatus(), 0);
    EXPECT_EQ(perHost.line(), "invoked <-perhost> <-iconic>") << "windows are left alone";
    Start("-perhost -end").exitStatus();
    Start("-end").exitStatus();
    EXPECT_EQ(first.exitStatus(), 0);
}

TEST(RunOnce, OfTwentyStartsAtOnceOneStaysAndHearsOfTheOthers)
{
    std::vector<Start> starts;
    std::set<std::string> expected, heard;
    for (int i = 0; i < 20; ++i)
        starts.emplace_back(std::to_string(i));
    Start* running = nullptr;
    for (Start& start : starts) {
        if (start.line() == "running")
            EXPECT_EQ(std::exchange(running, &start), nullptr) << "two are running";
        else
            expected.insert("invoked <" + std::to_string(&start - starts.data()) + ">" + (start.exitStatus() ? "!" : ""));
    }
    ASSERT_NE(running, nullptr);
    for (int i = 1; i < 20; ++i)
        heard.insert(running->line());
    EXPECT_EQ(heard, expected);
    Start("-end").exitStatus();
}

TEST(RunOnce, OthersMayComeFirstOrEndAtAnyMoment)
{
    for (int requests = 1; requests <= 2; ++requests)   // before it asks for the owner, and between question and claim
        EXPECT_EQ(startDuringWhich(requests, [](Client& other) { other.own("other"); }), 0) << requests;
    static auto& client = *new Client;   // the children leave through exit() and must not close our connection
    static Window owner;
    int handedOver = 0;
    for (int requests = 1; requests <= 8; ++requests) {
        owner = client.own("other");
        const int status = startDuringWhich(requests, [](Client& other) {
            XDestroyWindow(other.display, owner);
            XFlush(other.display);   // served at once, or when the server is free again
        });
        EXPECT_TRUE(status == 0 || status == 5) << status << " after " << requests;
        handedOver += status == 0;
    }
    EXPECT_GE(handedOver, 3);
}

TEST_F(RunOnceOnScreen, OnlyGoodArgumentsReplaceThoseOfTheStartBefore)
{
    LmNameList own("own");
    auto once = std::make_unique<LmRunOnce>(&own, False, nullptr, False);
    const std::string megabyte(1024 * 1024, 'x');
    invokeByHand(XA_INTEGER, 8, "new");
    invokeByHand(XA_STRING, 32, std::string(16, 'x'));
    invokeByHand(XA_STRING, 8, megabyte + "x");
    EXPECT_STREQ(lm::CString(once->arg(0)).get(), "own");
    invokeByHand(XA_STRING, 8, megabyte);
    EXPECT_EQ(lm::CString(once->arg(0)).get(), megabyte);
    const auto deleteIt = [](LmCallbackObject*, void* object, void*) { static_cast<decltype(once)*>(object)->reset(); };
    once->addCallback(LmRunOnce::invokedCallback, deleteIt, &once);
    invokeByHand(XA_STRING, 8, "last");
    EXPECT_EQ(once, nullptr);
    EXPECT_EQ(Client().ownerOf("lmtest"), None);
}
