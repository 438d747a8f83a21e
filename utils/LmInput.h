// LmInput: a file descriptor that is watched from the event loop.
#pragma once

#include "LmCallbackObject.h"
#include "support/handles.h"

/// Announces when a file descriptor can be read or written. The receiver reads what is there without waiting (make the
/// descriptor non-blocking), and calls remove() at the end of a pipe, which stays readable for ever. The receiver may
/// attach, remove and delete the object. The descriptor stays the application's.
///
///   Callbacks  inputCallback, whenever the descriptor is ready; call data: the LmInput
///   Errors     a negative descriptor, or a condition that is none, attaches nothing; without the application object
///              attach() ends the program with status 1
class LM_API LmInput : public LmCallbackObject {
public:
    static const char* const inputCallback;   ///< "inputCallback"

    const char* className() override { return "LmInput"; }

    /// Watches `fd` in place of what was watched before. `condition` is XtInputReadMask, XtInputWriteMask or XtInputExceptMask.
    void attach(int fd, XtInputMask condition);
    /// Ends that; the destructor does it, too.
    void remove();
    /// The descriptor given last, -1 before.
    int fd() const { return _fd; }
    bool isAttached() const { return static_cast<bool>(_input); }   ///< Whether a descriptor is watched.

    /// The Xt input procedure: announces inputCallback of the object given.
    static void inputXtCallback(XtPointer input, int* fd, XtInputId* id) noexcept;

private:
    lm::InputHandle _input;   // empty when not attached
    int _fd = -1;
};
