#include "base/help/HelpFile.h"

#include "support/handles.h"

#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

static constexpr size_t longestPath = 1024 - 1;

std::optional<std::string> lm::readHelpFile(const char* path)
{
    if (!path || std::strlen(path) > longestPath)
        return std::nullopt;
    const FileDescriptor file(open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string text;
    char buffer[1 << 14];
    ssize_t count = 0;
    while ((count = read(file.get(), buffer, sizeof buffer)) > 0)
        text.append(buffer, static_cast<size_t>(count));
    if (count < 0)
        return std::nullopt;
    return text;
}
