#include "LmResource.h"

#include "LmApp.h"
#include "LmFormat.h"
#include "support/resources.h"

#include <X11/IntrinsicP.h>
#include <X11/Xresource.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

// --- words ----------------------------------------------------------------------------------------------------------

/// Room for every value a look-up answers; the members lie over each other at its start.
union Word {
    std::int64_t eight;
    std::int32_t four;
    std::int16_t two;
    signed char one;
};

bool isWordSize(std::size_t size) { return size == 1 || size == 2 || size == 4 || size == 8; }

template <class T> T valueAt(const void* address)
{
    T value;
    std::memcpy(&value, address, sizeof value);
    return value;
}

/// The value of `size` bytes at `address` as a word, its sign extended.
std::int64_t asWord(const void* address, std::size_t size)
{
    switch (size) {
    case 8:
        return valueAt<std::int64_t>(address);
    case 4:
        return valueAt<std::int32_t>(address);
    case 2:
        return valueAt<std::int16_t>(address);
    default:
        return valueAt<signed char>(address);
    }
}

void* asPointerWord(std::int64_t word) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(word)); }

// --- types ----------------------------------------------------------------------------------------------------------

bool isString(std::string_view type) { return type == XtRString; }
bool isXmString(std::string_view type) { return type == XmRXmString; }

/// XtRWidget converts by looking for a child; on a shell Motif's converter reads an argument that no look-up can give.
bool isRefused(std::string_view type) { return type == XtRWidget; }

/// The size of a type whose size is known, else 0. Xt refuses a resource of another size, or fills a part of it only.
std::size_t sizeOfType(std::string_view type)
{
    struct Row {
        std::string_view type;
        std::size_t size;
    };
    // clang-format off
    static constexpr Row rows[] = {   // the commonest first
        {"Boolean", 1}, {"Pixel", 8}, {"Int", 4}, {"String", 8}, {"Dimension", 2}, {"Position", 2}, {"XmString", 8},
        {"Bool", 4}, {"Float", 4}, {"Cardinal", 4},
        {"Short", 2}, {"HorizontalDimension", 2}, {"VerticalDimension", 2}, {"HorizontalPosition", 2}, {"VerticalPosition", 2},
        {"Orientation", 1}, {"UnsignedChar", 1},
        {"Cursor", 8}, {"Pixmap", 8}, {"Font", 8}, {"FontList", 8}, {"FontStruct", 8}, {"RenderTable", 8}, {"Atom", 8},
        {"KeySym", 8}};
    // clang-format on
    const auto* row = std::ranges::find(rows, type, &Row::type);
    return row != std::end(rows) ? row->size : 0;
}

void warn(Widget w, const std::string& message) { XtAppWarning(XtWidgetToApplicationContext(w), message.c_str()); }

// --- the forms that Xt answers ---------------------------------------------------------------------------------------

/// Looks up one resource of the widget itself and answers it as a word.
std::int64_t lookUpOwn(Widget w, const char* name, const char* className, const char* type, std::size_t size,
                       const char* defaultType, const void* defaultValue)
{
    if (isRefused(type))
        return 0;
    Word word{.eight = 0};
    XtResource row{lm::xtText(name),        lm::xtText(className),          lm::xtText(type), static_cast<Cardinal>(size), 0,
                   lm::xtText(defaultType), const_cast<void*>(defaultValue)};
    XtGetSubresources(w, &word, nullptr, nullptr, &row, 1, nullptr, 0);
    return asWord(&word, size);
}

/// The size with which Xt is asked: the type's own where it is known, else the caller's.
std::size_t askedSize(const char* type, int size)
{
    const std::size_t known = sizeOfType(type);
    if (known != 0)
        return known;
    return isWordSize(static_cast<std::size_t>(size)) ? static_cast<std::size_t>(size) : sizeof(Word);
}

// --- the general look-up ----------------------------------------------------------------------------------------------

/// A full name or class in levels. One of each is kept for all look-ups, so that none allocates.
using Levels = std::vector<XrmQuark>;

/// Appends the levels of `text`, which periods and asterisks divide. Xlib's own XrmGetResource does the same, but
/// into an array of 101 levels that it does not watch.
void append(Levels& levels, const char* text)
{
    const std::string_view view = text ? text : "";
    const auto dividers = std::ranges::count_if(view, [](char c) { return c == '.' || c == '*'; });
    const std::size_t start = levels.size();
    levels.resize(start + static_cast<std::size_t>(dividers) + 2, NULLQUARK);
    if (!view.empty())
        XrmStringToQuarkList(view.data(), levels.data() + start);
    levels.erase(std::find(levels.begin() + static_cast<std::ptrdiff_t>(start), levels.end(), NULLQUARK), levels.end());
}

/// The same for a text whose quark is known: nothing is hashed anew when it is one level.
void append(Levels& levels, XrmQuark quark)
{
    const char* text = XrmQuarkToString(quark);
    if (text && *text && !std::strpbrk(text, ".*"))
        levels.push_back(quark);
    else
        append(levels, text);
}

/// The levels of the widgets below the root down to `w`.
void appendPath(Widget w, Levels& names, Levels& classes)
{
    if (!XtParent(w))
        return;
    appendPath(XtParent(w), names, classes);
    append(names, w->core.xrm_name);
    append(classes, XtClass(w)->core_class.xrm_class);
}

struct Found {
    XrmRepresentation type;
    XrmValue value;
};

/// Ends both lists and asks the database. The search walks them side by side as far as the names reach.
std::optional<Found> ask(XrmDatabase database, Levels& names, Levels& classes)
{
    names.push_back(NULLQUARK);
    classes.resize(std::max(classes.size() + 1, names.size()), NULLQUARK);
    Found found{};
    if (!database || !XrmQGetResource(database, names.data(), classes.data(), &found.type, &found.value))
        return std::nullopt;
    return found;
}

std::optional<Found> lookUpUnder(Widget w, const char* name, const char* className)
{
    static Levels names;
    static Levels classes;
    names.clear();
    classes.clear();
    String program = nullptr;
    String programClass = nullptr;
    XtGetApplicationNameAndClass(XtDisplayOfObject(w), &program, &programClass);
    append(names, program);
    append(classes, programClass);
    appendPath(w, names, classes);
    append(names, name);
    append(classes, className);
    return ask(XtDatabase(theApplication ? theApplication->display() : XtDisplayOfObject(w)), names, classes);
}

/// The found value, or the default as one of type String.
std::optional<Found> lookUpOrDefault(Widget w, const char* name, const char* className, const char* defaultValue)
{
    static const XrmRepresentation string = XrmPermStringToQuark(XtRString);
    auto found = lookUpUnder(w, name, className);
    if (found || !defaultValue)
        return found;
    const auto size = static_cast<unsigned int>(std::strlen(defaultValue)) + 1;
    return Found{string, {size, const_cast<XPointer>(defaultValue)}};
}

/// The value in the wanted type; Xt owns it. Nothing when it cannot be converted, after a warning.
std::optional<XrmValue> convert(Widget w, Found& found, const char* type)
{
    XrmValue converted{0, nullptr};
    const auto from = XrmRepresentationToString(found.type);
    if (!isRefused(type) && XtConvertAndStore(w, from, &found.value, type, &converted) && converted.addr)
        return converted;
    warn(w, std::string("Can't convert a String to a ") + type);
    return std::nullopt;
}

/// A text as Motif's converter makes a compound string of it. The converter itself would leave one more string with the
/// widget at every look-up, until the widget is destroyed.
XmString compoundText(const char* text)
{
    return XmStringGenerate(lm::xtText(text), lm::xtText(XmFONTLIST_DEFAULT_TAG), XmCHARSET_TEXT, nullptr);
}

void reportUnknownSize() { std::puts("Warning: Report BUG. LmResource IF statement fall through"); }

/// A program's resource: both full names cut at 499 bytes.
char* programResource(XrmDatabase database, const char* program, const char* programClass, const char* name,
                      const char* className)
{
    char fullName[500];
    char fullClass[500];
    std::snprintf(fullName, sizeof fullName, "%s.%s", program, name);
    std::snprintf(fullClass, sizeof fullClass, "%s.%s", programClass, className);
    Levels names;
    Levels classes;
    append(names, fullName);
    append(classes, fullClass);
    const auto found = ask(database, names, classes);
    return found ? found->value.addr : nullptr;
}

}   // namespace

char* LmGetResource(Widget w, const char* name, const char* className)
{
    const auto word = lookUpOwn(w, name, className, XtRString, sizeof(char*), XtRImmediate, nullptr);
    return static_cast<char*>(asPointerWord(word));
}

void* LmGetResource(Widget w, const char* name, const char* className, const char* defaultValue)
{
    return asPointerWord(lookUpOwn(w, name, className, XtRString, sizeof(char*), XtRString, defaultValue));
}

void* LmGetResource(Widget w, const char* name, const char* className, const char* type, int size, void* defaultValue)
{
    return asPointerWord(lookUpOwn(w, name, className, type, askedSize(type, size), XtRImmediate, defaultValue));
}

void* LmGetResource(Widget w, const char* name, const char* className, const char* type, int size, const char* defaultValue)
{
    return asPointerWord(lookUpOwn(w, name, className, type, askedSize(type, size), XtRString, defaultValue));
}

void* LmGetResource(Widget w, const char* name, const char* className, const char* type, const char* defaultValue)
{
    auto found = lookUpOrDefault(w, name, className, defaultValue);
    if (!found)
        return nullptr;
    if (isString(type) && isString(XrmRepresentationToString(found->type)))
        return found->value.addr;
    if (isXmString(type) && isString(XrmRepresentationToString(found->type)))
        return compoundText(found->value.addr);
    const auto value = convert(w, *found, type);
    if (!value)
        return nullptr;
    if (isString(type))
        return value->addr;
    if (isXmString(type))
        return XmStringCopy(valueAt<XmString>(value->addr));
    if (!isWordSize(value->size))
        reportUnknownSize();
    return asPointerWord(asWord(value->addr, value->size));
}

int LmGetResource(Widget w, const char* name, const char* className, const char* type, const char* defaultValue, void* result,
                  unsigned int resultSize)
{
    if (resultSize == 0)
        return 3;
    if (isString(type) || isXmString(type)) {
        warn(w, std::string("Can't use this routine to retrieve \"") + type + "\" type");
        return 1;
    }
    auto found = lookUpOrDefault(w, name, className, defaultValue);
    const auto value = found ? convert(w, *found, type) : std::nullopt;
    if (!value)
        return 1;
    if (value->size > resultSize)
        return 3;
    if (!isWordSize(value->size)) {
        reportUnknownSize();
        return 1;
    }
    std::memcpy(result, value->addr, value->size);
    return 0;
}

int LmGetResource(Widget w, const char* name, const char* className, const char* type, int size, const char* defaultValue,
                  void* result, unsigned int resultSize)
{
    const auto wanted = static_cast<std::size_t>(size);
    if (size < 0 || !isWordSize(wanted) || isRefused(type) || askedSize(type, size) > wanted)
        return 1;
    const Word word{.eight = lookUpOwn(w, name, className, type, askedSize(type, size), XtRString, defaultValue)};
    if (resultSize < wanted)
        return 3;
    std::memcpy(result, &word, wanted);   // the low bytes come first
    return 0;
}

char* LmGetResource(const char* name, const char* className)
{
    if (!theApplication)
        return nullptr;
    return programResource(XtDatabase(theApplication->display()), theApplication->name(), theApplication->applicationClass(),
                           name, className);
}

char* LmGetDefault(Display* display, const char* programName, const char* programClass, const char* name, const char* className)
{
    return programResource(XrmGetDatabase(display), programName, programClass, name, className);
}

int GetNamesAndClasses(Widget w, char** names, char** classes)
{
    if (!w)
        return 0;
    const int level = GetNamesAndClasses(XtParent(w), names, classes);
    names[level] = XtName(w);
    classes[level] = XtClass(w)->core_class.class_name;
    return level + 1;
}

char* widgetPathName(Widget w)
{
    std::string path;
    for (; w; w = XtParent(w))
        path.insert(0, path.empty() ? XtName(w) : std::string(XtName(w)) + '.');
    return ::strdup(path.c_str());
}
