// CanonicalPath.h: paths without detours.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace lm {

/// The target of a symbolic link; nothing when the path names none.
std::optional<std::string> linkTarget(const std::string& path);

/// An absolute path without doubled slashes, ".", ".." and a slash at its end. A link before ".." is replaced by what it points
/// to, so that the result names the same file; other links stay. After 40 of them, as in a loop of links, ".." removes the
/// name before it. `target` reads links.
std::string canonicalPath(std::string_view path,
                          const std::function<std::optional<std::string>(const std::string&)>& target = linkTarget);

/// The entry `name` of the directory.
std::string joinedPath(std::string_view directory, std::string_view name);

/// The path itself when it is absolute, else that below `directory`.
std::string absolutePath(std::string_view path, std::string_view directory);

}   // namespace lm
