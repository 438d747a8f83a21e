#include "LmPipe.h"

#include "LmErrorDialog.h"
#include "LmInput.h"
#include "process/PipeEnds.h"
#include "process/Warnings.h"

#include <cerrno>

#include <sys/ioctl.h>

const char* const LmPipe::inputCallback = "inputCallback";

LmPipe::LmPipe(int& writeFd) : _input(std::make_unique<LmInput>())
{
    lm::PipeEnds ends = lm::openPipe();
    if (!ends) {
        lm::warnOfPipe(errno);
        return;
    }
    _fds[1] = writeFd = ends.write.release();
    if (!lm::makeNonBlocking(ends.read.get())) {
        ends.read = {};
        getTheFatalErrorDialog()->post("Cannot set pipe to non-blocking\n");
        return;
    }
    _fds[0] = ends.read.release();
    _input->attach(_fds[0], XtInputReadMask);
    _input->addCallback(LmInput::inputCallback, this, &LmPipe::handleInput, nullptr);
}

LmPipe::~LmPipe() = default;   // the watcher goes, and no longer watches

void LmPipe::handleInput(LmCallbackObject*, void*, void* callData) { callCallbacks(inputCallback, callData); }

/// How many bytes there are to read; 0 when nobody wants any.
int LmPipe::waiting() const
{
    int bytes = 0;
    return _input->isAttached() && ioctl(_fds[0], FIONREAD, &bytes) == 0 ? bytes : 0;
}

void LmPipe::deliverRest()
{
    const lm::Watch here(liveness());
    int before = waiting();
    for (int patience = 16; before > 0 && patience > 0;) {   // a receiver may not read, and somebody else may still write
        callCallbacks(inputCallback, _input.get());
        if (!here)
            return;
        const int now = waiting();
        if (now >= before)
            --patience;
        before = now;
    }
}
