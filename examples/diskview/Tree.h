// Tree.h: what a scan found: files and directories with their sizes, and the sums. Plain C++, without a display.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <utility>
#include <vector>

struct stat;

/// Which of a file's two sizes counts.
enum class Measure {
    Apparent,   ///< the bytes in it, as `du -b` counts
    Allocated   ///< the room it takes on the disk
};

/// Both sizes of something, in bytes.
struct Room {
    std::int64_t apparent = 0, allocated = 0;

    std::int64_t by(Measure measure) const { return measure == Measure::Apparent ? apparent : allocated; }
    void add(const Room& other);
    void subtract(const Room& other);
};

/// A file or a directory. Entries belong to their tree, and stay where they are as long as it lives.
struct Entry {
    std::string name;   ///< any bytes; of an entry at the top its whole path
    Entry* parent = nullptr;
    std::size_t number = 0;   ///< its place in the tree, from 0
    Room total;               ///< its own, nothing for a further link to a file, and what is not excluded below
    bool isDirectory = false;
    bool isExcluded = false;   ///< not in the sums above it
    std::vector<Entry*> children;

    std::string path() const;
};

/// The entries of a scan. A file with several links counts once, where it was met first.
class Tree {
public:
    /// Adds an entry below a parent (null: at the top), and its size to everything above.
    Entry& add(Entry* parent, std::string name, const struct stat& status);
    /// Takes an entry out of the sums above it, or puts it back.
    void exclude(Entry& entry, bool out);

    const std::vector<Entry*>& tops() const { return _tops; }
    std::size_t size() const { return _entries.size(); }
    Entry& at(std::size_t number) { return _entries[number]; }
    /// What all entries at the top that are not excluded have.
    const Room& total() const { return _total; }

private:
    std::deque<Entry> _entries;
    std::vector<Entry*> _tops;
    Room _total;
    std::set<std::pair<std::uint64_t, std::uint64_t>> _linked;   // device and number of files with several links
};

/// The children, largest first, equal ones by name, excluded ones last.
std::vector<Entry*> bySize(const std::vector<Entry*>& entries, Measure measure);

/// A piece of a chart.
struct Share {
    std::string name;
    int thousandths;
};

/// The largest children and what the rest has ("others"), at most `most` shares, none of 0.
std::vector<Share> sharesOf(const Entry& directory, Measure measure, std::size_t most);

/// At most that many shares, at least 1: the last ones as one, "others".
std::vector<Share> merged(std::vector<Share> shares, std::size_t most);
