// LmCallbackObject: the base of everything that announces events under names.
#pragma once

#include "support/LmExport.h"
#include "support/alive.h"

#include <type_traits>

class LmCallbackList;
class LmCallbackObject;
class LmCallbackObjectList;

/// A callback as a function: who announces, the pointer given at registration, the pointer given by the announcer.
using LmCallbackFunction = void (*)(LmCallbackObject* caller, void* clientData, void* callData);

/// A callback as a member function of a callback object, with the same three arguments.
/// A member of a derived class converts by static_cast; addCallback and removeCallback also take it as it is.
using LmCallbackMethod = void (LmCallbackObject::*)(LmCallbackObject* caller, void* clientData, void* callData);

/// An object that announces events under names, and whose member functions can be told about others' events.
///
/// A callback name is a string such as LmComponent::deleteCallback; equal characters are the same name. Registrations of
/// one name run in the order in which they were made. A registration of a member function joins two objects and
/// disappears with either of them, so that objects may be destroyed in any order, also inside a callback: whatever a
/// callback destroys (the caller, its own target, another target), nothing that is gone is called or touched.
///
///     window->addCallback(LmComponent::deleteCallback, this, &Document::windowClosed, nullptr);
///
///   Errors     none: a null name, function or target registers nothing; removing what is not there changes nothing
class LM_API LmCallbackObject {
public:
    LmCallbackObject() = default;
    LmCallbackObject(const LmCallbackObject&) = delete;
    LmCallbackObject& operator=(const LmCallbackObject&) = delete;
    virtual ~LmCallbackObject();
    /// The name of the object's class.
    virtual const char* className() { return "LmCallbackObject"; }

    /// Has `fn(this, clientData, callData)` called whenever `name` is announced. The same three again: called twice.
    void addCallback(const char* name, LmCallbackFunction fn, void* clientData);
    /// The same with a member function of `target`, until either object dies.
    void addCallback(const char* name, LmCallbackObject* target, LmCallbackMethod method, void* clientData);
    /// The same with a member function that a derived class declares.
    template <class T, class Declaring>
    std::enable_if_t<std::is_base_of_v<Declaring, T> && std::is_base_of_v<LmCallbackObject, Declaring>> addCallback(
        const char* name, T* target, void (Declaring::*method)(LmCallbackObject*, void*, void*), void* clientData)
    {
        addCallback(name, static_cast<LmCallbackObject*>(target), static_cast<LmCallbackMethod>(method), clientData);
    }

    /// Removes every registration of `name` with exactly these arguments.
    void removeCallback(const char* name, LmCallbackFunction fn, void* clientData);
    /// Removes every registration of `name` with exactly these arguments.
    void removeCallback(const char* name, LmCallbackObject* target, LmCallbackMethod method, void* clientData);
    /// The same with a member function that a derived class declares.
    template <class T, class Declaring>
    std::enable_if_t<std::is_base_of_v<Declaring, T> && std::is_base_of_v<LmCallbackObject, Declaring>> removeCallback(
        const char* name, T* target, void (Declaring::*method)(LmCallbackObject*, void*, void*), void* clientData)
    {
        removeCallback(name, static_cast<LmCallbackObject*>(target), static_cast<LmCallbackMethod>(method), clientData);
    }
    /// Removes every registration of this object.
    void removeAllCallbacks();
    /// Removes every registration of a member function of `target`.
    void removeAllCallbacks(LmCallbackObject* target);

    /// Announces `name`: runs its registrations in order. Registrations made meanwhile run too. The object may be gone
    /// afterwards, if a callback deleted it.
    void callCallbacks(const char* name, void* callData);
    /// 1 when something is registered under the name, else 0.
    int hasCallbacks(const char* name) const;

    /// Registers all that is registered here at `to` as well. Onto itself: what was registered before the call, once more.
    void cloneCallbacks(LmCallbackObject* to);
    /// The same for the registrations of one name, which become registrations of `newName`.
    void cloneCallback(const char* name, const char* newName, LmCallbackObject* to);
    /// The same under an unchanged name.
    void cloneCallback(const char* name, LmCallbackObject* to) { cloneCallback(name, name, to); }

    /// Book-keeping between two callback objects: `sender` holds one more registration that targets this object.
    void registerSender(LmCallbackObject* sender);
    /// Book-keeping: `sender` holds one registration less.
    void unregisterSender(LmCallbackObject* sender);
    /// Book-keeping: `sender` holds no more registration.
    void unregisterSenders(LmCallbackObject* sender);

    /// To watch the object's life across calls of user code, with lm::Watch.
    const lm::Alive& liveness() const { return _alive; }

private:
    LmCallbackList* callbacks();

    LmCallbackList* _callbacks = nullptr;       // owned; null until the first registration
    LmCallbackObjectList* _senders = nullptr;   // owned; who holds registrations that target us, once per registration
    lm::Alive _alive;
};

/// The base of data objects that announce their changes.
///
///   Callbacks  updateCallback, after a change; the call data is the derived class's own
class LM_API LmModel : public LmCallbackObject {
public:
    static const char* const updateCallback;   ///< "updateCallback"

    const char* className() override { return "LmModel"; }
};
