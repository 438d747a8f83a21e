// Targets.h: what is fuzzed. Each target takes any bytes, and ends the process when what comes out is impossible.
#pragma once

#include <string_view>

namespace lmfuzz {

void helpMap(std::string_view bytes);       ///< the lines of a help map, and the menu that they make
void helpIndex(std::string_view bytes);     ///< an index map file
void command(std::string_view bytes);       ///< a command line
void arguments(std::string_view bytes);     ///< the property by which two starts of a program meet
void xpmTemplate(std::string_view bytes);   ///< the template of an icon
void scheme(std::string_view bytes);        ///< a scheme file

/// The targets by name; inputs of a target are in corpus/<name>/.
struct Target {
    const char* name;
    void (*run)(std::string_view bytes);
};
inline constexpr Target targets[] = {{"helpMap", helpMap},     {"helpIndex", helpIndex},     {"command", command},
                                     {"arguments", arguments}, {"xpmTemplate", xpmTemplate}, {"scheme", scheme}};

}   // namespace lmfuzz
