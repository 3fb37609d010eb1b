// The surprising parts of the format, one per test. golden_test.cpp compares whole dumps.
#include "dump/dump.h"

#include <gtest/gtest.h>

#include <string>

#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "support/sample_groups.h"
#include "unit/dump/printed.h"

namespace korvel {
namespace {

std::string DumpOfText(const std::string& text) { return DumpOf(Read(text)); }
std::string DumpOfItem(const std::string& item) {
  return DumpOfText("{:Scene (\"~/s\" 0) :Items (" + item + ")}");
}

bool Has(const std::string& dump, const std::string& lines) {
  return dump.find(lines) != std::string::npos;
}

TEST(Dump, a_group_without_items_prints_no_items) {
  EXPECT_TRUE(Has(DumpOfText("{:Application 0}"), "\n|   |---Items:\n|   |   |---No Items\n"));
}

TEST(Dump, a_reference_without_a_group_prints_null_and_its_number) {
  EXPECT_TRUE(Has(DumpOfText("{:Scene 12}"), "|---ObjectReference:(NULL 12)\n"));
}

TEST(Dump, depth_indents_the_whole_tree) {
  const OwnedGroup scene = Read("{:Scene 0}");
  const std::string dump =
      Printed([&](std::FILE* stream) { DumpScene(AsScene(scene), 2, stream); });
  EXPECT_EQ(dump.rfind("|   |   |---SCene:\n|   |   |   |   |---Root:\n", 0), 0U);
  const OwnedGroup application = Read("{:Application 0}");
  EXPECT_EQ(Printed([&](std::FILE* stream) {
              DumpApplication(AsApplication(application), 1, stream);
            }).rfind("|   |---Application:\n|   |   |   |---Root:\n", 0),
            0U);
}

TEST(Dump, an_item_is_at_depth_2_and_its_base_class_one_deeper) {
  EXPECT_TRUE(Has(DumpOfItem("{:Bitmap 1 :OrigBoxSize 10 20}"),
                  "\n|   |   |---Bitmap:\n|   |   |   |---Visible:\n"));
}

TEST(Dump, del_item_alone_lacks_the_colon) {
  const std::string dump =
      DumpOfText("{:Scene 0 :OnStartUp (:DelItem(1 2) :DeselectItem(1 2) :AddItem(1 2 3))}");
  EXPECT_TRUE(Has(dump, "|---DelItem\n"));
  EXPECT_TRUE(Has(dump, "|---DeselectItem:\n"));
  EXPECT_TRUE(Has(dump, "|---AddItem:\n"));
}

std::string DumpOfLink(const std::string& event) {
  return DumpOfItem("{:Link 1 :EventSource 0 :EventType " + event + " :LinkEffect ()}");
}

TEST(Dump, the_event_type_is_available_has_no_name) {
  EXPECT_TRUE(Has(DumpOfLink("IsAvailable"), "|---Event Type: Not define event type 1\n"));
}

TEST(Dump, an_item_without_a_record_has_no_name) {
  const OwnedGroup group = Read("{:Scene 0 :Items ({:Palette 1})}");
  ASSERT_NE(group->Items.Append(Item()), nullptr);
  EXPECT_TRUE(Has(DumpOf(group), "|---Not define 0\n"));
}

TEST(Dump, misspellings_are_part_of_the_format) {
  EXPECT_TRUE(Has(DumpOfText("{:Scene 0}"), "|---SCene:\n"));
  EXPECT_TRUE(Has(DumpOfText("{:Application 0}"), "|---DispalyStack:\n"));
  EXPECT_TRUE(Has(DumpOfLink("IsRunning"), "|---Event Type: IsRuning\n"));
  EXPECT_TRUE(Has(DumpOfItem("{:EntryField 1}"), "|---ObsuredInput: FALSE\n"));
  const OwnedGroup group = Read("{:Scene 0 :Items ({:Stream 1})}");
  group->Items.At(0)->As<Stream>().Storage = Storage{7};
  EXPECT_TRUE(Has(DumpOf(group), "|---Not define Stroage type: 7\n"));
}

TEST(Dump, the_style_of_a_slider_has_the_label_of_its_orientation) {
  const std::string dump = DumpOfItem("{:Slider 1 :Orientation left :SliderStyle normal}");
  const std::size_t orientation = dump.find("|---Orientation: left\n");
  const std::size_t style = dump.find("|---Orientation: normal\n");
  ASSERT_NE(orientation, std::string::npos);
  ASSERT_NE(style, std::string::npos);
  EXPECT_LT(orientation, style);
}

TEST(Dump, references_have_a_colon_in_records_and_none_in_parameters) {
  const std::string dump = DumpOfItem(
      "{:Bitmap 1 :OrigPaletteRef (\"~/a\" 9)} {:Link 2 :EventSource 3 :EventType IsRunning "
      ":LinkEffect (:SetPaletteRef(1 (\"~/a\" 8)))}");
  EXPECT_TRUE(Has(dump, "|---OriginalPaletteRef\n|   |   |   |   |---ObjectReference:(~/a 9)\n"));
  EXPECT_TRUE(Has(dump, "|---ObjectReference(~/a 8)\n"));
}

TEST(Dump, a_group_read_from_text_or_ber_has_the_same_dump) {
  for (std::uint32_t seed = 0; seed < 200; ++seed) {
    const OwnedGroup group = test::MakeRandomGroup(seed);
    OctetString text;
    ASSERT_EQ(WriteTextGroup(*group, text), Status::Done);
    if (text.Length() > kMaxTextSize) continue;
    const OwnedGroup read = Read(std::string(text.View()));
    OctetString bytes;
    ASSERT_EQ(EncodeGroup(*group, bytes), Status::Done);
    OwnedGroup decoded;
    const auto* begin = reinterpret_cast<const std::uint8_t*>(bytes.Text());
    ASSERT_EQ(DecodeGroup({begin, bytes.Length()}, decoded), Status::Done);
    EXPECT_EQ(DumpOf(read), DumpOf(decoded)) << "seed " << seed;
  }
}

}  // namespace
}  // namespace korvel
