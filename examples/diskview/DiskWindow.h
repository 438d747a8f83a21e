// DiskWindow.h: the program's window: what takes the room below some directories, and a console for commands on it.
#pragma once

#include "Charts.h"
#include "Preferences.h"
#include "Scanner.h"
#include "SizeOutline.h"
#include "Times.h"

#include <Lm/LmForkIO.h>
#include <Lm/LmPeriodic.h>
#include <Lm/LmWindow.h>

#include <memory>
#include <string>
#include <vector>

class Exclusion;
class LmFileSet;

class DiskWindow : public LmWindow {
public:
    DiskWindow();
    ~DiskWindow() override;

    const char* className() override { return "DiskWindow"; }
    Widget setUpInterface(Widget parent) override;

    /// Reads everything below the paths, in idle time, and shows it.
    void scan(std::vector<std::string> paths);
    bool isBusyScanning() const { return _isReading || _isMaking; }
    /// Takes an entry out of the sums, or puts it back, and shows that.
    void exclude(Entry& entry, bool out);
    /// For pictures: as if the user chose the row, from 1.
    void chooseRow(int row);
    Preferences& preferences() { return *_preferences; }

private:
    void makeCharts(Widget form);
    void makeConsole(Widget form);
    void stop();
    void stopReading();
    bool readSlice();
    void showTree();
    void showCharts();
    void showTitle();
    void say(const std::string& text);
    std::string counted() const;
    void runCommand();

    void progress(LmCallbackObject*, void*, void*);
    void rowsShown(LmCallbackObject*, void*, void*);
    void rowChosen(LmCallbackObject*, void*, void*);
    void preferencesChosen(LmCallbackObject*, void*, void* reason);
    void filesChosen(LmCallbackObject*, void*, void* isOk);
    void commandEnded(LmCallbackObject*, void*, void* status);

    // what the menu bar's entries do, with the window as client data
    static void chooseFiles(Widget, XtPointer window, XtPointer) noexcept;
    static void scanAgain(Widget, XtPointer window, XtPointer) noexcept;
    static void stopScan(Widget, XtPointer window, XtPointer) noexcept;
    static void showPreferences(Widget, XtPointer window, XtPointer) noexcept;
    static void quit(Widget, XtPointer window, XtPointer) noexcept;
    static void excludeChosen(Widget, XtPointer window, XtPointer) noexcept;

    std::unique_ptr<Preferences> _preferences;
    Look _look;
    std::vector<std::string> _paths;
    std::unique_ptr<Tree> _tree;   // what stands below refers to it
    std::unique_ptr<Scanner> _scanner;
    std::vector<std::unique_ptr<Exclusion>> _exclusions;
    Task _reading;
    LmPeriodic _clock{200};   // progress
    bool _isReading = false, _isMaking = false, _wasStopped = false;
    Times _times;

    std::unique_ptr<SizeOutline> _outline;
    std::unique_ptr<SharePie> _pie;
    std::unique_ptr<RoomMeter> _meter;
    std::unique_ptr<LmForkIO> _console;
    std::unique_ptr<LmFileSet> _files;   // null until it is asked for
    Widget _roomLabel = nullptr, _command = nullptr, _status = nullptr, _stop = nullptr;
};
