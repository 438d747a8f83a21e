#include "Tree.h"

#include <algorithm>

#include <sys/stat.h>

static constexpr std::int64_t blockSize = 512;   // of st_blocks, on every system

void Room::add(const Room& other)
{
    apparent += other.apparent;
    allocated += other.allocated;
}

void Room::subtract(const Room& other)
{
    apparent -= other.apparent;
    allocated -= other.allocated;
}

std::string Entry::path() const
{
    if (!parent)
        return name;
    const std::string above = parent->path();
    return above.ends_with('/') ? above + name : above + '/' + name;
}

Entry& Tree::add(Entry* parent, std::string name, const struct stat& status)
{
    Entry& entry = _entries.emplace_back();
    entry.name = std::move(name);
    entry.parent = parent;
    entry.number = _entries.size() - 1;
    entry.isDirectory = S_ISDIR(status.st_mode);
    (parent ? parent->children : _tops).push_back(&entry);

    const bool counts = entry.isDirectory || status.st_nlink < 2 || _linked.insert({status.st_dev, status.st_ino}).second;
    if (!counts)
        return entry;
    const Room own{status.st_size, status.st_blocks * blockSize};
    for (Entry* each = &entry; each; each = each->parent)
        each->total.add(own);
    _total.add(own);
    return entry;
}

void Tree::exclude(Entry& entry, bool out)
{
    if (entry.isExcluded == out)
        return;
    entry.isExcluded = out;
    const auto change = [&](Room& sum) { out ? sum.subtract(entry.total) : sum.add(entry.total); };
    for (Entry* above = entry.parent; above; above = above->parent) {
        change(above->total);
        if (above->isExcluded)
            return;   // what is above has nothing of it
    }
    change(_total);
}

std::vector<Entry*> bySize(const std::vector<Entry*>& entries, Measure measure)
{
    std::vector<Entry*> sorted = entries;
    std::sort(sorted.begin(), sorted.end(), [measure](const Entry* a, const Entry* b) {
        if (a->isExcluded != b->isExcluded)
            return b->isExcluded;
        const std::int64_t left = a->total.by(measure), right = b->total.by(measure);
        return left != right ? left > right : a->name < b->name;
    });
    return sorted;
}

std::vector<Share> sharesOf(const Entry& directory, Measure measure, std::size_t most)
{
    const std::int64_t whole = directory.total.by(measure);
    std::vector<Share> shares;
    int left = whole > 0 ? 1000 : 0;
    for (const Entry* child : left > 0 ? bySize(directory.children, measure) : std::vector<Entry*>()) {
        const auto part = static_cast<int>(static_cast<double>(child->total.by(measure)) * 1000 / static_cast<double>(whole));
        if (child->isExcluded || part == 0)
            break;
        shares.push_back({child->name, part});
        left -= part;
    }
    if (left > 0)
        shares.push_back({"others", left});
    return merged(std::move(shares), most);
}

std::vector<Share> merged(std::vector<Share> shares, std::size_t most)
{
    while (shares.size() > most && shares.size() > 1) {
        const int last = shares.back().thousandths;
        shares.pop_back();
        shares.back() = {"others", shares.back().thousandths + last};
    }
    return shares;
}
