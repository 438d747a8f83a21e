// gallery: every part of Lumora on a page of its own.
//   gallery [-pictures FOLDER]    with a folder: writes a picture of every page there, and ends
#include "GalleryWindow.h"
#include "Geometry.h"
#include "Help.h"
#include "Pictures.h"

#include <Lm/LmApp.h>
#include <Lm/LmResource.h>
#include <Lm/support/resources.h>

int main(int argc, char** argv)
{
    XrmOptionDescRec options[] = {{lm::xtText("-pictures"), lm::xtText(".pictures"), XrmoptionSepArg, nullptr}};
    LmApp app("Gallery", &argc, argv, options, 1);
    installHelp();
    const char* folder = LmGetResource("pictures", "Pictures");
    if (!folder)
        recallGeometry();
    auto* window = new GalleryWindow;   // deletes itself when it is closed
    window->show();
    if (folder)
        return writePictures(*window, folder);
    app.run();
}
