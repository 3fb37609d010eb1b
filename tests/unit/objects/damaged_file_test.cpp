// A valid file, truncated at any byte or with any byte changed. Decoding refuses or reads it,
// but never reads past its end, leaks memory or takes long.
#include <gtest/gtest.h>

#include <chrono>

#include "objects/objects.h"
#include "substitutes/memory.h"
#include "support/ber_bytes.h"
#include "support/sample_groups.h"

namespace korvel::test {
namespace {

// The contents of a group file, without its outermost header.
Bytes ContentOf(const Bytes& file) {
  const auto length = static_cast<unsigned char>(file[1]);
  return file.substr(length < 0x80 ? 2 : length - 0x80U + 2U);
}

// A file with one item of each shape, small enough to try every change of every byte.
Bytes SmallFile() {
  const Bytes action = Holding(210, Integer(1) + Integer(2) + Sequence(Integer(500)));
  const Bytes persistent =
      Holding(177, External("~/g", 0) + Integer(3) + Sequence(Integer(4)) + Octets("f"));
  const Bytes data = Holding(193, Integer(1) + Sequence(Primitive(69, "/p") + Null() + Null()));
  const Bytes link =
      Holding(20, Integer(1) + Holding(62, Integer(0) + Enumerated(6) + Integer(15)) +
                      Holding(63, action + persistent + data));
  const Bytes text = Holding(29, Integer(2) + Holding(76, Integer(10) + Integer(20)) +
                                     Holding(58, Octets("hi")) + Holding(41, Integer(1)));
  const Bytes tokens = Holding(33, Integer(3) + Holding(70, Sequence(Integer(1))) +
                                       Holding(71, Sequence(Integer(2) + Sequence(Null()))));
  const Bytes stream = Holding(21, Integer(4) + Holding(92, Holding(96, Integer(5))));
  return SceneFile(Holding(8, Sequence(link) + text + tokens + stream) +
                   Holding(55, Sequence(Octets("~/n") + Integer(1))));
}

TEST(DamagedFile, the_undamaged_sample_is_read) {
  const Decoded decoded = Decode(SmallFile());
  EXPECT_TRUE(decoded.IsDone());
  EXPECT_EQ(decoded.group->Items.Size(), 4U);
}

TEST(DamagedFile, truncated_at_any_byte_is_refused) {
  const std::size_t before = LiveBlocks();
  for (const Bytes& file : {SmallFile(), Encode(*MakeCompleteGroup(ItemType::Scene))}) {
    for (std::size_t size = 0; size < file.size(); ++size) {
      EXPECT_EQ(Decode(file.substr(0, size)).status, Status::Refused) << size;
    }
  }
  EXPECT_EQ(LiveBlocks(), before);
}

// The outermost length is adjusted, so that only the contents are truncated.
TEST(DamagedFile, with_its_contents_truncated_at_any_byte_returns_the_partial_record) {
  const std::size_t before = LiveBlocks();
  for (std::uint32_t seed = 0; seed < 4; ++seed) {
    const Bytes file = Encode(*MakeRandomGroup(seed));
    const std::size_t begin = file.size() - ContentOf(file).size();
    for (std::size_t size = begin; size < file.size(); ++size) {
      const Decoded decoded = Decode(Holding(1, file.substr(begin, size - begin)));
      EXPECT_TRUE(decoded.group);
    }
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(DamagedFile, with_any_one_byte_changed_is_refused_or_read) {
  const std::size_t before = LiveBlocks();
  const Bytes file = SmallFile();
  int refused = 0;
  for (std::size_t offset = 0; offset < file.size(); ++offset) {
    for (int change = 1; change < 256; ++change) {
      Bytes damaged = file;
      damaged[offset] = static_cast<char>(damaged[offset] ^ change);
      if (!Decode(damaged).IsDone()) ++refused;
    }
  }
  EXPECT_EQ(LiveBlocks(), before);
  EXPECT_GT(refused, static_cast<int>(file.size()));
}

TEST(DamagedFile, a_random_group_with_any_byte_inverted_is_refused_or_read) {
  const std::size_t before = LiveBlocks();
  for (std::uint32_t seed = 0; seed < 8; ++seed) {
    const Bytes file = Encode(*MakeRandomGroup(seed));
    for (std::size_t offset = 0; offset < file.size(); ++offset) {
      Bytes damaged = file;
      damaged[offset] = static_cast<char>(~damaged[offset]);
      (void)Decode(damaged);
    }
  }
  EXPECT_EQ(LiveBlocks(), before);
}

// ---- Files made to be slow or deep ----

double SecondsToDecode(const Bytes& file, bool& isDone) {
  const auto start = std::chrono::steady_clock::now();
  isDone = Decode(file).IsDone();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TEST(HostileFile, five_thousand_nested_wrappers_are_refused_quickly) {
  Bytes nested = Integer(1);
  for (int i = 0; i < 5000; ++i) nested = Sequence(nested);
  bool isDone = true;
  EXPECT_LT(SecondsToDecode(SceneFile(Holding(8, nested)), isDone), 5.0);
  EXPECT_FALSE(isDone);
  EXPECT_LT(SecondsToDecode(SceneFile(Holding(5, nested)), isDone), 5.0);
  EXPECT_FALSE(isDone);
}

TEST(HostileFile, half_a_million_empty_wrappers_are_an_empty_list) {
  Bytes row;
  for (int i = 0; i < 500000; ++i) row += "\x30\x80";
  bool isDone = false;
  EXPECT_LT(SecondsToDecode(SceneFile(Holding(8, row)), isDone), 20.0);
  EXPECT_TRUE(isDone);
}

TEST(HostileFile, a_hundred_thousand_actions_are_read_and_released) {
  Bytes actions;
  for (int i = 0; i < 100000; ++i) actions += Holding(178, Integer(1));
  bool isDone = false;
  EXPECT_LT(SecondsToDecode(SceneFile(Holding(5, actions)), isDone), 20.0);
  EXPECT_TRUE(isDone);
}

}  // namespace
}  // namespace korvel::test
