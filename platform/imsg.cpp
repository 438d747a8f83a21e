#include "imsg.h"

#include <cstdarg>
#include <cstdio>

int imsg_print(int /*destination*/, const char* format, int unused, ...)
{
    va_list arguments;
    va_start(arguments, unused);
    const int printed = std::vprintf(format, arguments);
    va_end(arguments);
    return printed;
}

int imsg_sprintf(char* buffer, const char* format, int unused, ...)
{
    va_list arguments;
    va_start(arguments, unused);
    const int length = std::vsprintf(buffer, format, arguments);
    va_end(arguments);
    return length;
}
