// diskview: what takes the room on a disk.
//   diskview [-pictures FOLDER] [DIRECTORY]    with a folder: writes pictures of the window there, and ends
#include "../gallery/Help.h"
#include "DiskWindow.h"
#include "Pictures.h"

#include <Lm/LmApp.h>
#include <Lm/LmResource.h>
#include <Lm/LmRunOnce.h>
#include <Lm/support/resources.h>

#include <cstdlib>
#include <memory>

/// What a start without a directory hands over to the window that is there.
static const char* const noDirectory = "-";

/// Another start: its directory, if it had one, is shown here.
static void scanHandedOver(LmCallbackObject* once, void* window, void*)
{
    const std::unique_ptr<char, decltype(&std::free)> path(static_cast<LmRunOnce*>(once)->arg(0), &std::free);
    if (path && std::string(path.get()) != noDirectory)
        static_cast<DiskWindow*>(window)->scan({path.get()});
}

int main(int argc, char** argv)
{
    XrmOptionDescRec options[] = {{lm::xtText("-pictures"), lm::xtText(".pictures"), XrmoptionSepArg, nullptr}};
    LmApp app("Diskview", &argc, argv, options, 1);
    const std::string directory = argc > 1 ? resolved(argv[1]) : noDirectory;
    const char* pictures = LmGetResource("pictures", "Pictures");
    std::unique_ptr<LmRunOnce> once;
    if (!pictures) {
        LmNameList arguments(directory.c_str());
        once = std::make_unique<LmRunOnce>(&arguments, False, "diskview", True);   // ends here when there is a window
    }
    installHelp();
    auto* window = new DiskWindow;   // deletes itself when it is closed
    window->show();
    window->scan({directory == noDirectory ? "/usr" : directory});
    if (pictures)
        return writePictures(*window, pictures);
    once->addCallback(LmRunOnce::invokedCallback, scanHandedOver, window);
    app.run();
}
