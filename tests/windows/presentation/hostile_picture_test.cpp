// Pictures that are made to be slow, to fill the memory or to confuse a decoder: whatever they are,
// a painting ends within a second, and what is not drawn is reported as missing.
#include <random>

#include "windows/presentation/content.h"
#include "windows/presentation/picture_stage.h"

namespace korvel::test {

namespace {

std::string Number(std::uint32_t number, int bytes, bool isBigFirst) {
  std::string text;
  for (int byte = 0; byte < bytes; ++byte) {
    text += static_cast<char>(number >> 8 * (isBigFirst ? bytes - 1 - byte : byte));
  }
  return text;
}

// The library's own picture, which is a progressive JPEG.
std::string ProgressiveJpeg() {
  HRSRC place = FindResourceA(nullptr, MAKEINTRESOURCEA(101), "VIDEO_JPG");
  return {static_cast<const char*>(LockResource(LoadResource(nullptr, place))),
          SizeofResource(nullptr, place)};
}

// The part of a JPEG file that begins with its last scan, but for the end of the picture.
std::string LastScan(const std::string& jpeg) {
  const std::size_t start = jpeg.rfind("\xFF\xDA");
  return jpeg.substr(start, jpeg.rfind("\xFF\xD9") - start);
}

}  // namespace

using HostilePictureTest = PictureStage;

TEST_F(HostilePictureTest, pictures_far_larger_than_the_scene_are_drawn) {
  ExpectShown(FlatPng(1920, 1152, kGreen), "high definition");
  ExpectShown(FlatPng(4095, 4095, kGreen), "the largest of I-frames");
  ExpectShown(FlatPng(900'000, 1, kGreen), "one row");
  ExpectShown(FlatPng(1, 900'000, kGreen), "one column");
}

TEST_F(HostilePictureTest, a_large_picture_has_what_is_left_of_the_redraw) {
  std::vector<Bitmap> more(3);
  for (Bitmap& one : more) {
    Place(one, 0, 0, 720, 576);
    one.ContentHOOK = 4;
    one.Content.IsReferenced = true;
    one.Content.Data = Octets("~/picture");
    Show(ItemType::Bitmap, one);
  }
  EXPECT_EQ(PaintQuickly(FlatPng(5000, 5000, kGreen)).At(0, 0), kGreen);
  EXPECT_GE(TheEngine().raised.size(), 1U) << "the next one comes too late";
}

TEST_F(HostilePictureTest, a_valid_picture_of_few_bytes_and_20000_by_20000_pixels_is_missing) {
  ExpectMissing(FlatPng(20000, 20000, kGreen), "20,000 x 20,000");
  ExpectMissing(FlatPng(60000, 1000, kGreen), "60,000 x 1000");
}

TEST_F(HostilePictureTest, a_picture_that_claims_no_size_or_any_size_is_missing) {
  std::string jpeg = Encoded(BmpFile(8, 8, [](int, int) { return kGreen; }), L"image/jpeg");
  const std::size_t frame = jpeg.find("\xFF\xC0");
  ASSERT_NE(frame, std::string::npos);
  for (const std::uint32_t side : {0U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 0x0000FFFFU}) {
    std::string png = FlatPng(8, 8, kGreen);
    png.replace(16, 8, Number(side, 4, true) + Number(side, 4, true));
    ExpectMissing(png, "PNG");
    std::string bmp = BmpFile(8, 8, [](int, int) { return kGreen; });
    bmp.replace(18, 8, Number(side, 4, false) + Number(side, 4, false));
    ExpectMissing(bmp, "BMP");
    std::string gif = GifFile(1);
    gif.replace(24, 4, Number(side, 2, false) + Number(side, 2, false));
    if ((side & 0xFFFF) != 0 || side == 0) ExpectMissing(gif, "GIF");
    jpeg.replace(frame + 5, 4, Number(side, 2, true) + Number(side, 2, true));
    ExpectMissing(jpeg, "JPEG");
  }
}

TEST_F(HostilePictureTest, a_screen_of_a_gif_counts_as_its_size_too) {
  ExpectShown(GifFile(1, 0, 0), "none");
  ExpectShown(GifFile(1, 720, 576), "a scene's");
  ExpectMissing(GifFile(1, 60000, 60000), "a huge one");
}

TEST_F(HostilePictureTest, run_lengths_in_a_picture_that_claims_to_be_huge_are_not_followed) {
  std::string bmp = BmpFile(1, 1, [](int, int) { return kGreen; });
  bmp.replace(18, 16,
              Number(30000, 4, false) + Number(30000, 4, false) + Number(0x00080001, 4, false) +
                  Number(1, 4, false));
  ExpectMissing(bmp, "8 bits with run lengths");
}

TEST_F(HostilePictureTest, texts_in_a_picture_cost_nothing) {
  std::string chunks;
  for (int count = 0; count < 100'000; ++count) chunks += PngChunk("tEXt", std::string("a\0b", 3));
  ExpectShown(FlatPngWith(8, 8, kGreen, chunks), "100,000 texts");
}

TEST_F(HostilePictureTest, a_picture_in_a_hundred_thousand_parts_is_missing) {
  std::string chunks;
  const std::string part = PngChunk("IDAT", "");
  for (int count = 0; count < 100'000; ++count) chunks += part;
  ExpectMissing(FlatPngWith(8, 8, kGreen, chunks), "empty parts");
}

TEST_F(HostilePictureTest, of_many_frames_only_the_first_is_decoded) {
  ExpectShown(GifFile(1), "one");
  ExpectShown(GifFile(200'000), "200,000");
}

TEST_F(HostilePictureTest, a_jpeg_picture_of_three_thousand_scans_is_missing) {
  const std::string jpeg = ProgressiveJpeg();
  EXPECT_FALSE(PaintQuickly(jpeg).IsAll(kWholeScene, kBlack));
  std::string scans = jpeg.substr(0, jpeg.rfind("\xFF\xD9"));
  for (int count = 0; count < 3000; ++count) scans += LastScan(jpeg);
  ExpectMissing(scans + "\xFF\xD9", "3000 scans");
}

TEST_F(HostilePictureTest, the_slowest_pictures_that_are_drawn_end_within_a_second) {
  bitmap.ScaledSize = {719, 575};
  bitmap.Transparency = 50;
  bitmap.Tiling = true;
  struct Kind {
    const wchar_t* type;
    int side;
  };
  for (const Kind& kind :
       {Kind{L"image/bmp", 1800}, Kind{L"image/png", 1800}, Kind{L"image/jpeg", 2600}}) {
    std::minstd_rand random;
    const std::string file =
        Encoded(BmpFile(kind.side, kind.side,
                        [&random](int, int) { return static_cast<std::uint32_t>(random()); }),
                kind.type);
    ASSERT_FALSE(file.empty());
    EXPECT_FALSE(PaintQuickly(file).IsAll(kWholeScene, kBlack)) << kind.side;
    EXPECT_TRUE(TheEngine().raised.empty()) << kind.side;
  }
}

TEST_F(HostilePictureTest, every_prefix_of_a_picture_is_drawn_in_part_or_missing) {
  const std::string bmp = BmpFile(4, 4, [](int, int) { return kGreen; });
  for (const std::string& whole :
       {FlatPng(4, 4, kGreen), GifFile(2), bmp, Encoded(bmp, L"image/jpeg")}) {
    for (std::size_t length = 0; length < whole.size(); length += whole.size() / 60 + 1) {
      Redraw(whole.substr(0, length));
      EXPECT_LE(TheEngine().raised.size(), 1U);
    }
  }
}

TEST_F(HostilePictureTest, pixels_and_colours_that_are_not_in_the_file_are_not_looked_for) {
  const std::string bmp = BmpFile(8, 8, [](int, int) { return kGreen; });
  ExpectShown(bmp, "as it is");
  struct Change {
    std::size_t at;
    std::string bytes;
  };
  for (const Change& change :
       {Change{10, Number(0x75000036, 4, false)}, Change{10, Number(0xFFFFFFF0, 4, false)},
        Change{14, Number(13, 4, false)}, Change{28, Number(64, 2, false)},
        Change{28, Number(8, 2, false) + std::string(16, '\0') + Number(257, 4, false)}}) {
    std::string wrong = bmp;
    wrong.replace(change.at, change.bytes.size(), change.bytes);
    ExpectMissing(wrong, "changed");
  }
  ExpectMissing(bmp.substr(0, bmp.size() - 1), "a byte short");
}

TEST_F(HostilePictureTest, pictures_with_wrong_bytes_are_survived) {
  const std::string bmp = BmpFile(
      16, 16, [](int x, int y) { return static_cast<std::uint32_t>(x * 16 << 16 | y * 16); });
  std::string runs = bmp;
  runs.replace(28, 6, Number(8, 2, false) + Number(1, 4, false));
  std::minstd_rand random;
  for (const std::string& whole :
       {bmp, runs, Encoded(bmp, L"image/png"), Encoded(bmp, L"image/jpeg"),
        Encoded(bmp, L"image/gif"), GifFile(3)}) {
    for (int round = 0; round < 60; ++round) {
      std::string wrong = whole;
      for (int count = 0; count < 4; ++count) {
        wrong[random() % wrong.size()] = static_cast<char>(random());
      }
      Redraw(wrong);
    }
  }
}

}  // namespace korvel::test
