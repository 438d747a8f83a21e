#include "base/core/WindowTitle.h"

#include "support/text.h"

#include <cstring>

static constexpr size_t longestTitle = 1023;

std::string lm::titleInTree(const char* title, const char* treePath)
{
    const char* slash = treePath ? std::strrchr(treePath, '/') : nullptr;
    if (!slash)
        return title;
    return std::string(utf8Prefix(std::string(title) + " (" + (slash + 1) + ")", longestTitle));
}
