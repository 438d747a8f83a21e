// LmCallbackList: the registrations of one callback object, and the objects that hold registrations of another's members.
#pragma once

#include "LmCallbackObject.h"
#include "support/LmExport.h"
#include "support/alive.h"

#include <memory>
#include <vector>

/// One registration: a name, a function or a member function of a target, and client data (not owned).
class LM_API LmCallbackItem {
public:
    /// A registration of a function; the name is copied.
    LmCallbackItem(const char* name, LmCallbackFunction fn, void* clientData);
    /// A registration of a member function of `target` (not owned); the name is copied.
    LmCallbackItem(const char* name, LmCallbackObject* target, LmCallbackMethod member, void* clientData);

    /// Runs the registration when its name is `name`. The item may be gone afterwards.
    void invoke(LmCallbackObject* caller, const char* name, void* callData);

    LmCallbackObject* target() const { return _target; }        ///< null for a function
    const char* name() const { return _name; }                  ///< never freed
    LmCallbackFunction function() const { return _function; }   ///< Null for a member function.
    LmCallbackMethod method() const { return _method; }         ///< Null for a function.
    void* clientData() const { return _clientData; }            ///< As registered; not owned.
    /// Whether the name has the same characters; false for null.
    bool hasName(const char* name) const;

private:
    friend class LmCallbackList;
    void run(LmCallbackObject* caller, void* callData) const
    {
        if (_function)
            _function(caller, _clientData, callData);
        else if (_target && _method)
            (_target->*_method)(caller, _clientData, callData);
    }

    LmCallbackObject* _target;
    const char* _name;   // shared with every item of the same name, so that equal pointers are equal names
    LmCallbackFunction _function;
    LmCallbackMethod _method;
    void* _clientData;
};

/// The registrations of one callback object, in order. Owns its items.
class LM_API LmCallbackList {
public:
    LmCallbackList() = default;
    LmCallbackList(const LmCallbackList&) = delete;
    LmCallbackList& operator=(const LmCallbackList&) = delete;
    ~LmCallbackList();

    /// Appends an item made with `new`, which the list then owns.
    void add(LmCallbackItem* item);
    /// Appends a registration of a function.
    void add(const char* name, LmCallbackFunction function, void* clientData);
    /// Appends a registration of a member function.
    void add(const char* name, LmCallbackObject* target, LmCallbackMethod method, void* clientData);
    /// Appends copies of the other list's items, in their order; each list owns its own.
    void add(LmCallbackList* other);

    /// Takes an item out without destroying it: the caller owns it then. Nothing when it is not in the list.
    void remove(LmCallbackItem* item);
    /// Destroys every item that targets the object; how many went.
    int remove(LmCallbackObject* target);
    /// Destroys every item with exactly these arguments; how many went. `name` may be the name of such an item.
    int remove(const char* name, LmCallbackFunction function, void* clientData);
    /// Destroys every item with exactly these arguments; how many went. `name` may be the name of such an item.
    int remove(const char* name, LmCallbackObject* target, LmCallbackMethod method, void* clientData);

    /// Runs the items of the name in order. A callback may add and remove items and destroy the list, the caller and
    /// every target: the walk looks at the list afresh at each step and ends with it.
    void invoke(LmCallbackObject* caller, const char* name, void* callData);
    /// Whether an item has that name.
    bool hasCallbacks(const char* name) const;

    int size() const { return static_cast<int>(_items.size()); }   ///< The number of registrations.
    /// The item at an index; null outside 0..size()-1.
    LmCallbackItem* operator[](int index) const;

private:
    template <class Matches> int removeIf(Matches matches);

    std::vector<std::unique_ptr<LmCallbackItem>> _items;
    lm::Alive _alive;
};

/// A list of callback objects, not owned; an object may stand in it several times.
class LM_API LmCallbackObjectList {
public:
    LmCallbackObjectList() = default;
    LmCallbackObjectList(const LmCallbackObjectList&) = delete;
    LmCallbackObjectList& operator=(const LmCallbackObjectList&) = delete;
    virtual ~LmCallbackObjectList() = default;
    /// Appends the object.
    virtual void add(LmCallbackObject* object);
    /// Removes every occurrence.
    virtual void remove(LmCallbackObject* object);
    /// Removes the first occurrence.
    virtual void removeFirst(LmCallbackObject* object);

    int size() const { return static_cast<int>(_objects.size()); }   ///< How many entries there are.
    /// The object at an index; null outside 0..size()-1.
    LmCallbackObject* operator[](int index) const;

private:
    std::vector<LmCallbackObject*> _objects;
};
