// Reading font attributes.
#include "appearance/font_attributes.h"

#include "windows/presentation/stage.h"

namespace korvel::test {

bool IsDefault(const FontAttributes& font) {
  return font.Style == FontStyle::Plain && font.Size == 24 && font.LineSpacing == 28 &&
         font.LetterSpacing == 0;
}

TEST(FontAttributes, all_four_parts_are_read) {
  const FontAttributes font = ReadFontAttributes("bold-italic.36.40.-2");
  EXPECT_EQ(font.Style, FontStyle::BoldItalic);
  EXPECT_EQ(font.Size, 36);
  EXPECT_EQ(font.LineSpacing, 40);
  EXPECT_EQ(font.LetterSpacing, -2);
}

TEST(FontAttributes, every_style_has_its_word) {
  EXPECT_EQ(ReadFontAttributes("plain.1.1.1").Style, FontStyle::Plain);
  EXPECT_EQ(ReadFontAttributes("italic.1.1.1").Style, FontStyle::Italic);
  EXPECT_EQ(ReadFontAttributes("bold.1.1.1").Style, FontStyle::Bold);
  EXPECT_EQ(ReadFontAttributes("bold-italic.1.1.1").Style, FontStyle::BoldItalic);
}

TEST(FontAttributes, what_cannot_be_read_is_the_default) {
  for (const char* written :
       {"", "plain", "plain.30", "plain.30.30", "plain.30.30.", "thin.30.30.0", "plain.x.30.0",
        "plain.30.30.0.1", "plain.30 .30.0", "plain.99999999999.30.0", "...", "PLAIN.30.30.0"}) {
    EXPECT_TRUE(IsDefault(ReadFontAttributes(written))) << written;
  }
}

class FontAttributesTest : public Stage {};

TEST_F(FontAttributesTest, the_object_comes_before_the_application_and_the_default) {
  Text text;
  EXPECT_TRUE(IsDefault(FontAttributesOf(text, CurrentApplication())));
  App().Defaults.FontAttributes = Octets("plain.30.33.0");
  EXPECT_EQ(FontAttributesOf(text, CurrentApplication()).Size, 30);
  text.FontAttributes = Octets("bold.40.44.0");
  EXPECT_EQ(FontAttributesOf(text, CurrentApplication()).Size, 40);
  text.FontAttributes = Octets("unreadable");
  EXPECT_TRUE(IsDefault(FontAttributesOf(text, CurrentApplication())));
  TheEngine().application = nullptr;
  text.FontAttributes.Clear();
  EXPECT_TRUE(IsDefault(FontAttributesOf(text, CurrentApplication())));
}

}  // namespace korvel::test
