// SearchPage.h: a field that completes names, and a list of ten thousand that is searched while one types.
#pragma once

#include "Page.h"

#include <Lm/LmCompletionField.h>
#include <Lm/LmListSearch.h>

#include <memory>

class SearchPage : public Page {
public:
    explicit SearchPage(Widget parent);

    const char* className() override { return "SearchPage"; }

private:
    void searchCompleted(LmCallbackObject*, void*, void*);
    void showSelection(XmListCallbackStruct* selection);

    std::unique_ptr<LmCompletionField> _field;
    Widget _searchField, _list, _selected;
    std::unique_ptr<LmListSearch> _search;
};
