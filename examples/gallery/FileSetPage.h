// FileSetPage.h: the file set, and what was chosen in it.
#pragma once

#include "Page.h"

#include <Lm/LmFileSet.h>

#include <memory>

class FileSetPage : public Page {
public:
    explicit FileSetPage(Widget parent);

    const char* className() override { return "FileSetPage"; }

private:
    /// A file set that shows in the page what was chosen.
    class Chooser : public LmFileSet {
    public:
        explicit Chooser(FileSetPage* page);
        void ok() override;

    private:
        FileSetPage* _page;
    };

    void open();
    void dismissed(LmCallbackObject* caller, void* clientData, void* callData);
    void showChosen(const LmNameList& names);
    void say(const char* text);

    Widget _list, _state;
    std::unique_ptr<Chooser> _chooser;   // made when it is first opened
};
