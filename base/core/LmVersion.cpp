#include "LmVersion.h"

#include "imsg.h"

static const char* const lineFormat = "%-*s %s (%s)\n";
static const char* const version = "2003.06.10+";
static const char* const buildDate = LUMORA_BUILD_DATE;   // set by the build; honours SOURCE_DATE_EPOCH

void libzentalm_print_verid() { imsg_print(0, lineFormat, -1, 33, "libzentalm", version, buildDate); }

void libzentalm_sprintf_verid(char* buffer) { imsg_sprintf(buffer, lineFormat, -1, 33, "libzentalm", version, buildDate); }
