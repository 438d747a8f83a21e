#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmScheme.h"
#include "support/handles.h"
#include "support/resources.h"
#include "uiUtl.h"

#include <X11/Xft/Xft.h>
#include <Xm/Label.h>

#include <filesystem>
#include <fstream>

#include <sys/stat.h>

using namespace lmtest;
namespace fs = std::filesystem;

namespace {

struct SchemeOnScreen : OnScreen {
    ~SchemeOnScreen() override { fs::remove_all(folder); }
    std::string file(const std::string& name, const std::string& text = "") const
    {
        std::ofstream(folder + name) << text;
        return folder + name;
    }
    const std::string folder = std::string(getenv("HOME")) + "/schemes/";
    const bool made = fs::create_directories(folder);
};
using SchemeDump = SchemeOnScreen;

std::string valueIn(XrmDatabase db, const char* name)
{
    char* type = nullptr;
    XrmValue value{};
    return db && XrmGetResource(db, name, name, &type, &value) ? value.addr : "(none)";
}

std::string programValue(const char* name)
{
    return valueIn(XtDatabase(app().display()), (std::string("lmtest.") + name).c_str());
}
std::string load(const std::string& scheme)
{
    setResource("*scheme: " + scheme);
    return stderrOf([] { uiUtlLoadScheme(app().display()); });
}

}   // namespace

TEST_F(SchemeOnScreen, TheKindOfDisplayChoosesTheFile)
{
    file("QR_Gray", "*kind: gray");
    file("QR_Color", "*kind: color");
    resource_file_path = folder.c_str();
    constexpr const char* expected[] = {"gray", "gray", "color", "gray", "color", "color"};   // StaticGray ... DirectColor
    for (int visual = 0; visual < 6; ++visual) {
        const Server eightBits("800x600x8", {"-cc", std::to_string(visual)});
        const std::unique_ptr<Display, lm::FreeWith<XCloseDisplay>> display(XOpenDisplay(eightBits.displayName().c_str()));
        XrmDatabase db = nullptr;
        EXPECT_EQ(stderrOf([&] { EXPECT_TRUE(LoadScheme(&db, display.get())); }),
                  "LoadScheme Warning : Initial database is empty \n");
        const lm::XrmOwner owner(db);
        EXPECT_EQ(valueIn(db, "kind"), expected[visual]) << visual;
    }
}

TEST_F(SchemeOnScreen, AFileReplacesWhatIsThereAndMayHaveFiftyMegabytes)
{
    setResource("*background: old");
    setResource("*other: kept");
    file("common", "*background: common\n*font: common\n");
    std::string text = "#include \"common\"\n*background: new\n";
    for (int line = 0; text.size() < 50'000'000; ++line)
        text += "! " + std::string(90, 'c') + "\n*some.widget" + std::to_string(line % 5000) + ".background: #123456\n";
    EXPECT_EQ(stderrOf([&] { EXPECT_TRUE(LoadSchemeInWidget(app().baseWidget(), file("large", text + "*last: read").c_str())); }),
              "");
    for (const auto& [name, value] : {std::pair("background", "new"), {"other", "kept"}, {"font", "common"}, {"last", "read"}})
        EXPECT_EQ(programValue(name), value);
}

TEST_F(SchemeOnScreen, WhatIsNoFileCannotBeReadAndNobodyWaits)
{
    ASSERT_EQ(mkfifo((folder + "fifo").c_str(), 0600), 0);
    for (const std::string& name : {folder + "fifo", folder, std::string("/dev/zero"), folder + "missing"}) {
        EXPECT_EQ(stderrOf([&] { EXPECT_FALSE(LoadSchemeInWidget(app().baseWidget(), name.c_str())); }),
                  "LoadSchemeInDatabase Error : Can not load resource file " + name +
                      " \nLoadSchemeInWidget Error : Can not Load database " + name + " \n");
    }
}

TEST_F(SchemeDump, ReplacesALinkAndNotWhatItPointsTo)
{
    const std::string dump = "/tmp/QR_appl.db", victim = file("victim", "untouched");
    fs::remove_all(dump);
    fs::create_symlink(victim, dump);
    resource_file_path = "/nowhere/";
    setResource("*dumped: indeed");
    EXPECT_EQ(stderrOf([] { EXPECT_FALSE(TestFunction(app().baseWidget())); }),
              "LoadSchemeInDatabase Error : Can not load resource file /nowhere/QR_Color \n"
              "LoadScheme Error : Can not load database, resources dumped in the /tmp/QR_appl.db \n");
    EXPECT_EQ(fs::file_size(victim), 9U);   // untouched
    EXPECT_EQ(fs::symlink_status(dump).type(), fs::file_type::regular);
    EXPECT_EQ(fs::status(dump).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(valueIn(lm::XrmOwner(XrmGetFileDatabase(dump.c_str())).get(), "dumped"), "indeed");
    fs::remove(dump);
}

TEST_F(SchemeOnScreen, TheProgramsSchemeIsFoundByPathInTheSchemeDirectoryOrAmongTheInstalled)
{
    EXPECT_EQ(load(file("Own", "*origin: own\n")), "");
    EXPECT_EQ(programValue("origin"), "own");
    EXPECT_EQ(load("LumoraDark"), "");
    EXPECT_EQ(programValue("background"), "#2b3037");
    file("LumoraDark", "*background: mine\n");
    resource_file_path = folder.c_str();
    load("LumoraDark");
    EXPECT_EQ(programValue("background"), "mine");
    EXPECT_EQ(load("Nothing"), "scheme \"Nothing\" cannot be read (looked for " + folder + "Nothing, " + LUMORA_SOURCE_DIR +
                                   "/data/schemes/Nothing)\n");
}

TEST(StartUpScheme, KeepsItsFontsFromARemoteDisplayUnlessAsked)
{
    const Server networked("800x600x24", {"-listen", "tcp"});
    setenv("DISPLAY", ("localhost" + networked.displayName()).c_str(), 1);
    load("LumoraLight");
    EXPECT_EQ(programValue("background"), "#eceff3");
    EXPECT_EQ(programValue("labelRenderTable"), "(none)");
    setResource("*schemeFonts: True");
    load("LumoraLight");
    EXPECT_EQ(programValue("labelRenderTable"), "lumoraSans, lumoraFixed");
}

TEST(StartUpScheme, ShowsEveryLetterOfUtf8Text)
{
    setenv("LC_ALL", "C.UTF-8", 1);
    Display* display = app().display();
    load("LumoraLight");
    const std::string text = "Grüße, Привет";
    Widget shell = XtVaCreatePopupShell("shell", topLevelShellWidgetClass, app().baseWidget(), nullptr);
    Widget label = XtVaCreateManagedWidget(text.c_str(), xmLabelWidgetClass, shell, nullptr);
    XtPopup(shell, XtGrabNone);
    settle();
    Pixel ink = 0;
    XtVaGetValues(label, XmNforeground, &ink, nullptr);
    const std::pair shown(pixelCount(label, ink), colourCount(label));
    XClearWindow(display, XtWindow(label));   // and as Xft alone draws it
    XftFont* font = XftFontOpen(display, 0, XFT_FAMILY, XftTypeString, "DejaVu Sans", XFT_SIZE, XftTypeDouble, 10.0, nullptr);
    XftDraw* draw = XftDrawCreate(display, XtWindow(label), DefaultVisual(display, 0), DefaultColormap(display, 0));
    const XftColor color{ink, {0x1c1c, 0x2727, 0x3333, 0xffff}};
    XftDrawStringUtf8(draw, &color, font, 2, font->ascent, reinterpret_cast<const FcChar8*>(text.data()),
                      static_cast<int>(text.size()));
    EXPECT_EQ(std::pair(pixelCount(label, ink), colourCount(label)), shown);
    EXPECT_GT(shown.first, 20);
    XftDrawDestroy(draw);
    XftFontClose(display, font);
}
