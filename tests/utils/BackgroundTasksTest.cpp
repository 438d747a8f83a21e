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

struct Worker : LmBackground {
    explicit Worker(int slicesOfWork = 1000000) : slices(slicesOfWork) {}
    Boolean timeSlice() override
    {
        const bool finished = ++done >= slices;
        if (inSlice)
            std::exchange(inSlice, nullptr)();
        return finished;
    }
    int slices, done = 0;
    std::function<void()> inSlice;
};

struct Ticker : LmPeriodic {
    explicit Ticker(int interval) : LmPeriodic(interval)
    {
        addCallback(
            timerCallback,
            [](LmCallbackObject* self, void*, void*) {
                auto* ticker = static_cast<Ticker*>(self);
                ++ticker->announced;
                if (ticker->inCallback)
                    ticker->inCallback();
            },
            nullptr);
    }
    void tick() override
    {
        ++ticked;
        if (inTick)
            inTick();
    }
    int announced = 0, ticked = 0;
    std::function<void()> inCallback, inTick;
};

struct Pipe {
    Pipe()
    {
        int ends[2] = {};
        EXPECT_EQ(pipe(ends), 0);
        readEnd = lm::FileDescriptor(ends[0]);
        writeEnd = lm::FileDescriptor(ends[1]);
    }
    lm::FileDescriptor readEnd, writeEnd;
};

/// Runs idle work and timers for a number of milliseconds by the clock of a timer.
void runFor(int milliseconds)
{
    bool over = false;
    XtAppAddTimeOut(
        app().appContext(), static_cast<unsigned long>(milliseconds),
        [](XtPointer flag, XtIntervalId*) { *static_cast<bool*>(flag) = true; }, &over);
    settleUntil([&] { return over; });
}

struct BackgroundOnScreen : OnScreen {};
struct PeriodicOnScreen : OnScreen {};
struct InputOnScreen : OnScreen {};

}   // namespace

TEST_F(BackgroundOnScreen, WorksUntilDoneAndMayStopRestartOrDeleteItself)
{
    Worker worker(3);
    worker.start();
    worker.start();
    settleUntil([&] { return worker.done == 3; });
    EXPECT_FALSE(worker.isRunning());
    runFor(20);
    EXPECT_EQ(worker.done, 3) << "started twice, armed once";

    Worker stopping, restarting(2);
    stopping.inSlice = [&] { stopping.stop(); };
    restarting.inSlice = [&] { restarting.start(); };
    auto deleting = std::make_unique<Worker>();
    deleting->inSlice = [&] { deleting.reset(); };
    deleting->start();
    stopping.start();
    restarting.start();
    settleUntil([&] { return !deleting && stopping.done == 1 && restarting.done == 2; });
    runFor(20);
    EXPECT_EQ(stopping.done, 1);
    EXPECT_EQ(restarting.done, 2);
    EXPECT_FALSE(stopping.isRunning() || restarting.isRunning());
}

TEST_F(PeriodicOnScreen, AnnouncesAtOnceAndThenTicks)
{
    Ticker ticker(5);
    ticker.start(0);
    EXPECT_EQ(ticker.interval(), 5);
    EXPECT_EQ(ticker.announced, 1);
    EXPECT_EQ(ticker.ticked, 0);
    settleUntil([&] { return ticker.ticked == 2; });
    EXPECT_EQ(ticker.announced, 3);

    ticker.start(100000);
    ticker.start(100000);
    ticker.stop();
    EXPECT_EQ(ticker.announced, 5);
    runFor(30);
    EXPECT_EQ(ticker.ticked, 2);
}

TEST_F(PeriodicOnScreen, StoppedInsideStaysStoppedAndStartedInsideIsArmedOnce)
{
    Ticker atOnce(1), inTick(1), inCallback(1);
    atOnce.inCallback = [&] { atOnce.stop(); };
    inTick.inTick = [&] { inTick.stop(); };
    inCallback.inCallback = [&] {
        if (inCallback.announced == 2)
            inCallback.stop();
    };
    for (Ticker* ticker : {&atOnce, &inTick, &inCallback})
        ticker->start();
    runFor(40);
    EXPECT_EQ(atOnce.announced, 1);
    EXPECT_EQ(inTick.ticked, 1);
    EXPECT_EQ(inCallback.announced, 2);

    Ticker slow(1), always(1);
    slow.inTick = [&] { slow.start(100000); };
    always.inCallback = [&] { always.start(); };   // would never come back if it announced each time
    slow.start();
    always.start();
    settleUntil([&] { return always.ticked == 5; });
    EXPECT_EQ(slow.ticked, 1) << "the one armed inside counts, no second one";
    EXPECT_EQ(always.announced, 11) << "1 at the start, 2 for each tick: its own and that of the start inside";

    std::unique_ptr<Ticker> deleted[3];
    for (auto& ticker : deleted)
        ticker = std::make_unique<Ticker>(1);
    deleted[0]->inCallback = [&] { deleted[0].reset(); };
    deleted[1]->inTick = [&] { deleted[1].reset(); };
    deleted[2]->inCallback = [&] {
        if (deleted[2]->announced == 2)
            deleted[2].reset();
    };
    for (auto& ticker : deleted)
        ticker->start();
    settleUntil([&] { return !deleted[0] && !deleted[1] && !deleted[2]; });
}

TEST_F(InputOnScreen, TellsOfTheDescriptorUntilRemoved)
{
    Pipe first, second;
    auto input = std::make_unique<LmInput>();
    int calls = 0;
    std::function<void(LmCallbackObject*, void*)> heard = [&](LmCallbackObject* caller, void* data) {
        EXPECT_EQ(static_cast<void*>(static_cast<LmInput*>(caller)), data);
        char byte;
        EXPECT_EQ(read(input->fd(), &byte, 1), 1);
        ++calls;
        if (byte == 'd')
            input.reset();
    };
    input->addCallback(
        LmInput::inputCallback,
        [](LmCallbackObject* caller, void* function, void* data) { (*static_cast<decltype(heard)*>(function))(caller, data); },
        &heard);
    input->attach(first.readEnd.get(), XtInputReadMask);
    input->attach(second.readEnd.get(), XtInputReadMask);
    ASSERT_EQ(write(first.writeEnd.get(), "x", 1) + write(second.writeEnd.get(), "yz", 2), 3);
    settleUntil([&] { return calls == 2; });
    input->remove();
    ASSERT_EQ(write(second.writeEnd.get(), "d", 1), 1);
    settle();
    EXPECT_EQ(calls, 2);

    input->attach(second.readEnd.get(), XtInputReadMask);
    input->attach(-1, XtInputReadMask);
    input->attach(0, XtInputNoneMask);
    EXPECT_FALSE(input->isAttached());
    input->attach(second.readEnd.get(), XtInputReadMask);
    settleUntil([&] { return !input; });
}

/// Xt uses its ids again: whoever removes one twice stops a stranger.
TEST_F(BackgroundOnScreen, TenThousandDeletedBetweenArmingAndFiring)
{
    Pipe pipe;
    ASSERT_EQ(write(pipe.writeEnd.get(), "x", 1), 1);
    int fired = 0;
    for (int i = 0; i < 10000; i += 3) {
        auto worker = std::make_unique<Worker>(1);
        auto ticker = std::make_unique<Ticker>(0);
        auto input = std::make_unique<LmInput>();
        worker->inSlice = [&] { ++fired; };
        ticker->inTick = [&] { ++fired; };
        input->addCallback(
            LmInput::inputCallback, [](LmCallbackObject*, void* count, void*) { ++*static_cast<int*>(count); }, &fired);
        worker->start();
        ticker->start();
        input->attach(pipe.readEnd.get(), XtInputReadMask);
    }
    runFor(20);
    EXPECT_EQ(fired, 0);
}
