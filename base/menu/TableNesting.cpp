#include "base/menu/TableNesting.h"

#include <algorithm>
#include <cstdio>
#include <vector>

static constexpr size_t deepest = 64;

static std::vector<const LmMenuDesc*> tables;   // those being turned into items, the outermost first
static bool tooDeep = false;                    // since the outermost table began

lm::TableNesting::TableNesting(const LmMenuDesc* table) : _allowed(true)
{
    if (tables.size() == deepest && !tooDeep) {
        std::fprintf(stderr, "LmMenu: menu tables are nested more than %zu deep\n", deepest);
        tooDeep = true;
    }
    if (tables.size() == deepest || (tooDeep && std::ranges::find(tables, table) != tables.end()))
        _allowed = false;
    else
        tables.push_back(table);
}

lm::TableNesting::~TableNesting()
{
    if (!_allowed)
        return;
    tables.pop_back();
    if (tables.empty())
        tooDeep = false;
}
