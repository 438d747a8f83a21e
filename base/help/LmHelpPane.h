// LmHelpPane: the help menu of a menu bar.
#pragma once

#include "LmSubMenu.h"

#include <memory>
#include <string>
#include <vector>

class LmHelpPane;

namespace lm {
struct HelpEntry;
}   // namespace lm

/// The client data of a help task's entry.
struct LmHelpTaskData {
    LmHelpPane* pane;   ///< the pane with the entry
    int index;          ///< of the task in the pane
};

/// One help task that the application's help map lists.
struct LmHelpTaskInfo {
    bool visible;                                   ///< whether the task has an entry in this window
    std::string name;                               ///< the task's name in the help map
    std::string label;                              ///< the entry's name, and so its resource name and its label by default
    int level;                                      ///< nesting depth, 0 at the top
    std::string helpKey;                            ///< what the help service is asked for
    std::unique_ptr<LmHelpTaskData> callbackData;   ///< the entry's client data; null while the task has none
};

/// Shows the help that a key names. The key is the function's to change, and lives as long as the call. `time` is the
/// server time of the user's action, 0 when there was none; `w` may be null.
using LmHelpFunction = void (*)(char* key, unsigned long time, Widget w);

/// Answers the path of an index map file, which is copied; null: there is none.
using LmHelpMapfileFunction = char* (*)();

/// The pane at the right end of a menu bar that leads to help. When it is first built it adds its entries after those of
/// its table, if any:
///
///     helpOverviewMenuItem     what the program, or this window, is for
///     one entry or submenu for each help task that the help map lists for this window, and a separator
///     helpIndexMenuItem        the help index
///     helpVersionMenuItem      after a separator: the program's about dialog, its version, or else its name
///
/// or, in the old arrangement, "aboutApplication" (version), "helpOnWindowMenuItem" (overview), "helpOnContextMenuItemOld"
/// (pick a widget) and "helpIndexMenuItemOld". A program that wants another entry, say "helpOnContextMenuItem", adds it
/// with the callbacks below, of which each takes the pane as client data.
///
/// The help map is "<application class>.helpmap" in the directory DEFHELPPATH (which ends with a slash; default
/// "/usr/share/help/"), there first in the folder of the locale. Its lines are fields divided by ';':
///
///     1                                        there is an overview
///     2;name;label;level;key;Class.shell...    a help task, in the windows whose shells are named
///     3                                        there is help on keys
///     4                                        there is a tutorial
///
/// Overview, context, index, keys and tutorial entries for which the map tells of nothing are insensitive; any line
/// tells of context and index. Without a help map all are sensitive, and there are no tasks.
///
///   Widgets    as LmSubMenu; a menu bar names it "helpMenu"
///   Resources  of the application: "useOldMenuArrangement" "UseOldMenuArrangement" Boolean FALSE
///              labels, mnemonics and accelerators of the entries come with the library
///   Errors     a help map that cannot be read, or whose path does not fit 1024 bytes, counts as none
class LM_API LmHelpPane : public LmSubMenu {
public:
    /// `desc` (may be null) is a table of entries that stand before the pane's own.
    LmHelpPane(const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);
    /// Builds at once under `parent`.
    LmHelpPane(Widget parent, const char* name, const LmMenuDesc* desc, XtPointer defaultClientData);

    const char* className() override { return "LmHelpPane"; }
    void build(Widget parent) override;

    /// Makes the entries "helpOnContextMenuItem", "helpOverviewMenuItem", "helpIndexMenuItem", "helpKeysMenuItem" and
    /// "helpTutorialMenuItem", those that exist, sensitive or not. Building the pane sets all five as the help map says.
    void setItemSensitivities(bool context, bool overview, bool index, bool keys, bool tutorial);

    /// The path of a help file, for the application's use, copied; the pane does not read it. Null changes nothing.
    void setHelpFilePathname(const char* path);
    /// Sets it to "$ZENTAHOME/doc/help/<program>", with "/usr/zenta" where ZENTAHOME is not set.
    void setupDefaultHelpFilePathname();
    /// "" when none is set.
    const char* helpFilePathname() const { return _helpFilePathname.c_str(); }

    /// The help tasks of the help map, in file order.
    const std::vector<LmHelpTaskInfo>& tasks() const { return _tasks; }
    /// The name of the shell that the pane was first built in; null before.
    const char* shellName() const { return _shellName.get(); }

    /// Installs the program's help service: what shows a text, and what tells the two map files of the help index (either
    /// may be null). Until then help entries ask the platform's gu_help().
    static void setHelpFunctions(LmHelpFunction helpFunc, LmHelpMapfileFunction eclassMapfileFunc,
                                 LmHelpMapfileFunction mapfileFunc);

    static LmHelpFunction HelpFunc;               ///< null: help requests do nothing
    static LmHelpMapfileFunction EClassMapfile;   ///< the map file of the help index that is tried first
    static LmHelpMapfileFunction Mapfile;         ///< the one that is tried second
    static bool useNativeHelp;                    ///< whether the functions are installed

    /// What the entries do: Xt callbacks, with the pane as client data; taskCallback takes an LmHelpTaskData.
    static void overviewCallback(Widget w, XtPointer pane, XtPointer callData) noexcept;
    static void indexCallback(Widget w, XtPointer pane, XtPointer callData) noexcept;      ///< Shows the help index.
    static void tutorialCallback(Widget w, XtPointer pane, XtPointer callData) noexcept;   ///< Asks for the tutorial.
    /// Nothing.
    static void keysCallback(Widget w, XtPointer pane, XtPointer callData) noexcept;
    /// Posts the about dialog, else the version text, else the program's name.
    static void versionCallback(Widget w, XtPointer pane, XtPointer callData) noexcept;
    /// Lets the user pick a widget with a question mark as cursor, and runs the "helpCallback" of it or of the first
    /// widget above that has one, with an LmContextHelpCallbackStruct. Where none has, _LmSmartHelpCallback serves.
    /// Until the user has picked, nothing else runs.
    static void contextCallback(Widget w, XtPointer pane, XtPointer callData) noexcept;
    /// Asks for a help task; client data is its LmHelpTaskData.
    static void taskCallback(Widget w, XtPointer task, XtPointer callData) noexcept;

protected:
    /// The sensitivities of setItemSensitivities().
    bool _contextEnabled = true, _overviewEnabled = true, _keysEnabled = true, _tutorialEnabled = true, _indexEnabled = true;
    std::vector<LmHelpTaskInfo> _tasks;    ///< in file order
    bool _useOldMenuArrangement = false;   ///< the resource
    lm::CString _shellName;                ///< null until the pane is first built
    std::string _helpFilePathname;         ///< for the application

private:
    void create();
    void addEntries();
    void addOldArrangement();
    void addStandardArrangement();
    void addTaskEntries(const std::vector<lm::HelpEntry>& entries);
    /// Reads the help map; answers the entries for its tasks.
    std::vector<lm::HelpEntry> readTasks();
    template <class Apply> void forEachSensitivity(Apply apply);
    /// "<shell>.<what>", or "<what>" while there is no shell's name.
    std::string keyFor(const char* what) const;

    bool _hasEntries = false;
};

/// Asks the installed help function, if any, for the text of a key. Null does nothing.
LM_API void myHelpMsg(const char* key);
