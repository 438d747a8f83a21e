#include "tests/support/OnScreen.h"

#include "LmBackground.h"
#include "LmInput.h"
#include "LmPeriodic.h"
#include "support/handles.h"

#include <functional>
#include <memory>

#include <unistd.h>

using namespace lmtest;

namespace {

using Action = std::function<void()>;

void run(const Action& action)
{
    if (action)
        action();
}

/// Counts its slices, and does something in each.
struct Worker : LmBackground {
    explicit Worker(int slicesOfWork) : slices(slicesOfWork) {}
    Boolean timeSlice() override
    {
        const bool finished = ++done >= slices;
        run(inSlice);   // may delete us
        return finished;
    }
    int slices, done = 0;
    Action inSlice;
};

struct Ticker : LmPeriodic {
    explicit Ticker(int interval) : LmPeriodic(interval) { addCallback(timerCallback, this, &Ticker::announce, nullptr); }
    void announce(LmCallbackObject*, void*, void*) { ++announced, run(inCallback); }
    void tick() override { ++ticked, run(inTick); }
    int announced = 0, ticked = 0;
    Action inCallback, inTick;
};

/// Reads a byte at a time.
struct Reader : LmInput {
    Reader() { addCallback(inputCallback, this, &Reader::readByte, nullptr); }
    void readByte(LmCallbackObject* caller, void*, void* data)
    {
        EXPECT_EQ(data, static_cast<LmInput*>(caller));
        char byte = 0;
        EXPECT_EQ(read(fd(), &byte, 1), 1);
        heard += byte;
        run(inCallback);
    }
    std::string heard;
    Action inCallback;
};

struct Pipe {
    explicit Pipe(const std::string& content)
    {
        int ends[2] = {};
        EXPECT_EQ(pipe(ends), 0);
        EXPECT_EQ(write(ends[1], content.data(), content.size()), static_cast<ssize_t>(content.size()));
        readEnd = lm::FileDescriptor(ends[0]), writeEnd = lm::FileDescriptor(ends[1]);
    }
    lm::FileDescriptor readEnd, writeEnd;
};

struct TasksOnScreen : OnScreen {
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
    Worker twice(3), stopping(1000), restarting(2);
    auto deleting = std::make_unique<Worker>(1000);
    stopping.inSlice = [&] { stopping.stop(); };
    restarting.inSlice = [&] { restarting.done < 3 ? restarting.start() : restarting.stop(); };
    deleting->inSlice = [&] { deleting.reset(); };
    twice.start();
    for (Worker* worker : {&twice, &stopping, &restarting, deleting.get()})
        worker->start();
    runFor(30);

    EXPECT_EQ(deleting, nullptr);
    EXPECT_EQ(twice.done, 3);
    EXPECT_EQ(stopping.done, 1);
    EXPECT_EQ(restarting.done, 3);
    EXPECT_FALSE(twice.isRunning() || stopping.isRunning() || restarting.isRunning());
}

TEST_F(TasksOnScreen, TimersAnnounceAtOnceAndThenTick)
{
    Ticker ticker(5);
    ticker.start(0);
    EXPECT_EQ(ticker.announced, 1);
    EXPECT_EQ(ticker.ticked, 0);
    settleUntil([&] { return ticker.ticked == 2; });
    EXPECT_EQ(ticker.announced, 3);
    ticker.start(7);
    EXPECT_EQ(ticker.interval(), 7);
    EXPECT_EQ(ticker.announced, 4);

    Ticker atOnce(1), inTick(1), slow(1), always(1);
    atOnce.inCallback = [&] { atOnce.stop(); };
    inTick.inTick = [&] {
        EXPECT_FALSE(inTick.isRunning()) << "the id is not kept: Xt uses it again";
        inTick.stop();
    };
    slow.inTick = [&] { slow.start(100000); };
    always.inCallback = [&] { always.start(); };   // would never come back if it announced each time
    auto first = std::make_unique<Ticker>(1), second = std::make_unique<Ticker>(1);
    first->inCallback = [&] { first.reset(); };
    second->inTick = [&] { second.reset(); };
    for (Ticker* periodic : {&atOnce, &inTick, &slow, &always, first.get(), second.get()})
        periodic->start();
    settleUntil([&] { return always.ticked >= 9 && !first && !second; });
    EXPECT_EQ(atOnce.announced, 1);
    EXPECT_EQ(inTick.ticked, 1);
    EXPECT_EQ(slow.ticked, 1) << "what was armed inside counts, no second one";
    EXPECT_EQ(always.announced, 1 + 2 * always.ticked) << "at the start, at a tick, and at the start inside";
}

TEST_F(TasksOnScreen, InputsTellOfTheirDescriptorUntilRemoved)
{
    Pipe first("x"), second("yd");
    auto reader = std::make_unique<Reader>();
    reader->attach(first.readEnd.get(), XtInputReadMask);
    reader->attach(second.readEnd.get(), XtInputReadMask);
    reader->inCallback = [&] { reader->remove(); };
    settleUntil([&] { return !reader->isAttached(); });
    EXPECT_EQ(reader->heard, "y");

    reader->attach(second.readEnd.get(), XtInputReadMask);
    reader->attach(-1, XtInputReadMask);
    reader->attach(0, XtInputNoneMask);
    settle();
    EXPECT_EQ(reader->heard, "y");
    reader->inCallback = [&] { reader.reset(); };
    reader->attach(second.readEnd.get(), XtInputReadMask);
    settleUntil([&] { return !reader; });
}

TEST_F(TasksOnScreen, TenThousandDeletedBetweenArmingAndFiring)
{
    Pipe pipe("x");
    for (int i = 0; i < 10000; i += 3) {
        Worker worker(1);
        Ticker ticker(0);
        Reader reader;
        ticker.start();
        ticker.inTick = worker.inSlice = reader.inCallback = [] { ADD_FAILURE() << "it is gone"; };
        worker.start();
        reader.attach(pipe.readEnd.get(), XtInputReadMask);
    }
    runFor(20);
}
