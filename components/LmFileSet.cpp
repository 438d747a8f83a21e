#include "LmFileSet.h"

#include "LmApp.h"
#include "LmSimpleWindow.h"
#include "LmWarningDialog.h"
#include "base/core/RequireApplication.h"
#include "components/CanonicalPath.h"
#include "components/FilePatterns.h"
#include "components/FileSearch.h"
#include "components/FileSetLists.h"
#include "support/resources.h"

#include <Xm/TextF.h>
#include <Xm/ToggleB.h>

#include <algorithm>
#include <optional>
#include <utility>

#include <dirent.h>
#include <sys/stat.h>

const char* const LmFileSet::dismissCallback = "dismissCallback";

using Names = std::vector<std::string>;

static constexpr std::size_t maxFiles = 10000;     // so many in one operation on directories are too many
static constexpr std::size_t longestPath = 1024;   // bytes
static constexpr const char* tooMany = "Attempt to add more than 10000 files \nto a fileset! Ignoring added files";
static constexpr const char* tooLong = "Names of more than 1024 bytes \ncannot be added to a fileset!";

static std::string currentDirectory()
{
    const lm::CString path(getcwd(nullptr, 0));
    return path && *path == '/' ? path.get() : "/";
}

LmFileSet::LmFileSet(Widget parent, const char* name)
    : LmComponent(name),
      _workingDir(currentDirectory()),
      _lists(std::make_unique<Lists>())
{
    lm::requireApplication("LmFileSet");
    createDialog(parent);
    installDestroyHandler();
    connectWidgets(true);
    _literal = XmToggleButtonGetState(_literalButton);
    _recursive = XmToggleButtonGetState(_recursiveButton);
    setBrowsedDirectory(_workingDir.c_str());
}

LmFileSet::~LmFileSet()
{
    if (!_w)
        return;
    connectWidgets(false);   // destruction may be put off, and the user be faster
    hide();
}

LmFileSet* LmCreateFileSet(const char* name, Widget parent)
{
    LmCreateAppStub(parent);
    auto* files = new LmFileSet(parent, name);
    files->show();
    return files;
}

void LmFileSet::widgetDestroyed()
{
    for (lm::NameRows* rows : {&_lists->directories, &_lists->files, &_lists->set})
        rows->setWidget(nullptr);
    _currentDirectory = _workingDirectory = _fileText = _recursiveButton = _literalButton = nullptr;
    LmComponent::widgetDestroyed();
}

// --- directories -------------------------------------------------------------------------------------------------------

/// Shows a path in a text field: its end, when it is longer than the field.
static void showPath(Widget field, const std::string& path)
{
    if (!field)
        return;
    XmTextFieldSetString(field, lm::xtText(lm::shownName(path).c_str()));
    XmTextFieldSetInsertionPosition(field, XmTextFieldGetLastPosition(field));
}

void LmFileSet::setBrowsedDirectory(const char* dir)
{
    if (!dir || !*dir)
        return;
    const LmBusyScope busy;
    listDirectory(lm::absolutePath(dir, _workingDir));
}

using Directory = std::unique_ptr<DIR, lm::FreeWith<closedir>>;

/// Whether an entry of the directory is one itself, links followed.
static bool isDirectory(DIR* directory, const dirent& entry)
{
    if (entry.d_type == DT_DIR || entry.d_type == DT_REG)
        return entry.d_type == DT_DIR;
    struct stat status;
    return fstatat(dirfd(directory), entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

void LmFileSet::listDirectory(const std::string& dir)
{
    const Directory directory(opendir(dir.c_str()));
    if (!directory)
        return;
    _browsedDir = lm::canonicalPath(dir);
    showPath(_currentDirectory, _browsedDir);
    Names directories, files;
    while (const dirent* entry = readdir(directory.get()))
        (isDirectory(directory.get(), *entry) ? directories : files).emplace_back(entry->d_name);
    _lists->directories.clear();
    _lists->directories.append(std::move(directories));
    _lists->files.clear();
    _lists->files.append(std::move(files));
}

void LmFileSet::setWorkingDirectory(const char* dir)
{
    if (!dir || !*dir)
        return;
    const LmBusyScope busy;
    const std::string path = lm::absolutePath(dir, _workingDir);
    if (chdir(path.c_str()) == -1)
        return;
    _workingDir = path;
    showPath(_workingDirectory, path);
}

// --- adding ------------------------------------------------------------------------------------------------------------

void LmFileSet::addFiles()
{
    const LmBusyScope busy;
    Names paths;
    for (const std::string& name : _lists->files.selected())
        paths.push_back(lm::joinedPath(_browsedDir, name));
    _lists->set.endSelection();
    _lists->set.append(std::move(paths));
}

/// The application's window that the widget is in or belongs to; null when there is none.
static LmSimpleWindow* windowOf(Widget w)
{
    const std::vector<LmSimpleWindow*> windows = theApplication->windows();
    for (; w; w = XtParent(w)) {
        const auto found = std::ranges::find(windows, w, &LmSimpleWindow::baseWidget);
        if (found != windows.end())
            return *found;
    }
    return nullptr;
}

void LmFileSet::warn(const char* message) const
{
    Widget over = _w && XtIsManaged(_w) ? _w : nullptr;
    getTheWarningDialog()->post(message, nullptr, nullptr, nullptr, nullptr, nullptr, windowOf(_w), over);
}

struct LmFileSet::Found {
    std::optional<Names> lines;      // nothing when they are not to be added
    const char* warning = nullptr;   // or what to tell the user in the end
};

/// Runs commands in a directory. Afterwards the component lives only when there are lines or a warning.
LmFileSet::Found LmFileSet::search(const Names& commands, const std::string& dir, bool ofDirectories)
{
    using End = lm::FileSearch::End;
    const lm::Watch here(liveness());
    const bool wasUp = XtIsManaged(_w);
    const auto goesOn = [&] { return here && _w && (!wasUp || XtIsManaged(_w)); };
    Found found;
    End end = End::finished;
    _searching = true;
    {
        lm::FileSearch search(windowOf(_w), ofDirectories ? maxFiles : lm::FileSearch::unlimited, goesOn);
        if (ofDirectories)
            search.announce();
        for (auto command = commands.begin(); command != commands.end() && end == End::finished; ++command)
            end = search.run(*command, dir);
        found.warning = search.foundTooLong() ? tooLong : nullptr;
        found.lines = std::move(search.lines());
    }
    if (here)
        _searching = false;
    if (!goesOn() || end == End::stopped)
        return {};
    if (end == End::tooMany)
        return {{}, tooMany};
    return found;
}

void LmFileSet::addDirs()
{
    if (!_w || _searching)
        return;
    Names commands;
    for (const std::string& name : _lists->directories.selected()) {
        const std::string path = lm::joinedPath(_browsedDir, name);
        if (path.size() > longestPath)
            return warn(tooLong);
        const std::string word = lm::shellWord(path);
        commands.push_back(_recursive ? "/bin/find " + word + " -follow -type f -print" : "/bin/ls " + word);
    }
    if (commands.empty())
        return;
    Found found = search(commands, "/", true);
    if (found.lines) {
        _lists->set.endSelection();
        _lists->set.append(std::move(*found.lines));
    }
    if (found.warning)
        warn(found.warning);
}

void LmFileSet::addFileDirect()
{
    if (!_w)
        return;
    const lm::XtString typed(XmTextFieldGetString(_fileText));
    const std::string text = typed ? typed.get() : "";
    if (text.empty())
        return;
    if (!_literal && lm::holdsPattern(text))
        return addPatterns(text);
    const LmBusyScope busy;
    if (std::ranges::find(_lists->set.names(), text) == _lists->set.names().end())
        add(text.c_str());
}

static bool isDirectory(const std::string& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The absolute paths of those of the names, found in `dir`, that are no directories.
static Names filesAmong(const Names& names, const std::string& dir)
{
    const LmBusyScope busy;
    Names files;
    for (const std::string& name : names) {
        const std::string path = lm::absolutePath(name, dir);
        if (!isDirectory(path))
            files.push_back(lm::canonicalPath(path));
    }
    return files;
}

void LmFileSet::addPatterns(const std::string& text)
{
    if (_searching)
        return;
    if (text.size() > longestPath)
        return warn(tooLong);
    const std::string command = "/bin/ls -d -- " + lm::shellPatterns(text);   // -d: the names of directories, not what they hold
    Found found = search({command}, _browsedDir, false);
    if (found.lines) {
        _lists->set.endSelection();
        _lists->set.append(filesAmong(*found.lines, _browsedDir));
    }
    if (found.warning)
        warn(found.warning);
}

// --- the set -----------------------------------------------------------------------------------------------------------

void LmFileSet::ok()
{
    fileset();
    _fileset.removeDuplicates();
    hide();
}

LmNameList* LmFileSet::fileset()
{
    _fileset.clear();
    for (const std::string& name : _lists->set.names())
        _fileset.add(name.c_str());
    return _fileset.size() ? &_fileset : nullptr;
}

void LmFileSet::add(const char* name)
{
    if (name)
        _lists->set.append({name});
}

void LmFileSet::add(const LmNameList* names)
{
    Names added;
    for (int i = 0; names && i < names->size(); ++i)
        added.emplace_back(names->at(i));
    _lists->set.append(std::move(added));
}

void LmFileSet::clear()
{
    _fileset.clear();
    _lists->set.clear();
}

void LmFileSet::removeSelected() { _lists->set.removeSelected(); }

// --- what widgets do ---------------------------------------------------------------------------------------------------

/// A name that cannot be shown as it is stands for itself as long as nobody changes what is shown.
void LmFileSet::directoryEntered()
{
    const lm::XtString text(XmTextFieldGetString(_currentDirectory));
    const bool unchanged = text && text.get() == lm::shownName(_browsedDir);
    setBrowsedDirectory(unchanged ? _browsedDir.c_str() : text.get());
}

void LmFileSet::directoryOpened(XmListCallbackStruct* chosen)
{
    const auto at = static_cast<std::size_t>(chosen->item_position - 1);
    if (at < _lists->directories.names().size())
        setBrowsedDirectory(lm::joinedPath(_browsedDir, _lists->directories.names()[at]).c_str());
}

void LmFileSet::setLiteral(Boolean literal)
{
    _literal = literal != 0;
    if (_literalButton)
        XmToggleButtonSetState(_literalButton, _literal, False);
}

void LmFileSet::setRecursive(Boolean recursive)
{
    _recursive = recursive != 0;
    if (_recursiveButton)
        XmToggleButtonSetState(_recursiveButton, _recursive, False);
}

void LmFileSet::literalToggled() { _literal = XmToggleButtonGetState(_literalButton); }

void LmFileSet::recursiveToggled() { _recursive = XmToggleButtonGetState(_recursiveButton); }

void LmFileSet::okPressed()
{
    const lm::Watch here(liveness());
    callCallbacks(dismissCallback, lm::asPointer(1));
    if (here)
        ok();
}

void LmFileSet::cancelPressed()
{
    const lm::Watch here(liveness());
    callCallbacks(dismissCallback, lm::asPointer(0));
    if (here)
        hide();
}
