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
#include <memory>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace lmtest;

namespace {

/// What one command wrote and how it ended. Reads a piece at each call, and no more after the end.
struct Job {
    explicit Job(const std::string& command, int wantInput = 0, bool captured = true)
        : process(LmSubProcessRep::create(command.c_str(), 0, wantInput))
    {
        if (captured) {
            process->addCallback(LmSubProcessRep::stdoutCallback, read, &out);
            process->addCallback(LmSubProcessRep::stderrCallback, read, &err);
        }
        process->run();
    }
    int status()
    {
        settleUntil([this] { return !exits.values.empty(); }, 30000);
        return exits.values.size() == 1 ? exits.values[0] : -1;
    }
    std::string said() { return status(), out + err; }
    static void read(LmCallbackObject*, void* text, void* data)
    {
        auto* input = static_cast<LmInput*>(data);
        char bytes[1024];
        const ssize_t count = ::read(input->fd(), bytes, sizeof bytes);
        static_cast<std::string*>(text)->append(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0)
            input->remove();
    }
    std::string out, err;
    RPtr_LmSubProcessRep process;
    Heard exits{*process.operator->(), LmSubProcessRep::exitCallback};
};

/// How many descriptors are open.
auto descriptors() { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); }

/// No child has ended without having been taken up.
bool noZombies() { return waitpid(-1, nullptr, WNOHANG) <= 0; }

/// Blocks until a child has ended (WEXITED) or is stopped (WSTOPPED), and does not take it up.
int await(int pid, int what = WEXITED) { return waitid(P_PID, static_cast<id_t>(pid), nullptr, what | WNOWAIT); }

/// Runs the action while no process (RLIMIT_NPROC), or no further descriptor (RLIMIT_NOFILE), is to be had.
void withoutMore(__rlimit_resource resource, const std::function<void()>& action)
{
    const lm::FileDescriptor next(open("/dev/null", O_RDONLY));
    rlimit before = {};
    getrlimit(resource, &before);
    const rlimit lower = {resource == RLIMIT_NPROC ? 0 : static_cast<rlim_t>(next.get()), before.rlim_max};
    setrlimit(resource, &lower);
    action();
    setrlimit(resource, &before);
}

std::string takeWarning()
{
    const std::string text = textOf(getTheWarningDialog()->lastPosted(), XmNmessageString);
    getTheWarningDialog()->unpost();
    return text;
}

using SubProcessOnScreen = OnScreen;
using SubProcessLongRun = OnScreen;

}   // namespace

TEST_F(SubProcessOnScreen, WhatAChildReadsWritesAndAnswersArrives)
{
    EXPECT_EQ(Job("true").status(), 0);   // the first one opens the library's own pipe
    const auto before = descriptors();
    Job run("sh -c 'cat; echo no >&2; exit 3'", 1);
    const int fd = run.process->inputFd();
    ASSERT_EQ(write(fd, "hello\n", 6), 6);
    ASSERT_EQ(dup2(STDIN_FILENO, fd), fd);   // closed by hand, and the number is taken
    EXPECT_EQ(run.said(), "hello\nno\n");
    EXPECT_EQ(run.status(), 3 << 8);
    run.process->signal(SIGTERM);   // is not running: nothing happens
    run.process->run();             // has run
    EXPECT_EQ(run.process->pid(), 0);
    run.process = {};
    EXPECT_EQ(close(fd), 0) << "it is not the library's to close";
    LmSubProcessRep::create("true", 0, 1);   // never run
    EXPECT_EQ(descriptors(), before);
    EXPECT_EQ(stdoutOf([] { Job("echo inherited", 0, false).status(); }), "inherited\n");
    Job missing("/no/such/program x");
    EXPECT_EQ(missing.said(), "lmtest: exec() failed for \"/no/such/program\" : No such file or directory\n");
    EXPECT_EQ(missing.status(), ENOENT << 8);
}

TEST_F(SubProcessOnScreen, AChildGetsACleanStart)
{
    const auto handler = +[](int) {};
    std::signal(SIGINT, handler);
    pfm_signal(SIGQUIT, SIG_IGN);
    Job first("sleep 1000"), signals("grep -E Sig(Blk|Ign) /proc/self/status"), files("ls /proc/self/fd"), environment("env");
    const std::string masks = signals.said();
    EXPECT_EQ(masks.substr(0, 25), "SigBlk:\t0000000000000000\n");
    EXPECT_EQ(std::stoul(masks.substr(masks.rfind('\t')), nullptr, 16) & 0x11006, 1UL << (SIGQUIT - 1));   // 2, 3, 13, 17
    EXPECT_EQ(Job("sh -c 'set -- $(cat /proc/$$/stat); test $1$1 = $5$6'").status(), 0) << "leads its group and session";
    EXPECT_EQ(files.said(), "0\n1\n2\n3\n");                                    // 3 is the folder that ls reads
    EXPECT_EQ(environment.said().find("XFILESEARCHPATH"), std::string::npos);   // the application has one by now
    EXPECT_EQ(std::signal(SIGINT, SIG_IGN), SIG_IGN) << "while the first one runs";
    first.process->kill(SIGKILL);
    EXPECT_EQ(first.status(), SIGKILL);
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), handler);
}

TEST_F(SubProcessOnScreen, SignalsReachTheChildAtOnce)
{
    for (int i = 0; i < 100; ++i) {
        Job run("sleep 1000");
        run.process->signal(SIGTERM);
        EXPECT_EQ(run.status(), SIGTERM);
    }
    EXPECT_TRUE(noZombies());
}

TEST_F(SubProcessOnScreen, ChildrenMayStopOrCloseTheirInputOrLeaveTheirPipesToOthers)
{
    Job deaf("sh -c 'exec <&-; echo closed; exec sleep 1000'", 1);
    settleUntil([&] { return !deaf.out.empty(); });
    EXPECT_EQ(write(deaf.process->inputFd(), "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);   // and we live
    deaf.process->signal(SIGSTOP);
    await(deaf.process->pid(), WSTOPPED);
    settle();
    EXPECT_TRUE(deaf.exits.values.empty());
    deaf.process->kill(SIGKILL);
    EXPECT_EQ(deaf.status(), SIGKILL);

    Job parent("sh -c 'sleep 1000 & echo $!; exit 7'");   // the grandchild keeps the pipe
    EXPECT_EQ(parent.status(), 7 << 8);
    EXPECT_TRUE(parent.process->stdoutPipe()->input()->isAttached());
    kill(std::stoi(parent.out), SIGKILL);
    settleUntil([&] { return !parent.process->stdoutPipe()->input()->isAttached(); });
}

TEST_F(SubProcessOnScreen, NothingWrittenBeforeTheExitIsMissingAtTheExit)
{
    for (int i = 0; i < reducedInSanitizer(500); ++i) {
        Job run("head -c 60000 /dev/zero");
        run.process = {};   // no handle is kept: the record dies with its exit
        ASSERT_EQ(run.said().size(), 60000U) << "run " << i;
    }
}

TEST_F(SubProcessOnScreen, AProgramRunsItsCommandAsOftenAsWanted)
{
    LmProgram program("  \tsh -c 'echo a line of its own; exit 4'\n", 3);
    const Heard exits(program, LmProgram::exitCallback);
    std::vector<RPtr_LmSubProcessRep> runs = {program.run(), program.run()};
    const Heard readable(program, LmProgram::stdoutCallback);   // for later runs; takes nothing and stops nobody
    runs.push_back(program.run());
    EXPECT_TRUE(!runs[0]->stdoutPipe() && runs[2]->stdoutPipe());
    settleUntil([&] { return exits.values.size() == 3; });
    EXPECT_EQ(exits.values, std::vector<int>(3, 4 << 8));
    for (const char* nothing : {static_cast<const char*>(nullptr), " \t\n"}) {
        LmProgram(nothing, 0).run();
        EXPECT_EQ(takeWarning(), "lmtest: no command to run\n");
    }
}

TEST(SubProcessTrouble, WithoutProcessesOrPipesTheUserIsWarnedAndLaterRunsWork)
{
    EXPECT_EQ(0, exitStatusOf([] {
                  app();
                  getTheWarningDialog()->post("Fonts and all are loaded.");
                  takeWarning();
                  ASSERT_TRUE(geteuid() != 0 || setuid(65534) == 0);   // root has no limit
                  const RPtr_LmSubProcessRep process = LmSubProcessRep::create("/bin/echo x", 0, 1);
                  std::string out;
                  process->addCallback(LmSubProcessRep::stdoutCallback, Job::read, &out);
                  withoutMore(RLIMIT_NPROC, [&] {
                      process->run();
                      EXPECT_EQ(takeWarning(), "lmtest: couldn't fork child \"echo\": Resource temporarily unavailable\n");
                  });
                  withoutMore(RLIMIT_NOFILE, [&] {
                      process->run();
                      EXPECT_EQ(takeWarning(), "lmtest: couldn't create pipe: Too many open files\n");
                  });
                  process->run();
                  settleUntil([&] { return process->pid() == 0 && out == "x\n"; });
              }));
}

TEST(SubProcessTrouble, AProgramWithoutStandardDescriptorsRunsCommands)
{
    for (const bool fromTheStart : {true, false}) {   // so that the connection to the server is 0, or ours are all higher
        EXPECT_EQ(0, exitStatusOf([&] {
                      if (!fromTheStart)
                          app(), Job("true").status();
                      for (int fd = 0; fd < 3; ++fd)
                          close(fd);
                      app();
                      Job captured("sh -c 'cat; echo out; echo err >&2'", 1), plain("ls /proc/self/fd /no/such", 0, false);
                      EXPECT_EQ(write(captured.process->inputFd(), "in\n", 3), 3);
                      captured.process->closeInput();
                      EXPECT_EQ(captured.said(), "in\nout\nerr\n");
                      EXPECT_EQ(plain.status(), 2 << 8);
                      settle();   // what the children said did not go to the server
                  }))
            << fromTheStart;
    }
}

TEST(ExecCommandOnChildren, CommandsAreLeftToThemselvesAndTakenUp)
{
    EXPECT_EQ(0, exitStatusOf([] {
                  int status = -1;
                  const int child =
                      LmExecCommand("sh -c 'test $(ls /proc/self/fd | wc -l) = 4 || exit 5; kill -TERM 0; exit 6'", 0);
                  EXPECT_EQ(waitpid(child, &status, 0), child);
                  EXPECT_EQ(status, SIGTERM);   // in its own session: we live

                  LmInitializeChildrenHandler();
                  const int sleeper = LmExecCommand("sleep 1000", 0);
                  sigset_t childEnds = {};
                  sigaddset(&childEnds, SIGCHLD);
                  sigprocmask(SIG_BLOCK, &childEnds, nullptr);
                  for (int i = 0; i < 20; ++i)
                      EXPECT_EQ(await(LmExecCommand("true", 1)), 0);
                  sigprocmask(SIG_UNBLOCK, &childEnds, nullptr);   // one signal for all
                  EXPECT_TRUE(noZombies());
                  raise(SIGCHLD);   // returns, although the sleeper still runs
                  EXPECT_EQ(kill(sleeper, SIGKILL), 0);
              }));
}

TEST_F(SubProcessLongRun, ThousandsOfChildrenEndOneAfterAnotherOrWhileTheLoopIsBlocked)
{
    LmSubProcessRep::create("true", 0, 0);   // opens the library's pipe
    const auto before = descriptors();
    int pipes = 0;
    for (int fd = 3; fd < 32; ++fd)
        pipes += fcntl(fd, F_SETPIPE_SZ, 4096) == 4096;   // room for 512 exits
    EXPECT_EQ(pipes, 2);
    for (int i = 0; i < reducedInSanitizer(10000); ++i)
        ASSERT_EQ(Job("sh -c 'exit " + std::to_string(i % 200) + "'", i % 20 == 0, i % 10 == 0).status(), (i % 200) << 8);

    std::vector<std::unique_ptr<Job>> runs;
    for (int i = 0; i < reducedInSanitizer(2000); ++i)
        runs.push_back(std::make_unique<Job>("sh -c 'exit " + std::to_string(i % 200) + "'", 0, false));
    for (const auto& run : runs)
        await(run->process->pid());
    for (std::size_t i = 0; i < runs.size(); ++i)
        ASSERT_EQ(runs[i]->status(), static_cast<int>(i % 200) << 8);
    EXPECT_TRUE(noZombies());
    EXPECT_EQ(descriptors(), before);
}
