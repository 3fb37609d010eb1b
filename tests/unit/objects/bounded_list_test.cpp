// The list of limited size.
#include "objects/bounded_list.h"

#include <gtest/gtest.h>

#include "objects/octet_string.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

OctetString Octets(const char* text) {
  OctetString octets;
  EXPECT_TRUE(octets.Assign(text));
  return octets;
}

TEST(BoundedList, holds_values_in_order_until_it_is_full) {
  BoundedList<int, 3> list;
  EXPECT_TRUE(list.IsEmpty());
  for (const int value : {7, 8, 9}) {
    EXPECT_FALSE(list.IsFull());
    list.Append(value);
    EXPECT_EQ(list.Last(), value);
  }
  EXPECT_TRUE(list.IsFull());
  EXPECT_EQ(list.Size(), 3U);
  int expected = 7;
  for (const int value : list) EXPECT_EQ(value, expected++);
}

TEST(BoundedList, releases_the_values_that_it_removes) {
  BoundedList<OctetString, 3> list;
  list.Append(Octets("a value that needs memory of its own"));
  const std::size_t before = LiveBlocks();
  list.Append(Octets("another value that needs memory of its own"));
  list.RemoveLast();
  EXPECT_EQ(LiveBlocks(), before);
  EXPECT_EQ(list.Last().View(), "a value that needs memory of its own");
  list.Append(Octets("one more value that needs memory of its own"));
  list.Clear();
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_LT(LiveBlocks(), before);
}

}  // namespace
}  // namespace korvel::test
