// Tests that drawing does not leak: after ten thousand redraws of all kinds of pictures the process
// holds as much as after a thousand.
#include <array>

#include "platform/screen.h"
#include "presentation/presentation.h"
#include "presentation/state.h"
#include "windows/presentation/content.h"
#include "windows/presentation/stage.h"
#include "windows/support/holdings.h"

namespace korvel::test {

class FlatMemoryTest : public Stage {
 protected:
  FlatMemoryTest() {
    const std::string bmp = BmpFile(8, 8, [](int, int) { return kGreen; });
    TheHost().files["bmp"] = bmp;
    TheHost().files["png"] = FlatPng(8, 8, kGreen);
    TheHost().files["jpeg"] = Encoded(bmp, L"image/jpeg");
    TheHost().files["gif"] = GifFile(2, 8, 8);
    TheHost().files["wrong"] = FlatPng(8, 8, kGreen).substr(0, 50);
    for (const char* name : {"bmp", "png", "jpeg", "gif", "wrong", "absent"}) Add(name, 4);
    Add("bmp", 2);  // no I-frame
    Place(video_, 0, 0, 8, 8);
    Show(ItemType::Video, video_);
  }

  // Paints the pictures in turn, one per redraw.
  void PaintInTurn(int times) {
    TheEngine().raised.clear();
    for (int count = 0; count < times; ++count) {
      int index = 0;
      for (const StackedVisible& entry : App().DisplayStack) {
        entry.visible->RunningStatus = index++ == count % kPictures;
      }
      TheHost().fetched.clear();
      State().keptPictures.Clear();  // so that each redraw decodes
      ResetRedrawCounter();
      ASSERT_EQ(Redraw(), Status::Done);
    }
    const auto rounds = static_cast<std::size_t>(times / kPictures);
    EXPECT_EQ(TheEngine().raised.size(), 3 * rounds)
        << "one event each for an invalid file, a missing file, and a file that is no I-frame";
  }

 private:
  static constexpr int kPictures = 8;

  void Add(const std::string& name, std::int32_t hook) {
    Bitmap& bitmap = bitmaps_.at(count_++);
    Place(bitmap, 0, 0, 8, 8);
    bitmap.ContentHOOK = hook;
    bitmap.Content.IsReferenced = true;
    bitmap.Content.Data = Octets("~/" + name);
    Show(ItemType::Bitmap, bitmap);
  }

  std::array<Bitmap, kPictures> bitmaps_;
  std::size_t count_ = 0;
  Video video_;
};

TEST_F(FlatMemoryTest, ten_thousand_redraws_hold_no_more_than_a_thousand) {
  constexpr std::size_t kFewBlocks = 100;
  constexpr std::size_t kFewBytes = 256 * 1024;  // one group of small blocks for each of many sizes
  PaintInTurn(1000);
  TheEngine().raised = {};
  const Holdings before = Held();
  ASSERT_GT(before.blocks, 100U) << "the system does not report the heap's blocks";
  PaintInTurn(9000);
  TheEngine().raised = {};
  const Holdings after = Held();
  EXPECT_LT(after.blocks, before.blocks + kFewBlocks);
  EXPECT_LT(after.bytes, before.bytes + kFewBytes);
  EXPECT_LT(after.nextGdiIndex, before.nextGdiIndex + kFewBlocks);
}

TEST_F(FlatMemoryTest, held_resources_are_counted) {
  constexpr std::size_t kSome = 1000;
  constexpr std::size_t kTooLargeForGroups = 40'000;
  const Holdings before = Held();
  std::vector<HGLOBAL> blocks;
  std::vector<HBRUSH> brushes;
  for (std::size_t count = 0; count < kSome; ++count) {
    blocks.push_back(GlobalAlloc(GMEM_MOVEABLE, kTooLargeForGroups));
    brushes.push_back(CreateSolidBrush(RGB(4, 5, 6)));
  }
  const Holdings after = Held();
  EXPECT_GE(after.blocks, before.blocks + kSome);
  EXPECT_GE(after.bytes, before.bytes + kSome * kTooLargeForGroups);
  EXPECT_GE(after.nextGdiIndex, before.nextGdiIndex + kSome / 2) << "some may fill gaps";
  for (HGLOBAL block : blocks) GlobalFree(block);
  for (HBRUSH brush : brushes) DeleteObject(brush);
}

}  // namespace korvel::test
