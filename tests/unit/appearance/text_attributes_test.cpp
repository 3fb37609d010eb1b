// Control sequences, truncated at every byte, and font attributes. Each text is in a heap block of
// exactly its size, so that the sanitizer reports any read past its end.
#include "appearance/text_attributes.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

namespace korvel::test {

class ExactText {
 public:
  explicit ExactText(std::string_view text)
      : bytes_(std::make_unique<char[]>(text.size())), size_(text.size()) {
    text.copy(bytes_.get(), size_);
  }
  [[nodiscard]] std::string_view View() const { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_;
};

// The text without control sequences, up to its first zero byte.
std::string Cleaned(std::string_view text) {
  OctetString clean;
  EXPECT_TRUE(RemoveControlSequences(ExactText(text).View(), clean));
  const std::string bytes(clean.View());
  return bytes.substr(0, bytes.find('\0'));
}

std::string ColourOf(std::string_view text) {
  DrawnColour colour = 0x12345678;
  const bool isRead = ReadLeadingColour(ExactText(text).View(), colour);
  if (!isRead) {
    EXPECT_EQ(colour, DrawnColour{0x12345678});
    return "none";
  }
  char written[16];
  std::snprintf(written, sizeof written, "%08X", static_cast<unsigned>(colour));
  return written;
}

constexpr std::string_view kRed("\x1B"
                                "C\x04\xFF\x00\x00\x00",
                                7);

TEST(ControlSequences, a_leading_colour_is_red_green_blue_and_transparency) {
  EXPECT_EQ(ColourOf(std::string(kRed) + "Hi"), "FF000000");
  EXPECT_EQ(ColourOf(std::string_view("\x1B"
                                      "C\x04\x01\x02\x03\x64"
                                      "x",
                                      8)),
            "01020364");
}

TEST(ControlSequences, a_colour_without_text_after_it_is_ignored) {
  for (std::size_t length = 0; length <= kRed.size(); ++length) {
    EXPECT_EQ(ColourOf(kRed.substr(0, length)), "none") << length;
  }
}

TEST(ControlSequences, a_colour_later_in_the_text_is_not_the_leading_one) {
  EXPECT_EQ(ColourOf("x" + std::string(kRed) + "Hi"), "none");
}

TEST(ControlSequences, sequences_are_removed_from_the_text) {
  EXPECT_EQ(Cleaned(std::string(kRed) + "Hi"), "Hi");
  EXPECT_EQ(Cleaned("one" + std::string(kRed) + "two"), "onetwo");
  EXPECT_EQ(Cleaned("one\x1B"
                    "Btwo"),
            "onetwo");
  EXPECT_EQ(Cleaned("\x1B\x1B"
                    "a"),
            "a")
      << "any byte may follow";
  EXPECT_EQ(Cleaned("one\rtwo\n"), "one\ntwo\n");
  EXPECT_EQ(Cleaned(""), "");
}

TEST(ControlSequences, a_truncated_sequence_ends_the_text) {
  EXPECT_EQ(Cleaned("one\x1B"), "one");
  for (std::size_t length = 2; length < kRed.size(); ++length) {
    EXPECT_EQ(Cleaned("one" + std::string(kRed.substr(0, length))), "one") << length;
  }
}

TEST(ControlSequences, random_bytes_are_read_within_bounds) {
  std::mt19937 random(1);  // NOLINT: the same texts every time
  for (int round = 0; round < 2000; ++round) {
    std::string text(random() % 24, ' ');
    for (char& byte : text)
      byte = "\x1B"
             "Cc\r\n \0\xFF"[random() % 8];
    std::string wanted;
    for (std::size_t at = 0; at < text.size();) {
      if (text[at] != '\x1B') {
        wanted += text[at] == '\r' ? '\n' : text[at];
        ++at;
      } else {
        at += at + 1 < text.size() && text[at + 1] == 'C' ? 7 : 2;
      }
    }
    ASSERT_EQ(Cleaned(text), wanted.substr(0, wanted.find('\0'))) << round;
  }
}

bool IsDefault(const FontAttributes& font) {
  return font.style == FontStyle::Plain && font.size == 24 && font.lineSpacing == 28 &&
         font.letterSpacing == 0;
}

TEST(FontAttributes, all_four_parts_are_read) {
  const FontAttributes font = ReadFontAttributes("bold-italic.36.40.-2");
  EXPECT_EQ(font.style, FontStyle::BoldItalic);
  EXPECT_EQ(font.size, 36);
  EXPECT_EQ(font.lineSpacing, 40);
  EXPECT_EQ(font.letterSpacing, -2);
}

TEST(FontAttributes, every_style_has_its_word) {
  EXPECT_EQ(ReadFontAttributes("plain.1.1.1").style, FontStyle::Plain);
  EXPECT_EQ(ReadFontAttributes("italic.1.1.1").style, FontStyle::Italic);
  EXPECT_EQ(ReadFontAttributes("bold.1.1.1").style, FontStyle::Bold);
  EXPECT_EQ(ReadFontAttributes("bold-italic.1.1.1").style, FontStyle::BoldItalic);
}

TEST(FontAttributes, the_default_replaces_unreadable_attributes) {
  for (const char* written :
       {"", "plain", "plain.30", "plain.30.30", "plain.30.30.", "thin.30.30.0", "plain.x.30.0",
        "plain.30.30.0.1", "plain.30 .30.0", "plain.99999999999.30.0", "...", "PLAIN.30.30.0"}) {
    EXPECT_TRUE(IsDefault(ReadFontAttributes(written))) << written;
  }
}

TEST(FontAttributes, the_object_overrides_the_application_and_the_default) {
  Text text;
  Application application;
  EXPECT_TRUE(IsDefault(FontAttributesOf(text, &application)));
  ASSERT_TRUE(application.Defaults.FontAttributes.Assign("plain.30.33.0"));
  EXPECT_EQ(FontAttributesOf(text, &application).size, 30);
  ASSERT_TRUE(text.FontAttributes.Assign("bold.40.44.0"));
  EXPECT_EQ(FontAttributesOf(text, &application).size, 40);
  ASSERT_TRUE(text.FontAttributes.Assign("unreadable"));
  EXPECT_TRUE(IsDefault(FontAttributesOf(text, &application)));
  text.FontAttributes.Clear();
  EXPECT_TRUE(IsDefault(FontAttributesOf(text, nullptr)));
}

}  // namespace korvel::test
