#include "Scanner.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

std::vector<std::string> withoutNested(std::vector<std::string> paths)
{
    const auto asFolder = [](const std::string& path) { return path.ends_with('/') ? path : path + '/'; };
    std::sort(paths.begin(), paths.end(), [&](const auto& a, const auto& b) { return asFolder(a) < asFolder(b); });
    std::vector<std::string> kept;
    for (std::string& path : paths)
        if (kept.empty() || !asFolder(path).starts_with(asFolder(kept.back())))
            kept.push_back(std::move(path));
    return kept;
}

std::string resolved(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    return real ? real.get() : path;
}

Scanner::Scanner(Tree& tree, const std::vector<std::string>& paths) : _tree(tree)
{
    for (const std::string& path : withoutNested(paths)) {
        struct stat status;
        if (lstat(path.c_str(), &status) != 0) {
            ++_unread;
            continue;
        }
        Entry& top = _tree.add(nullptr, path, status);
        if (top.isDirectory)
            _waiting.push_back(&top);
    }
}

/// Opens a directory, also one whose path is longer than the system takes: in two steps or more.
static int openDirectory(const Entry& entry)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    const std::string path = entry.path();
    if (path.size() < PATH_MAX || !entry.parent)
        return open(path.c_str(), flags);
    const int above = openDirectory(*entry.parent);
    if (above < 0)
        return -1;
    const int descriptor = openat(above, entry.name.c_str(), flags);
    close(above);
    return descriptor;
}

void Scanner::openNext()
{
    _reading = _waiting.back();
    _waiting.pop_back();
    const int descriptor = openDirectory(*_reading);
    _open.reset(descriptor < 0 ? nullptr : fdopendir(descriptor));
    if (_open)
        return;
    ++_unread;
    if (descriptor >= 0)
        close(descriptor);
}

void Scanner::readEntry()
{
    errno = 0;
    const dirent* found = readdir(_open.get());
    if (!found) {
        _unread += errno != 0;
        _open.reset();
        return;
    }
    const std::string_view name = found->d_name;
    if (name == "." || name == "..")
        return;
    struct stat status;
    if (fstatat(dirfd(_open.get()), found->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        ++_unread;   // or gone by now
        return;
    }
    Entry& entry = _tree.add(_reading, std::string(name), status);
    if (entry.isDirectory)
        _waiting.push_back(&entry);
}

bool Scanner::read(std::chrono::milliseconds time)
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (_open || !_waiting.empty()) {
        if (!_open)
            openNext();
        for (int i = 0; i < 16 && _open; ++i)
            readEntry();
        if (std::chrono::steady_clock::now() >= end)
            return !_open && _waiting.empty();
    }
    return true;
}
