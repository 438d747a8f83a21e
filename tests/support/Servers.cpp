// Servers.cpp: children that die with us, and how we learn that they are ready without ever sleeping.
#include "tests/support/Servers.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lmtest {

constexpr int patience = 30000;   // ms; a machine under load may need that; an idle one needs 0.1 s

[[noreturn]] static void giveUp(const char* why)
{
    std::fprintf(stderr, "tests: %s\n", why);
    _exit(99);
}

/// False when nothing came to read for so long.
static bool readable(int fd)
{
    pollfd entry{fd, POLLIN, 0};
    int ready = 0;
    while ((ready = poll(&entry, 1, patience)) < 0 && errno == EINTR) {}
    return ready > 0;
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
    std::vector<std::string> command{"Xvfb", "-displayfd", std::to_string(ready[1]), "-screen", "0", screen};
    command.insert(command.end(), {"-noreset", "-nolisten", "tcp"});
    command.insert(command.end(), arguments.begin(), arguments.end());
    _process = startChild(command, SIGTERM, ready[1]);
    close(ready[1]);
    char byte;
    while (readable(ready[0]) && read(ready[0], &byte, 1) == 1 && byte != '\n')
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
    int count = 0;
    const std::unique_ptr<Atom[], int (*)(void*)> all(XListProperties(display, DefaultRootWindow(display), &count), XFree);
    return std::count(all.get(), all.get() + count, property) > 0;
}

/// Waits, on a connection of its own, until the root window carries the property by which Motif knows its window manager.
static bool windowManagerAppears()
{
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return false;
    const Atom property = XInternAtom(display, "_MOTIF_WM_INFO", False);
    XSelectInput(display, DefaultRootWindow(display), PropertyChangeMask);
    bool appeared = false;
    while (!(appeared = rootHas(display, property)) && (XPending(display) > 0 || readable(ConnectionNumber(display))))
        XSync(display, True);
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
