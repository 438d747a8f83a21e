#include "process/Warnings.h"

#include "LmApp.h"
#include "LmFormat.h"
#include "LmWarningDialog.h"

#include <cstring>
#include <string>

const char* lm::programName()
{
    const char* name = theApplication->argv(0);
    return name ? name : theApplication->name();   // an adopted application has no arguments
}

/// The dialog uses LmFormat itself: the text is copied before.
static void warn(const std::string& text) { getTheWarningDialog()->post(text.c_str()); }

void lm::warnOfFork(const char* command, int error)
{
    warn(LmFormat("%s: couldn't fork child \"%s\": %s\n", programName(), command, std::strerror(error)));
}

void lm::warnOfPipe(int error) { warn(LmFormat("%s: couldn't create pipe: %s\n", programName(), std::strerror(error))); }

void lm::warnOfNoCommand() { warn(LmFormat("%s: no command to run\n", programName())); }
