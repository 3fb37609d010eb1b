// The hash table that keeps the order of its values.
#include "objects/index.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

#include "substitutes/memory.h"

namespace korvel::test {
namespace {

using Numbers = Index<std::int32_t, int>;
using Pairs = std::vector<std::pair<std::int32_t, int>>;

std::vector<int> ValuesOf(const Numbers& index, std::int32_t key) {
  std::vector<int> values;
  for (auto* entry = index.Find(key); entry != nullptr; entry = index.Next(*entry)) {
    EXPECT_EQ(entry->key, key);
    values.push_back(entry->value);
  }
  return values;
}

std::vector<int> ValuesOf(const Pairs& pairs, std::int32_t key) {
  std::vector<int> values;
  for (const auto& [other, value] : pairs) {
    if (other == key) values.push_back(value);
  }
  return values;
}

Pairs AllOf(const Numbers& index) {
  Pairs all;
  for (const auto& entry : index) all.emplace_back(entry.key, entry.value);
  return all;
}

// A number that counts how often it is compared.
struct CountingKey {
  std::int32_t number = 0;
  static inline std::size_t comparisons = 0;

  bool operator==(const CountingKey& other) const {
    ++comparisons;
    return number == other.number;
  }
};
std::uint32_t HashOf(const CountingKey& key) { return korvel::HashOf(key.number); }

TEST(Index, without_entries_finds_nothing) {
  const Numbers index;
  EXPECT_EQ(index.Find(0), nullptr);
  EXPECT_EQ(index.begin(), index.end());
}

TEST(Index, keeps_the_order_of_additions_and_removals) {
  std::mt19937 random(1);
  for (int round = 0; round < 50; ++round) {
    Numbers index;
    Pairs plain;
    for (int step = 0; step < 300; ++step) {
      const auto key = static_cast<std::int32_t>(random() % 40) - 20;
      if (random() % 20 == 0) {
        const auto matches = [key](int value) { return value % 7 == key % 7; };
        index.RemoveAll(matches);
        std::erase_if(plain, [&](const auto& pair) { return matches(pair.second); });
      } else {
        ASSERT_TRUE(index.Add(key, step));
        plain.emplace_back(key, step);
      }
      ASSERT_EQ(ValuesOf(index, key), ValuesOf(plain, key));
    }
    for (std::int32_t key = -21; key <= 21; ++key) {
      ASSERT_EQ(ValuesOf(index, key), ValuesOf(plain, key));
    }
    ASSERT_EQ(AllOf(index), plain);
  }
}

TEST(Index, finds_each_of_many_keys) {
  Numbers index;
  for (int key = 0; key < 10'000; ++key) ASSERT_TRUE(index.Add(key * 1024, key));
  for (int key = 0; key < 10'000; ++key) {
    ASSERT_EQ(ValuesOf(index, key * 1024), std::vector{key});
  }
  EXPECT_EQ(index.Find(5), nullptr);
}

// Without a secret in the hash, content could choose keys that share one slot, and each search
// would compare with all of them.
TEST(Index, compares_few_keys_however_content_chooses_them) {
  for (const std::uint32_t step : {1U << 16U, 1U << 20U, 0x9E3779B1U, 0x61C88647U}) {
    Index<CountingKey, int> index;
    CountingKey::comparisons = 0;
    for (std::uint32_t i = 0; i < 4096; ++i) {
      ASSERT_TRUE(index.Add({static_cast<std::int32_t>(i * step)}, 0));
    }
    EXPECT_LT(CountingKey::comparisons, 4096U * 50) << step;
  }
}

TEST(Index, is_unchanged_and_leaks_nothing_when_memory_runs_out) {
  const std::size_t before = LiveBlocks();
  for (int failing = 1; failing <= 12; ++failing) {
    Numbers index;
    FailAllocation(static_cast<std::size_t>(failing));
    int added = 0;
    while (added < 200 && index.Add(added % 3, added)) ++added;
    FailAllocation(0);
    ASSERT_EQ(AllOf(index).size(), static_cast<std::size_t>(added));
    ASSERT_TRUE(index.Add(1, -1));
    ASSERT_EQ(ValuesOf(index, 1).back(), -1);
    ASSERT_EQ(ValuesOf(index, 2).size(), static_cast<std::size_t>(added / 3));
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(Index, can_be_filled_again_after_it_was_cleared) {
  Numbers index;
  ASSERT_TRUE(index.Add(1, 10));
  index.Clear();
  EXPECT_EQ(index.Find(1), nullptr);
  ASSERT_TRUE(index.Add(1, 11));
  EXPECT_EQ(ValuesOf(index, 1), std::vector{11});
}

}  // namespace
}  // namespace korvel::test
