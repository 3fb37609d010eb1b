// TIFF pictures: their pixels, as GDI+ reads what is left of the file, and files made to be slow or
// to confuse its decoder.
#include <random>

#include "presentation/picture_limits.h"
#include "support/picture_files.h"
#include "windows/presentation/content.h"
#include "windows/presentation/picture_stage.h"

namespace korvel::test {

namespace {

using Numbers = std::vector<std::uint32_t>;

std::string Repeated(std::string_view pixel, std::size_t count) {
  std::string pixels;
  for (; count > 0; --count) pixels += pixel;
  return pixels;
}

// 20 x 20 pixels: ten rows of red, ten of blue, a strip each.
TiffFile RedAndBlue() {
  return {20, 20, 10, {Repeated(kRedBytes, 200), Repeated(kBlueBytes, 200)}};
}

// One sample for each pixel: 0 is green, all others are black. All parts are the same one.
TiffFile FlatGreen(TiffFile file, std::size_t parts) {
  const bool isTiled = file.Entries.contains(tiff_tag::kTileWidth);
  Numbers palette(768);
  palette[256] = 0xFFFF;
  file.Entries[tiff_tag::kColours].Numbers = {3};
  file.Entries[tiff_tag::kPalette] = {TiffType::Short, palette};
  file.Entries[tiff_tag::kSamplesPerPixel].Numbers = {1};
  file.Entries[tiff_tag::kBitsPerSample].Numbers = {8};
  const auto bytes = static_cast<std::uint32_t>(file.Parts[0].size());
  const Numbers places(parts, 8);
  file.Entries[isTiled ? tiff_tag::kTilePlaces : tiff_tag::kStripPlaces].Numbers = places;
  file.Entries[isTiled ? tiff_tag::kTileBytes : tiff_tag::kStripBytes].Numbers =
      Numbers(parts, bytes);
  return file;
}

TiffFile With(TiffFile file, std::uint16_t tag, TiffType type, Numbers numbers) {
  file.Entries[tag] = {type, std::move(numbers)};
  return file;
}

TiffFile Deflated(TiffFile file) {
  return With(std::move(file), tiff_tag::kCompression, TiffType::Short, {8});
}

}  // namespace

using TiffTest = PictureStage;

TEST_F(TiffTest, is_drawn_pixel_by_pixel_in_either_order_of_bytes) {
  for (const bool isHighestFirst : {false, true}) {
    TiffFile file = RedAndBlue();
    file.IsHighestFirst = isHighestFirst;
    const Pixels picture = PaintQuickly(file.Bytes());
    EXPECT_EQ(picture.Extent(kWholeScene), (Area{0, 0, 20, 20}));
    EXPECT_TRUE(picture.IsAll({0, 0, 20, 10}, kRed));
    EXPECT_TRUE(picture.IsAll({0, 10, 20, 20}, kBlue));
    EXPECT_TRUE(TheEngine().raised.empty());
  }
}

TEST_F(TiffTest, of_tiles_is_drawn_with_each_in_its_place) {
  const std::string_view colours[] = {kRedBytes, kGreenBytes, kBlueBytes, kWhiteBytes};
  std::vector<std::string> tiles;
  for (const std::string_view colour : colours) tiles.push_back(Repeated(colour, 256));
  const Pixels picture = PaintQuickly(TiledTiff(24, 20, 16, 16, tiles).Bytes());
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{0, 0, 24, 20}));
  EXPECT_TRUE(picture.IsAll({0, 0, 16, 16}, kRed));
  EXPECT_TRUE(picture.IsAll({16, 0, 24, 16}, kGreen));
  EXPECT_TRUE(picture.IsAll({0, 16, 16, 20}, kBlue));
  EXPECT_TRUE(picture.IsAll({16, 16, 24, 20}, kWhite));
}

TEST_F(TiffTest, what_lies_below_is_seen_through_its_transparent_pixels) {
  Rectangle below;
  Place(below, 0, 0, 720, 576);
  Fill(below, kBlueBytes);
  App().DisplayStack.Clear();
  Show(ItemType::Rectangle, below);
  Show(ItemType::Bitmap, bitmap);
  // Red, half red, nothing; the colours of the second kind are darkened already.
  const std::string opaque("\xFF\0\0\xFF", 4);
  const std::string nothing("\0\0\0\0", 4);
  const std::pair<std::uint32_t, std::string> kinds[] = {
      {2, opaque + std::string("\xFF\0\0\x80", 4) + nothing},
      {1, opaque + std::string("\x80\0\0\x80", 4) + nothing}};
  for (const auto& [meaning, pixels] : kinds) {
    TiffFile file = With({3, 1, 1, {pixels}}, tiff_tag::kExtraSamples, TiffType::Short, {meaning});
    file.Entries[tiff_tag::kSamplesPerPixel].Numbers = {4};
    file.Entries[tiff_tag::kBitsPerSample].Numbers = {8, 8, 8, 8};
    const Pixels picture = PaintQuickly(file.Bytes());
    EXPECT_EQ(picture.At(0, 0), kRed);
    const std::uint32_t mixed = picture.At(1, 0);
    EXPECT_NEAR(mixed >> 16, 128, 3) << meaning;
    EXPECT_NEAR(mixed & 0xFF, 127, 3) << meaning;
    EXPECT_EQ(picture.At(2, 0), kBlue);
  }
}

TEST_F(TiffTest, by_the_encoder_of_the_system_is_drawn_as_it_was) {
  const auto colourAt = [](int x, int y) { return static_cast<std::uint32_t>(x << 19 | y << 3); };
  const std::string file = Encoded(BmpFile(30, 30, colourAt), L"image/tiff");
  ASSERT_FALSE(file.empty());
  const Pixels picture = PaintQuickly(file);
  for (int place = 0; place < 900; ++place) {
    ASSERT_EQ(picture.At(place % 30, place / 30), colourAt(place % 30, place / 30)) << place;
  }
}

TEST_F(TiffTest, far_larger_than_the_scene_is_drawn_in_time_and_a_huge_one_is_missing) {
  constexpr std::uint32_t height = 4000;
  const std::uint64_t pixels = std::uint64_t{2000} * height;
  ExpectShown(Deflated(FlatGreen({2000, height, height, {ZlibOfZeros(pixels)}}, 1)).Bytes(),
              "one strip");
  ExpectShown(Deflated(FlatGreen({2000, height, 1, {ZlibOfZeros(2000)}}, height)).Bytes(), "rows");
  ExpectMissing(Deflated(FlatGreen({5000, 5000, 1, {ZlibOfZeros(5000)}}, 5000)).Bytes(), "huge");
}

TEST_F(TiffTest, a_picture_that_claims_to_be_huge_is_missing) {
  for (const std::uint32_t side : {0U, 0xFFFFU, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
    for (const std::uint32_t rows : {1U, 0xFFFFFFFFU}) {
      ExpectMissing(TiffFile(side, side, rows, {Repeated(kGreenBytes, 64)}).Bytes(), "side");
    }
  }
}

TEST_F(TiffTest, pages_texts_and_directories_in_a_circle_cost_nothing) {
  TiffFile file = FlatGreen({8, 8, 8, {std::string(64, '\0')}}, 1);
  const auto place = static_cast<std::uint32_t>(file.DirectoryPlace());
  file.NextDirectory = place;
  ExpectShown(file.Bytes(), "a circle");
  for (int tag = 40'000; tag < 60'000; ++tag) {
    file.Entries[static_cast<std::uint16_t>(tag)] = {TiffType::Long, {place}};
  }
  ExpectShown(file.Bytes(), "20,000 private entries");
  file.Entries[tiff_tag::kSubDirectories] = {TiffType::Long, Numbers(1'000'000, place)};
  file.Entries[tiff_tag::kCameraDirectory] = {TiffType::Long, {place}};
  ExpectShown(file.Bytes(), "a million directories");
}

TEST_F(TiffTest, strips_that_are_the_same_megabyte_are_missing) {
  const std::string megabyte(1'000'000, '\0');
  ExpectMissing(FlatGreen({8, 1000, 1, {megabyte}}, 1000).Bytes(), "not packed");
  ExpectMissing(Deflated(FlatGreen({8, 1000, 1, {megabyte}}, 1000)).Bytes(), "packed");
}

TEST_F(TiffTest, tiles_of_any_size_are_quick_or_missing) {
  const std::string pixel = ZlibOfZeros(1);
  ExpectShown(Deflated(FlatGreen(TiledTiff(128, 128, 1, 1, {pixel}), 128 * 128)).Bytes(), "1 x 1");
  ExpectMissing(Deflated(FlatGreen(TiledTiff(720, 576, 1, 1, {pixel}), 720 * 576)).Bytes(),
                "more of them");
  const std::string rows = ZlibOfZeros(256);
  ExpectShown(Deflated(FlatGreen(TiledTiff(720, 576, 16, 16, {rows}), 45 * 36)).Bytes(), "16 x 16");
  const std::string half = ZlibOfZeros(360 * 576);
  ExpectMissing(Deflated(FlatGreen(TiledTiff(720, 576, 360, 576, {half}), 2)).Bytes(), "halves");
  const std::string whole = ZlibOfZeros(1024 * 1024);
  ExpectShown(Deflated(FlatGreen(TiledTiff(720, 576, 1024, 1024, {whole}), 1)).Bytes(), "one");
  ExpectMissing(Deflated(FlatGreen(TiledTiff(8, 8, 60000, 60000, {whole}), 1)).Bytes(), "enormous");
}

TEST_F(TiffTest, what_does_not_unpack_to_as_much_as_it_should_is_quick) {
  for (const std::uint64_t zeros : {std::uint64_t{1}, std::uint64_t{100'000'000}}) {
    static_cast<void>(
        PaintQuickly(Deflated(FlatGreen({8, 8, 8, {ZlibOfZeros(zeros)}}, 1)).Bytes()));
  }
}

TEST_F(TiffTest, with_wrong_bytes_is_survived) {
  std::string pixels;
  for (int byte = 0; byte < 24 * 24 * 3; ++byte) pixels += static_cast<char>(byte);
  const TiffFile raw(24, 24, 8,
                     {pixels.substr(0, 576), pixels.substr(576, 576), pixels.substr(1152)});
  TiffFile tiles = TiledTiff(24, 16, 16, 16, {pixels.substr(0, 768), pixels.substr(768, 768)});
  std::minstd_rand random;
  for (const std::uint32_t way : {1U, 5U, 8U, 32773U}) {
    for (TiffFile file : {raw, tiles}) {
      file.Entries[tiff_tag::kCompression].Numbers = {way};
      if (way == 8) file.Parts.assign(file.Parts.size(), ZlibOfZeros(768));
      const std::string whole = file.Bytes();
      for (int round = 0; round < 60; ++round) {
        std::string wrong = whole;
        for (int count = 0; count < 4; ++count) {
          wrong[random() % wrong.size()] = static_cast<char>(random());
        }
        Redraw(wrong);
      }
    }
  }
}

}  // namespace korvel::test
