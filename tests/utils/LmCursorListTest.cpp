#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmCursorList.h"
#include "support/handles.h"

#include <X11/extensions/Xfixes.h>

using namespace lmtest;   // app, OnScreen, exitStatusOf

namespace {

struct Numbered : LmCursorList {
    explicit Numbered(int count) : LmCursorList(count) {}
    void createCursor(int index) override
    {
        created.push_back(index);
        _cursors[static_cast<std::size_t>(index)] = static_cast<Cursor>(100 + index);
    }
    std::vector<int> created;
};

/// A fingerprint of the cursor now on the screen: 1 ink, 2 paper, 0 nothing, row by row.
std::uint32_t fingerprintOfCursor(Display* display)
{
    const std::unique_ptr<XFixesCursorImage, lm::FreeWith<lm::xFree>> image(XFixesGetCursorImage(display));
    std::uint32_t print = 2166136261U;
    for (int i = 0; i < image->width * image->height; ++i) {
        const unsigned long argb = image->pixels[i] & 0xFFFFFFFFUL;
        print = (print ^ (argb == 0xFF0000FFUL ? 1U : argb == 0xFFFFFF00UL ? 2U : 0U)) * 16777619U;
    }
    return print ^ static_cast<std::uint32_t>(image->xhot + image->yhot);
}

}   // namespace

TEST(CursorList, FramesGoRoundAndEachIsCreatedOnce)
{
    Numbered list(3);

    EXPECT_EQ(list.current(), 100U);
    EXPECT_EQ(list.next(), 100U);
    EXPECT_EQ(list.next(), 101U);
    EXPECT_EQ(list.current(), 101U);
    EXPECT_EQ(list.next(), 102U);
    EXPECT_EQ(list.current(), 102U);
    EXPECT_EQ(list.next(), 100U);
    list.next();
    list.reset();
    EXPECT_EQ(list.current(), 100U);
    EXPECT_EQ(list.next(), 100U);
    EXPECT_EQ(list.created, (std::vector{0, 1, 2}));

    Numbered none(0);
    EXPECT_EQ(none.next(), 0U);
    EXPECT_EQ(none.current(), 0U);
}

struct BusyCursorsOnScreen : OnScreen {};

TEST_F(BusyCursorsOnScreen, AWatchWhoseHandTurnsClockwise)
{
    setResource("*busyCursorForeground: #0000ff");
    setResource("*busyCursorBackground: #ffff00");
    Display* display = app().display();
    LmBusyCursors watch;
    const std::vector<std::uint32_t> expected = {0xfb694bb0U, 0x31114dd3U, 0x936bda88U, 0x2865e3abU,
                                                 0x228b9074U, 0x5f126d8fU, 0x6b3ec990U, 0x305e6397U};

    std::vector<std::uint32_t> seen;
    std::vector<Cursor> cursors;
    for (int i = 0; i < 9; ++i) {
        cursors.push_back(watch.next());
        XDefineCursor(display, DefaultRootWindow(display), cursors.back());
        seen.push_back(fingerprintOfCursor(display));
    }

    EXPECT_EQ(cursors[8], cursors[0]);
    seen.pop_back();
    EXPECT_EQ(seen, expected);
}

TEST(BusyCursors, NeedTheApplicationObject)
{
    EXPECT_EQ(exitStatusOf([] { LmBusyCursors(); }), 1);
}
