#include "LmFormat.h"

#include "support/text.h"

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string_view>

const char* LmFormat(const char* format, ...)
{
    static std::array<char, 1024> result;
    std::array<char, 1024> fresh;   // an argument may be the previous result
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(fresh.data(), fresh.size(), format, arguments);
    va_end(arguments);

    std::size_t kept = length < 0 ? 0 : static_cast<std::size_t>(length);
    if (kept >= fresh.size())
        kept = lm::withoutPartialEnd({fresh.data(), fresh.size() - 1}).size();
    std::memcpy(result.data(), fresh.data(), kept);
    result[kept] = '\0';
    return result.data();
}

char* strconcat(const char* a, const char* b)
{
    const std::size_t lengthOfA = std::strlen(a);
    const std::size_t lengthOfB = std::strlen(b);
    auto* joined = new char[lengthOfA + lengthOfB + 1];
    std::memcpy(joined, a, lengthOfA);
    std::memcpy(joined + lengthOfA, b, lengthOfB + 1);
    return joined;
}

char* strdotconcat(const char* a, const char* b)
{
    const std::string_view left = a ? a : "";
    const std::string_view right = b ? b : "";
    auto* joined = new char[left.size() + right.size() + 3];
    char* end = joined + left.copy(joined, left.size());
    if (a && b)
        *end++ = '.';
    end += right.copy(end, right.size());
    *end = '\0';
    return joined;
}
