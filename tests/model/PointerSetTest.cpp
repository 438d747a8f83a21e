#include <gtest/gtest.h>

#include "support/PointerSet.h"

#include <random>
#include <set>

TEST(PointerSetModel, HoldsWhatAPlainSetHolds)
{
    std::mt19937 random(20261122);
    lm::PointerSet set;
    std::set<const void*> model;
    set.erase(nullptr);
    EXPECT_FALSE(set.contains(nullptr));
    for (int i = 0; i < 200000; ++i) {
        const auto* p = reinterpret_cast<const void*>(std::uintptr_t{16} * (1 + random() % 3000));
        if (random() % 2) {
            set.insert(p);
            model.insert(p);
        } else {
            set.erase(p);
            model.erase(p);
        }
        const auto* q = reinterpret_cast<const void*>(std::uintptr_t{16} * (1 + random() % 3000));
        ASSERT_EQ(set.contains(q), model.contains(q)) << "step " << i;
    }
    EXPECT_EQ(set.size(), model.size());
}
