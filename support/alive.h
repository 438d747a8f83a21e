// alive.h: does an object still exist after the user's code ran?
#pragma once

// GCC 12 does not see that a watch leaves the list before its storage goes.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif

namespace lm {

class Watch;

/// A member of every object that runs user code. Costs one pointer, and nothing while nobody watches.
/// A copy of an object is another object, so the token itself never is copied.
class Alive {
public:
    Alive() = default;
    Alive(const Alive&) {}
    Alive& operator=(const Alive&) { return *this; }
    inline ~Alive();

private:
    friend class Watch;
    mutable Watch* _first = nullptr;   // the watches now looking at us, newest first
};

/// Watches one object across a call that may destroy it:
///
///     lm::Watch here(_alive);
///     callCallbacks(levelChangedCallback, nullptr);
///     if (!here)
///         return;   // the callback deleted us: touch nothing
class Watch {
public:
    explicit Watch(const Alive& alive) : _alive(&alive), _next(alive._first)
    {
        if (_next)
            _next->_previous = this;
        alive._first = this;
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch()
    {
        if (!_alive)
            return;
        (_previous ? _previous->_next : _alive->_first) = _next;
        if (_next)
            _next->_previous = _previous;
    }
    /// False once the object is being destroyed.
    explicit operator bool() const { return _alive != nullptr; }

private:
    friend class Alive;
    const Alive* _alive;
    Watch* _next;
    Watch* _previous = nullptr;
};

inline Alive::~Alive()
{
    for (Watch* watch = _first; watch; watch = watch->_next)
        watch->_alive = nullptr;
}

}   // namespace lm

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif
