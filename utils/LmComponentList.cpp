#include "LmComponentList.h"

#include <algorithm>

void LmComponentList::add(LmComponent* component) { _components.push_back(component); }

void LmComponentList::remove(LmComponent* component) { std::erase(_components, component); }

void LmComponentList::removeFirst(LmComponent* component)
{
    const auto at = std::ranges::find(_components, component);
    if (at != _components.end())
        _components.erase(at);
}

void LmComponentList::removeLast(LmComponent* component)
{
    const auto at = std::find(_components.rbegin(), _components.rend(), component);
    if (at != _components.rend())
        _components.erase(std::next(at).base());
}

LmComponent* LmComponentList::operator[](int index) const
{
    return index >= 0 && index < size() ? _components[static_cast<size_t>(index)] : nullptr;
}
