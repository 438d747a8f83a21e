// ResourceDefaults.h: resources of the application shell's level, looked up and given only where the user gave none.
#pragma once

#include <X11/Intrinsic.h>

#include <string>

namespace lm {

/// The first name and class of every resource of a program as Xt knows it: the option -name changes the name.
struct Program {
    const char* name;
    const char* className;
};
Program programOf(Display* display);

/// Has the user said anything about the resource of the program itself, in whatever form?
bool isSet(Display* display, const Program& program, const char* resource, const char* resourceClass);

/// Puts `<program>.<resource>: <value>`. Names with dots or stars in them mean just themselves.
void putDefault(Display* display, const Program& program, const char* resource, const std::string& value);

}   // namespace lm
