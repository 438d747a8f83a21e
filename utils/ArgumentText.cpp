#include "ArgumentText.h"

#include <algorithm>

std::string lm::joinArguments(const LmNameList& arguments)
{
    std::string block;
    for (int i = 0; i < arguments.size(); ++i)
        block.append(arguments.at(i)).push_back('\0');
    return block;
}

LmNameList lm::splitArguments(std::string_view block)
{
    LmNameList arguments;
    while (!block.empty()) {
        const std::string_view argument = block.substr(0, block.find('\0'));
        arguments.add(std::string(argument).c_str());
        block.remove_prefix(std::min(argument.size() + 1, block.size()));
    }
    return arguments;
}
