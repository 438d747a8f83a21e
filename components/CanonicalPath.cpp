#include "components/CanonicalPath.h"

#include <iterator>
#include <utility>
#include <vector>

#include <climits>
#include <unistd.h>

static constexpr int maxLinks = 40;   // as the kernel has it

std::optional<std::string> lm::linkTarget(const std::string& path)
{
    char target[PATH_MAX];
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    if (length < 0)
        return std::nullopt;
    return std::string(target, static_cast<std::size_t>(length));
}

using Names = std::vector<std::string>;

/// Puts the names of a path, without "." and empty ones, on a stack: the first on top.
static void push(Names& stack, std::string_view path)
{
    Names names;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string_view name = path.substr(0, end);
        if (!name.empty() && name != ".")
            names.emplace_back(name);
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    stack.insert(stack.end(), std::make_move_iterator(names.rbegin()), std::make_move_iterator(names.rend()));
}

static std::string pathOf(const Names& names)
{
    std::string path;
    for (const std::string& name : names)
        path += "/" + name;
    return path.empty() ? "/" : path;
}

std::string lm::canonicalPath(std::string_view path, const std::function<std::optional<std::string>(const std::string&)>& target)
{
    Names ahead, done;   // ahead: the next one is the last
    push(ahead, path);
    for (int links = 0; !ahead.empty();) {
        std::string name = std::move(ahead.back());
        ahead.pop_back();
        if (name != "..") {
            done.push_back(std::move(name));
            continue;
        }
        if (done.empty())
            continue;
        const auto link = links < maxLinks ? target(pathOf(done)) : std::nullopt;
        done.pop_back();
        if (!link)
            continue;
        ++links;
        ahead.emplace_back("..");
        push(ahead, *link);
        if (link->starts_with('/'))
            done.clear();
    }
    return pathOf(done);
}

std::string lm::joinedPath(std::string_view directory, std::string_view name)
{
    std::string path(directory);
    if (!path.ends_with('/'))
        path += '/';
    return path.append(name);
}

std::string lm::absolutePath(std::string_view path, std::string_view directory)
{
    return path.starts_with('/') ? std::string(path) : joinedPath(directory, path);
}
