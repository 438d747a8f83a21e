#include "tests/support/OnScreen.h"   // first: gtest must come before X.h defines None

#include "LmBusyDialog.h"
#include "LmFileSet.h"
#include "LmInterruptDialog.h"
#include "LmWarningDialog.h"
#include "support/resources.h"
#include "support/xmtext.h"

#include <Xm/List.h>
#include <Xm/TextF.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>

using namespace lmtest;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {

/// A folder for files, which the process works in, and a locale whose characters are UTF-8; made before the application is.
struct Folder {
    Folder()
    {
        setenv("LC_ALL", "C.UTF-8", 1);
        char made[] = "/tmp/lumoraXXXXXX";
        path = mkdtemp(made);
        fs::current_path(path);
        setenv("CANARY", canary().c_str(), 1);
    }
    ~Folder() { fs::remove_all(path); }
    std::string canary() const { return path + "/canary"; }
    std::string make(const std::string& name) const
    {
        const fs::path file = fs::path(path) / name;
        fs::create_directories(file.parent_path());
        close(creat(file.c_str(), 0644));
        return file;
    }
    /// A folder below which `count` files are found in each of `ways` ways.
    void makeMany(const std::string& name, int ways, int count) const
    {
        for (int i = 0; i < count; ++i)
            make(name + "Files/" + std::to_string(i));
        fs::create_directory(name);
        for (int i = 0; i < ways; ++i)
            fs::create_directory_symlink("../" + name + "Files", name + "/" + std::to_string(i));
    }
    std::string path;
};

struct FileSetOnScreen : Folder, OnScreen {
    Widget part(const char* name) { return childNamed(files->baseWidget(), std::string("*") + name); }
    Names shown(const char* list)
    {
        XmStringTable items = nullptr;
        int count = 0;
        XtVaGetValues(part(list), XmNitems, &items, XmNitemCount, &count, nullptr);
        Names texts;
        std::transform(items, items + count, std::back_inserter(texts), lm::plainText);
        return texts;
    }
    /// Selects these items; without any, all but "." and "..".
    void select(const char* list, const Names& names = {})
    {
        const auto policy = [&](int value) { XtVaSetValues(part(list), XmNselectionPolicy, value, nullptr); };
        policy(XmMULTIPLE_SELECT);   // XmListSelectPos adds to the selection
        XmListDeselectAllItems(part(list));
        const Names all = shown(list);
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (names.empty() ? all[i] != "." && all[i] != ".." : std::ranges::count(names, all[i]) > 0)
                XmListSelectPos(part(list), static_cast<int>(i) + 1, False);
        }
        policy(XmEXTENDED_SELECT);
    }
    void clickItem(const char* list, const std::string& text)
    {
        const Names all = shown(list);
        const auto at = std::ranges::find(all, text) - all.begin();
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        ASSERT_TRUE(XmListPosToBounds(part(list), static_cast<int>(at) + 1, &x, &y, &width, &height)) << text;
        click(part(list), x + 5, y + height / 2);
    }
    void enter(const std::string& text)
    {
        XmTextFieldSetString(part("fileTextWidget"), lm::xtText(text.c_str()));
        files->addFileDirect();
    }
    Names set()
    {
        Names names;
        const LmNameList* list = files->fileset();
        for (int i = 0; list && i < list->size(); ++i)
            names.emplace_back(list->at(i));
        return names;
    }
    /// The set in the order of bytes, without the folder's path; empties it.
    Names taken()
    {
        Names names = set();
        for (std::string& name : names) {
            if (name.starts_with(path + "/"))
                name.erase(0, path.size() + 1);
        }
        std::ranges::sort(names);
        files->clear();
        return names;
    }
    /// The text of the warning that is up, which goes.
    static std::string warning()
    {
        Widget dialog = getTheWarningDialog()->lastPosted();
        const std::string text = dialog ? textOf(dialog, XmNmessageString) : "";
        getTheWarningDialog()->unpost();
        return text;
    }
    /// Whether a process of this folder's path runs.
    bool isSearching()
    {
        for (const auto& process : fs::directory_iterator("/proc")) {
            std::ifstream file(process.path() / "cmdline");
            std::string line;
            std::getline(file, line);   // nothing when the process has gone meanwhile
            if (line.find(path) != std::string::npos)
                return true;
        }
        return false;
    }
    /// A process that was killed may take a moment to go.
    void expectNoSearch()
    {
        settleUntil([this] { return !isSearching(); });
    }
    void browse() { files->setBrowsedDirectory(path.c_str()); }

    std::unique_ptr<LmFileSet> files = [this] {
        setResource("*files*left*visibleItemCount: 4");   // the screen is small
        return std::unique_ptr<LmFileSet>(LmCreateFileSet("files", shell()));
    }();
};

// clang-format off
const Names hostileNames = {
    "a b", " lead", "trail ", "tab\there", "it's", "'", "''", "\"", "\"x\"", "`touch $CANARY`", "$(touch $CANARY)",
    "$((touch $CANARY))", "${CANARY}", "$CANARY", "$", "$$", ";touch $CANARY", "; touch $CANARY;", "a;b", "|touch $CANARY",
    "||touch $CANARY", "&touch $CANARY", "&&touch $CANARY", "a&", ">$CANARY", ">>$CANARY", "2>$CANARY", "<$CANARY",
    "';touch $CANARY;'", "\";touch $CANARY;\"", "'`touch $CANARY`'", "\\", "\\'", "x\\", "\\;touch $CANARY", "*", "?", "[a]",
    "[!a]*", "~", "~root", "-", "--", "-rf", "--help", "-exec touch $CANARY ;", "-print0", "#x", "!x", "!!", "(touch $CANARY)",
    "{a,b}", "{touch $CANARY;}", "=x", "a=b", "%s%n", "new\ntouch $CANARY", "\n", "\x01\x7F\x1B[0m", "\xFF\xFE",
    "\x81\x84\x88", "k\xC3\xA4se", "\r", "done", std::string(255, 'n'), std::string(254, '\'')};
const char* const hostilePatterns[] = {
    "*;touch $CANARY", "*|touch $CANARY", "*&touch $CANARY", "*&&touch $CANARY", "*||touch $CANARY", "*\ntouch $CANARY",
    "`touch $CANARY`*", "$(touch $CANARY)*", "$((`touch $CANARY`))", "${X:-`touch $CANARY`}", "${X:=$(touch $CANARY)}",
    "*>$CANARY", "*>>$CANARY", "*<$CANARY", "2>$CANARY*", "*>|$CANARY", "<>$CANARY*", "\"`touch $CANARY`\"*",
    "\"$(touch $CANARY)*\"", "\"*\";touch $CANARY", "'*';touch $CANARY", "*';touch $CANARY", "*\";touch $CANARY",
    "\\*;touch $CANARY", "*\\;touch $CANARY", "*\\\ntouch $CANARY", "(touch $CANARY)*", "{ touch $CANARY;}*",
    "! touch $CANARY *", "*#\ntouch $CANARY", "~;touch $CANARY", "~`touch $CANARY`", "$EVIL", "\"$EVIL\"*", "${EVIL}*",
    "[`touch $CANARY`]*", "[;touch $CANARY;]", "?$`touch $CANARY`", "<<X*\n$(touch $CANARY)\nX", "<(touch $CANARY)*",
    "-exec touch $CANARY ; *", "${EVIL@P}*", "${!EVIL}*", "~$(touch $CANARY)/*", "$'\\n'touch $CANARY*", "--help *", "\\"};
// clang-format on

constexpr const char* lengthWarning = "Names of more than 1024 bytes \ncannot be added to a fileset!";
constexpr const char* limitWarning = "Attempt to add more than 10000 files \nto a fileset! Ignoring added files";

}   // namespace

TEST_F(FileSetOnScreen, MouseAndKeyboardPutASetTogether)
{
    for (const char* name : {"a.c", "b.c", "c.h", "sub/deep/x.c"})
        make(name);
    fs::create_directory("dir.c");
    browse();
    Heard dismissed(*files, LmFileSet::dismissCallback);

    click(part("filesList"), 10, 5);   // the first of them, in the order of the directory
    click(part("moveFilesButton"));
    click(part("moveFilesButton"));
    const std::string first = path + "/" + shown("filesList")[0];
    EXPECT_EQ(set(), (Names{first, first})) << "duplicates too";
    click(part("fileTextWidget"));
    type("*.c\n");
    EXPECT_EQ(set().size(), 4U) << "files, no directory";
    click(part("literalButton"));
    click(part("fileTextWidget"));
    type("\n\n");
    EXPECT_EQ(set().back(), "*.c");
    EXPECT_EQ(set().size(), 5U);
    click(part("recursiveButton"));
    select("directoryList", {"sub"});
    click(part("moveDirsButton"));
    EXPECT_EQ(set().back(), path + "/sub/deep/x.c");

    click(part("okButton"));
    EXPECT_EQ(dismissed.values, std::vector<int>{1});
    EXPECT_FALSE(XtIsManaged(files->baseWidget()));
    EXPECT_EQ(files->chosen().size(), first.ends_with(".c") ? 4 : 5) << "each once";
    EXPECT_STREQ(files->chosen().at(0), "*.c") << "sorted";

    files->show();
    settle();
    select("fileSetList", {"*.c", first});
    click(part("removeButton"));
    EXPECT_EQ(std::ranges::count(set(), first), 0);
    select("fileSetList");
    click(part("removeButton"));
    EXPECT_EQ(files->fileset(), nullptr);
    click(part("fileTextWidget"));
    key(XK_Escape);
    EXPECT_EQ(dismissed.values, (std::vector<int>{1, 0}));
    EXPECT_FALSE(XtIsManaged(files->baseWidget()));
    files->ok();
    EXPECT_EQ(files->chosen().size(), 0);
}

TEST_F(FileSetOnScreen, DirectoriesAreBrowsed)
{
    make("sub/deep/file");
    fs::create_directory_symlink(path + "/sub/deep", "link");
    fs::create_symlink("nowhere", "dangling");
    make("bad\xFFname");

    files->setBrowsedDirectory("sub/./deep/..//");
    EXPECT_EQ(files->browsedDirectory(), path + "/sub") << "relative to the working directory";
    clickItem("directoryList", "..");
    clickItem("directoryList", "..");
    EXPECT_EQ(files->browsedDirectory(), path);
    EXPECT_EQ(std::ranges::count(shown("directoryList"), "link"), 1);
    EXPECT_EQ(std::ranges::count(shown("filesList"), "dangling"), 1);
    select("filesList", {"bad\xEF\xBF\xBDname"});
    files->addFiles();
    EXPECT_EQ(taken(), (Names{"bad\xFFname"})) << "shown otherwise, answered as it is";

    files->setBrowsedDirectory("link/..");
    EXPECT_EQ(files->browsedDirectory(), path + "/sub") << "where the link leads";
    for (const char* no : {"/nowhere", "bad\xFFname", "", static_cast<const char*>(nullptr)})
        files->setBrowsedDirectory(no);
    files->setWorkingDirectory("/nowhere");
    files->setWorkingDirectory("deep");
    EXPECT_EQ(files->browsedDirectory(), path + "/sub");
    EXPECT_EQ(files->workingDirectory(), path) << "there is no deep here";
    files->setWorkingDirectory("sub/deep");
    EXPECT_EQ(fs::current_path(), path + "/sub/deep");

    select("directoryList", {"deep"});
    fs::current_path("/");
    fs::remove_all(path + "/sub");
    files->addDirs();
    enter("*");
    files->setBrowsedDirectory((path + "/sub").c_str());
    EXPECT_EQ(files->fileset(), nullptr) << "a directory may vanish";
}

TEST_F(FileSetOnScreen, NothingInANameIsRun)
{
    Names names = hostileNames;
    for (const std::string& name : names) {
        make("dirs/" + name + "/in");
        make("files/" + name);
    }

    files->setRecursive(True);
    files->setBrowsedDirectory("dirs");
    select("directoryList");
    files->addDirs();
    Names expected;
    for (const std::string& name : names) {   // the lines that are printed
        std::string text = path + "/dirs/" + name + "/in\n";
        for (std::size_t end = 0; (end = text.find('\n')) != std::string::npos; text.erase(0, end + 1))
            expected.push_back(text.substr(0, end));
    }
    Names found = set();
    std::ranges::sort(expected);
    std::ranges::sort(found);
    EXPECT_EQ(found, expected);
    files->clear();
    files->setRecursive(False);
    files->addDirs();
    EXPECT_EQ(taken(), Names(names.size(), "in"));

    files->setBrowsedDirectory("files");
    select("filesList");
    files->addFiles();
    found = taken();
    for (std::string& name : names)
        name = "files/" + name;
    std::ranges::sort(names);
    EXPECT_EQ(found, names);
    enter("*");
    found = taken();
    for (const std::string& name : names)
        EXPECT_TRUE(name.find('\n') != std::string::npos || std::ranges::count(found, name) == 1) << name;
    EXPECT_FALSE(fs::exists(canary()));
    EXPECT_EQ(warning(), "");
}

TEST_F(FileSetOnScreen, OnlyPatternsActInWhatIsTyped)
{
    for (const char* name : {"a.c", "b c.c", "-d.c", "home/h.c", "semi;colon", "b[1]"})
        make(name);
    browse();
    setenv("HOME", (path + "/home").c_str(), 1);
    setenv("VALUE", "b c", 1);
    setenv("EVIL", "$(touch $CANARY);`touch $CANARY`", 1);
    setenv("QUOTING_STYLE", "c", 1);
    // clang-format off
    const struct {
        const char* typed;
        Names found;
    } cases[] = {
        {"*.c", {"-d.c", "a.c", "b c.c"}}, {"?.c *colon", {"a.c", "semi;colon"}}, {"[a-b]*.c", {"a.c", "b c.c"}},
        {"~/*.c", {"home/h.c"}}, {"$VALUES.c", {}}, {"${VALUE}.c", {"b c.c"}}, {"\"$VALUE\"*", {"b c.c"}}, {"-d*", {"-d.c"}},
        {"'b c'*", {"b c.c"}}, {"b\\ c*", {"b c.c"}}, {"semi;*", {"semi;colon"}}, {"b[[]1*", {"b[1]"}}, {"home/../a.?", {"a.c"}}};
    // clang-format on
    for (const auto& [typed, expected] : cases) {
        enter(typed);
        Names sorted = expected;
        std::ranges::sort(sorted);
        EXPECT_EQ(taken(), sorted) << typed;
    }
    files->clear();
    for (const char* hostile : hostilePatterns) {
        enter(hostile);
        EXPECT_FALSE(fs::exists(canary())) << hostile;
    }
    files->clear();
    enter("--*");
    EXPECT_EQ(files->fileset(), nullptr);
    enter("no; pattern");
    EXPECT_EQ(taken(), (Names{"no; pattern"})) << "a name as it is";
    EXPECT_EQ(warning(), "");
}

TEST_F(FileSetOnScreen, TooMuchIsRefusedWithAWarning)
{
    makeMany("a", 9, 1111);
    make("b/one");
    browse();
    files->setRecursive(True);
    select("directoryList", {"a"});
    files->addDirs();
    EXPECT_EQ(set().size(), 9999U);
    EXPECT_EQ(warning(), "");
    select("directoryList", {"a", "b"});
    files->addDirs();
    EXPECT_EQ(warning(), limitWarning) << "10,000 in both";
    EXPECT_EQ(set().size(), 9999U);
    EXPECT_EQ(warning(), "") << "once";
    files->clear();

    const std::string part(200, 'p');
    std::string deep = "deep";
    for (int i = 0; i < 6; ++i)
        make((deep += "/" + part) + "/file");
    browse();
    select("directoryList", {"deep"});
    files->addDirs();
    EXPECT_EQ(set().size(), 4U) << "paths of up to 1,024 bytes";
    EXPECT_EQ(warning(), lengthWarning);
    files->clear();
    files->setBrowsedDirectory((path + "/" + deep + "/..").c_str());
    select("directoryList", {part});
    files->addDirs();
    EXPECT_EQ(warning(), lengthWarning);
    enter("*" + std::string(1024, 'x'));
    EXPECT_EQ(warning(), lengthWarning);
    EXPECT_EQ(files->fileset(), nullptr);
}

namespace {

/// What is done to a search once its command runs.
struct SearchOnScreen : FileSetOnScreen {
    SearchOnScreen()
    {
        for (int i = 0; i < 10; ++i) {   // ten ways to go, ten times: a search that finds nothing for a long time
            fs::create_directories("maze/" + std::to_string(i));
            for (int j = 0; j < 10; ++j)
                fs::create_directory_symlink("../" + std::to_string(i + 1),
                                             "maze/" + std::to_string(i) + "/" + std::to_string(j));
        }
        fs::create_directory("maze/10");
        files->setBrowsedDirectory("maze");
        files->setRecursive(True);
    }
    void endBy(void (*by)(SearchOnScreen&), const std::function<void()>& search)
    {
        ending = by;
        XtAppAddTimeOut(app().appContext(), 20, endWhenItRuns, this);
        search();
        EXPECT_EQ(ending, nullptr);
        expectNoSearch();
        EXPECT_EQ(app().busyCount(), 0);
        EXPECT_EQ(getTheInterruptDialog()->lastPosted(), nullptr);
        EXPECT_EQ(getTheBusyDialog(), getTheDefaultBusyDialog());
        EXPECT_EQ(warning(), "");
    }
    static void endWhenItRuns(XtPointer me, XtIntervalId*)
    {
        auto* self = static_cast<SearchOnScreen*>(me);
        Widget dialog = getTheInterruptDialog()->lastPosted();
        if (dialog && isViewable(dialog) && self->isSearching())
            std::exchange(self->ending, nullptr)(*self);
        else
            XtAppAddTimeOut(app().appContext(), 20, endWhenItRuns, me);
    }
    static void cancel(SearchOnScreen& test)
    {
        Widget button = childNamed(getTheInterruptDialog()->lastPosted(), "Cancel");
        if (isViewable(button))
            return click(button);
        test.ending = cancel;   // it is posted, but not on the screen yet
        XtAppAddTimeOut(app().appContext(), 20, endWhenItRuns, &test);
    }

    void (*ending)(SearchOnScreen&) = nullptr;
};

}   // namespace

TEST_F(SearchOnScreen, EndsWithItsProcesses)
{
    const auto search = [this] {
        files->show();
        select("directoryList", {"0"});
        files->addDirs();
    };
    Heard dismissed(*files, LmFileSet::dismissCallback);
    endBy(cancel, search);
    endBy(cancel, [this] { enter(path + "/maze/0/*/*/*/*/*/*/*/*/*"); });
    endBy([](SearchOnScreen& t) { sendProtocol(XtParent(t.files->baseWidget()), "WM_DELETE_WINDOW"); }, search);
    EXPECT_EQ(dismissed.values, std::vector<int>{0});
    EXPECT_FALSE(XtIsManaged(files->baseWidget()));
    EXPECT_EQ(files->fileset(), nullptr);
    endBy([](SearchOnScreen& t) { t.files.reset(); }, search);
    EXPECT_EQ(files, nullptr);
}

TEST_F(SearchOnScreen, LeavesTheApplicationsBusyDialogAlone)
{
    makeMany("tree", 20, 1000);   // more than fits into the pipe
    browse();
    select("directoryList", {"tree"});
    LmBusyDialog own("own");
    Heard postings(own, LmDialogManager::prepostCallback);
    app().setBusyDialog(&own);
    files->addDirs();
    EXPECT_EQ(postings.values.size(), 400U) << "the first message, and one for every 25 lines";
    EXPECT_EQ(getTheBusyDialog(), &own);
    EXPECT_EQ(warning(), limitWarning);
    EXPECT_EQ(files->fileset(), nullptr);
    expectNoSearch();
    app().setBusyDialog(nullptr);
}

TEST_F(FileSetOnScreen, ItsOwnerMayDestroyItWhenItIsDismissed)
{
    files->addCallback(
        LmFileSet::dismissCallback, [](LmCallbackObject* caller, void*, void*) { delete caller; }, nullptr);
    settle();
    click(part("okButton"));
    EXPECT_FALSE(LmComponent::isComponent(files.release()));

    LmFileSet orphan(shell(), "orphan");
    orphan.add("kept");
    destroyShell();
    EXPECT_EQ(orphan.baseWidget(), nullptr);
    orphan.add("added");
    orphan.setBrowsedDirectory("/");
    for (void (LmFileSet::*act)() : {&LmFileSet::addFiles, &LmFileSet::addDirs, &LmFileSet::addFileDirect, &LmFileSet::ok})
        (orphan.*act)();
    EXPECT_EQ(orphan.chosen().size(), 2);
}
