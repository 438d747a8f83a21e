// LmFileSet: a dialog in which the user puts a set of files together.
#pragma once

#include "LmComponent.h"
#include "LmNameList.h"

#include <memory>
#include <string>
#include <vector>

/// A dialog for a set of file names. On the left the user browses directories; arrows move selected files, or what
/// selected directories hold, into the set on the right. Names and shell patterns can be typed, too.
///
///     auto* files = new LmFileSet(window, "files");
///     files->addCallback(LmFileSet::dismissCallback, this, &Window::filesChosen, files);
///     files->show();
///     ...
///     LmNameList* names = files->fileset();   // null when nothing was chosen
///
/// Names are bytes: the set answers what the file system has. The lists show them as UTF-8, with U+FFFD for what is not,
/// and with '?' for control characters.
///
/// The arrow "moveDirsButton" adds what /bin/find prints of the files below the directory, links followed, or, without
/// subdirectories, what /bin/ls prints: names alone. Typed text that contains one of "*?[]~$" is a list of patterns of the
/// browsed directory, unless input is literal: "*", "?", "[...]", "~", $NAME and ${NAME} act, blanks separate, quotes and the
/// backslash quote; all else stands for itself. A search runs events and ends with the dialog; the busy dialog then offers
/// Cancel, which adds nothing, unless the application chose a busy dialog of its own.
///
///   Widgets    a grid dialog of the component's name (XmCreateGridDialog); below its grid
///                "grid"
///                  "left"   "currentDirectoryLabel" "currentDirectoryWidget" (text field) "subdirectoryLabel"
///                           "directoryList" (scrolled list) "buttonBox" ("moveDirsButton", an arrow, "dirCountLabel")
///                           "recursiveButton" (toggle) "filesLabel" "filesList" (scrolled list)
///                           "buttonBox" ("moveFilesButton", an arrow, "moveFilesLabel")
///                  "right"  "buttonBox1" ("removeButton", "literalButton", a toggle) "workingDirectoryLabel"
///                           "workingDirectory" (read-only text field) "label1" "fileTextWidget" (text field)
///                           "fileSetList" (scrolled list)
///                "separator1"
///                "buttonBox" "okButton" "cancelButton" "helpButton"; the last has the help key "filesetManager"
///   Resources  "readOnlyBackground" "ReadOnlyBackground" Pixel black: behind the working directory, whose text then has
///                the colour that can be read on it; "labelString" of labels and buttons; "dialogTitle" of the dialog,
///                default "File Set"
///   Callbacks  dismissCallback, when OK (call data 1) or Cancel (0) was pressed, before the dialog goes; closing the dialog is
///                Cancel. It may delete the component.
///   Errors     a directory that cannot be opened is not browsed; a command that cannot be started adds nothing. 10,000
///                lines or more in one addDirs(), and paths or patterns of more than 1,024 bytes, are refused with the
///                warning dialog. Null texts do nothing.
class LM_API LmFileSet : public LmComponent {
public:
    static const char* const dismissCallback;   ///< "dismissCallback"

    /// Working and browsed directory are the process's current one. Nothing is shown before show().
    LmFileSet(Widget parent, const char* name);
    ~LmFileSet() override;

    const char* className() override { return "LmFileSet"; }
    void widgetDestroyed() override;
    /// Makes fileset() anew from the set, sorted and each name once (see chosen()), and hides the dialog.
    virtual void ok();

    /// Shows a directory on the left; a relative one is below the working directory.
    void setBrowsedDirectory(const char* dir);
    /// The directory on the left: absolute, without ".", ".." and doubled slashes.
    const char* browsedDirectory() const { return _browsedDir.c_str(); }
    /// Makes a directory the process's current one, and shows it. Does nothing when that fails.
    void setWorkingDirectory(const char* dir);
    /// The working directory, absolute; the string is the component's own.
    const char* workingDirectory() const { return _workingDir.c_str(); }
    /// Whether typed text is added as it is, without patterns. Initially False; the toggle "literalButton".
    void setLiteral(Boolean literal);
    /// What setLiteral() set, or the user since.
    Boolean literal() const { return _literal; }
    /// Whether addDirs() goes into subdirectories. Initially False; the toggle "recursiveButton".
    void setRecursive(Boolean recursive);
    /// What setRecursive() set, or the user since.
    Boolean recursive() const { return _recursive; }

    /// Adds the selected files on the left to the set.
    void addFiles();
    /// Adds what the selected directories on the left hold, when that is less than 10,000 lines. Runs events; the component
    /// may be gone afterwards. Nothing while another search runs.
    void addDirs();
    /// Adds the typed name, unless the set has it, or the files that match the typed patterns, as addDirs() does.
    void addFileDirect();

    /// The names of the set, in the order of its list, duplicates too; null when there are none. The component's own, valid
    /// until the next call of ok(), fileset() or clear().
    LmNameList* fileset();
    /// What ok() or fileset() put together last.
    const LmNameList& chosen() const { return _fileset; }
    /// Appends to the set.
    void add(const char* name);
    /// Appends the names of the list to the set; null: none.
    void add(const LmNameList* names);
    /// Empties the set.
    void clear();

private:
    struct Lists;   // the three lists, with the bytes of their names
    struct Found;   // what commands printed

    void createDialog(Widget parent);
    void createLeft(Widget parent);
    void createRight(Widget parent);
    void createButtons(Widget parent);
    void connectWidgets(bool connect);
    void showReadOnly(Widget field) const;
    void listDirectory(const std::string& dir);
    Found search(const std::vector<std::string>& commands, const std::string& dir, bool ofDirectories);
    void addPatterns(const std::string& text);
    void warn(const char* message) const;

    void directoryEntered();
    void directoryOpened(XmListCallbackStruct* chosen);
    void removeSelected();
    void literalToggled();
    void recursiveToggled();
    void okPressed();
    void cancelPressed();

    LmNameList _fileset;
    std::string _browsedDir;
    std::string _workingDir;
    Boolean _literal = False;
    Boolean _recursive = False;
    bool _searching = false;
    Pixel _readOnlyBackground = 0;   // resource
    Widget _currentDirectory = nullptr, _workingDirectory = nullptr, _fileText = nullptr;
    Widget _moveDirsButton = nullptr, _moveFilesButton = nullptr, _removeButton = nullptr;
    Widget _recursiveButton = nullptr, _literalButton = nullptr;
    Widget _okButton = nullptr, _cancelButton = nullptr, _helpButton = nullptr;
    std::unique_ptr<Lists> _lists;
};

/// Makes a file set and shows it. Adopts the Xt application of `parent` when there is no application object yet.
LM_API LmFileSet* LmCreateFileSet(const char* name, Widget parent);
