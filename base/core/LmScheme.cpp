#include "LmScheme.h"

#include "platform/SchemeFile.h"

#include <array>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>

static constexpr std::array schemeFiles = {"QR_Gray", "QR_Color", "QR_Monochrome"};   // by the kind of display

static const char* schemeFileFor(Display* display) { return schemeFiles[static_cast<std::size_t>(WhichDisplay(display))]; }

int WhichDisplay(Display* display)
{
    switch (DefaultVisual(display, DefaultScreen(display))->c_class) {
    case StaticGray:
    case GrayScale:
    case PseudoColor:
        return 0;
    default:
        return 1;
    }
}

/// Merges the file over the database; nothing happens when it cannot be read.
static bool merge(XrmDatabase* db, const char* file)
{
    auto scheme = lm::readDatabaseFile(file ? file : "");
    if (!scheme)
        return false;
    if (!*db) {
        std::fputs("LoadScheme Warning : Initial database is empty \n", stderr);
        *db = XrmGetStringDatabase("");
    }
    XrmMergeDatabases(scheme.release(), db);   // takes the scheme over
    return true;
}

Boolean LoadSchemeInDatabase(XrmDatabase* db, const char* file)
{
    if (merge(db, file))
        return True;
    std::fprintf(stderr, "LoadSchemeInDatabase Error : Can not load resource file %s \n", file);
    return False;
}

/// Has Xlib write the database into a file of our own making, which it opens by its name. The name must not be one that
/// another user could put a link under in the meantime, so the file stands in a directory that only we can enter.
static void writeDatabase(XrmDatabase db, const std::string& target)
{
    std::string directory = target + ".XXXXXX";
    if (!mkdtemp(directory.data()))
        return;
    const std::string fresh = directory + "/db";
    const lm::FileDescriptor file(open(fresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (file) {
        fchmod(file.get(), S_IRUSR | S_IWUSR);   // whatever the umask is
        if (db)
            XrmPutFileDatabase(db, fresh.c_str());
        if (rename(fresh.c_str(), target.c_str()) != 0)
            unlink(fresh.c_str());
    }
    rmdir(directory.c_str());
}

Boolean LoadScheme(XrmDatabase* db, Display* display)
{
    if (!resource_file_path)
        std::fputs("WARNING : Path to the Resource file not defined, using current directory\n", stderr);
    const std::string file = std::string(resource_file_path ? resource_file_path : "") + schemeFileFor(display);
    if (LoadSchemeInDatabase(db, file.c_str()))
        return True;
    std::fputs("LoadScheme Error : Can not load database, resources dumped in the /tmp/QR_appl.db \n", stderr);
    writeDatabase(*db, "/tmp/QR_appl.db");
    return False;
}

Boolean LoadSchemeInWidget(Widget w, const char* file)
{
    Display* display = XtDisplayOfObject(w);
    XrmDatabase database = XtDatabase(display);
    if (!database) {
        std::fputs("LoadSchemeByWidget Error : Can not get the default display database \n", stderr);
        return False;
    }
    const char* scheme = file ? file : schemeFileFor(display);
    if (LoadSchemeInDatabase(&database, scheme))
        return True;
    std::fprintf(stderr, "LoadSchemeInWidget Error : Can not Load database %s \n", scheme);
    return False;
}

Boolean TestFunction(Widget w)
{
    XrmDatabase database = XtDatabase(XtDisplayOfObject(w));
    return LoadScheme(&database, XtDisplayOfObject(w));
}
