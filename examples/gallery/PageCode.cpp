#include "PageCode.h"

#include "TextDialog.h"

#include <map>

extern const std::map<std::string, const char*> pageSources;   // made by the build from the files themselves

void showCodeOf(const char* pageClass)
{
    static auto* dialog = new TextDialog("galleryCode", "codeText", false);   // kept as long as the program
    const auto source = pageSources.find(pageClass);
    if (source != pageSources.end())
        dialog->showText("examples/gallery/" + source->first + ".cpp", source->second);
}
