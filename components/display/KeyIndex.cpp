#include "KeyIndex.h"

#include "LmOlNode.h"

#include <cstring>
#include <string_view>

namespace lm {

namespace {

constexpr std::uintptr_t OneOfSeveral = 1;

LmOlNode* nodeIn(std::uintptr_t slot) { return reinterpret_cast<LmOlNode*>(slot & ~OneOfSeveral); }

std::uint32_t hashOf(const char* key) { return static_cast<std::uint32_t>(std::hash<std::string_view>()(key)); }

}   // namespace

/// The slot of the key's node, or the empty one where it would go.
std::size_t KeyIndex::slotFor(const char* key, std::uint32_t hash) const
{
    const std::size_t mask = _slots.size() - 1;
    std::size_t i = hash & mask;
    while (_slots[i] != 0 && (_hashes[i] != hash || std::strcmp(nodeIn(_slots[i])->key(), key) != 0))
        i = (i + 1) & mask;
    return i;
}

void KeyIndex::insert(LmOlNode* node)
{
    if ((_count + 1) * 4 > _slots.size() * 3)
        grow();
    const std::uint32_t hash = hashOf(node->key());
    const std::size_t i = slotFor(node->key(), hash);
    if (_slots[i] != 0) {
        _slots[i] |= OneOfSeveral;
        return;
    }
    _slots[i] = reinterpret_cast<Slot>(node);
    _hashes[i] = hash;
    ++_count;
}

void KeyIndex::grow()
{
    const std::size_t size = _slots.empty() ? 64 : _slots.size() * 2;
    std::vector<Slot> slots(size);
    std::vector<std::uint32_t> hashes(size);
    for (std::size_t from = 0; from < _slots.size(); ++from) {
        if (_slots[from] == 0)
            continue;
        std::size_t to = _hashes[from] & (size - 1);
        while (slots[to] != 0)
            to = (to + 1) & (size - 1);
        slots[to] = _slots[from];
        hashes[to] = _hashes[from];
    }
    _slots.swap(slots);
    _hashes.swap(hashes);
}

KeyIndex::Found KeyIndex::find(const char* key) const
{
    if (_slots.empty())
        return {};
    const Slot slot = _slots[slotFor(key, hashOf(key))];
    return {nodeIn(slot), (slot & OneOfSeveral) == 0};
}

}   // namespace lm
