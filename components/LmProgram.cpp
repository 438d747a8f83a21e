#include "LmProgram.h"

#include "process/Warnings.h"

#include <cstring>

const char* const LmProgram::stdoutCallback = "stdoutCallback";
const char* const LmProgram::stderrCallback = "stderrCallback";
const char* const LmProgram::exitCallback = "exitCallback";

static char* trimmed(const char* command)
{
    constexpr const char* blanks = " \t\n";
    if (!command)
        return nullptr;
    command += std::strspn(command, blanks);
    std::size_t length = std::strlen(command);
    while (length > 0 && std::strchr(blanks, command[length - 1]))
        --length;
    return strndup(command, length);
}

LmProgram::LmProgram(const char* command, int createOption) : _command(trimmed(command)), _createOption(createOption) {}

RPtr_LmSubProcessRep LmProgram::run()
{
    const bool blank = !_command || !*_command;
    RPtr_LmSubProcessRep process = LmSubProcessRep::create(_command.get(), _createOption, blank ? 0 : _wantInput);
    if (blank) {
        lm::warnOfNoCommand();
        return process;
    }
    cloneCallbacks(process.operator->());
    process->run();
    return process;
}
