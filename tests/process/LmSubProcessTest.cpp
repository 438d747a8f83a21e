#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmExecCommand.h"
#include "LmInput.h"
#include "LmPipe.h"
#include "LmProgram.h"
#include "LmSubProcess.h"
#include "LmWarningDialog.h"
#include "pfm.h"
#include "support/handles.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace lmtest;

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int share = 10;   // of the long runs
#else
constexpr int share = 1;
#endif

/// What one command wrote and how it ended. Reads as an application should: until EAGAIN, and no more after the end.
struct Job {
    explicit Job(const std::string& command, int wantInput = 0, bool captured = true)
        : process(LmSubProcessRep::create(command.c_str(), 0, wantInput))
    {
        if (captured) {
            process->addCallback(LmSubProcessRep::stdoutCallback, read, &out);
            process->addCallback(LmSubProcessRep::stderrCallback, read, &err);
        }
        process->addCallback(LmSubProcessRep::exitCallback, ended, this);
        process->run();
    }
    Job& untilExit()
    {
        settleUntil([this] { return !exits.empty(); }, 30000);
        return *this;
    }
    static void read(LmCallbackObject*, void* text, void* data)
    {
        auto* input = static_cast<LmInput*>(data);
        char bytes[4096];
        ssize_t count = 0;
        while ((count = ::read(input->fd(), bytes, sizeof bytes)) > 0)
            static_cast<std::string*>(text)->append(bytes, static_cast<std::size_t>(count));
        if (count == 0)
            input->remove();
    }
    static void readSome(LmCallbackObject*, void* text, void* data)
    {
        char bytes[1024];
        const ssize_t count = ::read(static_cast<LmInput*>(data)->fd(), bytes, sizeof bytes);
        static_cast<std::string*>(text)->append(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    static void ended(LmCallbackObject*, void* me, void* status) { static_cast<Job*>(me)->exits.push_back(lm::asInt(status)); }

    std::string out, err;
    std::vector<int> exits;
    RPtr_LmSubProcessRep process;
};

/// Our open descriptors.
std::set<int> descriptors()
{
    std::set<int> open;
    for (int fd = 0; fd < 1024; ++fd) {
        if (fcntl(fd, F_GETFD) != -1)
            open.insert(fd);
    }
    return open;
}

/// The lowest number that no descriptor has.
rlim_t firstFree()
{
    const lm::FileDescriptor next(open("/dev/null", O_RDONLY));
    return static_cast<rlim_t>(next.get());
}

/// No child has ended without having been taken up.
bool noZombies()
{
    siginfo_t child = {};
    return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == -1 || child.si_pid == 0;
}

/// A field of /proc/PID/status.
std::string fieldOf(const std::string& status, const std::string& name)
{
    const auto at = status.find("\n" + name + ":");
    std::istringstream rest(at == std::string::npos ? "" : status.substr(at + name.size() + 2));
    std::string value;
    rest >> value;
    return value;
}

bool isStopped(int pid)
{
    std::ifstream file("/proc/" + std::to_string(pid) + "/status");
    const std::string status{std::istreambuf_iterator<char>(file), {}};
    return fieldOf(status, "State") == "T";
}

/// Keeps a limit while it lives.
struct Limit {
    Limit(__rlimit_resource what, rlim_t value) : resource(what)
    {
        getrlimit(resource, &before);
        const rlimit lower = {value, before.rlim_max};
        setrlimit(resource, &lower);
    }
    ~Limit() { setrlimit(resource, &before); }
    __rlimit_resource resource;
    rlimit before{};
};

std::string takeWarning()
{
    Widget dialog = getTheWarningDialog()->lastPosted();
    const std::string text = dialog ? textOf(dialog, XmNmessageString) : "";
    getTheWarningDialog()->unpost();
    return text;
}

using SubProcessOnScreen = OnScreen;
using SubProcessLongRun = OnScreen;

}   // namespace

TEST_F(SubProcessOnScreen, WhatAChildReadsWritesAndAnswersArrives)
{
    Job("true").untilExit();   // the first one opens the library's own pipe
    const auto before = descriptors();
    {
        Job run("sh -c 'cat; echo no >&2; exit 3'", 1);
        EXPECT_GT(run.process->pid(), 0);
        const int fd = run.process->inputFd();
        ASSERT_EQ(write(fd, "hello\n", 6), 6);
        const lm::FileDescriptor null(open("/dev/null", O_RDONLY | O_CLOEXEC));
        const lm::FileDescriptor stranger(dup3(null.get(), fd, O_CLOEXEC));   // closed by hand, and the number is taken
        run.untilExit();
        EXPECT_EQ(run.out + run.err, "hello\nno\n");
        EXPECT_EQ(run.exits, std::vector<int>{3 << 8});
        EXPECT_EQ(run.process->exitStatus(), 3 << 8);
        EXPECT_EQ(run.process->pid(), 0);
        run.process->signal(SIGTERM);   // is not running: nothing happens
        run.process->run();             // has run
        EXPECT_EQ(run.process->pid(), 0);
        run.process = {};
        EXPECT_NE(fcntl(stranger.get(), F_GETFD), -1);
    }
    LmSubProcessRep::create("true", 0, 1);   // never run
    EXPECT_EQ(descriptors(), before);
    EXPECT_EQ(stdoutOf([] { Job("echo inherited", 0, false).untilExit(); }), "inherited\n");

    Job missing("/no/such/program x");
    missing.untilExit();
    EXPECT_EQ(missing.err, "lmtest: exec() failed for \"/no/such/program\" : No such file or directory\n");
    EXPECT_EQ(missing.exits, std::vector<int>{ENOENT << 8});
}

TEST_F(SubProcessOnScreen, AChildGetsACleanStart)
{
    struct sigaction handled = {};
    handled.sa_sigaction = [](int, siginfo_t*, void*) {};
    handled.sa_flags = SA_SIGINFO | SA_NODEFER;
    sigaction(SIGINT, &handled, nullptr);
    pfm_signal(SIGQUIT, SIG_IGN);
    Job first("sleep 1000"), second("cat /proc/self/status"), third("ls /proc/self/fd"), fourth("env");
    second.untilExit();
    EXPECT_EQ(fieldOf(second.out, "SigBlk"), "0000000000000000");
    EXPECT_EQ(std::stoul(fieldOf(second.out, "SigIgn"), nullptr, 16) & 0x11006, 1UL << (SIGQUIT - 1));   // 2, 3, 13, 17
    EXPECT_EQ(fieldOf(second.out, "Pid"), fieldOf(second.out, "NSsid"));
    EXPECT_EQ(fieldOf(second.out, "Pid"), fieldOf(second.out, "NSpgid"));
    EXPECT_EQ(third.untilExit().out, "0\n1\n2\n3\n");                               // 3 is the folder that ls reads
    EXPECT_EQ(fourth.untilExit().out.find("XFILESEARCHPATH"), std::string::npos);   // the application has one by now
    EXPECT_NE(fourth.out.find("LUMORA_DATA="), std::string::npos);

    struct sigaction present = {};
    sigaction(SIGINT, nullptr, &present);
    EXPECT_EQ(present.sa_handler, SIG_IGN);   // while the first one runs
    first.process->kill(SIGKILL);
    first.untilExit();
    sigaction(SIGINT, nullptr, &present);
    EXPECT_EQ(present.sa_sigaction, handled.sa_sigaction);
    EXPECT_EQ(present.sa_flags & (SA_SIGINFO | SA_NODEFER), SA_SIGINFO | SA_NODEFER);
}

TEST_F(SubProcessOnScreen, SignalsReachTheChildAtOnce)
{
    const int rounds = 100;
    for (int i = 0; i < rounds; ++i) {
        Job run("sleep 1000");
        run.process->signal(SIGTERM);
        EXPECT_EQ(run.untilExit().exits, std::vector<int>{SIGTERM});
    }

    Job stopped("sleep 1000");
    stopped.process->signal(SIGSTOP);
    settleUntil([&] { return isStopped(stopped.process->pid()); });
    settle();
    EXPECT_TRUE(stopped.exits.empty());
    stopped.process->signal(SIGKILL);
    EXPECT_EQ(stopped.untilExit().exits, std::vector<int>{SIGKILL});
    EXPECT_TRUE(noZombies());
}

TEST_F(SubProcessOnScreen, PipesEndAsTheirUsersDo)
{
    Job deaf("sh -c 'exec <&-; echo closed; exec sleep 1000'", 1);
    settleUntil([&] { return !deaf.out.empty(); });
    EXPECT_EQ(write(deaf.process->inputFd(), "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);   // and we live
    deaf.process->kill(SIGTERM);
    deaf.untilExit();

    Job parent("sh -c 'sleep 1000 & echo $!; exit 7'");   // the grandchild keeps the pipe
    EXPECT_EQ(parent.untilExit().exits, std::vector<int>{7 << 8});
    EXPECT_TRUE(parent.process->stdoutPipe()->input()->isAttached());
    kill(std::stoi(parent.out), SIGKILL);
    settleUntil([&] { return !parent.process->stdoutPipe()->input()->isAttached(); });
}

TEST_F(SubProcessOnScreen, NothingWrittenBeforeTheExitIsMissingAtTheExit)
{
    std::string text;
    int exits = 0;
    for (int i = 0; i < 500 / share; ++i) {
        text.clear();
        const int before = exits;
        {   // no handle is kept: the record dies with its exit
            RPtr_LmSubProcessRep process = LmSubProcessRep::create("head -c 60000 /dev/zero", 0, 0);
            process->addCallback(LmSubProcessRep::stdoutCallback, Job::readSome, &text);
            process->addCallback(
                LmSubProcessRep::exitCallback, [](LmCallbackObject*, void* count, void*) { ++*static_cast<int*>(count); },
                &exits);
            process->run();
        }
        settleUntil([&] { return exits > before; });
        ASSERT_EQ(text.size(), 60000U) << "run " << i;
    }

    RPtr_LmSubProcessRep unread = LmSubProcessRep::create("echo x", 0, 0);   // a receiver that takes nothing stops nobody
    unread->addCallback(
        LmSubProcessRep::stdoutCallback, [](LmCallbackObject*, void*, void*) {}, nullptr);
    unread->run();
    settleUntil([&] { return unread->pid() == 0; });
}

TEST_F(SubProcessOnScreen, ARecordLivesAsLongAsItsHandlesAndItsChild)
{
    RPtr_LmSubProcessRep handle = LmSubProcessRep::create("sleep 1000", 5, 0);
    auto* rep = handle.operator->();
    const lm::Watch watch(rep->liveness());
    handle = *&handle;
    const RPtr_LmSubProcessRep none;
    EXPECT_EQ(none.operator->(), nullptr);
    EXPECT_EQ(rep->createOption(), 5);

    rep->run();
    handle = none;
    EXPECT_TRUE(watch);
    const Heard exits(*rep, LmSubProcessRep::exitCallback);
    rep->signal(SIGKILL);
    settleUntil([&] { return !watch; });
    EXPECT_EQ(exits.values, std::vector<int>{SIGKILL});
}

TEST_F(SubProcessOnScreen, AProgramRunsItsCommandAsOftenAsWanted)
{
    std::string out;
    LmProgram program("  \tsh -c 'exit 4'\n", 3);
    const Heard first(program, LmProgram::exitCallback);
    std::vector<RPtr_LmSubProcessRep> runs = {program.run(), program.run()};
    EXPECT_NE(runs[0]->pid(), runs[1]->pid());
    program.addCallback(LmProgram::stdoutCallback, Job::read, &out);   // for later runs
    EXPECT_EQ(runs[0]->stdoutPipe(), nullptr);
    settleUntil([&] { return runs[0]->pid() == 0 && runs[1]->pid() == 0; });
    EXPECT_EQ(first.values, (std::vector<int>{4 << 8, 4 << 8}));

    program.setWantInput(1);
    const RPtr_LmSubProcessRep third = program.run();
    EXPECT_GE(third->inputFd(), 0);
    EXPECT_NE(third->stdoutPipe(), nullptr);
    settleUntil([&] { return third->pid() == 0; });
    for (const char* nothing : {static_cast<const char*>(nullptr), " \t\n"}) {
        const RPtr_LmSubProcessRep refused = LmProgram(nothing, 0).run();
        EXPECT_EQ(refused->pid(), 0);
        EXPECT_EQ(takeWarning(), "lmtest: no command to run\n");
    }
}

TEST(SubProcessTrouble, WithoutProcessesOrPipesTheUserIsWarnedAndLaterRunsWork)
{
    const int status = exitStatusOf([] {
        app();
        getTheWarningDialog()->post("Fonts and all are loaded.");
        takeWarning();
        Job("true").untilExit();
        ASSERT_TRUE(geteuid() != 0 || setuid(65534) == 0);   // root has no limit
        const auto before = descriptors();

        RPtr_LmSubProcessRep process = LmSubProcessRep::create("/bin/echo x", 0, 1);
        std::string out;
        process->addCallback(LmSubProcessRep::stdoutCallback, Job::read, &out);
        {
            const Limit noProcesses(RLIMIT_NPROC, 0);
            process->run();
            EXPECT_EQ(takeWarning(), "lmtest: couldn't fork child \"echo\": Resource temporarily unavailable\n");
        }
        EXPECT_EQ(process->pid(), 0);
        EXPECT_EQ(process->stdoutPipe(), nullptr);
        {
            const Limit noDescriptors(RLIMIT_NOFILE, firstFree());
            process->run();
            EXPECT_EQ(takeWarning(), "lmtest: couldn't create pipe: Too many open files\n");
            const RPtr_LmSubProcessRep mute = LmSubProcessRep::create("true", 0, 1);
            EXPECT_EQ(takeWarning(), "lmtest: couldn't create pipe: Too many open files\n");
            mute->run();
            EXPECT_EQ(mute->pid() | process->pid(), 0);
        }
        process->run();
        settleUntil([&] { return process->pid() == 0 && out == "x\n"; });
        process = {};
        EXPECT_EQ(descriptors(), before);
    });
    EXPECT_EQ(status, 0);
    const int withoutPipe = exitStatusOf([] {
        app();
        static const Limit noDescriptors(RLIMIT_NOFILE, firstFree());
        LmSubProcessRep::create("true", 0, 0);
    });
    EXPECT_EQ(withoutPipe, 255);
}

TEST(SubProcessTrouble, AProgramWithoutStandardDescriptorsRunsCommands)
{
    const auto closeThem = [] {
        for (int fd = 0; fd < 3; ++fd)
            close(fd);
    };
    for (const bool fromTheStart : {true, false}) {
        const int status = exitStatusOf([&] {
            if (fromTheStart)
                closeThem();   // so that the connection to the server is 0
            app();
            if (!fromTheStart) {
                Job("true").untilExit();   // the library's own pipe lies higher
                closeThem();
            }
            Job captured("sh -c 'cat; echo out; echo err >&2'", 1), plain("ls /proc/self/fd /no/such", 0, false);
            EXPECT_EQ(write(captured.process->inputFd(), "in\n", 3), 3);
            captured.process->closeInput();
            EXPECT_EQ(captured.untilExit().out + captured.err, "in\nout\nerr\n");
            EXPECT_EQ(plain.untilExit().exits, std::vector<int>{2 << 8});
            Job missing("/no/such", 0, false);
            EXPECT_EQ(missing.untilExit().exits, std::vector<int>{ENOENT << 8});
            settle();   // what the children said did not go to the server
        });
        EXPECT_EQ(status, 0) << fromTheStart;
    }
}

TEST(ExecCommandOnChildren, CommandsAreLeftToThemselvesAndTakenUp)
{
    const int answer = exitStatusOf([] {
        int status = -1;
        const int missing = LmExecCommand("/no/such/program", 0);
        EXPECT_EQ(waitpid(missing, &status, 0), missing);
        EXPECT_EQ(status, 0);
        const int ends = LmExecCommand("sh -c 'test $(ls /proc/self/fd | wc -l) = 4 || exit 5; kill -TERM 0; exit 6'", 0);
        EXPECT_EQ(waitpid(ends, &status, 0), ends);   // its own session: the signal does not come to us
        EXPECT_EQ(status, SIGTERM);

        LmInitializeChildrenHandler();
        LmInitializeChildrenHandler();
        const int sleeper = LmExecCommand("sleep 1000", 0);
        std::vector<int> children;
        sigset_t childEnds;
        sigemptyset(&childEnds);
        sigaddset(&childEnds, SIGCHLD);
        sigprocmask(SIG_BLOCK, &childEnds, nullptr);
        for (int i = 0; i < 20; ++i)
            children.push_back(LmExecCommand("true", 1));
        siginfo_t child = {};
        for (int pid : children)
            EXPECT_EQ(waitid(P_PID, static_cast<id_t>(pid), &child, WEXITED | WNOWAIT), 0);
        sigprocmask(SIG_UNBLOCK, &childEnds, nullptr);
        EXPECT_TRUE(noZombies());
        raise(SIGCHLD);   // returns, although the sleeper still runs
        EXPECT_EQ(kill(sleeper, SIGKILL), 0);
        waitid(P_PID, static_cast<id_t>(sleeper), &child, WEXITED | WNOWAIT);
        errno = EDOM;
        raise(SIGCHLD);   // there is no child any more
        EXPECT_EQ(errno, EDOM);
        EXPECT_EQ(LmExecCommand(nullptr, 0), -1);
    });
    EXPECT_EQ(answer, 0);
}

TEST_F(SubProcessLongRun, ThousandsOfChildrenOneAfterAnother)
{
    std::vector<int> exits;
    Job("true").untilExit();
    const auto before = descriptors();
    const int children = 10000 / share;
    for (int i = 0; i < children; ++i) {
        const std::string status = std::to_string(i % 200);
        const bool captured = i % 10 == 0;
        Job run("sh -c 'exit " + status + "'", i % 20 == 0, captured);
        ASSERT_EQ(run.untilExit().exits, std::vector<int>{(i % 200) << 8});
    }
    EXPECT_TRUE(noZombies());
    EXPECT_EQ(descriptors(), before);
}

TEST_F(SubProcessLongRun, ThousandsOfChildrenEndWhileTheLoopIsBlocked)
{
    const auto before = descriptors();
    LmSubProcessRep::create("true", 0, 0);   // opens the library's pipe
    const auto after = descriptors();
    std::vector<int> ours;
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(ours));
    ASSERT_EQ(ours.size(), 2U);
    ASSERT_EQ(fcntl(ours[0], F_SETPIPE_SZ, 4096), 4096);   // room for 512 exits

    std::vector<std::unique_ptr<Job>> runs;
    for (int i = 0; i < 2000 / share; ++i)
        runs.push_back(std::make_unique<Job>("sh -c 'exit " + std::to_string(i % 200) + "'", 0, false));
    for (const auto& run : runs) {
        siginfo_t child = {};
        waitid(P_PID, static_cast<id_t>(run->process->pid()), &child, WEXITED | WNOWAIT);
        EXPECT_TRUE(run->exits.empty());
    }
    for (std::size_t i = 0; i < runs.size(); ++i)
        ASSERT_EQ(runs[i]->untilExit().exits, std::vector<int>{static_cast<int>(i % 200) << 8});
    EXPECT_TRUE(noZombies());
    EXPECT_EQ(descriptors(), after);
}
