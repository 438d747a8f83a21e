// OutlinePage.h: a directory tree as an outline, with marks in its scroll bar.
#pragma once

#include "Page.h"

#include <Lm/LmBackground.h>
#include <Lm/LmOutline.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// Reads one directory after the other in idle time.
class DirectoryScan : public LmBackground {
public:
    DirectoryScan(LmOutline& outline, std::filesystem::path top);

    static const char* const readCallback;   ///< "readCallback", when all directories are read; no call data
    const char* className() override { return "DirectoryScan"; }
    Boolean timeSlice() override;

    /// The paths of all that was read, which are the keys in the outline.
    std::vector<std::string>& paths() { return _paths; }

private:
    void read(const std::filesystem::path& directory);

    LmOutline& _outline;
    std::filesystem::path _top;
    std::vector<std::filesystem::path> _waiting;   // directories still to be read
    std::vector<std::string> _paths;
};

class OutlinePage : public Page {
public:
    explicit OutlinePage(Widget parent);

    const char* className() override { return "OutlinePage"; }

private:
    void scanned(LmCallbackObject*, void*, void*);
    void mark();
    void clearMarks();
    void say(const std::string& text);

    LmOutlineASB _outline;
    std::unique_ptr<DirectoryScan> _scan;
    Widget _name = nullptr;    // the text field
    Widget _state = nullptr;   // the line below
    int _markStyle = 0;
};
