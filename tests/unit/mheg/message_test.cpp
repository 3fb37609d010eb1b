// Excerpts of source lines and the marks below them.
#include "mheg/message.h"

#include <gtest/gtest.h>

namespace mheg {
namespace {

TEST(Excerpt, marks_the_characters_of_the_bytes_at_a_position) {
  const Excerpt excerpt = ExcerptAt("one\nGr\xC3\xBC\xC3\x9F"
                                    "e wide\n",
                                    {2, 3}, 4);
  EXPECT_EQ(excerpt.line, "Gr\xC3\xBC\xC3\x9F"
                          "e wide");
  EXPECT_EQ(excerpt.begin, 2U);
  EXPECT_EQ(excerpt.length, 2U);
}

TEST(Excerpt, marks_at_least_one_character_and_none_of_the_next_line) {
  EXPECT_EQ(ExcerptAt("abc\ndef", {1, 4}, 0).length, 1U) << "after the end of the line";
  EXPECT_EQ(ExcerptAt("abc\ndef", {1, 2}, 100).length, 2U);
  EXPECT_EQ(ExcerptAt("", {1, 1}, 0).length, 1U);
  EXPECT_EQ(ExcerptAt("abc\n", {2, 1}, 0).line, "");
}

TEST(Excerpt, replaces_control_characters) {
  EXPECT_EQ(ExcerptAt("a\tb\x1B[1mc\r\n", {1, 1}, 1).line, "a b [1mc");
}

TEST(Excerpt, shows_only_part_of_a_long_line) {
  const std::string line = std::string(200, 'a') + "b" + std::string(200, 'c');
  const Excerpt excerpt = ExcerptAt(line, {1, 201}, 1);
  EXPECT_EQ(excerpt.line, std::string(60, 'a') + "b" + std::string(39, 'c'));
  EXPECT_EQ(excerpt.begin, 60U);
  EXPECT_EQ(ExcerptAt(line, {1, 5}, 1).line, std::string(100, 'a'));
  EXPECT_EQ(ExcerptAt(line, {1, 401}, 500).length, 1U);
}

TEST(Message, has_its_position_only_if_it_is_known) {
  EXPECT_EQ(OneLine({"menu.mheg", "is bad", {3, 4}}), "menu.mheg:3:4: is bad");
  EXPECT_EQ(OneLine({"menu", "is bad"}), "menu: is bad");
}

}  // namespace
}  // namespace mheg
