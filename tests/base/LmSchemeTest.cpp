#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmResource.h"
#include "LmScheme.h"
#include "support/handles.h"
#include "support/resources.h"
#include "uiUtl.h"

#include <X11/Xft/Xft.h>
#include <Xm/Label.h>

#include <clocale>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

using namespace lmtest;   // app, Server, OnScreen, stderrOf
namespace fs = std::filesystem;

namespace {

using DisplayOwner = std::unique_ptr<Display, lm::FreeWith<XCloseDisplay>>;

/// A folder of schemes of this test, with its trailing '/'.
struct SchemeFolder {
    SchemeFolder() { mkdtemp(_path.data()); }
    ~SchemeFolder() { fs::remove_all(_path); }
    std::string operator/(const std::string& name) const { return _path + '/' + name; }
    std::string with(const std::string& name, const std::string& text) const
    {
        std::ofstream(*this / name) << text;
        return *this / name;
    }

private:
    std::string _path = fs::temp_directory_path() / "lmscheme-XXXXXX";
};

std::string valueIn(XrmDatabase db, const char* name)
{
    char* type = nullptr;
    XrmValue value{};
    return db && XrmGetResource(db, name, name, &type, &value) ? value.addr : "(none)";
}

/// An application object started with these arguments; the only one of its process.
void start(std::vector<const char*> arguments)
{
    static std::vector<char*> kept;
    kept = {lm::xtText("lmtest")};
    for (const char* argument : arguments)
        kept.push_back(lm::xtText(argument));
    kept.push_back(nullptr);
    static int count = static_cast<int>(kept.size()) - 1;
    new LmApp("LmTest", &count, kept.data(), nullptr, 0);
}

std::string programValue(const char* name)
{
    const char* value = LmGetDefault(theApplication->display(), "lmtest", "LmTest", name, name);
    return value ? value : "(none)";
}

}   // namespace

TEST(Scheme, TheKindOfDisplayChoosesTheFile)
{
    const SchemeFolder folder;
    folder.with("QR_Gray", "*kind: gray");
    folder.with("QR_Color", "*kind: color");
    const std::string path = folder / "";
    resource_file_path = path.c_str();
    constexpr const char* expected[] = {"gray", "gray", "color", "gray", "color", "color"};   // StaticGray ... DirectColor

    for (int visual = 0; visual < 6; ++visual) {
        const Server eightBits("800x600x8", {"-cc", std::to_string(visual)});
        const DisplayOwner display(XOpenDisplay(eightBits.displayName().c_str()));
        ASSERT_TRUE(display) << visual;
        XrmDatabase db = nullptr;
        EXPECT_EQ(stderrOf([&] { EXPECT_TRUE(LoadScheme(&db, display.get())); }),
                  "LoadScheme Warning : Initial database is empty \n");
        EXPECT_EQ(valueIn(db, "kind"), expected[visual]) << visual;
        EXPECT_EQ(WhichDisplay(display.get()), expected[visual] == std::string("color")) << visual;
        XrmDestroyDatabase(db);
    }
}

struct SchemeOnScreen : OnScreen {
    SchemeFolder folder;
};

TEST_F(SchemeOnScreen, ReplacesWhatIsThereAndIncludesItsNeighbours)
{
    setResource("*background: old");
    setResource("*other: kept");
    folder.with("common", "*background: common\n*font: common\n");
    const std::string file = folder.with("scheme", "#include \"common\"\n*background: new\n");

    EXPECT_EQ(stderrOf([&] { EXPECT_TRUE(LoadSchemeInWidget(app().baseWidget(), file.c_str())); }), "");

    XrmDatabase db = XtDatabase(app().display());
    EXPECT_EQ(valueIn(db, "background"), "new");
    EXPECT_EQ(valueIn(db, "other"), "kept");
    EXPECT_EQ(valueIn(db, "font"), "common");
}

TEST_F(SchemeOnScreen, WhatIsNoFileCannotBeReadAndNobodyWaits)
{
    ASSERT_EQ(mkfifo((folder / "fifo").c_str(), 0600), 0);
    fs::create_directory(folder / "directory");
    for (const std::string& file : {folder / "fifo", folder / "directory", std::string("/dev/zero"), folder / "missing"}) {
        const std::string first = "LoadSchemeInDatabase Error : Can not load resource file " + file + " \n";
        const std::string second = "LoadSchemeInWidget Error : Can not Load database " + file + " \n";
        EXPECT_EQ(stderrOf([&] { EXPECT_FALSE(LoadSchemeInWidget(app().baseWidget(), file.c_str())); }), first + second);
    }
    fs::current_path(folder / "directory");
    EXPECT_EQ(stderrOf([] { EXPECT_FALSE(LoadSchemeInWidget(app().baseWidget(), nullptr)); }),
              "LoadSchemeInDatabase Error : Can not load resource file QR_Color \n"
              "LoadSchemeInWidget Error : Can not Load database QR_Color \n");
}

TEST_F(SchemeOnScreen, FiftyMegabytesAreAScheme)
{
    std::string text;
    for (int line = 0; text.size() < 50'000'000; ++line)
        text += "! " + std::string(90, 'c') + "\n*some.widget" + std::to_string(line % 5000) + ".background: #123456\n";
    text += "*last: read\n";
    XrmDatabase db = nullptr;

    EXPECT_TRUE(LoadSchemeInDatabase(&db, folder.with("large", text).c_str()));

    EXPECT_EQ(valueIn(db, "last"), "read");
    XrmDestroyDatabase(db);
}

// --- the dump -----------------------------------------------------------------------------------------------------------

struct SchemeDump : OnScreen {
    SchemeDump() { removeAll(); }
    ~SchemeDump() override { removeAll(); }
    void removeAll() const
    {
        for (const std::string& name : leftOver())
            fs::remove_all(name);
    }
    /// Everything in the dump's folder whose name begins like the dump's.
    std::vector<std::string> leftOver() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator("/tmp")) {
            if (entry.path().string().starts_with(dump))
                names.push_back(entry.path());
        }
        return names;
    }
    std::string failToLoad() const
    {
        return stderrOf([] { EXPECT_FALSE(TestFunction(app().baseWidget())); });
    }
    const std::string dump = "/tmp/QR_appl.db";
    SchemeFolder folder;
    const std::string said = "LoadSchemeInDatabase Error : Can not load resource file /nowhere/QR_Color \n"
                             "LoadScheme Error : Can not load database, resources dumped in the /tmp/QR_appl.db \n";
};

TEST_F(SchemeDump, ReplacesALinkAndNotWhatItPointsTo)
{
    resource_file_path = "/nowhere/";
    setResource("*dumped: indeed");
    const std::string victim = folder.with("victim", "untouched");
    fs::create_symlink(victim, dump);

    EXPECT_EQ(failToLoad(), said);

    std::string line;
    std::getline(std::ifstream(victim), line);
    EXPECT_EQ(line, "untouched");
    struct stat status {};
    ASSERT_EQ(lstat(dump.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0600U);
    const lm::XrmOwner written(XrmGetFileDatabase(dump.c_str()));
    EXPECT_EQ(valueIn(written.get(), "dumped"), "indeed");
    EXPECT_EQ(leftOver(), std::vector<std::string>{dump});
}

TEST_F(SchemeDump, LeavesNothingBehindWhenItCannotBeReplaced)
{
    resource_file_path = nullptr;
    fs::current_path(folder / "");
    fs::create_directories(dump + "/full");

    const std::string heard = failToLoad();

    EXPECT_EQ(heard, "WARNING : Path to the Resource file not defined, using current directory\n"
                     "LoadSchemeInDatabase Error : Can not load resource file QR_Color \n"
                     "LoadScheme Error : Can not load database, resources dumped in the /tmp/QR_appl.db \n");
    EXPECT_EQ(leftOver(), std::vector<std::string>{dump});
}

// --- the scheme of the start-up -------------------------------------------------------------------------------------------

TEST(StartUpScheme, IsFoundByPathInTheSchemeDirectoryOrAmongTheInstalled)
{
    const SchemeFolder folder;
    const std::string own = folder.with("Own", "*origin: own\n");
    const std::string path = folder / "";

    EXPECT_EQ(stderrOf([] { start({}); }), "");
    Display* display = theApplication->display();
    EXPECT_EQ(programValue("background"), "(none)");

    const auto load = [&](const std::string& name) {
        XrmDatabase db = XtDatabase(display);
        XrmPutStringResource(&db, "*scheme", name.c_str());
        return stderrOf([&] { uiUtlLoadScheme(display); });
    };
    EXPECT_EQ(load(own), "");
    EXPECT_EQ(programValue("origin"), "own");
    EXPECT_EQ(load("LumoraDark"), "");
    EXPECT_EQ(programValue("background"), "#2b3037");
    EXPECT_EQ(programValue("renderTable"), "(none)");
    EXPECT_EQ(programValue("labelRenderTable"), "lumoraSans, lumoraFixed");

    const std::string shadowing = folder.with("LumoraDark", "*background: mine\n");
    resource_file_path = path.c_str();
    EXPECT_EQ(load("LumoraDark"), "");
    EXPECT_EQ(programValue("background"), "mine");
    EXPECT_EQ(load("Nothing"), "scheme \"Nothing\" cannot be read (looked for " + path + "Nothing, " + LUMORA_SOURCE_DIR +
                                   "/data/schemes/Nothing)\n");
    EXPECT_EQ(load("/no/where"), "scheme \"/no/where\" cannot be read (looked for /no/where)\n");
}

TEST(StartUpScheme, KeepsItsFontsFromARemoteDisplayUnlessAsked)
{
    const Server networked("800x600x24", {"-listen", "tcp"});
    setenv("DISPLAY", ("localhost" + networked.displayName()).c_str(), 1);
    start({"-scheme", "LumoraLight"});
    ASSERT_EQ(std::string(DisplayString(theApplication->display())).substr(0, 10), "localhost:");

    EXPECT_EQ(programValue("background"), "#eceff3");
    EXPECT_EQ(programValue("labelRenderTable"), "(none)");
    EXPECT_EQ(programValue("lumoraSans.fontName"), "(none)");

    XrmDatabase db = XtDatabase(theApplication->display());
    XrmPutStringResource(&db, "*schemeFonts", "True");
    uiUtlLoadScheme(theApplication->display());
    EXPECT_EQ(programValue("labelRenderTable"), "lumoraSans, lumoraFixed");
}

/// The pixels of `text` as Xft draws them on a ground, without the margins that have no ink.
static std::vector<unsigned long> inkOf(Display* display, Drawable from, unsigned width, unsigned height, unsigned long ground)
{
    XImage* image = XGetImage(display, from, 0, 0, width, height, AllPlanes, ZPixmap);
    int left = image->width, right = -1, top = image->height, bottom = -1;
    for (int y = 0; y < image->height; ++y) {
        for (int x = 0; x < image->width; ++x) {
            if (XGetPixel(image, x, y) == ground)
                continue;
            left = std::min(left, x), right = std::max(right, x);
            top = std::min(top, y), bottom = std::max(bottom, y);
        }
    }
    std::vector<unsigned long> ink{static_cast<unsigned long>(std::max(right - left + 1, 0))};
    for (int y = top; y <= bottom; ++y) {
        for (int x = left; x <= right; ++x)
            ink.push_back(XGetPixel(image, x, y));
    }
    XDestroyImage(image);
    return ink;
}

TEST(StartUpScheme, ShowsEveryLetterOfUtf8Text)
{
    setenv("LC_ALL", "C.UTF-8", 1);
    start({"-scheme", "LumoraLight"});
    Display* display = theApplication->display();
    Widget shell = XtVaCreatePopupShell("shell", topLevelShellWidgetClass, theApplication->baseWidget(), nullptr);
    Widget label = XtVaCreateManagedWidget("Grüße, Привет", xmLabelWidgetClass, shell, nullptr);
    XtPopup(shell, XtGrabNone);
    settle();

    Pixel ground = 0, ink = 0;
    Dimension width = 0, height = 0;
    XtVaGetValues(label, XmNbackground, &ground, XmNforeground, &ink, XmNwidth, &width, XmNheight, &height, nullptr);
    const lm::PixmapHandle canvas(display, XCreatePixmap(display, XtWindow(label), 400, 60, 24));
    XGCValues values{.foreground = ground};
    const GC gc = XCreateGC(display, canvas.get(), GCForeground, &values);
    XFillRectangle(display, canvas.get(), gc, 0, 0, 400, 60);
    XFreeGC(display, gc);
    XftFont* font = XftFontOpen(display, 0, XFT_FAMILY, XftTypeString, "DejaVu Sans", XFT_SIZE, XftTypeDouble, 10.0, nullptr);
    XftDraw* draw = XftDrawCreate(display, canvas.get(), DefaultVisual(display, 0), DefaultColormap(display, 0));
    const XftColor color{ink, {0x1c1c, 0x2727, 0x3333, 0xffff}};
    const std::string text = "Grüße, Привет";
    XftDrawStringUtf8(draw, &color, font, 20, 40, reinterpret_cast<const FcChar8*>(text.data()), static_cast<int>(text.size()));
    const auto expected = inkOf(display, canvas.get(), 400, 60, ground);
    XftDrawDestroy(draw);
    XftFontClose(display, font);

    EXPECT_GT(expected[0], 60U);
    EXPECT_EQ(inkOf(display, XtWindow(label), width, height, ground), expected);
}
