#include "base/core/SearchPath.h"

#include "support/handles.h"

#include <cstdlib>

static const char* const variable = "XFILESEARCHPATH";
static const std::string pattern = "/usr/lib/X11/%T/%N%S";

/// The value before extendSearchPath() first changed it.
static std::optional<std::string>& valueAtStart()
{
    static std::optional<std::string> value = [] {
        const char* text = std::getenv(variable);
        return text ? std::optional<std::string>(text) : std::nullopt;
    }();
    return value;
}

static void setVariable(const std::optional<std::string>& value)
{
    if (value)
        setenv(variable, value->c_str(), 1);
    else
        unsetenv(variable);
}

void lm::extendSearchPath()
{
    valueAtStart();
    const char* present = std::getenv(variable);
    if (!present)
        setVariable(pattern);
    else if (std::string(present).find(pattern) == std::string::npos)
        setVariable(present + (":" + pattern));
}

std::optional<std::string> lm::originalSearchPath() { return valueAtStart(); }

static lm::XtString classFile(Display* display)
{
    return lm::XtString(XtResolvePathname(display, "app-defaults", nullptr, nullptr, nullptr, nullptr, 0, nullptr));
}

void lm::loadClassFileFromDefaultPath(Display* display)
{
    if (classFile(display))
        return;
    const std::string extended = std::getenv(variable);
    setVariable(std::nullopt);
    const XtString file = classFile(display);
    setVariable(extended);
    if (!file)
        return;
    XrmDatabase database = XtDatabase(display);
    XrmCombineFileDatabase(file.get(), &database, False);
}
