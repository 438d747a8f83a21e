// Scanner.h: reads directories into a tree, a piece at a time. Plain C++, without a display.
#pragma once

#include "Tree.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include <dirent.h>

/// Walks everything below some paths. Symbolic links count themselves and are not followed; other file systems are entered.
class Scanner {
public:
    /// Paths that lie below another one of them count there. One that does not exist counts as unread.
    Scanner(Tree& tree, const std::vector<std::string>& paths);

    /// Reads for about that time. True when there is nothing left.
    bool read(std::chrono::milliseconds time);
    /// What could not be read or examined.
    std::size_t unread() const { return _unread; }

private:
    struct Close {
        void operator()(DIR* directory) const { closedir(directory); }
    };

    void openNext();
    void readEntry();

    Tree& _tree;
    std::vector<Entry*> _waiting;   // directories
    std::unique_ptr<DIR, Close> _open;
    Entry* _reading = nullptr;   // the directory that is open
    std::size_t _unread = 0;
};

/// The paths without those that lie below another, each once.
std::vector<std::string> withoutNested(std::vector<std::string> paths);

/// The absolute path without symbolic links; the path itself when there is no such file.
std::string resolved(const std::string& path);
