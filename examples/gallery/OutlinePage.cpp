#include "OutlinePage.h"

#include <Lm/LmOlNode.h>
#include <Lm/LmResource.h>
#include <Lm/support/handles.h>
#include <Lm/support/resources.h>
#include <Lm/support/xmtext.h>
#include <Lm/support/xt.h>

#include <Xm/Form.h>
#include <Xm/TextF.h>

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;

static constexpr int margin = 10;

const char* const DirectoryScan::readCallback = "readCallback";

static fs::path treeToShow()
{
    for (const char* folder : {"/usr/include", "/usr/share", "/etc"})
        if (std::error_code error; fs::is_directory(folder, error))
            return folder;
    return "/";
}

DirectoryScan::DirectoryScan(LmOutline& outline, fs::path top) : _outline(outline), _top(std::move(top)), _waiting{_top} {}

Boolean DirectoryScan::timeSlice()
{
    const fs::path directory = _waiting.back();
    _waiting.pop_back();
    read(directory);
    if (!_waiting.empty())
        return False;
    callCallbacks(readCallback, nullptr);
    return True;
}

/// Directories first, both by name; what cannot be read stays empty.
void DirectoryScan::read(const fs::path& directory)
{
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    for (const auto& entry : fs::directory_iterator(directory, error))
        entries.push_back(entry);
    const auto isFolder = [](const fs::directory_entry& entry) {
        std::error_code ignored;
        return !entry.is_symlink(ignored) && entry.is_directory(ignored);
    };
    std::sort(entries.begin(), entries.end(), [&](const auto& a, const auto& b) {
        return std::pair(!isFolder(a), a.path()) < std::pair(!isFolder(b), b.path());
    });

    std::vector<std::string> path{_top.string()};   // the keys from the top to the directory
    fs::path walked = _top;
    for (const fs::path& part : directory.lexically_relative(_top))
        if (part != ".")
            path.push_back((walked /= part).string());
    for (const fs::directory_entry& entry : entries) {
        std::string label = entry.path().filename().string(), key = entry.path().string();
        std::vector<char*> labels, keys;
        for (std::string& step : path)
            keys.push_back(step.data());
        keys.push_back(key.data());
        keys.push_back(nullptr);
        for (char* step : keys)
            labels.push_back(step);
        labels[labels.size() - 2] = label.data();
        LmOlNode* node = _outline.createPath(labels.data(), keys.data());
        if (isFolder(entry)) {
            node->Close();
            _waiting.push_back(entry.path());
        }
        _paths.push_back(key);
    }
}

OutlinePage::OutlinePage(Widget parent) : Page("outlinePage", parent), _outline("directories", body())
{
    Widget search = row::across("markRow", body());
    XtVaSetValues(search, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, nullptr);
    row::label("markLabel", search);
    _name = XtVaCreateManagedWidget("markName", xmTextFieldWidgetClass, search, nullptr);
    lm::on<&OutlinePage::mark>(_name, XmNactivateCallback, this);
    lm::on<&OutlinePage::mark>(row::button("mark", search), XmNactivateCallback, this);
    lm::on<&OutlinePage::clearMarks>(row::button("clearMarks", search), XmNactivateCallback, this);

    _state = row::label("markState", body());
    XtVaSetValues(_state, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  nullptr);
    XtVaSetValues(_outline.baseWidget(), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget, search, XmNtopOffset, margin,
                  XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, XmNbottomAttachment, XmATTACH_WIDGET,
                  XmNbottomWidget, _state, XmNbottomOffset, margin, nullptr);

    const auto colour = [this](const char* name, const char* fallback) {
        return static_cast<Pixel>(reinterpret_cast<std::uintptr_t>(LmGetResource(body(), name, "Color", XtRPixel, fallback)));
    };
    _markStyle = _outline.setHighlightAttributes(colour("markForeground", "black"), colour("markBackground", "#ffe28a"),
                                                 colour("markColor", "#c0392b"), nullptr);
    _outline.setAnnotation(_markStyle, True);
    _scan = std::make_unique<DirectoryScan>(_outline, treeToShow());
    _scan->addCallback(DirectoryScan::readCallback, this, &OutlinePage::scanned, nullptr);
    _scan->start();
}

void OutlinePage::say(const std::string& text)
{
    XtVaSetValues(_state, XmNlabelString, lm::compound(text.c_str()).get(), nullptr);
}

void OutlinePage::scanned(LmCallbackObject*, void*, void*)
{
    _outline.displayAll();
    say(std::to_string(_scan->paths().size()) + " files and directories");
}

void OutlinePage::mark()
{
    const lm::XtString wanted(XmTextFieldGetString(_name));
    clearMarks();
    if (!*wanted)
        return;
    std::vector<char*> keys;
    for (std::string& path : _scan->paths())
        if (path.find(wanted.get(), path.rfind('/')) != std::string::npos)
            keys.push_back(path.data());
    keys.push_back(nullptr);
    _outline.highlight(keys.data(), _markStyle);
    say(std::to_string(keys.size() - 1) + " names with \"" + wanted.get() + "\"");
}

void OutlinePage::clearMarks() { _outline.unhighlight(_markStyle); }
