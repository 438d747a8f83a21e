#include "uiUtl.h"

#include "SchemeFile.h"
#include "support/resources.h"

#include <Xm/Display.h>

#include <clocale>
#include <cstdio>
#include <optional>
#include <string_view>

#include <strings.h>

String uiUtlLanguageProc(Display* /*display*/, String language, XtPointer /*closure*/)
{
    if (!std::setlocale(LC_ALL, language))
        XtWarning("locale not supported by C library, locale unchanged");
    if (!XSupportsLocale()) {
        XtWarning("locale not supported by Xlib, locale set to C");
        std::setlocale(LC_ALL, "C");
    }
    if (!XSetLocaleModifiers(""))
        XtWarning("X locale modifiers not supported, using default");
    return std::setlocale(LC_ALL, nullptr);
}

/// The value of a resource of the program itself.
static std::optional<std::string> programResource(Display* display, const char* name, const char* className)
{
    String program = nullptr;
    String programClass = nullptr;
    XtGetApplicationNameAndClass(display, &program, &programClass);
    XrmName names[] = {XrmStringToName(program), XrmStringToName(name), NULLQUARK};
    XrmClass classes[] = {XrmStringToClass(programClass), XrmStringToClass(className), NULLQUARK};
    XrmRepresentation type = NULLQUARK;
    XrmValue value{};
    if (!XrmQGetResource(XtDatabase(display), names, classes, &type, &value) || !value.addr)
        return std::nullopt;
    return std::string(value.addr);
}

static bool isTrue(const std::optional<std::string>& value)
{
    if (!value)
        return false;
    for (const char* word : {"true", "yes", "on", "1"}) {
        if (strcasecmp(value->c_str(), word) == 0)
            return true;
    }
    return false;
}

static bool isLocal(Display* display)
{
    const std::string_view name = DisplayString(display);
    return name.starts_with(':') || name.starts_with("unix:");
}

/// The first of the places that holds a database; empty, after a line on standard error, when none does.
static lm::XrmOwner findScheme(const std::string& name)
{
    std::string looked;
    for (const std::string& path : lm::placesOfScheme(name)) {
        if (auto scheme = lm::readDatabaseFile(path))
            return scheme;
        looked += (looked.empty() ? "" : ", ") + path;
    }
    std::fprintf(stderr, "scheme \"%s\" cannot be read (looked for %s)\n", name.c_str(), looked.c_str());
    return {};
}

/// Motif's display object was made with the first shell, before the scheme was read: it is told what the scheme says.
static void informMotif(Display* display)
{
    const char* const rows[][2] = {{XmNenableThinThickness, XmCEnableThinThickness},
                                   {XmNenableEtchedInMenu, XmCEnableEtchedInMenu},
                                   {XmNenableToggleVisual, XmCEnableToggleVisual}};
    for (const auto& [name, className] : rows) {
        const auto value = programResource(display, name, className);
        if (value)
            XtVaSetValues(XmGetXmDisplay(display), XtVaTypedArg, name, XtRString, value->c_str(), value->size() + 1, nullptr);
    }
}

void uiUtlLoadScheme(Display* display)
{
    const auto name = programResource(display, "scheme", "Scheme");
    if (!name || name->empty())
        return;
    auto scheme = findScheme(*name);
    if (!scheme)
        return;
    if (!isLocal(display) && !isTrue(programResource(display, "schemeFonts", "SchemeFonts")))
        scheme = lm::withoutFonts(scheme.get());
    XrmDatabase database = XtDatabase(display);
    XrmMergeDatabases(scheme.release(), &database);   // takes the scheme over
    informMotif(display);
}
