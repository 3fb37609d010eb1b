// The list type that holds everything in a group.
#include "objects/list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "objects/octet_string.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

std::vector<int> ValuesOf(const List<int>& list) {
  std::vector<int> values;
  for (const int value : list) values.push_back(value);
  return values;
}

List<int> MakeList(std::initializer_list<int> values) {
  List<int> list;
  for (int value : values) EXPECT_NE(list.Append(std::move(value)), nullptr);
  return list;
}

TEST(List, appends_at_the_end_and_finds_by_index) {
  const List<int> list = MakeList({1, 2, 3});
  EXPECT_EQ(ValuesOf(list), (std::vector{1, 2, 3}));
  EXPECT_EQ(list.Size(), 3U);
  EXPECT_EQ(*list.At(2), 3);
  EXPECT_EQ(list.At(3), nullptr);
}

TEST(List, keeps_its_values_while_it_grows) {
  List<OctetString> list;
  for (int i = 0; i < 1000; ++i) {
    OctetString value;
    ASSERT_TRUE(value.Assign(std::to_string(i)));
    ASSERT_NE(list.Append(std::move(value)), nullptr);
  }
  ASSERT_EQ(list.Size(), 1000U);
  for (std::size_t i = 0; i < list.Size(); ++i) EXPECT_EQ(list[i].View(), std::to_string(i));
}

TEST(List, is_unchanged_when_it_cannot_grow) {
  const std::size_t before = LiveBlocks();
  {
    List<int> list;
    int count = 0;
    FailAllocation(3);
    while (list.Append(count) != nullptr) ++count;
    EXPECT_TRUE(HasFailedAllocation());
    FailAllocation(1);
    EXPECT_EQ(list.InsertAt(0, 7), nullptr);
    FailAllocation(1);
    EXPECT_FALSE(list.Resize(10'000));
    FailAllocation(0);
    EXPECT_EQ(list.Size(), static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) EXPECT_EQ(list[static_cast<std::size_t>(i)], i);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(List, resizing_adds_default_values_or_removes_the_last_ones) {
  List<int> list = MakeList({1, 2});
  ASSERT_TRUE(list.Resize(4));
  EXPECT_EQ(ValuesOf(list), (std::vector{1, 2, 0, 0}));
  ASSERT_TRUE(list.Resize(1));
  EXPECT_EQ(ValuesOf(list), std::vector{1});
}

TEST(List, inserts_before_an_index_or_at_the_end) {
  List<int> list = MakeList({1, 3});
  ASSERT_NE(list.InsertAt(1, 2), nullptr);
  ASSERT_NE(list.InsertAt(0, 0), nullptr);
  ASSERT_NE(list.InsertAt(99, 4), nullptr);
  ASSERT_NE(list.Append(5), nullptr);
  EXPECT_EQ(ValuesOf(list), (std::vector{0, 1, 2, 3, 4, 5}));
}

TEST(List, inserts_values_that_own_memory_while_it_grows) {
  const std::size_t before = LiveBlocks();
  {
    List<OctetString> list;
    for (int i = 0; i < 20; ++i) {
      OctetString value;
      ASSERT_TRUE(value.Assign(std::to_string(i)));
      OctetString* const inserted =
          list.InsertAt(static_cast<std::size_t>(i) / 2, std::move(value));
      ASSERT_NE(inserted, nullptr);
      EXPECT_EQ(inserted->View(), std::to_string(i));
    }
    std::string order;
    for (const OctetString& value : list) order += std::string(value.View()) + " ";
    EXPECT_EQ(order, "1 3 5 7 9 11 13 15 17 19 18 16 14 12 10 8 6 4 2 0 ");
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(List, removes_first_last_and_middle_and_can_append_afterwards) {
  List<int> list = MakeList({1, 2, 3, 4});
  int taken = 0;
  EXPECT_TRUE(list.RemoveFirst([](int value) { return value == 4; }, &taken));
  EXPECT_EQ(taken, 4);
  EXPECT_EQ(*list.Last(), 3);
  EXPECT_TRUE(list.RemoveFirst([](int value) { return value == 1; }));
  EXPECT_TRUE(list.RemoveFirst([](int value) { return value == 2; }));
  EXPECT_FALSE(list.RemoveFirst([](int value) { return value == 9; }));
  ASSERT_NE(list.Append(5), nullptr);
  EXPECT_EQ(ValuesOf(list), (std::vector{3, 5}));
}

TEST(List, removes_all_that_match) {
  List<int> list = MakeList({1, 2, 1, 3, 1});
  list.RemoveAll([](int value) { return value == 1; });
  EXPECT_EQ(ValuesOf(list), (std::vector{2, 3}));
  list.RemoveAll([](int) { return true; });
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.Last(), nullptr);
}

TEST(List, a_failed_append_changes_neither_the_list_nor_the_value) {
  const std::size_t before = LiveBlocks();
  {
    List<OctetString> list;
    OctetString value;
    ASSERT_TRUE(value.Assign("kept"));
    FailAllocation(1);
    EXPECT_EQ(list.Append(std::move(value)), nullptr);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(value.View(), "kept");  // NOLINT(bugprone-use-after-move): untouched on failure
    EXPECT_NE(list.Append(std::move(value)), nullptr);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(List, moving_leaves_the_source_empty_and_usable) {
  List<int> source = MakeList({1, 2});
  List<int> target = MakeList({9});
  target = std::move(source);
  EXPECT_EQ(ValuesOf(target), (std::vector{1, 2}));
  EXPECT_TRUE(source.IsEmpty());  // NOLINT(bugprone-use-after-move): moving empties it
  ASSERT_NE(source.Append(3), nullptr);
  EXPECT_EQ(ValuesOf(source), (std::vector{3}));
}

}  // namespace
}  // namespace korvel::test
