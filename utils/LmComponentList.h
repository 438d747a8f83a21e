// LmComponentList: components in an order, not owned.
#pragma once

#include "LmComponent.h"

#include <vector>

/// A list of components that does not own them; a component may stand in it several times. It is a component itself,
/// named "component", without a widget. A component that is deleted stays in the list: whoever holds the list takes it
/// out, or asks LmComponent::isComponent before a call.
class LM_API LmComponentList : public LmComponent {
public:
    LmComponentList() = default;

    const char* className() override { return "LmComponentList"; }
    /// Appends the component.
    virtual void add(LmComponent* component);
    /// Removes every occurrence.
    virtual void remove(LmComponent* component);
    /// Removes the first occurrence.
    virtual void removeFirst(LmComponent* component);
    /// Removes the last occurrence.
    virtual void removeLast(LmComponent* component);

    int size() const { return static_cast<int>(_components.size()); }   ///< How many entries there are.
    /// The component at an index; null outside 0..size()-1.
    LmComponent* operator[](int index) const;

private:
    std::vector<LmComponent*> _components;
};
