#include "SchemeFile.h"

#include "support/resources.h"

#include <cctype>
#include <cstdlib>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>

const char* resource_file_path = "/opt/Kestrel/lib/X11/app-defaults/";

static bool isReadableFile(const std::string& path)
{
    const lm::FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    return file && fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
}

lm::XrmOwner lm::readDatabaseFile(const std::string& path)
{
    if (!isReadableFile(path))
        return {};
    return XrmOwner(XrmGetFileDatabase(path.c_str()));   // by its name, so that it can include its neighbours
}

std::vector<std::string> lm::placesOfScheme(const std::string& name)
{
    if (name.starts_with('/'))
        return {name};
    const char* data = std::getenv("LUMORA_DATA");
    const std::string installed = data && *data ? data : LUMORA_DATA_DIR;
    return {(resource_file_path ? resource_file_path : "") + name, installed + "/schemes/" + name};
}

static bool choosesFont(XrmQuark name)
{
    std::string text = XrmQuarkToString(name);
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text.find("font") != std::string::npos || text.ends_with("rendertable");
}

/// Puts one entry into the database that `copy` points to, unless it chooses a font; False goes on to the next entry.
static Bool copyUnlessFont(XrmDatabase*, XrmBindingList bindings, XrmQuarkList names, XrmRepresentation* type, XrmValue* value,
                           XPointer copy) noexcept
{
    XrmQuarkList last = names;
    while (last[1] != NULLQUARK)
        ++last;
    if (!choosesFont(*last))
        XrmQPutResource(reinterpret_cast<XrmDatabase*>(copy), bindings, names, *type, value);
    return False;
}

lm::XrmOwner lm::withoutFonts(XrmDatabase scheme)
{
    XrmDatabase copy = XrmGetStringDatabase("");
    XrmQuark everything = NULLQUARK;
    XrmEnumerateDatabase(scheme, &everything, &everything, XrmEnumAllLevels, copyUnlessFont, reinterpret_cast<XPointer>(&copy));
    return XrmOwner(copy);
}
