// Servers.cpp: children that die with us, and how we learn that they are ready without ever sleeping.
#include "tests/support/Servers.h"

#include <X11/Xlib.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lmtest {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds patience{30};   // a machine under load may need that; an idle one needs 0.1 s

[[noreturn]] static void giveUp(const char* why)
{
    std::fprintf(stderr, "tests: %s\n", why);
    _exit(99);
}

/// False when nothing came to read before the deadline.
static bool readable(int fd, Clock::time_point deadline)
{
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0)
            return false;
        pollfd entry{fd, POLLIN, 0};
        const int ready = poll(&entry, 1, static_cast<int>(left));
        if (ready > 0)
            return true;
        if (ready < 0 && errno != EINTR)
            return false;
    }
}

/// Runs a program that gets `deathSignal` when this process ends, however it ends. `kept` stays open in it, -1 for none.
static pid_t startChild(const std::vector<std::string>& command, int deathSignal, int kept)
{
    std::vector<char*> words;
    for (const std::string& word : command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child != 0)
        return child;
    prctl(PR_SET_PDEATHSIG, deathSignal);
    if (getppid() != parent)   // it ended before the request was made
        _exit(0);
    const int null = open("/dev/null", O_RDWR);
    for (int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(null, fd);   // else a pipeline around the test waits for the child
    if (kept >= 0)
        fcntl(kept, F_SETFD, 0);
    execvp(words[0], words.data());
    _exit(127);
}

Server::Server(const std::string& screen, const std::vector<std::string>& arguments) : _owner(getpid()), _displayName(":")
{
    int ready[2];
    if (pipe2(ready, O_CLOEXEC) != 0)
        giveUp("no pipe for the X server");
    // The server picks a free number itself and reports it when it accepts clients.
    std::vector<std::string> command{"Xvfb",      "-displayfd", std::to_string(ready[1]), "-screen", "0", screen, "-noreset",
                                     "-nolisten", "tcp"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    _process = startChild(command, SIGTERM, ready[1]);
    close(ready[1]);
    const auto deadline = Clock::now() + patience;
    char byte;
    while (readable(ready[0], deadline) && read(ready[0], &byte, 1) == 1 && byte != '\n')
        _displayName += byte;
    close(ready[0]);
    if (_process < 0 || _displayName == ":")
        giveUp("no X server: is xvfb installed?");
}

static void end(pid_t process, int signal)
{
    kill(process, signal);
    while (waitpid(process, nullptr, 0) < 0 && errno == EINTR)
        ;
}

Server::~Server()
{
    if (_process > 0 && getpid() == _owner)
        end(_process, SIGTERM);
}

void Server::crash()
{
    if (_process > 0)
        end(_process, SIGKILL);
    _process = -1;
    // Killed so, it could not remove its lock; later servers would skip the number for ever.
    const std::string number = _displayName.substr(1);
    unlink(("/tmp/.X" + number + "-lock").c_str());
    unlink(("/tmp/.X11-unix/X" + number).c_str());
}

Server& server()
{
    static Server* const ours = new Server;   // never deleted: it dies with the process, a forked child must not end it
    return *ours;
}

static bool rootHas(Display* display, Atom property)
{
    Atom type = None;
    int format;
    unsigned long count, rest;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), property, 0, 0, False, AnyPropertyType, &type, &format, &count, &rest,
                       &data);
    XFree(data);
    return type != None;
}

/// Waits, on a connection of its own, until the root window carries the property by which Motif knows its window manager.
static bool windowManagerAppears()
{
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return false;
    const Atom property = XInternAtom(display, "_MOTIF_WM_INFO", False);
    XSelectInput(display, DefaultRootWindow(display), PropertyChangeMask);
    const auto deadline = Clock::now() + patience;
    bool appeared = rootHas(display, property);
    while (!appeared && (XPending(display) > 0 || readable(ConnectionNumber(display), deadline))) {
        XEvent event;
        while (XPending(display) > 0)
            XNextEvent(display, &event);
        appeared = rootHas(display, property);
    }
    XCloseDisplay(display);
    return appeared;
}

void startWindowManager()
{
    static pid_t process = -1;
    if (process > 0)
        return;
    process = startChild({"mwm"}, SIGKILL, -1);   // at SIGTERM mwm may lock up in its own handler
    if (process < 0 || !windowManagerAppears())
        giveUp("no window manager: is mwm installed?");
}

}   // namespace lmtest
