#include "store/LruCache.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace FX_Algen::store {
namespace {

TEST(LruCache, TheLeastRecentlyUsedEntryGoesFirst) {
    LruCache<int> cache(3);
    cache.Add("a", 1);
    cache.Add("b", 2);
    cache.Add("c", 3);
    ASSERT_NE(cache.Find("a"), nullptr);  // so that b is the oldest now
    cache.Add("d", 4);
    EXPECT_EQ(cache.Size(), 3U);
    EXPECT_EQ(cache.Find("b"), nullptr);
    for (const auto& [key, value] : {std::pair{"a", 1}, {"c", 3}, {"d", 4}}) {
        const int* found = cache.Find(key);
        ASSERT_NE(found, nullptr) << key;
        EXPECT_EQ(*found, value) << key;
    }
}

TEST(LruCache, APassingEntryIsNotKept) {
    LruCache<int> cache(2);
    cache.Add("a", 1);
    EXPECT_EQ(cache.Pass(5), 5);
    EXPECT_EQ(cache.Pass(6), 6);
    EXPECT_EQ(cache.Size(), 1U);
    EXPECT_NE(cache.Find("a"), nullptr);
}

TEST(LruCache, EntriesAreDroppedByWhatTheyAre) {
    LruCache<int> cache(4);
    cache.Add("a", 1);
    cache.Add("a", 2);
    cache.Add("ä", 3);
    cache.Pass(5);
    cache.EraseIf([](std::string_view key, int entry) { return key == "ä" || entry == 1; });
    EXPECT_EQ(cache.Size(), 1U);
    EXPECT_EQ(cache.Find("ä"), nullptr);
    ASSERT_NE(cache.Find("a"), nullptr);
    EXPECT_EQ(*cache.Find("a"), 2);
    cache.EraseIf([](std::string_view, int) { return true; });
    EXPECT_EQ(cache.Size(), 0U);
    cache.Add("a", 7);
    EXPECT_EQ(*cache.Find("a"), 7);
}

TEST(LruCache, EntriesUnderOneKeyAreToldApartAndCountEach) {
    LruCache<int> cache(2);
    cache.Add("a", 1);
    cache.Add("a", 2);
    const auto find = [&cache](int wanted) {
        return cache.Find("a", [wanted](int entry) { return entry == wanted; });
    };
    ASSERT_NE(find(1), nullptr);
    ASSERT_NE(find(2), nullptr);
    EXPECT_EQ(find(3), nullptr);
    cache.Add("a", 3);
    EXPECT_EQ(cache.Size(), 2U);
    EXPECT_EQ(find(1), nullptr);
    EXPECT_NE(find(2), nullptr);
    EXPECT_NE(find(3), nullptr);
}

TEST(LruCache, TakesEntriesThatCanOnlyBeMovedAndClears) {
    LruCache<std::unique_ptr<int>> cache(1);
    EXPECT_EQ(*cache.Add("Häufigkeit", std::make_unique<int>(5)), 5);
    cache.Clear();
    EXPECT_EQ(cache.Size(), 0U);
    EXPECT_EQ(cache.Find("Häufigkeit"), nullptr);
    cache.Add("neu", std::make_unique<int>(6));
    EXPECT_EQ(**cache.Find("neu"), 6);
}

}  // namespace
}  // namespace FX_Algen::store
