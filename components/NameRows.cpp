#include "components/NameRows.h"

#include "support/text.h"
#include "support/xmtext.h"

#include <Xm/List.h>

#include <algorithm>
#include <iterator>
#include <utility>

std::string lm::shownName(std::string_view name)
{
    std::string shown = toUtf8(name);
    for (char& c : shown) {
        if ((c >= 0 && c < ' ') || c == '\x7F')
            c = '?';
    }
    return shown;
}

void lm::NameRows::append(std::vector<std::string> names)
{
    if (_list) {
        std::vector<XmText> texts;
        std::vector<XmString> items;
        for (const std::string& name : names) {
            texts.push_back(compound(shownName(name).c_str()));
            items.push_back(texts.back().get());
        }
        if (!items.empty())
            XmListAddItemsUnselected(_list, items.data(), static_cast<int>(items.size()), 0);
    }
    _names.insert(_names.end(), std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
}

void lm::NameRows::endSelection()
{
    if (_list)
        XmListDeselectAllItems(_list);
}

void lm::NameRows::clear()
{
    if (_list)
        XmListDeleteAllItems(_list);
    _names.clear();
}

std::vector<int> lm::NameRows::selectedPositions() const
{
    int* positions = nullptr;
    int count = 0;
    if (!_list || !XmListGetSelectedPos(_list, &positions, &count))
        return {};
    std::vector<int> result;
    std::copy_if(positions, positions + count, std::back_inserter(result),
                 [&](int position) { return static_cast<std::size_t>(position) <= _names.size(); });   // ours
    XtFree(reinterpret_cast<char*>(positions));
    return result;
}

std::vector<std::string> lm::NameRows::selected() const
{
    std::vector<std::string> names;
    for (const int position : selectedPositions())
        names.push_back(_names[static_cast<std::size_t>(position - 1)]);
    return names;
}

void lm::NameRows::removeSelected()
{
    std::vector<int> positions = selectedPositions();
    if (positions.size() == _names.size())
        return clear();
    if (positions.empty())
        return;
    XmListDeletePositions(_list, positions.data(), static_cast<int>(positions.size()));
    endSelection();
    std::vector<std::string> left;
    auto next = positions.begin();
    for (std::size_t i = 0; i < _names.size(); ++i) {
        if (next != positions.end() && static_cast<std::size_t>(*next) == i + 1)
            ++next;
        else
            left.push_back(std::move(_names[i]));
    }
    _names = std::move(left);
}
