// The colours of objects: absolute, from palettes, from the application's defaults, or not set.
#include "appearance/colours.h"

#include <gtest/gtest.h>

#include <string_view>

#include "substitutes/host.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

ColourValue Absolute(std::string_view bytes) {
  ColourValue colour;
  colour.Kind = ValueKind::OctetString;
  EXPECT_TRUE(colour.Absolute.Assign(bytes));
  return colour;
}
ColourValue FromPalette(std::int32_t index) {
  ColourValue colour;
  colour.Kind = ValueKind::Integer;
  colour.Index = index;
  return colour;
}

// An application and a scene with palettes, and a text of the application.
class ColoursTest : public testing::Test {
 protected:
  void SetUp() override {
    TheHost() = {};
    Name(application_.Reference, "~/a", 0);
    Name(scene_.Reference, "~/s", 0);
    text_.owner = &application_;
  }
  void TearDown() override { FailAllocation(0); }

  static void Name(ObjectReference& reference, std::string_view group, std::int32_t number) {
    EXPECT_TRUE(reference.GroupIdentifier.Assign(group));
    reference.Number = number;
  }
  static Palette& AddPalette(Group& group, std::int32_t number, std::string_view entries) {
    Item item = Item::New(ItemType::Palette);
    auto& palette = item.As<Palette>();
    palette.Reference.Number = number;
    EXPECT_TRUE(palette.OriginalContent.Data.Assign(entries));
    EXPECT_NE(group.Items.Append(std::move(item)), nullptr);
    return palette;
  }
  void UsePalette(std::string_view group, std::int32_t number) {
    text_.PaletteRef.IsPresent = true;
    Name(text_.PaletteRef.Reference, group, number);
  }
  DrawnColour TextColour() { return TextColourOf(text_, {&application_, &scene_}); }
  // The colour of the text for an index into its palette; white if it is not set.
  DrawnColour TextColour(std::int32_t index) {
    text_.TextColour = FromPalette(index);
    return TextColour();
  }

  Application application_;
  Scene scene_;
  Text text_;
};

TEST_F(ColoursTest, an_absolute_colour_has_four_bytes_or_three_if_it_is_opaque) {
  text_.TextColour = Absolute("\x12\x34\x56\x78");
  EXPECT_EQ(TextColour(), 0x12345678U);
  text_.TextColour = Absolute("\x12\x34\x56");
  EXPECT_EQ(TextColour(), 0x12345600U);
}

TEST_F(ColoursTest, an_absolute_colour_of_another_length_is_not_set) {
  for (const char* bytes : {"", "\x12", "\x12\x34", "\x12\x34\x56\x78\x9A"}) {
    text_.TextColour = Absolute(bytes);
    EXPECT_EQ(TextColour(), 0xFFFFFF00U) << bytes;
  }
}

TEST_F(ColoursTest, a_colour_that_is_not_set_comes_from_the_application) {
  application_.Defaults.TextColour = Absolute("\x01\x02\x03");
  application_.Defaults.BackgroundColour = Absolute("\x04\x05\x06");
  application_.Defaults.SliderRefColour = Absolute("\x07\x08\x09");
  const RunningGroups groups{&application_, nullptr};
  EXPECT_EQ(TextColourOf(text_, groups), 0x01020300U);
  EXPECT_EQ(BackgroundColourOf(text_, groups), 0x04050600U);
  EXPECT_EQ(SliderColourOf(Slider(), groups), 0x07080900U);
}

TEST_F(ColoursTest, without_a_default_text_and_sliders_are_white_and_backgrounds_transparent) {
  for (Application* application : {&application_, static_cast<Application*>(nullptr)}) {
    const RunningGroups groups{application, nullptr};
    EXPECT_EQ(TextColourOf(text_, groups), 0xFFFFFF00U);
    EXPECT_EQ(BackgroundColourOf(text_, groups), 0xFFFFFFFFU);
    EXPECT_EQ(SliderColourOf(Slider(), groups), 0xFFFFFF00U);
  }
}

TEST_F(ColoursTest, line_art_without_colours_has_black_lines_and_no_fill) {
  Rectangle rectangle;
  const RunningGroups groups{&application_, nullptr};
  application_.Defaults.BackgroundColour = Absolute("\x04\x05\x06");
  EXPECT_EQ(LineAttributesOf(rectangle, groups).ink, 0U);
  EXPECT_EQ(FillColourOf(rectangle, groups), 0xFFFFFFFFU);
  EXPECT_EQ(OriginalFillColourOf(rectangle, groups), 0xFFFFFFFFU);
}

TEST_F(ColoursTest, line_art_uses_its_own_line_attributes_and_fill_colours) {
  Rectangle rectangle;
  rectangle.LineWidth = 5;
  rectangle.LineStyle = LineStyle::Dotted;
  rectangle.RefLineColour = Absolute("\x01\x02\x03");
  rectangle.RefFillColour = Absolute("\x04\x05\x06");
  rectangle.OriginalRefFillColour = Absolute("\x07\x08\x09");
  const RunningGroups groups{&application_, nullptr};
  const LineAttributes line = LineAttributesOf(rectangle, groups);
  EXPECT_EQ(line.width, 5);
  EXPECT_EQ(line.style, LineStyle::Dotted);
  EXPECT_EQ(line.ink, 0x01020300U);
  EXPECT_EQ(FillColourOf(rectangle, groups), 0x04050600U);
  EXPECT_EQ(OriginalFillColourOf(rectangle, groups), 0x07080900U);
}

TEST_F(ColoursTest, a_palette_entry_has_four_bytes_and_a_missing_one_is_not_set) {
  AddPalette(application_, 7, "\x01\x02\x03\x04\x05\x06\x07\x08\x09");
  EXPECT_EQ(TextColour(0), 0x01020304U);
  EXPECT_EQ(TextColour(1), 0x05060708U);
  EXPECT_EQ(TextColour(2), 0xFFFFFF00U);
  EXPECT_EQ(TextColour(-1), 0xFFFFFF00U);
}

TEST_F(ColoursTest, an_object_without_a_palette_uses_the_first_palette_of_the_application) {
  EXPECT_EQ(TextColour(0), 0xFFFFFF00U);
  EXPECT_NE(application_.Items.Append(Item::New(ItemType::Font)), nullptr);
  AddPalette(scene_, 1, "aaaa");
  EXPECT_EQ(TextColour(0), 0xFFFFFF00U);
  AddPalette(application_, 2, "bbbb");
  AddPalette(application_, 3, "cccc");
  EXPECT_EQ(TextColour(0), 0x62626262U);
  EXPECT_EQ(TextColourOf(text_, {nullptr, &scene_}), 0xFFFFFF00U);
}

TEST_F(ColoursTest, a_named_palette_is_found_in_the_scene_and_in_the_application) {
  AddPalette(scene_, 7, "ssss");
  AddPalette(application_, 7, "aaaa");
  AddPalette(application_, 8, "bbbb");
  UsePalette("~/s", 7);
  EXPECT_EQ(TextColour(0), 0x73737373U);
  UsePalette("/a", 8);
  EXPECT_EQ(TextColour(0), 0x62626262U);
  UsePalette("~/s", 8);
  EXPECT_EQ(TextColour(0), 0xFFFFFF00U);
  UsePalette("~/x", 7);
  EXPECT_EQ(TextColour(0), 0xFFFFFF00U);
  UsePalette("~/a", 8);
  EXPECT_EQ(TextColourOf(text_, {nullptr, &scene_}), 0xFFFFFF00U);
}

TEST_F(ColoursTest, a_palette_named_without_a_group_is_searched_in_the_objects_own_group) {
  AddPalette(scene_, 7, "ssss");
  AddPalette(application_, 7, "aaaa");
  text_.PaletteRef.IsPresent = true;
  text_.PaletteRef.Reference.Number = 7;
  EXPECT_EQ(TextColour(0), 0x61616161U);
  text_.owner = &scene_;
  EXPECT_EQ(TextColour(0), 0x73737373U);
  text_.owner = nullptr;
  EXPECT_EQ(TextColour(0), 0xFFFFFF00U);
}

TEST_F(ColoursTest, a_palette_file_is_read_once) {
  AddPalette(application_, 7, "DSM:/dir/colours").OriginalContent.IsReferenced = true;
  TheHost().files["dir\\colours"] = "wxyz";
  EXPECT_EQ(TextColour(0), 0x7778797AU);
  EXPECT_EQ(TextColour(0), 0x7778797AU);
  EXPECT_EQ(TheHost().fetched.size(), 1U);
}

TEST_F(ColoursTest, a_missing_palette_file_is_requested_again) {
  AddPalette(application_, 7, "DSM:/colours").OriginalContent.IsReferenced = true;
  EXPECT_EQ(TextColour(0), 0xFFFFFF00U);
  TheHost().files["colours"] = "wxyz";
  EXPECT_EQ(TextColour(0), 0x7778797AU);
}

TEST_F(ColoursTest, without_memory_for_the_path_a_colour_is_not_set) {
  AddPalette(application_, 7, "DSM:/the_palette_file").OriginalContent.IsReferenced = true;
  TheHost().files["the_palette_file"] = "wxyz";
  FailAllocation(1);
  EXPECT_EQ(TextColour(0), 0xFFFFFF00U);
  EXPECT_TRUE(TheHost().fetched.empty());
}

TEST_F(ColoursTest, new_content_of_a_palette_replaces_its_original_colours) {
  Palette& palette = AddPalette(application_, 7, "aaaa");
  EXPECT_TRUE(palette.Content.Data.Assign("bbbb"));
  EXPECT_EQ(TextColour(0), 0x62626262U);
}

TEST(Colours, only_a_colour_with_full_transparency_is_unseen) {
  EXPECT_TRUE(IsSeen(0x000000FE));
  EXPECT_TRUE(IsSeen(0xFFFFFF00));
  EXPECT_FALSE(IsSeen(0x000000FF));
  EXPECT_FALSE(IsSeen(kTransparentColour));
}

}  // namespace
}  // namespace korvel::test
