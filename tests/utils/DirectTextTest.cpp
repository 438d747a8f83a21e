#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "support/handles.h"
#include "support/resources.h"
#include "utils/ConsoleText.h"

#include <Xm/TextOutP.h>
#include <Xm/TextP.h>

#include <X11/Xutil.h>

#include <cstdlib>
#include <random>

using namespace lmtest;

namespace {

/// A locale whose characters are UTF-8; made before the application is.
struct Utf8Locale {
    Utf8Locale() { setenv("LC_ALL", "C.UTF-8", 1); }
};

/// What Motif keeps of a text and shows of it.
struct State {
    explicit State(Widget w)
    {
        const XmTextPart& part = reinterpret_cast<XmTextWidget>(w)->text;
        text = lm::XtString(XmTextGetString(w)).get();
        for (int i = 0; i < part.total_lines; ++i)
            lines.push_back(part.line_table[i].start_pos * 2UL + part.line_table[i].virt_line);
        places = {part.top_character, part.bottom_position, part.cursor_position,
                  part.last_position, part.top_line,        XmTextGetLastPosition(w)};
        int value = 0, size = 0, maximum = 0;
        XtVaGetValues(part.output->data->vbar, XmNvalue, &value, XmNsliderSize, &size, XmNmaximum, &maximum, nullptr);
        places.insert(places.end(), {value, size, maximum});
        XImage* image =
            XGetImage(XtDisplayOfObject(w), XtWindowOfObject(w), 0, 0, w->core.width, w->core.height, AllPlanes, ZPixmap);
        pixels.assign(image->data, static_cast<size_t>(image->bytes_per_line) * static_cast<size_t>(image->height));
        XDestroyImage(image);
    }
    std::string text, pixels;
    std::vector<unsigned long> lines;
    std::vector<long> places;
};

Widget makeText(Widget parent)
{
    Arg args[] = {{lm::xtText(XmNeditMode), XmMULTI_LINE_EDIT},
                  {lm::xtText(XmNscrollHorizontal), False},
                  {lm::xtText(XmNwordWrap), True},
                  {lm::xtText(XmNautoShowCursorPosition), False},
                  {lm::xtText(XmNcursorPositionVisible), False},   // drawn otherwise in the text changed last
                  {lm::xtText(XmNrows), 10},
                  {lm::xtText(XmNcolumns), 40}};
    Widget text = XmCreateScrolledText(parent, lm::xtText("text"), args, std::size(args));
    XtManageChild(text);
    return text;
}

/// A shell of one text on the screen.
Widget shownText(const char* name, int y)
{
    Widget shell = XtVaAppCreateShell(name, "Compared", topLevelShellWidgetClass, app().display(), XmNy, y, nullptr);
    Widget text = makeText(shell);
    XtRealizeWidget(shell);
    settleUntil([&] { return isViewable(text); });
    return text;
}

}   // namespace

struct DirectTextComparison : Utf8Locale, OnScreen {
    void compare(const char* when)
    {
        settle();
        const State ours(direct), motifs(plain);
        ASSERT_EQ(ours.text, motifs.text) << when;
        ASSERT_EQ(ours.lines, motifs.lines) << when;
        ASSERT_EQ(ours.places, motifs.places) << when;
        ASSERT_TRUE(ours.pixels == motifs.pixels) << when;
    }
    template <class Do> void both(Do what)
    {
        what(direct);
        what(plain);
    }
    void compareThroughChanges();
    Widget direct = nullptr, plain = nullptr;
};

/// Appends above a half-typed line, and what users do, to a text of ours and to one of Motif's.
void DirectTextComparison::compareThroughChanges()
{
    direct = shownText("direct", 0);
    plain = shownText("plain", 350);
    lm::ConsoleText console(direct);
    lm::DirectText probe(direct);
    EXPECT_EQ(probe.plainLines("ab\ncd\nef"), 6U);
    EXPECT_EQ(probe.plainLines("ab\n\tx\n"), 3U);
    EXPECT_EQ(probe.plainLines(std::string(60, 'x') + "\n"), 0U);
    std::mt19937 random(1);
    const std::string tail = "prompt> half typ\u00e9d";
    console.insert(0, tail);
    XmTextInsert(plain, 0, lm::xtText(tail.c_str()));
    const auto words = [&] {
        std::string text;
        for (auto lines = random() % 30; lines > 0; --lines) {
            text += std::string(random() % 45, static_cast<char>('a' + random() % 26));
            if (random() % 7 == 0)
                text += "\t\u4e2d \u00e9\u20ac" + std::string(random() % 200, 'w');
            text += "\n";
        }
        return text + (random() % 3 == 0 ? "broken off" : "");
    };
    for (int round = 0; round < 60; ++round) {
        const std::string text = words();
        const auto at = [&](Widget w) { return XmTextGetLastPosition(w) - 18; };
        console.insert(at(direct), text);
        XmTextInsert(plain, at(plain), lm::xtText(text.c_str()));
        if (round % 3 == 0)
            both([](Widget w) { XmTextShowPosition(w, XmTextGetLastPosition(w)); });
        ASSERT_NO_FATAL_FAILURE(compare(("append " + std::to_string(round)).c_str()));
        switch (round % 6) {
        case 1:
            both([](Widget w) { XmTextSetInsertionPosition(w, XmTextGetLastPosition(w)); });
            break;
        case 2: {
            const XmTextPosition before = XmTextGetLastPosition(direct);
            console.cutFront(console.bytes() / 3, before - 18);
            XmTextReplace(plain, 0, before - XmTextGetLastPosition(direct), lm::xtText(""));
        } break;
        case 3:
            both([](Widget w) {
                XmTextSetHighlight(w, XmTextGetLastPosition(w) - 10, XmTextGetLastPosition(w) - 5, XmHIGHLIGHT_SELECTED);
            });
            break;
        case 4:
            both([](Widget w) { XmTextSetHighlight(w, 0, XmTextGetLastPosition(w), XmHIGHLIGHT_NORMAL); });
            break;
        default:
            both([](Widget w) { XmTextScroll(w, -3); });
        }
        ASSERT_NO_FATAL_FAILURE(compare(("change " + std::to_string(round)).c_str()));
    }
    both([](Widget w) { XtVaSetValues(w, XmNcolumns, 30, nullptr); });
    compare("narrower");
}

TEST_F(DirectTextComparison, LeavesEverythingAsMotifWould) { compareThroughChanges(); }

TEST_F(DirectTextComparison, DoesSoWithAScalableFont)
{
    for (const char* line :
         {"*text.renderTable: mono", "*mono.fontType: FONT_IS_XFT", "*mono.fontName: DejaVu Sans Mono", "*mono.fontSize: 9"})
        setResource(line);
    compareThroughChanges();
    OutputData output = reinterpret_cast<XmTextWidget>(direct)->text.output->data;
    EXPECT_TRUE(output->use_xft);
}

TEST_F(DirectTextComparison, DoesSoWithAFontSet)
{
    for (const char* line : {"*text.renderTable: set", "*set.fontType: FONT_IS_FONTSET", "*set.fontName: fixed"})
        setResource(line);
    compareThroughChanges();
    OutputData output = reinterpret_cast<XmTextWidget>(direct)->text.output->data;
    EXPECT_TRUE(output->use_fontset);
    takeErrors();   // the few fonts of the server lack some of the set
}
