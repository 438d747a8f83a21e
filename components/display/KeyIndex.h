// KeyIndex.h: nodes by key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class LmOlNode;

namespace lm {

/// Finds a node by its key. Of nodes with the same key the first inserted is kept, and noted as one of several.
class KeyIndex {
public:
    struct Found {
        LmOlNode* node = nullptr;
        bool isOnly = true;   ///< no other node with the key was inserted
    };

    void insert(LmOlNode* node);
    Found find(const char* key) const;

private:
    // The lowest bit of a slot tells that there are more nodes with the key. The hashes stand beside, so that growing and
    // missing hardly ever touch a key.
    using Slot = std::uintptr_t;

    std::size_t slotFor(const char* key, std::uint32_t hash) const;
    void grow();

    std::vector<Slot> _slots;
    std::vector<std::uint32_t> _hashes;
    std::size_t _count = 0;
};

}   // namespace lm
