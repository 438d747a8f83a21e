// TableNesting.h: how deep menu tables nest, and where that ends.
#pragma once

struct LmMenuDesc;

namespace lm {

/// One table being turned into items; submenus' tables nest in it. A table nested in itself would never end: at depth 64
/// a message goes to standard error, and until the outermost table is done no table is entered a second time.
class TableNesting {
public:
    explicit TableNesting(const LmMenuDesc* table);
    TableNesting(const TableNesting&) = delete;
    TableNesting& operator=(const TableNesting&) = delete;
    ~TableNesting();
    /// Whether the table's entries may be added.
    bool isAllowed() const { return _allowed; }

private:
    bool _allowed;
};

}   // namespace lm
