// NameRows.h: a list widget whose items stand for names of any bytes.
#pragma once

#include <X11/Intrinsic.h>

#include <string>
#include <string_view>
#include <vector>

namespace lm {

/// A name as it can be shown: UTF-8, U+FFFD for what is not, '?' for control characters.
std::string shownName(std::string_view name);

/// The names that the items of an XmList stand for, in its order. Without the widget the names stay.
class NameRows {
public:
    /// The list, or null when it is gone.
    void setWidget(Widget list) { _list = list; }
    Widget widget() const { return _list; }
    const std::vector<std::string>& names() const { return _names; }

    /// Appends names, in one step.
    void append(std::vector<std::string> names);
    /// Selects nothing.
    void endSelection();
    void clear();
    /// The names of the selected items.
    std::vector<std::string> selected() const;
    void removeSelected();

private:
    std::vector<int> selectedPositions() const;

    Widget _list = nullptr;
    std::vector<std::string> _names;
};

}   // namespace lm
