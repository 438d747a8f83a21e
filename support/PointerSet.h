// PointerSet.h: a set of addresses that takes little room.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lm {

/// A set of addresses in one table: 10 to 30 bytes for each, where std::unordered_set takes 40 and an allocation. Addresses are
/// only compared, never followed. Null is never in the set.
class PointerSet {
public:
    bool contains(const void* p) const { return p && !_slots.empty() && _slots[slotOf(p)] == p; }

    void insert(const void* p)
    {
        if (!p || contains(p))
            return;
        if (4 * (_count + 1) > 3 * _slots.size())
            grow();
        _slots[slotOf(p)] = p;
        ++_count;
    }

    void erase(const void* p)
    {
        if (!contains(p))
            return;
        size_t hole = slotOf(p);
        --_count;
        for (size_t i = next(hole); _slots[i]; i = next(i)) {   // close the gap, or a search would end in it
            if (distance(home(_slots[i]), i) < distance(hole, i))
                continue;
            _slots[hole] = _slots[i];
            hole = i;
        }
        _slots[hole] = nullptr;
    }

    size_t size() const { return _count; }

private:
    size_t mask() const { return _slots.size() - 1; }   // the number of slots is a power of two
    size_t next(size_t i) const { return (i + 1) & mask(); }
    size_t distance(size_t from, size_t to) const { return (to - from) & mask(); }
    size_t home(const void* p) const
    {
        const auto spread = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(p)) * 0x9E3779B97F4A7C15ULL;
        return static_cast<size_t>(spread >> 32) & mask();
    }
    /// Where the address stands, or the empty slot where it would.
    size_t slotOf(const void* p) const
    {
        size_t i = home(p);
        while (_slots[i] && _slots[i] != p)
            i = next(i);
        return i;
    }
    void grow()
    {
        std::vector<const void*> old(_slots.empty() ? 64 : 2 * _slots.size(), nullptr);
        old.swap(_slots);
        for (const void* p : old) {
            if (p)
                _slots[slotOf(p)] = p;
        }
    }

    std::vector<const void*> _slots;   // null where empty; never full
    size_t _count = 0;
};

}   // namespace lm
