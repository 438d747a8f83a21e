// HelpMap.h: the files that say what help there is, read without a display: help maps and index map files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lm {

// --- help maps ---------------------------------------------------------------------------------------------------------

/// One help task of a help map.
struct HelpTask {
    bool visible;   ///< whether a scope names this window
    std::string name;
    std::string label;   ///< the entry's name
    int level;           ///< nesting depth, 0 at the top
    std::string key;     ///< what the help service is asked for
};

/// What a help map says.
struct HelpMap {
    bool context = false, overview = false, keys = false, tutorial = false, index = false;   ///< whether there is such help
    std::vector<HelpTask> tasks;                                                             ///< in file order
};

/// Where the help map of an application is looked for, in order: `directory` (not followed by a slash of ours), `locale`
/// and a slash unless the locale is null, "C" or contains a slash; then without the locale.
std::vector<std::string> placesOfHelpMap(const std::string& directory, const char* locale, const std::string& applicationClass);

/// Reads the text of a help map for a window whose shell has that name (null: for every window).
///
/// Each line is fields divided by ';'; the first one is the kind: 1 overview, 2 a task (name; label; level; key; scopes
/// "Class.shell"), 3 keys, 4 tutorial. Any line with a field tells of an index and of help on context. Lines that are empty
/// or begin with '#' or a space are skipped; of a line the first 10240 bytes count, up to a NUL.
HelpMap parseHelpMap(std::string_view text, std::string_view applicationClass, const char* shellName);

/// One entry of the help menu.
struct HelpEntry {
    size_t task;
    int depth;              ///< 0 in the help pane itself
    bool isGroup = false;   ///< whether the entries after it, as long as they are deeper, stand in a submenu of its own
};

/// How deep submenus nest at most; what is deeper stands in the deepest one.
inline constexpr int deepestHelpEntry = 64;

/// The entries for the visible tasks, in menu order. A task stands below the last one before it with a smaller level;
/// where that one is invisible, in its place. Tasks that are not below one of level 0 have none.
std::vector<HelpEntry> helpEntries(const std::vector<HelpTask>& tasks);

// --- index map files ---------------------------------------------------------------------------------------------------

/// One section of an index map file.
struct HelpSection {
    std::string root;                  ///< the topic above all others
    std::vector<std::string> topics;   ///< in the form of map files: '/' for spaces
    bool isClosed = false;             ///< whether the section ends before the file does
};

/// The section of that name: nothing when it is not there or empty. Of a line counts the first word within 4096 bytes, up
/// to a NUL; lines without one are skipped.
std::optional<HelpSection> readHelpSection(std::string_view text, std::string_view name);

}   // namespace lm
