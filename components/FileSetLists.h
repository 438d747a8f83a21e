// FileSetLists.h: the lists of a file set.
#pragma once

#include "LmFileSet.h"
#include "components/NameRows.h"

struct LmFileSet::Lists {
    lm::NameRows directories, files;   // of the browsed directory
    lm::NameRows set;
};
