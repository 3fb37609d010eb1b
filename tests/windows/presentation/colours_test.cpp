// Tests objects' colours: absolute, from palettes, and not set.
#include "appearance/colours.h"

#include "presentation/gdi_plus.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

class ColoursTest : public Stage {
 protected:
  ColoursTest() { scene.Reference.GroupIdentifier = Octets("~/scene"); }

  // A palette item of the group.
  Palette& AddPalette(Group& group, std::int32_t number, std::string_view entries) {
    Item* item = group.Items.Append(Item::New(ItemType::Palette));
    auto& palette = item->As<Palette>();
    palette.Reference.GroupIdentifier = Octets(group.Reference.GroupIdentifier.View());
    palette.Reference.Number = number;
    palette.OriginalContent.Data = Octets(entries);
    palette.owner = &group;
    return palette;
  }
  static void ReferToPalette(Visible& visible, std::string_view group, std::int32_t number) {
    visible.PaletteRef.IsPresent = true;
    visible.PaletteRef.Reference.Number = number;
    visible.PaletteRef.Reference.GroupIdentifier = Octets(group);
  }

  static constexpr std::string_view kEntries{"\x01\x02\x03\x04\x11\x12\x13\x14", 8};
  Scene scene;
  Rectangle rectangle;
  Text text;
};

TEST_F(ColoursTest, three_bytes_are_opaque_and_a_fourth_is_the_transparency) {
  rectangle.RefFillColour = Absolute("\x12\x34\x56");
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x12345600U);
  rectangle.RefFillColour = Absolute("\x12\x34\x56\x78");
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x12345678U);
}

TEST_F(ColoursTest, strings_of_other_lengths_count_as_not_set) {
  for (const char* bytes : {"", "\x12", "\x12\x34", "\x12\x34\x56\x78\x9A"}) {
    rectangle.RefFillColour = Absolute(bytes);
    EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), kTransparentColour) << bytes;
  }
}

TEST_F(ColoursTest, colours_that_are_not_set_have_defaults) {
  EXPECT_EQ(LineAttributesOf(rectangle, CurrentGroups()).ink, 0x00000000U);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0xFFFFFFFFU);
  EXPECT_EQ(TextColourOf(text, CurrentGroups()), 0xFFFFFF00U);
  EXPECT_EQ(BackgroundColourOf(text, CurrentGroups()), 0xFFFFFFFFU);
  EXPECT_EQ(SliderColourOf(Slider(), CurrentGroups()), 0xFFFFFF00U);
  TheEngine().application = nullptr;
  EXPECT_EQ(TextColourOf(text, CurrentGroups()), 0xFFFFFF00U);
}

TEST_F(ColoursTest, colours_that_the_object_does_not_set_come_from_the_application) {
  App().Defaults.TextColour = Absolute(kRedBytes);
  App().Defaults.BackgroundColour = Absolute(kGreenBytes);
  App().Defaults.SliderRefColour = Absolute(kBlueBytes);
  EXPECT_EQ(TextColourOf(text, CurrentGroups()), 0xFF000000U);
  EXPECT_EQ(BackgroundColourOf(text, CurrentGroups()), 0x00FF0000U);
  EXPECT_EQ(SliderColourOf(Slider(), CurrentGroups()), 0x0000FF00U);
  text.TextColour = Indexed(-1);
  EXPECT_EQ(TextColourOf(text, CurrentGroups()), 0xFF000000U);
  text.TextColour = Absolute(kBlueBytes);
  EXPECT_EQ(TextColourOf(text, CurrentGroups()), 0x0000FF00U);
}

TEST_F(ColoursTest, an_index_selects_an_entry_of_the_palette_that_the_object_refers_to) {
  TheEngine().scene = &scene;
  static_cast<void>(AddPalette(scene, 7, kEntries));
  ReferToPalette(rectangle, "~/scene", 7);
  rectangle.RefFillColour = Indexed(0);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x01020304U);
  rectangle.RefFillColour = Indexed(1);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x11121314U);
}

TEST_F(ColoursTest, a_palette_may_belong_to_the_application) {
  TheEngine().scene = &scene;
  static_cast<void>(AddPalette(App(), 7, kEntries));
  ReferToPalette(rectangle, "/app", 7);
  rectangle.RefFillColour = Indexed(1);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x11121314U);
}

TEST_F(ColoursTest, a_reference_without_a_group_means_the_group_of_the_object) {
  TheEngine().scene = &scene;
  static_cast<void>(AddPalette(scene, 7, kEntries));
  rectangle.owner = &scene;
  rectangle.PaletteRef.IsPresent = true;
  rectangle.PaletteRef.Reference.Number = 7;
  rectangle.RefFillColour = Indexed(1);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x11121314U);
}

TEST_F(ColoursTest, an_index_outside_the_palette_counts_as_not_set) {
  TheEngine().scene = &scene;
  static_cast<void>(AddPalette(scene, 7, std::string_view(kEntries).substr(0, 7)));
  ReferToPalette(rectangle, "~/scene", 7);
  for (const int index : {-2, -1, 1, 2, 0x7FFFFFFF}) {
    rectangle.RefFillColour = Indexed(index);
    EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), kTransparentColour) << index;
  }
}

TEST_F(ColoursTest, an_index_without_any_palette_counts_as_not_set) {
  rectangle.RefFillColour = Indexed(0);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), kTransparentColour);
  ReferToPalette(rectangle, "~/scene", 7);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), kTransparentColour);
}

TEST_F(ColoursTest, an_object_without_a_palette_reference_uses_the_applications_first_palette) {
  static_cast<void>(AddPalette(App(), 7, kEntries));
  rectangle.RefFillColour = Indexed(1);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x11121314U);
}

TEST_F(ColoursTest, a_palette_whose_content_is_a_file_is_read) {
  TheHost().files["colours\\p"] = kEntries;
  Palette& palette = AddPalette(App(), 7, "~/colours/p");
  palette.OriginalContent.IsReferenced = true;
  ReferToPalette(rectangle, "~/app", 7);
  rectangle.RefFillColour = Indexed(1);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x11121314U);
}

TEST_F(ColoursTest, the_file_of_a_palette_is_read_once) {
  TheHost().files["colours\\p"] = kEntries;
  Palette& palette = AddPalette(App(), 7, "~/colours/p");
  palette.OriginalContent.IsReferenced = true;
  for (const bool isPrepared : {false, true}) {
    if (isPrepared) {
      ASSERT_TRUE(Copy(palette.OriginalContent, palette.Content));
    }
    TheHost().fetched.clear();
    for (int use = 0; use < 3; ++use) {
      rectangle.RefFillColour = Indexed(0);
      rectangle.RefLineColour = Indexed(1);
      EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x01020304U);
      EXPECT_EQ(LineAttributesOf(rectangle, CurrentGroups()).ink, 0x11121314U);
    }
    EXPECT_EQ(TheHost().fetched, std::vector<std::string>{"colours\\p"}) << isPrepared;
  }
  EXPECT_EQ(palette.OriginalContent.Data.View(), "~/colours/p") << "decoded content must be kept";
}

TEST_F(ColoursTest, each_palette_reads_its_own_file) {
  TheHost().files["p"] = kEntries;
  TheHost().files["q"] = "\x21\x22\x23\x24";
  for (const int number : {7, 8}) {
    AddPalette(App(), number, number == 7 ? "~/p" : "~/q").OriginalContent.IsReferenced = true;
  }
  rectangle.RefFillColour = Indexed(0);
  ReferToPalette(rectangle, "~/app", 7);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x01020304U);
  ReferToPalette(rectangle, "~/app", 8);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x21222324U);
}

TEST_F(ColoursTest, a_palette_whose_file_is_missing_is_read_again) {
  AddPalette(App(), 7, "~/p").OriginalContent.IsReferenced = true;
  rectangle.RefFillColour = Indexed(0);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), kTransparentColour);
  TheHost().files["p"] = kEntries;
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x01020304U);
}

TEST_F(ColoursTest, run_time_content_overrides_the_original_content) {
  Palette& palette = AddPalette(App(), 7, kEntries);
  palette.Content.Data = Octets("\x21\x22\x23\x24");
  ReferToPalette(rectangle, "~/app", 7);
  rectangle.RefFillColour = Indexed(0);
  EXPECT_EQ(FillColourOf(rectangle, CurrentGroups()), 0x21222324U);
}

TEST(Colours, the_alpha_is_255_minus_the_transparency) {
  EXPECT_EQ(ToGdiPlus(0x00FF0000), 0xFF00FF00U);
  EXPECT_EQ(ToGdiPlus(0x12345678), 0x87123456U);
  EXPECT_EQ(ToGdiPlus(kTransparentColour), 0x00FFFFFFU);
}

}  // namespace korvel::test
