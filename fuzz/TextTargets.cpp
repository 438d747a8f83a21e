#include "fuzz/Targets.h"
#include "platform/SchemeFile.h"
#include "process/LmParseCommand.h"
#include "utils/ArgumentText.h"
#include "utils/XpmTemplate.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <unistd.h>

#include <sys/mman.h>

static void expect(bool holds)
{
    if (!holds)
        std::abort();
}

/// The words hold no more than the command does, and there is at least one.
void lmfuzz::command(std::string_view bytes)
{
    const std::string command(bytes);
    char* path = nullptr;
    char** argv = nullptr;
    LmParseCommand(command.c_str(), &path, &argv);
    expect(path && argv && argv[0]);
    size_t length = std::strlen(path);
    for (int i = 1; argv[i]; ++i)
        length += std::strlen(argv[i]);
    expect(length <= std::strlen(command.c_str()));
    const char* slash = std::strrchr(path, '/');
    expect(std::strlen(argv[0]) <= std::strlen(path) && (slash || std::strcmp(argv[0], path) == 0));
    LmFreeParsedCommand(path, argv);
}

/// The property of a program that runs once: what another start writes there, and what anybody else may.
void lmfuzz::arguments(std::string_view bytes)
{
    const LmNameList arguments = lm::splitArguments(bytes);
    const std::string block = lm::joinArguments(arguments);
    expect(block.size() == bytes.size() + (!bytes.empty() && bytes.back() != '\0'));
    expect(block.compare(0, bytes.size(), bytes) == 0);
}

/// Lines as XPM data, ended by null; with as many colours as the header says, if those are few.
void lmfuzz::xpmTemplate(std::string_view bytes)
{
    std::vector<std::string> lines;
    for (size_t start = 0; start <= bytes.size();) {
        const size_t end = std::min(bytes.find('\n', start), bytes.size());
        lines.emplace_back(bytes.substr(start, end - start));
        start = end + 1;
    }
    std::vector<const char*> xpm;
    for (const std::string& line : lines)
        xpm.push_back(line.c_str());
    xpm.push_back(nullptr);

    const auto header = lm::checkXpm(xpm.data());
    expect(!header || std::ssize(lines) > header->colors + header->height);
    const std::vector<XColor> colors(header && header->colors < 256 ? static_cast<size_t>(header->colors) : 3);
    const auto copy = lm::recolorXpm(xpm.data(), colors);
    expect(!copy || (header && header->colors == std::ssize(colors)));
}

/// A scheme file, as a program reads it on a display that is not local. Includes of other files are left out.
void lmfuzz::scheme(std::string_view bytes)
{
    if (bytes.find('#') != bytes.npos)
        return;
    const lm::FileDescriptor file(memfd_create("scheme", MFD_CLOEXEC));
    expect(write(file.get(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    const lm::XrmOwner all = lm::readDatabaseFile("/proc/self/fd/" + std::to_string(file.get()));
    expect(all != nullptr);
    const lm::XrmOwner some = lm::withoutFonts(all.get());
    expect(some != nullptr);
    for (const std::string& place : lm::placesOfScheme(std::string(bytes)))
        expect(place.size() >= bytes.size());
}
