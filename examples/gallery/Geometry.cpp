#include "Geometry.h"

#include <Lm/LmApp.h>

#include <X11/Shell.h>
#include <X11/Xresource.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace fs = std::filesystem;

/// $XDG_CONFIG_HOME/lumora/gallery, or ~/.config/lumora/gallery; empty when there is no home.
static fs::path fileOfGeometry()
{
    const char* folder = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    if (!folder && !home)
        return {};
    return (folder ? fs::path(folder) : fs::path(home) / ".config") / "lumora" / "gallery";
}

void recallGeometry()
{
    std::ifstream file(fileOfGeometry());
    std::string geometry;
    if (!std::getline(file, geometry))
        return;
    const int parts = XParseGeometry(geometry.c_str(), nullptr, nullptr, nullptr, nullptr);
    if (!(parts & WidthValue) || !(parts & HeightValue))
        return;
    XrmDatabase database = XtDatabase(theApplication->display());
    XrmPutStringResource(&database, "Gallery.gallery.geometry", geometry.c_str());
}

void rememberGeometry(LmSimpleWindow& window)
{
    Dimension width = 0, height = 0;
    XtVaGetValues(XtParent(window.baseWidget()), XtNwidth, &width, XtNheight, &height, nullptr);
    const fs::path file = fileOfGeometry();
    if (file.empty() || width == 0)
        return;
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    std::ofstream out(file);
    out << width << 'x' << height << '\n';
    if (!out.flush())
        std::fprintf(stderr, "gallery: cannot write %s\n", file.c_str());
}
