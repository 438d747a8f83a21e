// LmPipe: a pipe whose reading end is watched from the event loop.
#pragma once

#include "LmCallbackObject.h"

#include <memory>

class LmInput;

/// A pipe that announces what arrives. The receiver reads the descriptor of the LmInput until it fails with EAGAIN, and
/// calls remove() of the LmInput at the end (read gives 0). It may destroy the pipe.
///
/// Both ends are close-on-exec; reading never waits. The pipe closes neither: that is its owner's affair.
///
///   Callbacks  inputCallback, whenever there is something to read, and at the end of the pipe; call data: the LmInput
///   Errors     when no pipe can be made, the warning dialog shows the reason, readFd() is -1 and the variable unchanged
class LM_API LmPipe : public LmCallbackObject {
public:
    static const char* const inputCallback;   ///< "inputCallback"

    /// Makes the pipe and stores the writing end into the caller's variable.
    explicit LmPipe(int& writeFd);
    ~LmPipe() override;

    const char* className() override { return "LmPipe"; }
    /// Announces what the watcher announced.
    void handleInput(LmCallbackObject* caller, void* clientData, void* callData);
    /// Announces what is in the pipe now without waiting for the event loop, while receivers read it. The pipe may be
    /// gone afterwards.
    void deliverRest();

    int readFd() const { return _fds[0]; }            ///< -1 when there is no pipe
    int writeFd() const { return _fds[1]; }           ///< as it was made; the owner may have closed it
    LmInput* input() const { return _input.get(); }   ///< The watcher of the reading end; never null.

private:
    int waiting() const;

    int _fds[2] = {-1, -1};
    std::unique_ptr<LmInput> _input;
};
