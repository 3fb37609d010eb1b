// Octet strings: bytes with a length, absent or present, followed by a zero byte.
#include "objects/octet_string.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "substitutes/memory.h"

namespace korvel::test {
namespace {

using namespace std::string_view_literals;

TEST(OctetString, absent_differs_from_empty) {
  OctetString string;
  EXPECT_FALSE(string.IsPresent());
  EXPECT_STREQ(string.Text(), "");
  ASSERT_TRUE(string.Assign(""));
  EXPECT_TRUE(string.IsPresent());
  EXPECT_TRUE(string.IsEmpty());
  string.Clear();
  EXPECT_FALSE(string.IsPresent());
}

TEST(OctetString, keeps_zero_bytes_and_is_zero_terminated) {
  OctetString string;
  ASSERT_TRUE(string.Assign("a\0b"sv));
  EXPECT_EQ(string.Length(), 3U);
  EXPECT_EQ(string.View(), "a\0b"sv);
  EXPECT_EQ(string.TextView(), "a");
  EXPECT_EQ(string.Text()[3], '\0');
}

TEST(OctetString, assigned_zeros_are_zero_terminated) {
  OctetString string;
  ASSERT_TRUE(string.Assign("abc"));
  ASSERT_TRUE(string.AssignZeros(2));
  EXPECT_EQ(string.View(), "\0\0"sv);
  EXPECT_EQ(string.Text()[2], '\0');
  EXPECT_FALSE(string.AssignZeros(std::numeric_limits<std::size_t>::max()));
  EXPECT_EQ(string.Length(), 2U);
}

// A string of up to 14 bytes (10 on a 32-bit system) is stored in place, without an allocation.
TEST(OctetString, of_any_length_is_kept_moved_and_zero_terminated) {
  const std::size_t before = LiveBlocks();
  for (std::size_t length = 0; length < 40; ++length) {
    const std::string bytes(length, 'x');
    OctetString string;
    ASSERT_TRUE(string.Assign(bytes));
    OctetString moved;
    ASSERT_TRUE(moved.Assign("released by the move"));
    moved = std::move(string);
    EXPECT_TRUE(moved.IsPresent());
    EXPECT_EQ(moved.View(), bytes);
    EXPECT_EQ(moved.Text()[length], '\0');
    EXPECT_EQ(LiveBlocks() - before, length > (sizeof(void*) == 8 ? 14U : 10U) ? 1U : 0U);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(OctetString, can_be_assigned_from_and_appended_to_itself) {
  OctetString string;
  ASSERT_TRUE(string.Assign("abc"));
  ASSERT_TRUE(string.Append(string.View()));
  EXPECT_EQ(string.View(), "abcabc");
  ASSERT_TRUE(string.Assign(string.View().substr(2, 2)));
  EXPECT_EQ(string.View(), "ca");
  ASSERT_TRUE(string.Assign("a string that takes a block"));
  ASSERT_TRUE(string.Assign(string.View().substr(2, 6)));
  EXPECT_EQ(string.View(), "string");
}

TEST(OctetString, is_unchanged_when_out_of_memory) {
  OctetString string;
  ASSERT_TRUE(string.Assign("kept"));
  FailAllocation(1);
  EXPECT_FALSE(string.Assign("bytes that take a block"));
  FailAllocation(1);
  EXPECT_FALSE(string.Append(" with a block"));
  FailAllocation(0);
  EXPECT_EQ(string.View(), "kept");
}

TEST(OctetString, copy_of_an_absent_string_is_absent) {
  OctetString absent;
  OctetString copy;
  ASSERT_TRUE(copy.Assign("x"));
  ASSERT_TRUE(copy.CopyFrom(absent));
  EXPECT_FALSE(copy.IsPresent());
}

TEST(OctetString, moving_leaves_the_source_absent) {
  const std::size_t before = LiveBlocks();
  {
    OctetString source;
    ASSERT_TRUE(source.Assign("moved with its block"));
    OctetString target(std::move(source));
    EXPECT_EQ(target.View(), "moved with its block");
    EXPECT_FALSE(source.IsPresent());  // NOLINT(bugprone-use-after-move): moving makes it absent
    source = std::move(target);
    EXPECT_EQ(source.View(), "moved with its block");
  }
  EXPECT_EQ(LiveBlocks(), before);
}

}  // namespace
}  // namespace korvel::test
