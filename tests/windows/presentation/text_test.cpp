// Tests text: the area that it covers, its number of lines, and its colours. Glyphs depend on the
// font, so no test counts their pixels.
#include "presentation/text.h"

#include "presentation/presentation.h"
#include "presentation/state.h"
#include "windows/presentation/processor_time.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

namespace {

constexpr Area kBox{100, 100, 500, 300};

}  // namespace

class TextTest : public Stage {
 protected:
  TextTest() {
    Place(text, kBox.left, kBox.top, kBox.Width(), kBox.Height());
    text.TextColour = Absolute(kWhiteBytes);
    Show(ItemType::Text, text);
  }
  [[nodiscard]] Pixels Draw(std::string_view content) {
    text.TextData = Octets(content);
    return Paint();
  }
  [[nodiscard]] Area Ink(std::string_view content) { return Draw(content).Extent(kWholeScene); }

  Text text;
};

TEST_F(TextTest, a_word_is_drawn_on_one_line_from_the_left_of_its_box) {
  const Pixels picture = Draw("Hello");
  const Area ink = picture.Extent(kWholeScene);
  EXPECT_GT(ink.Width(), 20);
  EXPECT_GT(ink.Height(), 8);
  EXPECT_GE(ink.left, kBox.left);
  EXPECT_LE(ink.left, kBox.left + 10);
  EXPECT_EQ(picture.Bands(kWholeScene), 1);
}

TEST_F(TextTest, size_0_is_size_24) {
  text.FontAttributes = Octets("plain.24.28.0");
  const Pixels expected = Draw("Hamburg");
  text.FontAttributes = Octets("plain.0.28.0");
  EXPECT_EQ(Draw("Hamburg"), expected);
}

TEST_F(TextTest, without_font_attributes_the_size_is_24) {
  text.FontAttributes = Octets("plain.24.28.0");
  const Pixels expected = Draw("Hamburg");
  text.FontAttributes.Clear();
  EXPECT_EQ(Draw("Hamburg"), expected);
}

TEST_F(TextTest, styles_and_spacings_have_no_effect) {
  text.FontAttributes = Octets("plain.24.28.0");
  const Pixels expected = Draw("Hamburg");
  for (const char* attributes :
       {"bold.24.28.0", "italic.24.28.0", "bold-italic.24.28.0", "plain.24.50.9"}) {
    text.FontAttributes = Octets(attributes);
    EXPECT_EQ(Draw("Hamburg"), expected) << attributes;
  }
}

TEST_F(TextTest, a_size_of_24_is_an_em_of_18_pixels) {
  // The distance between two lines must be the one that GDI+ reports for the font at 18 pixels.
  FontFamilyOwner family;
  FontOwner font;
  ASSERT_TRUE(FindFontFamily(family));
  ASSERT_TRUE(Succeeded(gdip::GdipCreateFont(family, 18.0F, Gdiplus::FontStyleRegular,
                                             Gdiplus::UnitPixel, font.Slot())));
  float distance = 0;
  ASSERT_TRUE(Succeeded(gdip::GdipGetFontHeight(font, State().graphics, &distance)));
  text.FontAttributes = Octets("plain.24.28.0");
  const Area one = Ink("H");
  const Area two = Ink("H\rH");
  EXPECT_NEAR(two.bottom - one.bottom, distance, 1.0);
  text.FontAttributes = Octets("plain.48.28.0");
  EXPECT_NEAR(Ink("H").Height(), 2 * one.Height(), 2);
}

TEST_F(TextTest, a_leading_colour_code_colours_the_whole_text) {
  const Pixels picture = Draw(std::string_view("\x1B\x43\x04\xFF\x00\x00\x00Hi", 9));
  EXPECT_GT(picture.Count(kWholeScene, kRed), 0);
  EXPECT_EQ(picture.Count(kWholeScene, kWhite), 0);
  text.TextColour = Absolute(kRedBytes);
  EXPECT_EQ(picture, Draw("Hi"));
}

TEST_F(TextTest, a_colour_code_may_be_transparent) {
  EXPECT_EQ(Ink(std::string_view("\x1B\x43\x04\xFF\x00\x00\xFFHi", 9)), Area{});
}

TEST_F(TextTest, a_colour_code_later_in_the_text_is_removed_and_colours_nothing) {
  const Pixels plain = Draw("HiHo");
  EXPECT_EQ(Draw(std::string_view("Hi\x1B\x43\x04\xFF\x00\x00\x00Ho", 11)), plain);
}

TEST_F(TextTest, a_colour_code_with_no_text_after_it_does_not_change_the_background) {
  text.BackgroundColour = Absolute(kBlueBytes);
  const Pixels picture = Draw(std::string_view("\x1B\x43\x04\xFF\x00\x00\x00", 7));
  EXPECT_TRUE(picture.IsAll(kBox, kBlue));
}

TEST_F(TextTest, other_control_sequences_have_two_bytes) {
  const Pixels plain = Draw("HiHo");
  EXPECT_EQ(Draw("Hi\x1B\x42Ho"), plain);
  EXPECT_EQ(Draw("\x1B\x63HiHo"), plain);
}

TEST_F(TextTest, truncated_sequences_end_the_text) {
  const Pixels plain = Draw("Hi");
  EXPECT_EQ(Draw("Hi\x1B"), plain);
  EXPECT_EQ(Draw("Hi\x1B\x43"), plain);
  EXPECT_EQ(Draw(std::string_view("Hi\x1B\x43\x04\xFF\x00", 7)), plain);
}

TEST_F(TextTest, a_carriage_return_breaks_the_line) {
  EXPECT_EQ(Draw("A\rB").Bands(kWholeScene), 2);
  const Pixels broken = Draw("A\nB");
  EXPECT_EQ(Draw("A\rB"), broken);
}

TEST_F(TextTest, the_text_ends_at_a_zero_byte) {
  const Pixels plain = Draw("Hi");
  EXPECT_EQ(Draw(std::string_view("Hi\0Ho", 5)), plain);
}

TEST_F(TextTest, without_wrapping_a_long_line_is_cut_at_the_box) {
  text.TextWrapping = false;
  const Pixels picture = Draw("word word word word word word word word word word word word word");
  EXPECT_EQ(picture.Bands(kWholeScene), 1);
  EXPECT_LE(picture.Extent(kWholeScene).right, kBox.right);
  EXPECT_GT(picture.Extent(kWholeScene).right, kBox.right - 60);
}

TEST_F(TextTest, with_wrapping_lines_break_between_words_within_the_box) {
  text.TextWrapping = true;
  const Pixels picture = Draw("word word word word word word word word word word word word word");
  EXPECT_GE(picture.Bands(kWholeScene), 2);
  EXPECT_LE(picture.Extent(kWholeScene).right, kBox.right);
}

TEST_F(TextTest, justification_places_the_text_in_the_box) {
  const Area start = Ink("Hi");
  text.HorizontalJustification = Justification{2};
  text.VerticalJustification = Justification{2};
  const Area end = Ink("Hi");
  text.HorizontalJustification = Justification{3};
  text.VerticalJustification = Justification{3};
  const Area centre = Ink("Hi");
  EXPECT_LT(start.left - kBox.left, 10);
  EXPECT_LT(start.top - kBox.top, 12);
  EXPECT_LT(kBox.right - end.right, 10);
  EXPECT_LT(kBox.bottom - end.bottom, 12);
  EXPECT_NEAR(centre.left + centre.right, kBox.left + kBox.right, 4);
  EXPECT_NEAR(centre.top + centre.bottom, kBox.top + kBox.bottom, 10);
}

TEST_F(TextTest, justified_text_is_aligned_to_the_start) {
  const Pixels start = Draw("Hi");
  for (const int justification : {4, 0, 5, -1}) {
    text.HorizontalJustification = Justification{justification};
    text.VerticalJustification = Justification{justification};
    EXPECT_EQ(Draw("Hi"), start) << justification;
  }
}

TEST_F(TextTest, orientation_and_start_corner_have_no_effect) {
  const Pixels plain = Draw("Hi");
  text.LineOrientation = LineOrientation{1};
  text.StartCorner = StartCorner{4};
  EXPECT_EQ(Draw("Hi"), plain);
}

TEST_F(TextTest, the_background_fills_the_box_exactly) {
  text.BackgroundColour = Absolute(kBlueBytes);
  const Pixels picture = Draw("");
  EXPECT_TRUE(picture.IsAll(kBox, kBlue));
  EXPECT_EQ(picture.Extent(kWholeScene), kBox);
}

TEST_F(TextTest, without_a_background_the_objects_below_are_visible) {
  Rectangle below;
  Place(below, 0, 0, 720, 576);
  Fill(below, kGreenBytes);
  App().DisplayStack.Clear();
  Show(ItemType::Rectangle, below);
  Show(ItemType::Text, text);
  const Pixels picture = Draw("Hi");
  EXPECT_TRUE(picture.IsAll({kBox.left, kBox.top + 50, kBox.right, kBox.bottom}, kGreen));
  EXPECT_FALSE(picture.IsAll(kBox, kGreen));
}

TEST_F(TextTest, a_box_without_area_draws_not_even_the_background) {
  text.BackgroundColour = Absolute(kBlueBytes);
  for (const korvel::BoxSize size : {korvel::BoxSize{0, 100}, {100, 0}, {-1, 100}, {100, -1}}) {
    text.BoxSize = {size.Width, size.Height};
    EXPECT_TRUE(Draw("Hi").IsAll(kWholeScene, kBlack)) << size.Width << " x " << size.Height;
  }
}

TEST_F(TextTest, sizes_outside_the_limits_draw_only_the_background) {
  text.BackgroundColour = Absolute(kBlueBytes);
  for (const char* attributes :
       {"plain.-1.28.0", "plain.10001.28.0", "plain.2147483647.28.0", "plain.-2147483648.28.0"}) {
    text.FontAttributes = Octets(attributes);
    EXPECT_TRUE(Draw("Hi").IsAll(kBox, kBlue)) << attributes;
  }
}

TEST_F(TextTest, bytes_are_utf_8) {
  const Area one = Ink("\xC3\x84");  // one letter
  const Area two = Ink("AA");
  EXPECT_GT(one.Width(), 5);
  EXPECT_LT(one.Width(), two.Width() * 3 / 4);
  EXPECT_GT(one.Height(), two.Height()) << "the dots above the letter";
}

TEST_F(TextTest, bytes_that_are_not_utf_8_are_replaced_and_the_rest_is_drawn) {
  const Area whole = Ink("A\xFF\xFE\x80Z");
  const Area first = Ink("A");
  EXPECT_GT(whole.Width(), 2 * first.Width());
}

TEST_F(TextTest, a_text_object_of_any_length_is_drawn_within_a_second) {
  text.TextWrapping = true;
  Place(text, 0, 0, 720, 576);
  for (const std::size_t length : {std::size_t{1000}, std::size_t{100000}, std::size_t{4000000}}) {
    for (const char* word : {"word ", "w", "\n", "\t"}) {
      std::string content;
      while (content.size() < length) content += word;
      text.TextData = Octets(content);
      const std::uint64_t start = ProcessorMs();
      static_cast<void>(Paint());
      EXPECT_LT(ProcessorMs() - start, 1000U) << length << " bytes of '" << word << "'";
    }
  }
  EXPECT_FALSE(Draw("Hi").IsAll(kWholeScene, kBlack)) << "the next ordinary text";
}

TEST_F(TextTest, hyper_text_looks_like_text) {
  const Pixels expected = Draw("Hi");
  HyperText hyperText;
  Place(hyperText, kBox.left, kBox.top, kBox.Width(), kBox.Height());
  hyperText.TextColour = Absolute(kWhiteBytes);
  hyperText.TextData = Octets("Hi");
  App().DisplayStack.Clear();
  Show(ItemType::HyperText, hyperText);
  EXPECT_EQ(Paint(), expected);
}

class EntryFieldTest : public Stage {};

TEST_F(EntryFieldTest, has_a_black_border_of_2_pixels_inside_its_box) {
  Rectangle below;
  Place(below, 0, 0, 720, 576);
  Fill(below, kGreenBytes);
  Show(ItemType::Rectangle, below);
  EntryField field;
  Place(field, 100, 100, 200, 40);
  Show(ItemType::EntryField, field);
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Extent(kWholeScene, kGreen), (Area{100, 100, 300, 140}));
  EXPECT_TRUE(picture.IsAll({102, 102, 298, 138}, kGreen));
  EXPECT_EQ(picture.Count(kWholeScene, kBlack), 200 * 40 - 196 * 36);
}

TEST_F(EntryFieldTest, draws_its_text_at_size_15_whatever_its_attributes_say) {
  Text text;
  Place(text, 100, 100, 200, 40);
  text.TextData = Octets("Hamburg");
  text.FontAttributes = Octets("plain.15.28.0");
  Show(ItemType::Text, text);
  const Pixels expected = Paint();
  App().DisplayStack.Clear();
  EntryField field;
  Place(field, 100, 100, 200, 40);
  field.TextData = Octets("Hamburg");
  field.FontAttributes = Octets("plain.40.28.0");
  Show(ItemType::EntryField, field);
  EXPECT_EQ(Paint(), expected);
}

class ObscuredInputTest : public Stage {
 protected:
  ObscuredInputTest() {
    Place(field, 100, 100, 200, 60);
    field.TextColour = Absolute(kWhiteBytes);
    Show(ItemType::EntryField, field);
  }
  [[nodiscard]] Pixels Drawn(std::string_view content, bool isObscured) {
    field.TextData = Octets(content);
    field.ObsuredInput = isObscured;
    Pixels picture = Paint();
    EXPECT_EQ(field.TextData.View(), content) << "only the drawing is obscured";
    return picture;
  }
  void ExpectSame(std::string_view content, std::string_view stars) {
    EXPECT_EQ(Drawn(content, true), Drawn(stars, false)) << stars;
  }

  EntryField field;
};

TEST_F(ObscuredInputTest, draws_one_star_for_each_character) {
  EXPECT_NE(Drawn("1234", false), Drawn("****", false));
  ExpectSame("1234", "****");
  ExpectSame("", "");
  ExpectSame("a b", "***");
}

TEST_F(ObscuredInputTest, a_character_of_several_bytes_is_one_star) {
  ExpectSame("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z", "****");
}

TEST_F(ObscuredInputTest, line_breaks_are_kept_and_control_sequences_give_no_stars) {
  ExpectSame("12\r3\n4", "**\r*\n*");
  ExpectSame("1\x1B\x42"
             "2",
             "**");
  const std::string red("\x1B\x43\x04\xFF\x00\x00\x00", 7);
  ExpectSame(red + "12", red + "**");
  EXPECT_NE(Drawn(red + "12", true), Drawn("12", true)) << "the colour code must still apply";
}

TEST_F(ObscuredInputTest, text_after_a_zero_is_not_drawn) {
  ExpectSame(std::string_view("1\0"
                              "23",
                              4),
             "*");
}

class ScreensTest : public Stage {};

TEST_F(ScreensTest, the_text_is_green_and_begins_at_50_50) {
  DrawScreenText("Please Wait");
  const Pixels picture = BackBufferPixels();
  const Area ink = picture.Extent(kWholeScene);
  EXPECT_GT(picture.Count(kWholeScene, kGreen), 100);
  EXPECT_GE(ink.left, 50);
  EXPECT_LT(ink.left, 70);
  EXPECT_GE(ink.top, 50);
  EXPECT_LT(ink.top, 70);
  EXPECT_EQ(picture.Bands(kWholeScene), 1);
}

TEST_F(ScreensTest, the_font_size_is_50) {
  Text text;
  Place(text, 50, 50, 720, 576);
  text.TextColour = Absolute(kGreenBytes);
  text.FontAttributes = Octets("plain.50.28.0");
  text.TextData = Octets("No MHEG5 Service");
  Show(ItemType::Text, text);
  const Pixels expected = Paint();
  ClearSurface();
  DrawScreenText("No MHEG5 Service");
  EXPECT_EQ(BackBufferPixels(), expected);
}

}  // namespace korvel::test
