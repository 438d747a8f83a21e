#include "tests/support/OnScreen.h"

#include "LmIcon.h"

#include <X11/IntrinsicP.h>
#include <Xm/PushB.h>

using namespace lmtest;

namespace {

const char* threeColors[] = {"4 2 3 1", ". c #111111", "X c #222222", "o c #333333", "..XX", "XXoo", nullptr};

// With a symbol for each colour, and one that no function knows.
const char* symbols[] = {"5 1 5 1",
                         "a s topShadowColor c #010101",
                         "b s background c #020202",
                         "c s fillcolor c #030303",
                         "d s mine c #040404",
                         "e s strange c #050505",
                         "abcde",
                         nullptr};

class LmIconOnScreen : public OnScreen {
protected:
    Widget button()
    {
        Widget w = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, shell(), XtVaTypedArg, XmNbackground, XmRString,
                                           "blue", 5, XtVaTypedArg, XmNarmColor, XmRString, "red", 4, nullptr);
        return w;
    }
    static Pixel colorOf(Widget w, const char* resource)
    {
        Pixel pixel = 0;
        XtVaGetValues(w, resource, &pixel, nullptr);
        return pixel;
    }
    // A row of a pixmap; the pixmap goes.
    static std::vector<Pixel> rowOf(Widget w, Pixmap pixmap, unsigned width, int y = 0)
    {
        if (!pixmap)
            return {};
        XImage* image = XGetImage(XtDisplay(w), pixmap, 0, y, width, 1, AllPlanes, ZPixmap);
        std::vector<Pixel> row;
        for (unsigned x = 0; x < width; ++x)
            row.push_back(XGetPixel(image, static_cast<int>(x), 0));
        XDestroyImage(image);
        XFreePixmap(XtDisplay(w), pixmap);
        return row;
    }
};

using Row = std::vector<Pixel>;

}   // namespace

TEST_F(LmIconOnScreen, IconsTakeTheColoursGiven)
{
    Widget w = button();
    char** writable = const_cast<char**>(threeColors);
    const Pixel top = colorOf(w, XmNtopShadowColor), bottom = colorOf(w, XmNbottomShadowColor);

    EXPECT_EQ(rowOf(w, LmCreate3ColorIcon(w, threeColors), 4), (Row{top, top, 0x0000ff, 0x0000ff}));
    EXPECT_EQ(rowOf(w, LmCreate3ColorIcon(w, writable, 0x0000ff), 4, 1), (Row{0x0000ff, 0x0000ff, bottom, bottom}));
    EXPECT_EQ(rowOf(w, LmCreate3ColorIcon(w, threeColors, 1, 2, 3), 4), (Row{2, 2, 1, 1}));
    Pixel many[] = {0x102030, 0x405060, 0x708090, 5};
    EXPECT_EQ(rowOf(w, LmCreateMultiColorIcon(w, writable, many, 4), 4, 1), (Row{0x405060, 0x405060, 0x708090, 0x708090}));
    EXPECT_STREQ(threeColors[1], ". c #111111");

    EXPECT_EQ(LmCreateMultiColorIcon(w, writable, many, 2), 0u);
    EXPECT_EQ(LmCreate4ColorIcon(w, writable, 1, 2, 3, 4), 0u);
    EXPECT_EQ(LmCreate3ColorIcon(nullptr, threeColors), 0u);
    const char* unknownCharacter[] = {"1 1 3 1", ". c #111111", "X c #222222", "o c #333333", "?", nullptr};
    EXPECT_EQ(LmCreate3ColorIcon(w, unknownCharacter), 0u);
    EXPECT_EQ(LmCreateXPMPixmap(w, nullptr, nullptr), 0u);

    EXPECT_EQ(getHilight(w, 0, 0xffffff), 0xfdfdfdu);   // 64879 >> 8 is 253
}

TEST_F(LmIconOnScreen, SymbolsTakeThePixelsOfTheWidgetAndItsResources)
{
    setResource("*button.mine: #0a0b0c");
    Widget w = button();
    const char* extra[] = {"mine", "strange", nullptr};
    const Pixel top = colorOf(w, XmNtopShadowColor);

    EXPECT_EQ(rowOf(w, LmCreateXPMPixmap(w, symbols, extra), 5), (Row{top, 0x0000ff, 0x030303, 0x0a0b0c, 0}));
    EXPECT_EQ(rowOf(w, LmCreateXPMPixmap(w, symbols, nullptr), 5), (Row{top, 0x0000ff, 0x030303, 0x040404, 0x050505}));
    EXPECT_EQ(rowOf(w, CreateXPMPixmap(w, symbols, 7, 8, 9, 10), 5), (Row{0x010101, 8, 7, 0x040404, 0x050505}));
}

TEST_F(LmIconOnScreen, AnArmedButtonShowsTheArmedIcon)
{
    Widget w = button();
    Pixmap normal = 0, armed = 0;
    LmInstallIcon(w, threeColors, &normal, &armed);
    XtRealizeWidget(shell());
    XtMapWidget(shell());
    settle();
    const int x = w->core.width / 2, y = w->core.height / 2 - 1;   // the second half of the first row is the background
    EXPECT_EQ(pixelAt(w, x, y), 0x0000ffu);
    EXPECT_NE(normal, 0u);

    press(w, x, y);
    settle();
    EXPECT_EQ(pixelAt(w, x, y), 0xff0000u);
    EXPECT_EQ(pixelAt(w, x - 1, y), rowOf(w, armed, 4)[0]);
    release();
    settle();
    EXPECT_EQ(pixelAt(w, x, y), 0x0000ffu);

    const char* broken[] = {"4 2 3 1", nullptr};
    LmInstallIcon(w, broken, &normal, nullptr);
    settle();
    EXPECT_EQ(normal, 0u);
}
