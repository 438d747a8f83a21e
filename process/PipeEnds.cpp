#include "process/PipeEnds.h"

#include <fcntl.h>

static lm::FileDescriptor aboveStandard(lm::FileDescriptor fd)
{
    if (fd.get() > STDERR_FILENO)
        return fd;
    return lm::FileDescriptor(fcntl(fd.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

lm::PipeEnds lm::openPipe()
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) == -1)
        return {};
    FileDescriptor read(ends[0]), write(ends[1]);   // both, before either moves: a failure closes what there is
    return {aboveStandard(std::move(read)), aboveStandard(std::move(write))};
}

bool lm::makeNonBlocking(int fd)
{
    const int flags = fcntl(fd, F_GETFL);
    return flags != -1 && fcntl(fd, F_SETFL, flags | O_NDELAY) != -1;
}
