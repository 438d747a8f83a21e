#include "LmListSearch.h"

#include "support/xt.h"
#include "utils/ItemSearch.h"

#include <Xm/List.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <span>
#include <utility>

// --- what is done to the list ------------------------------------------------------------------------------------------

void LmListSearch::xmListSetPos(Widget list, int position, char*) { XmListSetPos(list, position); }

void LmListSearch::xmListSetMiddlePos(Widget list, int position, char*)
{
    int visible = 0;
    XtVaGetValues(list, XmNvisibleItemCount, &visible, nullptr);
    XmListSetPos(list, std::max(position - visible / 2, 1));
}

int LmListSearch::xmListIsViewablePos(Widget list, int position, char*)
{
    int top = 0, visible = 0;
    XtVaGetValues(list, XmNtopItemPosition, &top, XmNvisibleItemCount, &visible, nullptr);
    return top <= position && position < top + visible ? 1 : 0;
}

void LmListSearch::xmListDeselectAllItems(Widget list, char*) { XmListDeselectAllItems(list); }

void LmListSearch::xmListSelectPos(Widget list, int position, char*) { XmListSelectPos(list, position, True); }

void LmListSearch::iconListSetPos(Widget list, int position, char* data) { xmListSetPos(list, position, data); }

void LmListSearch::iconListSetMiddlePos(Widget list, int position, char* data) { xmListSetMiddlePos(list, position, data); }

int LmListSearch::iconListIsViewablePos(Widget list, int position, char* data)
{
    return xmListIsViewablePos(list, position, data);
}

void LmListSearch::iconListDeselectAllItems(Widget list, char* data) { xmListDeselectAllItems(list, data); }

void LmListSearch::iconListSelectPos(Widget list, int position, char* data) { xmListSelectPos(list, position, data); }

// --- the object --------------------------------------------------------------------------------------------------------

LmListSearch::LmListSearch(Widget list, Widget text, Boolean iconList)
    : _list(list),
      _text(text),
      _setPos(iconList ? iconListSetPos : xmListSetPos),
      _setMiddlePos(iconList ? iconListSetMiddlePos : xmListSetMiddlePos),
      _isViewablePos(iconList ? iconListIsViewablePos : xmListIsViewablePos),
      _deselectAllItems(iconList ? iconListDeselectAllItems : xmListDeselectAllItems),
      _selectPos(iconList ? iconListSelectPos : xmListSelectPos)
{
    if (_list)
        lm::on<&LmListSearch::forgetList>(_list, XmNdestroyCallback, this);
    if (!_text)
        return;
    lm::on<&LmListSearch::forgetText>(_text, XmNdestroyCallback, this);
    XtAddCallback(_text, XmNvalueChangedCallback, search_change_stub, this);
    XtAddCallback(_text, XmNactivateCallback, search_change_stub, this);
}

LmListSearch::~LmListSearch()
{
    if (_list)
        lm::off<&LmListSearch::forgetList>(_list, XmNdestroyCallback, this);
    if (!_text)
        return;
    lm::off<&LmListSearch::forgetText>(_text, XmNdestroyCallback, this);
    XtRemoveCallback(_text, XmNvalueChangedCallback, search_change_stub, this);
    XtRemoveCallback(_text, XmNactivateCallback, search_change_stub, this);
}

void LmListSearch::search_change_stub(Widget w, XtPointer clientData, XtPointer callData) noexcept
{
    auto* search = static_cast<LmListSearch*>(clientData);
    search->search_change(w, nullptr, static_cast<XmAnyCallbackStruct*>(callData));
}

/// The widget's text; null when it is no text widget.
static lm::XtString textOf(Widget w)
{
    if (XmIsTextField(w))
        return lm::XtString(XmTextFieldGetString(w));
    return lm::XtString(XmIsText(w) ? XmTextGetString(w) : nullptr);
}

void LmListSearch::search_change(Widget, char*, XmAnyCallbackStruct*)
{
    if (!_text || !_list)
        return;
    lm::XtString text = textOf(_text);
    if (!text) {
        std::fputs("LmListSearch: Unknown text widget type\n", stderr);
        return;
    }
    const lm::XtString last = std::exchange(_lastText, std::move(text));   // now: the list's callbacks may set the text
    if (!*_lastText) {
        clearSearch();
        return;
    }
    const lm::XtString wanted(XtNewString(_lastText.get()));
    const Boolean failedBefore = _failed;
    Display* display = XtDisplay(_text);
    const lm::Watch here(_alive);
    const int found = do_search(startOf(wanted.get(), last.get()), wanted.get());
    if (!found && !failedBefore)
        XBell(display, 0);
    if (here)
        _failed = !found;
}

/// Where to search from: on from the match while the text grows, behind it when the text is the same, else from the top.
int LmListSearch::startOf(const char* text, const char* lastText) const
{
    if (_currentPos == 0)
        return 1;
    if (!lastText)
        return _currentPos;
    if (std::strcmp(text, lastText) == 0)
        return _currentPos + 1;
    return std::strncmp(text, lastText, std::strlen(lastText)) == 0 ? _currentPos : 1;
}

void LmListSearch::clearSearch()
{
    _failed = False;
    _currentPos = 0;
    _deselectAllItems(_list, nullptr);
    _setPos(_list, 1, nullptr);
}

// --- searching ---------------------------------------------------------------------------------------------------------

/// The list's own items, now.
static std::span<const XmString> itemsOf(Widget list)
{
    int count = 0;
    XmStringTable items = nullptr;
    XtVaGetValues(list, XmNitemCount, &count, XmNitems, &items, nullptr);
    return {items, static_cast<std::size_t>(items ? count : 0)};
}

/// The text of an item's first segment; null when it cannot be had.
static lm::XtString firstSegment(XmString item)
{
    XmStringContext context = nullptr;
    if (!XmStringInitContext(&context, item)) {
        std::fputs("init failed\n", stdout);
        return nullptr;
    }
    char *text = nullptr, *charset = nullptr;
    XmStringDirection direction = 0;
    Boolean separator = False;
    if (!XmStringGetNextSegment(context, &text, &charset, &direction, &separator))
        std::fputs("decode failed\n", stdout);
    XmStringFreeContext(context);
    const lm::XtString charsetOwner(charset);
    return lm::XtString(text);
}

int LmListSearch::do_search(int startPos, const char* text)
{
    if (!_list || !text)
        return 0;
    const auto items = itemsOf(_list);
    const lm::ItemSearch wanted(text);
    for (int position = std::max(startPos, 1); position <= std::ssize(items); ++position) {
        XmString item = items[static_cast<std::size_t>(position - 1)];
        const lm::XtString itemText = firstSegment(item);
        if (!itemText || !wanted.occursIn(itemText.get()))
            continue;
        if (position != _currentPos)
            select(position, item);
        return 1;
    }
    return noMatch();
}

int LmListSearch::noMatch()
{
    if (_currentPos != 0) {
        _currentPos = 0;
        _deselectAllItems(_list, nullptr);
    }
    return 0;
}

/// Makes an item the match. The list's selection callbacks may change or destroy the list, and this object.
void LmListSearch::select(int position, XmString item)
{
    const lm::XmText match(XmStringCopy(item));
    const lm::Watch here(_alive);
    _deselectAllItems(_list, nullptr);
    _currentPos = position;
    _selectPos(_list, position, nullptr);
    if (!here || _currentPos != position || !_list)   // gone, or the callback searched on by itself
        return;
    followItem(match.get());
    if (_currentPos != 0 && !_isViewablePos(_list, _currentPos, nullptr))
        _setMiddlePos(_list, _currentPos, nullptr);
}

/// Finds the match again where it stands now; there is none any more when the item is gone.
void LmListSearch::followItem(XmString item)
{
    const auto items = itemsOf(_list);
    const auto index = static_cast<std::size_t>(_currentPos - 1);
    if (index >= items.size() || !XmStringCompare(items[index], item))
        _currentPos = XmListItemPos(_list, item);
}
