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
    Numbered list(3), none(0);
    std::vector<Cursor> shown = {list.current(), none.next(), none.current()};
    for (int i = 0; i < 4; ++i)
        shown.insert(shown.end(), {list.next(), list.current()});
    list.reset();
    shown.push_back(list.current());
    EXPECT_EQ(shown, (std::vector<Cursor>{100, 0, 0, 100, 100, 101, 101, 102, 102, 100, 100, 100}));
    EXPECT_EQ(list.created, (std::vector{0, 1, 2}));
}

using BusyCursorsOnScreen = OnScreen;

TEST_F(BusyCursorsOnScreen, AWatchWhoseHandTurnsClockwise)
{
    setResource("*busyCursorForeground: #0000ff");
    setResource("*busyCursorBackground: #ffff00");
    LmBusyCursors watch;
    std::vector<std::uint32_t> seen;
    for (int i = 0; i < 9; ++i) {
        XDefineCursor(app().display(), DefaultRootWindow(app().display()), watch.next());
        seen.push_back(fingerprintOfCursor(app().display()));
    }
    EXPECT_EQ(seen, (std::vector{0xfb694bb0U, 0x31114dd3U, 0x936bda88U, 0x2865e3abU, 0x228b9074U, 0x5f126d8fU, 0x6b3ec990U,
                                 0x305e6397U, 0xfb694bb0U}));
}
