// ICO pictures: which one of a file is drawn, its pixels and its mask, as GDI+ reads what is left
// of the file.
#include <random>

#include "presentation/picture_limits.h"
#include "support/picture_files.h"
#include "windows/presentation/content.h"
#include "windows/presentation/picture_stage.h"

namespace korvel::test {

namespace {

// A square of one colour (blue, green, red and how opaque it is).
std::string Square(std::uint32_t side, std::string_view colour) {
  std::string rest;
  for (std::uint32_t pixel = 0; pixel < side * side; ++pixel) rest += colour;
  return IcoPicture(side, side * 2, 32, rest + std::string(std::size_t{side} * 4, '\0'));
}

const std::string kGreenPixel("\0\xFF\0\xFF", 4);
const std::string kRedPixel("\0\0\xFF\xFF", 4);

// Two rows of 8 pixels, one bit each, from below: 1 is green. The left half is masked out.
const std::string kMasked =
    IcoPicture(8, 4, 1,
               std::string("\0\0\xFF\0\0\xFF\0\0", 8) + std::string("\xFF\0\0\0\xAA\0\0\0", 8) +
                   std::string("\xF0\0\0\0\xF0\0\0\0", 8));

}  // namespace

class IcoTest : public PictureStage {
 protected:
  // A blue scene below the bitmap.
  void ShowBelow() {
    Place(below_, 0, 0, 720, 576);
    Fill(below_, kBlueBytes);
    App().DisplayStack.Clear();
    Show(ItemType::Rectangle, below_);
    Show(ItemType::Bitmap, bitmap);
  }

 private:
  Rectangle below_;
};

TEST_F(IcoTest, the_first_picture_is_drawn_whatever_the_others_are) {
  const Pixels small = PaintQuickly(IcoFile({Square(16, kGreenPixel), Square(48, kRedPixel)}));
  EXPECT_EQ(small.Extent(kWholeScene), (Area{0, 0, 16, 16}));
  EXPECT_TRUE(small.IsAll({0, 0, 16, 16}, kGreen));
  const Pixels large = PaintQuickly(IcoFile({Square(48, kGreenPixel), Square(16, kRedPixel)}));
  EXPECT_EQ(large.Extent(kWholeScene), (Area{0, 0, 48, 48}));
  EXPECT_TRUE(large.IsAll({0, 0, 48, 48}, kGreen));
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(IcoTest, a_png_file_in_it_is_drawn) {
  const Pixels picture = PaintQuickly(IcoFile({FlatPng(20, 30, kGreen), Square(48, kRedPixel)}));
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{0, 0, 20, 30}));
  EXPECT_TRUE(picture.IsAll({0, 0, 20, 30}, kGreen));
}

TEST_F(IcoTest, what_lies_below_is_seen_where_the_mask_says_so) {
  ShowBelow();
  const Pixels picture = PaintQuickly(IcoFile({kMasked}));
  EXPECT_TRUE(picture.IsAll({0, 0, 4, 2}, kBlue));
  EXPECT_TRUE(picture.IsAll({4, 1, 8, 2}, kGreen)) << "the lower row, which comes first";
  EXPECT_EQ(picture.At(4, 0), kGreen);
  EXPECT_EQ(picture.At(5, 0), kRed);
}

TEST_F(IcoTest, what_lies_below_is_seen_through_transparent_pixels) {
  ShowBelow();
  const Pixels picture = PaintQuickly(IcoFile({Square(16, {"\0\0\xFF\x80", 4})}));
  EXPECT_NEAR(picture.At(8, 8) >> 16, 128, 3);
  EXPECT_NEAR(picture.At(8, 8) & 0xFF, 127, 3);
}

TEST_F(IcoTest, far_larger_than_the_scene_is_drawn_in_time_and_a_huge_one_is_missing) {
  constexpr std::uint32_t height = 2160;
  const std::string colours("\0\xFF\0\0\0\0\0\0", 8);
  const std::string rows(std::size_t{480} * 2 * height, '\0');
  ExpectShown(IcoFile({IcoPicture(3840, height * 2, 1, colours + rows)}),
              "of ultra high definition");
  const std::string manyRows(std::size_t{7500} * 2 * 1000, '\0');
  ExpectMissing(IcoFile({IcoPicture(60000, 2000, 1, colours + manyRows)}), "60,000 x 1000");
  ExpectMissing(IcoFile({FlatPng(20000, 20000, kGreen)}), "as a PNG file");
}

TEST_F(IcoTest, of_65535_pictures_only_the_first_is_looked_at) {
  ExpectShown(IcoFile(std::vector<std::string>(65535, Square(2, kGreenPixel))), "65,535 pictures");
}

TEST_F(IcoTest, with_wrong_bytes_is_survived) {
  std::minstd_rand random;
  for (const std::string& whole :
       {IcoFile({kMasked}), IcoFile({Square(16, kGreenPixel)}), IcoFile({FlatPng(16, 16, kGreen)}),
        IcoFile({Square(2, std::string(4, '\0')), kMasked})}) {
    for (int round = 0; round < 60; ++round) {
      std::string wrong = whole;
      for (int count = 0; count < 4; ++count) {
        wrong[random() % std::min<std::size_t>(wrong.size(), 100)] = static_cast<char>(random());
      }
      Redraw(wrong);
    }
  }
}

}  // namespace korvel::test
