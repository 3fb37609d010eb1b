// Reading BER primitives: headers, numbers and strings, within their bounds.
#include "objects/ber/ber_reader.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

using namespace std::string_literals;

// A reader over a heap block of exactly these bytes.
class Reading {
 public:
  explicit Reading(const Bytes& bytes)
      : bytes_(std::make_unique<std::uint8_t[]>(bytes.size())), size_(bytes.size()) {
    for (std::size_t i = 0; i < size_; ++i) bytes_[i] = static_cast<std::uint8_t>(bytes[i]);
  }
  [[nodiscard]] ber::BerReader Reader() { return {{bytes_.get(), size_}, refusal_}; }
  [[nodiscard]] bool IsRefused() const { return refusal_.place != nullptr; }
  [[nodiscard]] std::ptrdiff_t RefusedAt() const { return refusal_.place - bytes_.get(); }

 private:
  std::unique_ptr<std::uint8_t[]> bytes_;
  std::size_t size_;
  ber::Refusal refusal_;
};

std::int32_t IntegerOf(const Bytes& content) {
  Reading reading(Element(0, false, 2, content));
  ber::BerReader reader = reading.Reader();
  ber::BerElement element;
  EXPECT_TRUE(reader.Next(element));
  return element.Integer();
}

TEST(BerReader, reads_class_constructed_bit_and_number) {
  Reading reading("\xA5\x00\x62\x00\xC3\x00"s);
  ber::BerReader reader = reading.Reader();
  ber::BerElement element;
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.tag, ber::Context(5));
  EXPECT_TRUE(element.isConstructed);
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.tag, (ber::Tag{ber::TagClass::Application, 2}));
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.tag, (ber::Tag{ber::TagClass::Private, 3}));
  EXPECT_FALSE(element.isConstructed);
  EXPECT_TRUE(reader.AtEnd());
}

TEST(BerReader, high_tag_numbers_have_their_full_value) {
  Reading reading("\xBF\x81\x66\x00"s + "\x9F\x1F\x00"s + "\x9F\x81\x80\x00\x00"s);
  ber::BerReader reader = reading.Reader();
  ber::BerElement element;
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.tag, ber::Context(230));
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.tag, ber::Context(31));
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.tag, ber::Context(16384));
}

TEST(BerReader, lengths_have_a_short_and_a_long_form) {
  const std::pair<Bytes, std::size_t> cases[] = {{"\x05"s, 5},
                                                 {"\x7F"s, 127},
                                                 {"\x81\xC8"s, 200},
                                                 {"\x82\x01\x00"s, 256},
                                                 {"\x81\x03"s, 3},
                                                 {"\x84\x00\x00\x00\x07"s, 7},
                                                 {"\x86\x00\x00\x00\x00\x01\x02"s, 258}};
  for (const auto& [length, expected] : cases) {
    Reading reading("\x04"s + length + Bytes(expected, 'x'));
    ber::BerReader reader = reading.Reader();
    ber::BerElement element;
    ASSERT_TRUE(reader.Next(element)) << Hexadecimal(length);
    EXPECT_EQ(element.Length(), expected) << Hexadecimal(length);
    EXPECT_TRUE(reader.AtEnd());
  }
}

TEST(BerReader, indefinite_length_reads_as_zero) {
  Reading reading("\x30\x80\x02\x01\x05"s);
  ber::BerReader reader = reading.Reader();
  ber::BerElement element;
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.Length(), 0U);
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.Integer(), 5);
}

// The number of length bytes is not limited. Their value is kept modulo 2^32.
TEST(BerReader, more_than_four_length_bytes_keep_the_low_32_bits) {
  Reading reading("\x04\x85\x01\x00\x00\x00\x02xy"s);
  ber::BerReader reader = reading.Reader();
  ber::BerElement element;
  ASSERT_TRUE(reader.Next(element));
  EXPECT_EQ(element.Bytes(), "xy");
}

TEST(BerReader, a_length_beyond_the_end_is_refused_at_its_element) {
  for (const Bytes& length : {"\x03"s, "\x84\x7F\xFF\xFF\xFF"s, "\x84\xFF\xFF\xFF\xFF"s,
                              "\x84\x80\x00\x00\x00"s, "\x82\x01"s, "\x81"s, ""s}) {
    Reading reading("\x05\x00\x04"s + length);
    ber::BerReader reader = reading.Reader();
    ber::BerElement element;
    ASSERT_TRUE(reader.Next(element));
    EXPECT_FALSE(reader.Next(element)) << Hexadecimal(length);
    EXPECT_EQ(reading.RefusedAt(), 2) << Hexadecimal(length);
  }
}

TEST(BerReader, a_length_beyond_the_enclosing_element_is_refused) {
  Reading reading("\x30\x03\x04\x02x"s + "yyyy");
  ber::BerReader reader = reading.Reader();
  ber::BerElement outer;
  ber::BerElement inner;
  ASSERT_TRUE(reader.Next(outer));
  EXPECT_FALSE(outer.content.Next(inner));
  EXPECT_EQ(reading.RefusedAt(), 2);
}

TEST(BerReader, a_tag_number_that_does_not_end_is_refused) {
  Reading reading("\xBF\x81\x81"s);
  ber::BerReader reader = reading.Reader();
  ber::BerElement element;
  EXPECT_FALSE(reader.Next(element));
  EXPECT_TRUE(reading.IsRefused());
}

TEST(BerReader, integers_are_twos_complement) {
  EXPECT_EQ(IntegerOf("\xFF"s), -1);
  EXPECT_EQ(IntegerOf("\x00\xFF"s), 255);
  EXPECT_EQ(IntegerOf("\x80\x00"s), -32768);
  EXPECT_EQ(IntegerOf("\x7F"s), 127);
  EXPECT_EQ(IntegerOf("\x80\x00\x00"s), -8388608);
  EXPECT_EQ(IntegerOf("\x80\x00\x00\x00"s), INT32_MIN);
  EXPECT_EQ(IntegerOf("\x7F\xFF\xFF\xFF"s), INT32_MAX);
}

TEST(BerReader, integers_longer_than_four_bytes_keep_the_low_32_bits) {
  EXPECT_EQ(IntegerOf("\x01\x00\x00\x00\x02"s), 2);
  EXPECT_EQ(IntegerOf("\xFF\x00\x00\x00\x02"s), 2);
  EXPECT_EQ(IntegerOf("\x00\xFF\xFF\xFF\xFF\xFF"s), -1);
}

TEST(BerReader, an_integer_without_content_is_zero) { EXPECT_EQ(IntegerOf(""), 0); }

// Wraps `element` in `count` nested SEQUENCEs.
Bytes Wrapped(Bytes element, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) element = Sequence(element);
  return element;
}

std::size_t CountEntries(const Bytes& bytes, bool& isRead) {
  Reading reading(bytes);
  ber::ListReader list(reading.Reader());
  ber::BerElement element;
  std::size_t count = 0;
  isRead = true;
  while (isRead && list.HasMore()) {
    isRead = list.Next(element);
    if (isRead) ++count;
  }
  return count;
}

TEST(ListReader, wrappers_are_entered_and_left_again) {
  bool isRead = false;
  EXPECT_EQ(CountEntries(Integer(1) + Wrapped(Integer(2) + Wrapped(Integer(3), 2), 3) + Integer(4) +
                             Sequence("") + Wrapped("", 2) + Integer(5),
                         isRead),
            5U);
  EXPECT_TRUE(isRead);
}

TEST(ListReader, empty_wrappers_are_an_empty_list) {
  bool isRead = false;
  EXPECT_EQ(CountEntries(Sequence("") + Wrapped("", 3), isRead), 0U);
  EXPECT_TRUE(isRead);
}

TEST(ListReader, at_most_64_levels_are_read) {
  bool isRead = false;
  EXPECT_EQ(CountEntries(Wrapped(Integer(1), 63), isRead), 1U);
  EXPECT_TRUE(isRead);
  EXPECT_EQ(CountEntries(Wrapped(Integer(1), 64), isRead), 0U);
  EXPECT_FALSE(isRead);
}

TEST(ListReader, consecutive_wrappers_are_not_nested) {
  Bytes row;
  for (int i = 0; i < 16000; ++i) row += "\x30\x80"s;
  bool isRead = false;
  EXPECT_EQ(CountEntries(row + Integer(1), isRead), 1U);
  EXPECT_TRUE(isRead);
}

TEST(ListReader, primitive_wrappers_count_as_levels_too) {
  Bytes nested;
  for (int i = 0; i < 100; ++i) nested = Element(0, false, 16, nested);
  bool isRead = true;
  EXPECT_EQ(CountEntries(nested, isRead), 0U);
  EXPECT_FALSE(isRead);
}

TEST(ListReader, an_entry_may_not_reach_beyond_its_wrapper) {
  bool isRead = true;
  EXPECT_EQ(CountEntries("\x30\x03\x04\x04x"s + "yyyyyy", isRead), 0U);
  EXPECT_FALSE(isRead);
}

}  // namespace
}  // namespace korvel::test
