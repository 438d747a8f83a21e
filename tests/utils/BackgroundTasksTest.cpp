#include "tests/support/OnScreen.h"

#include "LmBackground.h"
#include "LmInput.h"
#include "LmPeriodic.h"

#include <functional>
#include <memory>

#include <unistd.h>

using namespace lmtest;

namespace {

using Action = std::function<void()>;

/// Counts its slices, and does something in each.
struct Worker : LmBackground {
    explicit Worker(int slicesOfWork) : slices(slicesOfWork) {}
    Boolean timeSlice() override
    {
        const bool finished = ++done >= slices;
        inSlice();   // may delete us
        return finished;
    }
    int slices, done = 0;
    Action inSlice = [] {};
};

struct Ticker : LmPeriodic {
    explicit Ticker(int interval) : LmPeriodic(interval) { addCallback(timerCallback, this, &Ticker::announce, nullptr); }
    void announce(LmCallbackObject*, void*, void*) { ++announced, inCallback(); }
    void tick() override { ++ticked, inTick(); }
    int announced = 0, ticked = 0;
    Action inCallback = [] {}, inTick = [] {};
};

/// Reads a byte at a time.
struct Reader : LmInput {
    Reader() { addCallback(inputCallback, this, &Reader::readByte, nullptr); }
    void readByte(LmCallbackObject*, void*, void* data)
    {
        char byte = 0;
        EXPECT_EQ(read(static_cast<LmInput*>(data)->fd(), &byte, 1), 1);
        heard += byte;
        inCallback();
    }
    std::string heard;
    Action inCallback = [] {};
};

struct TasksOnScreen : OnScreen {
    /// The read end of a pipe that holds the text and stays open.
    static int pipeOf(const std::string& content)
    {
        int ends[2] = {};
        EXPECT_TRUE(pipe(ends) == 0 && write(ends[1], content.data(), content.size()) > 0);
        return ends[0];
    }
    /// Lets idle work and timers run until a timer of so many milliseconds does.
    void runFor(int milliseconds)
    {
        Ticker clock(milliseconds);
        clock.start();
        settleUntil([&] { return clock.ticked > 0; });
    }
};

}   // namespace

TEST_F(TasksOnScreen, BackgroundWorkMayStopRestartAndDeleteItself)
{
    Worker plain(3), stopping(1000), restarting(2);
    auto deleting = std::make_unique<Worker>(1000);
    stopping.inSlice = [&] { stopping.stop(); };
    restarting.inSlice = [&] { restarting.done < 3 ? restarting.start() : restarting.stop(); };
    deleting->inSlice = [&] { deleting.reset(); };
    for (Worker* worker : {&plain, &plain, &stopping, &restarting, deleting.get()})
        worker->start();
    runFor(30);
    EXPECT_EQ((std::vector{plain.done, stopping.done, restarting.done}), (std::vector{3, 1, 3}));
    EXPECT_EQ(deleting, nullptr);
}

TEST_F(TasksOnScreen, TimersAnnounceAtOnceAndThenTick)
{
    Ticker plain(1), atOnce(1), inTick(1), slow(1), always(1);
    atOnce.inCallback = [&] { atOnce.stop(); };
    inTick.inTick = [&] { inTick.stop(); };   // the id is not kept: Xt uses it again
    slow.inTick = [&] { slow.start(100000); };
    always.inCallback = [&] { always.start(); };   // would never come back if it announced each time
    auto first = std::make_unique<Ticker>(1), second = std::make_unique<Ticker>(1);
    first->inCallback = [&] { first.reset(); };
    second->inTick = [&] { second.reset(); };
    for (Ticker* periodic : {&plain, &atOnce, &inTick, &slow, &always, first.get(), second.get()})
        periodic->start();
    settleUntil([&] { return always.ticked >= 9 && !first && !second; });
    EXPECT_EQ(plain.announced, 1 + plain.ticked);
    EXPECT_EQ(atOnce.announced + inTick.ticked, 2);
    EXPECT_EQ(slow.ticked, 1) << "what was armed inside counts, no second one";
    EXPECT_EQ(always.announced, 1 + 2 * always.ticked) << "at the start, at a tick, and at the start inside";
}

TEST_F(TasksOnScreen, InputsTellOfTheirDescriptorUntilRemoved)
{
    const int first = pipeOf("x"), second = pipeOf("yd");
    auto reader = std::make_unique<Reader>();
    reader->attach(first, XtInputReadMask);
    reader->attach(second, XtInputReadMask);
    reader->inCallback = [&] { reader->remove(); };
    settleUntil([&] { return !reader->isAttached(); });
    reader->attach(second, XtInputReadMask);
    reader->attach(-1, XtInputReadMask);
    settle();
    EXPECT_EQ(reader->heard, "y");
    reader->inCallback = [&] { reader.reset(); };
    reader->attach(second, XtInputReadMask);
    settleUntil([&] { return !reader; });
}

TEST_F(TasksOnScreen, TenThousandDeletedBetweenArmingAndFiring)
{
    const int full = pipeOf("x");
    for (int i = 0; i < 10000; i += 3) {
        Worker worker(1);
        Ticker ticker(0);
        Reader reader;
        ticker.start();
        ticker.inTick = worker.inSlice = reader.inCallback = [] { ADD_FAILURE() << "it is gone"; };
        worker.start();
        reader.attach(full, XtInputReadMask);
    }
    runFor(20);
}
