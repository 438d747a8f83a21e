// handles.h: owners for what the C libraries hand out; each frees exactly what it was given.
#pragma once

#include <X11/Xresource.h>
#include <Xm/Xm.h>

#include <cstdlib>
#include <memory>
#include <type_traits>
#include <utility>

#include <unistd.h>

namespace lm {

/// A deleter that calls one function.
template <auto Free> struct FreeWith {
    template <class T> void operator()(T* p) const noexcept { Free(p); }
};
inline void xtFree(void* p) noexcept { XtFree(static_cast<char*>(p)); }
inline void xFree(void* p) noexcept { XFree(p); }

using CString = std::unique_ptr<char, FreeWith<std::free>>;   ///< strdup, malloc
using XtString = std::unique_ptr<char, FreeWith<xtFree>>;     ///< XtMalloc, XmTextGetString
using XString = std::unique_ptr<char, FreeWith<xFree>>;       ///< text that Xlib allocated
using XmText = std::unique_ptr<std::remove_pointer_t<XmString>, FreeWith<XmStringFree>>;
using XrmOwner = std::unique_ptr<std::remove_pointer_t<XrmDatabase>, FreeWith<XrmDestroyDatabase>>;

/// A server resource with the display that frees it. Empty when the id is None (0).
template <class Id, int (*Free)(Display*, Id)> class ServerHandle {
public:
    ServerHandle() = default;
    ServerHandle(Display* display, Id id) : _display(display), _id(id) {}
    ServerHandle(ServerHandle&& other) noexcept : _display(other._display), _id(std::exchange(other._id, None)) {}
    ServerHandle& operator=(ServerHandle other) noexcept
    {
        std::swap(_display, other._display);
        std::swap(_id, other._id);
        return *this;
    }
    ~ServerHandle()
    {
        if (_id != None)
            Free(_display, _id);
    }
    Id get() const { return _id; }
    /// The id, whose owner is now the caller.
    [[nodiscard]] Id release() { return std::exchange(_id, None); }
    explicit operator bool() const { return _id != None; }

private:
    Display* _display = nullptr;
    Id _id = None;
};
using PixmapHandle = ServerHandle<Pixmap, XFreePixmap>;
using CursorHandle = ServerHandle<Cursor, XFreeCursor>;

/// A shared, read-only GC of XtGetGC. Must go before its widget does: drop it in widgetDestroyed().
class SharedGC {
public:
    SharedGC() = default;
    SharedGC(Widget w, XtGCMask mask, XGCValues values) : _widget(w), _gc(XtGetGC(w, mask, &values)) {}
    SharedGC(SharedGC&& other) noexcept : _widget(other._widget), _gc(std::exchange(other._gc, nullptr)) {}
    SharedGC& operator=(SharedGC other) noexcept
    {
        std::swap(_widget, other._widget);
        std::swap(_gc, other._gc);
        return *this;
    }
    ~SharedGC()
    {
        if (_gc)
            XtReleaseGC(_widget, _gc);
    }
    GC get() const { return _gc; }

private:
    Widget _widget = nullptr;
    GC _gc = nullptr;
};

/// An open file descriptor; -1 when empty.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : _fd(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : _fd(std::exchange(other._fd, -1)) {}
    FileDescriptor& operator=(FileDescriptor other) noexcept
    {
        std::swap(_fd, other._fd);
        return *this;
    }
    ~FileDescriptor()
    {
        if (_fd >= 0)
            close(_fd);
    }
    int get() const { return _fd; }
    /// The descriptor, whose owner is now the caller.
    [[nodiscard]] int release() { return std::exchange(_fd, -1); }
    explicit operator bool() const { return _fd >= 0; }

private:
    int _fd = -1;
};

/// An Xt timer, work procedure or input source that dies with its owner. Xt uses ids again, so the procedure itself
/// calls fired() before anything else: then nothing removes a stranger's registration later.
template <class Id, void (*Remove)(Id)> class XtRegistration {
public:
    XtRegistration() = default;
    explicit XtRegistration(Id id) : _id(id) {}
    XtRegistration(XtRegistration&& other) noexcept : _id(std::exchange(other._id, 0)) {}
    XtRegistration& operator=(XtRegistration other) noexcept
    {
        std::swap(_id, other._id);
        return *this;
    }
    ~XtRegistration()
    {
        if (_id)
            Remove(_id);
    }
    Id get() const { return _id; }
    /// Xt has taken the registration back by itself (a timer that ran, a work procedure that answers True).
    void fired() { _id = 0; }
    explicit operator bool() const { return _id != 0; }

private:
    Id _id = 0;
};
using TimerHandle = XtRegistration<XtIntervalId, XtRemoveTimeOut>;
using WorkProcHandle = XtRegistration<XtWorkProcId, XtRemoveWorkProc>;
using InputHandle = XtRegistration<XtInputId, XtRemoveInput>;

}   // namespace lm
