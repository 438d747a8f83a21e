#include "LmCallbackList.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_set>

// --- names -------------------------------------------------------------------------------------------------------------

/// One string for all items of a name, so that a dispatch compares pointers once it has seen the name. Like X's quarks
/// they are kept for ever: names are constants of classes, and a running dispatch may outlive the last item of its name.
static const char* shareName(const char* name)
{
    static auto& names = *new std::unordered_set<std::string>;   // objects may outlive every static of this file
    return names.emplace(name ? name : "").first->c_str();
}

// --- one registration --------------------------------------------------------------------------------------------------

LmCallbackItem::LmCallbackItem(const char* name, LmCallbackFunction fn, void* clientData)
    : _target(nullptr),
      _name(shareName(name)),
      _function(fn),
      _method(nullptr),
      _clientData(clientData)
{}

LmCallbackItem::LmCallbackItem(const char* name, LmCallbackObject* target, LmCallbackMethod member, void* clientData)
    : _target(target),
      _name(shareName(name)),
      _function(nullptr),
      _method(member),
      _clientData(clientData)
{}

bool LmCallbackItem::hasName(const char* name) const { return name && (name == _name || std::strcmp(name, _name) == 0); }

void LmCallbackItem::invoke(LmCallbackObject* caller, const char* name, void* callData)
{
    if (hasName(name))
        run(caller, callData);
}

// --- the list ----------------------------------------------------------------------------------------------------------

LmCallbackList::~LmCallbackList() = default;

void LmCallbackList::add(LmCallbackItem* item)
{
    if (item)
        _items.emplace_back(item);
}

void LmCallbackList::add(const char* name, LmCallbackFunction function, void* clientData)
{
    _items.push_back(std::make_unique<LmCallbackItem>(name, function, clientData));
}

void LmCallbackList::add(const char* name, LmCallbackObject* target, LmCallbackMethod method, void* clientData)
{
    _items.push_back(std::make_unique<LmCallbackItem>(name, target, method, clientData));
}

void LmCallbackList::add(LmCallbackList* other)
{
    const size_t present = other ? other->_items.size() : 0;   // the other list may be this one
    for (size_t i = 0; i < present; ++i)
        _items.push_back(std::make_unique<LmCallbackItem>(*other->_items[i]));
}

void LmCallbackList::remove(LmCallbackItem* item)
{
    const auto at = std::ranges::find(_items, item, &std::unique_ptr<LmCallbackItem>::get);
    if (at == _items.end())
        return;
    static_cast<void>(at->release());   // the caller's from here on
    _items.erase(at);
}

template <class Matches> int LmCallbackList::removeIf(Matches matches)
{
    const auto gone = std::stable_partition(_items.begin(), _items.end(), [&](const auto& item) { return !matches(*item); });
    const auto count = static_cast<int>(_items.end() - gone);
    _items.erase(gone, _items.end());
    return count;
}

int LmCallbackList::remove(LmCallbackObject* target)
{
    return removeIf([=](const LmCallbackItem& item) { return target && item._target == target; });
}

int LmCallbackList::remove(const char* name, LmCallbackFunction function, void* clientData)
{
    return removeIf([=](const LmCallbackItem& item) {
        return !item._target && item.hasName(name) && item._function == function && item._clientData == clientData;
    });
}

int LmCallbackList::remove(const char* name, LmCallbackObject* target, LmCallbackMethod method, void* clientData)
{
    return removeIf([=](const LmCallbackItem& item) {
        return target && item._target == target && item.hasName(name) && item._method == method && item._clientData == clientData;
    });
}

void LmCallbackList::invoke(LmCallbackObject* caller, const char* name, void* callData)
{
    if (!name)
        return;
    const lm::Watch list(_alive);
    const char* known = nullptr;   // the shared string of `name`, once an item had it
    for (size_t i = 0; list && i < _items.size(); ++i) {
        const LmCallbackItem& item = *_items[i];
        if (known ? item._name != known : !item.hasName(name))
            continue;
        known = item._name;
        item.run(caller, callData);
    }
}

bool LmCallbackList::hasCallbacks(const char* name) const
{
    return std::ranges::any_of(_items, [=](const auto& item) { return item->hasName(name); });
}

LmCallbackItem* LmCallbackList::operator[](int index) const
{
    return index >= 0 && index < size() ? _items[static_cast<size_t>(index)].get() : nullptr;
}

// --- the other direction -----------------------------------------------------------------------------------------------

void LmCallbackObjectList::add(LmCallbackObject* object) { _objects.push_back(object); }

void LmCallbackObjectList::remove(LmCallbackObject* object) { std::erase(_objects, object); }

void LmCallbackObjectList::removeFirst(LmCallbackObject* object)
{
    const auto at = std::ranges::find(_objects, object);
    if (at != _objects.end())
        _objects.erase(at);
}

LmCallbackObject* LmCallbackObjectList::operator[](int index) const
{
    return index >= 0 && index < size() ? _objects[static_cast<size_t>(index)] : nullptr;
}
