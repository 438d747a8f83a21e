#include "pfm.h"

#include "platform/ForkedChild.h"

#include <csignal>
#include <cstdlib>

#include <unistd.h>

volatile bool lm::isForkedChild = false;

PfmSignalHandler pfm_signal(int sig, PfmSignalHandler handler)
{
    struct sigaction action = {};
    struct sigaction before = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART | SA_NOCLDSTOP;   // the latter means nothing for signals other than SIGCHLD
    return sigaction(sig, &action, &before) == 0 ? before.sa_handler : SIG_ERR;
}

void pfm_exit(int status)
{
    if (lm::isForkedChild)
        _exit(status);
    std::exit(status);
}
