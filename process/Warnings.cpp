#include "process/Warnings.h"

#include "LmApp.h"
#include "LmFormat.h"
#include "LmWarningDialog.h"

#include <cstring>

const char* lm::programName()
{
    const char* name = theApplication->argv(0);
    return name ? name : theApplication->name();   // an adopted application has no arguments
}

void lm::warnOfFork(const char* command, int error)
{
    getTheWarningDialog()->post(LmFormat("%s: couldn't fork child \"%s\": %s\n", programName(), command, std::strerror(error)));
}

void lm::warnOfPipe(int error)
{
    getTheWarningDialog()->post(LmFormat("%s: couldn't create pipe: %s\n", programName(), std::strerror(error)));
}

void lm::warnOfNoCommand() { getTheWarningDialog()->post(LmFormat("%s: no command to run\n", programName())); }
