// Tests bitmaps: where their content comes from, and how it fills the box.
#include "objects/limits.h"
#include "platform/screen.h"
#include "presentation/presentation.h"
#include "presentation/state.h"
#include "windows/presentation/content.h"
#include "windows/presentation/processor_time.h"
#include "windows/presentation/stage.h"
#include "windows/support/imports.h"

namespace korvel::test {

namespace {

// Four quarters: red, green, blue, white.
std::uint32_t Quarters(int x, int y, int width, int height) {
  if (y < height / 2) return x < width / 2 ? kRed : kGreen;
  return x < width / 2 ? kBlue : kWhite;
}

std::string QuarteredBmp(int width, int height) {
  return BmpFile(width, height,
                 [width, height](int x, int y) { return Quarters(x, y, width, height); });
}

int loads = 0;

// Calls the function of GDI+ by its address, because this module's own calls are replaced.
Gdiplus::GpStatus WINAPI CountedLoad(IStream* stream, Gdiplus::GpImage** image) {
  static const auto load = reinterpret_cast<decltype(&CountedLoad)>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleA("gdiplus.dll"), "GdipLoadImageFromStream")));
  ++loads;
  return load(stream, image);
}

}  // namespace

class BitmapTest : public Stage {
 protected:
  BitmapTest() {
    Place(bitmap, 100, 100, 40, 40);
    bitmap.ContentHOOK = 4;
    bitmap.Content.IsReferenced = true;
    bitmap.Content.Data = Octets("~/picture");
    TheHost().files["picture"] = QuarteredBmp(40, 40);
    Show(ItemType::Bitmap, bitmap);
  }
  void ExpectEvent(const char* what) {
    EXPECT_EQ(TheEngine().raised.size(), 1U) << what;
    TheEngine().raised.clear();
  }

  Bitmap bitmap;
};

TEST_F(BitmapTest, is_drawn_pixel_by_pixel_in_its_box) {
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{100, 100, 140, 140}));
  EXPECT_TRUE(picture.IsAll({100, 100, 120, 120}, kRed));
  EXPECT_TRUE(picture.IsAll({120, 100, 140, 120}, kGreen));
  EXPECT_TRUE(picture.IsAll({100, 120, 120, 140}, kBlue));
  EXPECT_TRUE(picture.IsAll({120, 120, 140, 140}, kWhite));
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(BitmapTest, an_unchanged_file_is_read_but_not_decoded_again) {
  const ReplacedImport counted(GetModuleHandleA(nullptr), "GdipLoadImageFromStream", CountedLoad);
  ASSERT_TRUE(counted.IsInPlace());
  loads = 0;
  const Pixels first = Paint();
  EXPECT_EQ(Paint(), first);
  EXPECT_EQ(TheHost().fetched.size(), 2U);
  EXPECT_EQ(loads, 1);
  ClearImageCache();
  EXPECT_EQ(Paint(), first);
  EXPECT_EQ(loads, 2);
}

TEST_F(BitmapTest, a_changed_file_of_the_same_size_is_decoded_again) {
  static_cast<void>(Paint());
  TheHost().files["picture"] = BmpFile(40, 40, [](int, int) { return kBlue; });
  EXPECT_TRUE(Paint().IsAll({100, 100, 140, 140}, kBlue));
  TheHost().files["picture"] = QuarteredBmp(40, 40);
  EXPECT_TRUE(Paint().IsAll({100, 100, 120, 120}, kRed));
}

TEST_F(BitmapTest, decoded_pictures_are_kept_up_to_a_limit) {
  for (std::uint32_t blue = 0; blue < 2 * kMostKeptPictures; ++blue) {
    TheHost().files["picture"] = FlatPng(4, 4, blue);
    ASSERT_EQ(Paint().At(100, 100), blue);
    ASSERT_LE(State().keptPictures.Size(), kMostKeptPictures);
  }
  constexpr std::uint32_t kSide = 1500;  // two of these exceed the limit
  for (const std::uint32_t colour : {kRed, kGreen, kBlue}) {
    TheHost().files["picture"] = FlatPng(kSide, kSide, colour);
    ASSERT_EQ(Paint().At(100, 100), colour);
    ASSERT_EQ(State().keptPictures.Size(), 1U);
  }
}

TEST_F(BitmapTest, the_file_is_named_by_the_content_reference) {
  bitmap.Content.Data = Octets("~/a/b.png");
  static_cast<void>(Paint());
  bitmap.Content.Data = Octets("b.png");
  static_cast<void>(Paint());
  const std::vector<std::string> expected = {"a\\b.png", "b.png"};
  EXPECT_EQ(TheHost().fetched, expected);
}

TEST_F(BitmapTest, png_and_jpeg_are_pictures_too) {
  const std::string bmp = QuarteredBmp(40, 40);
  for (const wchar_t* type : {L"image/png", L"image/jpeg"}) {
    TheHost().files["picture"] = Encoded(bmp, type);
    ASSERT_FALSE(TheHost().files["picture"].empty());
    const std::uint32_t green = Paint().At(130, 110);
    EXPECT_NEAR(green >> 16, 0, 12);
    EXPECT_NEAR(green >> 8 & 0xFF, 255, 12);
    EXPECT_NEAR(green & 0xFF, 0, 12);
  }
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(BitmapTest, gif_is_a_picture_too) {
  // One green pixel.
  TheHost().files["picture"] =
      std::string("GIF89a\x01\x00\x01\x00\x80\x00\x00\x00\xFF\x00\x00\x00\x00"
                  "\x2C\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00\x3B",
                  35);
  EXPECT_EQ(Paint().At(100, 100), kGreen);
}

TEST_F(BitmapTest, included_content_is_drawn_without_a_file) {
  bitmap.Content.IsReferenced = false;
  bitmap.Content.Data = Octets(QuarteredBmp(40, 40));
  EXPECT_TRUE(Paint().IsAll({100, 100, 120, 120}, kRed));
  EXPECT_TRUE(TheHost().fetched.empty());
}

TEST_F(BitmapTest, a_transparency_of_100_is_invisible_0_opaque_and_50_half) {
  Rectangle below;
  Place(below, 0, 0, 720, 576);
  Fill(below, kGreenBytes);
  App().DisplayStack.Clear();
  Show(ItemType::Rectangle, below);
  Show(ItemType::Bitmap, bitmap);
  bitmap.Transparency = 100;
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kGreen));
  bitmap.Transparency = 0;
  EXPECT_EQ(Paint().At(110, 110), kRed);
  bitmap.Transparency = 50;
  const std::uint32_t mixed = Paint().At(110, 110);
  EXPECT_NEAR(mixed >> 16, 127, 3);
  EXPECT_NEAR(mixed >> 8 & 0xFF, 127, 3);
}

TEST_F(BitmapTest, without_tiling_it_is_shown_once_and_the_rest_of_the_box_is_unchanged) {
  bitmap.BoxSize = {100, 90};
  EXPECT_EQ(Paint().Extent(kWholeScene), (Area{100, 100, 140, 140}));
}

TEST_F(BitmapTest, with_tiling_it_repeats_from_the_top_left_corner_and_is_clipped_to_the_box) {
  bitmap.BoxSize = {100, 90};
  bitmap.Tiling = true;
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{100, 100, 200, 190}));
  for (int y = 0; y < 90; ++y) {
    for (int x = 0; x < 100; ++x) {
      ASSERT_EQ(picture.At(100 + x, 100 + y), Quarters(x % 40, y % 40, 40, 40)) << x << ' ' << y;
    }
  }
}

TEST_F(BitmapTest, a_box_smaller_than_the_picture_shows_its_top_left_part) {
  bitmap.BoxSize = {30, 10};
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{100, 100, 130, 110}));
  EXPECT_TRUE(picture.IsAll({100, 100, 120, 110}, kRed));
  EXPECT_TRUE(picture.IsAll({120, 100, 130, 110}, kGreen));
}

TEST_F(BitmapTest, scaled_to_twice_its_size_the_box_shows_the_top_left_quarter) {
  bitmap.ScaledSize = {80, 80};
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{100, 100, 140, 140}));
  EXPECT_TRUE(picture.IsAll({100, 100, 138, 138}, kRed)) << "except blending at the edge";
}

TEST_F(BitmapTest, scaled_to_half_its_size_the_whole_picture_is_shown_small) {
  bitmap.ScaledSize = {20, 20};
  const Pixels picture = Paint();
  EXPECT_EQ(picture.At(104, 104), kRed);
  EXPECT_EQ(picture.At(115, 104), kGreen);
  EXPECT_EQ(picture.At(104, 115), kBlue);
  EXPECT_EQ(picture.At(115, 115), kWhite);
  EXPECT_EQ(picture.At(125, 125), kBlack);
}

TEST_F(BitmapTest, scaled_to_nothing_it_is_not_drawn_or_reported_missing) {
  for (const korvel::BoxSize size : {korvel::BoxSize{0, 40}, {40, 0}, {0, 0}}) {
    bitmap.ScaledSize = {size.Width, size.Height};
    EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  }
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(BitmapTest, in_a_box_without_area_its_file_is_not_read) {
  for (const bool exists : {true, false}) {
    if (!exists) TheHost().files.clear();
    for (const int hook : {2, 4}) {
      bitmap.ContentHOOK = hook;
      for (const korvel::BoxSize size : {korvel::BoxSize{0, 40}, {40, 0}, {-1, 40}, {40, -1}}) {
        bitmap.BoxSize = size;
        EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
      }
    }
  }
  EXPECT_TRUE(TheHost().fetched.empty());
  EXPECT_TRUE(TheEngine().raised.empty());
  bitmap.BoxSize = {1, 1};
  static_cast<void>(Paint());
  EXPECT_EQ(TheHost().fetched.size(), 1U);
  ExpectEvent("missing in the smallest box");
}

TEST_F(BitmapTest, a_content_hook_below_1_is_replaced_by_the_applications) {
  App().Defaults.BitmapContentHook = 4;
  for (const int hook : {0, -1}) {
    bitmap.ContentHOOK = hook;
    EXPECT_EQ(Paint().At(110, 110), kRed);
    EXPECT_EQ(bitmap.ContentHOOK, 4);
  }
  App().Defaults.BitmapContentHook = 2;
  static_cast<void>(Paint());
  EXPECT_EQ(bitmap.ContentHOOK, 4) << "the bitmap's own hook must be kept";
}

TEST_F(BitmapTest, files_that_are_not_pictures_are_missing) {
  const std::string good = Encoded(QuarteredBmp(40, 40), L"image/png");
  TheHost().files["picture"] = "no picture";
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  ExpectEvent("no picture");
  TheHost().files["picture"] = "";
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  ExpectEvent("empty");
  TheHost().files["picture"] = good.substr(0, 20);
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  ExpectEvent("cut short");
  TheHost().files.clear();
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  ExpectEvent("not there");
  bitmap.Content.Data.Clear();
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  ExpectEvent("no content");
}

TEST_F(BitmapTest, a_picture_that_claims_to_be_huge_is_missing) {
  // A valid PNG file except that its header claims 60,000 x 60,000 pixels.
  std::string png = Encoded(QuarteredBmp(40, 40), L"image/png");
  const std::string side("\x00\x00\xEA\x60", 4);
  png.replace(16, 8, side + side);
  TheHost().files["picture"] = png;
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  ExpectEvent("huge");
}

TEST_F(BitmapTest, tiles_of_one_pixel_cover_the_whole_scene) {
  TheHost().files["picture"] = BmpFile(1, 1, [](int, int) { return kBlue; });
  Place(bitmap, 0, 0, 720, 576);
  bitmap.Tiling = true;
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlue));
}

TEST_F(BitmapTest, an_ordinary_box_is_drawn_after_extreme_boxes_and_scales) {
  constexpr std::int32_t kLargest = 0x7FFFFFFF;
  const std::uint64_t start = ProcessorMs();
  for (const bool tiling : {false, true}) {
    bitmap.Tiling = tiling;
    for (const std::int32_t scaled : {-1, 1, kLargest}) {
      bitmap.ScaledSize = {scaled, scaled};
      Place(bitmap, -kLargest, -kLargest, kLargest, kLargest);
      static_cast<void>(Paint());
      Place(bitmap, -10, -10, kLargest, kLargest);
      static_cast<void>(Paint());
    }
  }
  EXPECT_LT(ProcessorMs() - start, 12 * 1000U)
      << "more than a second per painting, for which a close waits";
  bitmap.ScaledSize = {-1, -1};
  Place(bitmap, 100, 100, 20, 20);
  EXPECT_TRUE(Paint().IsAll({100, 100, 120, 120}, kRed)) << "the next ordinary box";
}

TEST_F(BitmapTest, painting_many_times_does_not_leak) {
  const auto committed = [] {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof(status);
    GlobalMemoryStatusEx(&status);
    return status.ullTotalVirtual - status.ullAvailVirtual;
  };
  TheHost().files["picture"] = QuarteredBmp(400, 400);  // 640 kB: a leak would be 90 MB
  for (int painting = 0; painting < 20; ++painting) static_cast<void>(Paint());
  const auto before = committed();
  for (int painting = 0; painting < 150; ++painting) {
    // A changed file is decoded again.
    TheHost().files["picture"].back() = static_cast<char>(painting);
    ResetRedrawCounter();
    ASSERT_EQ(Redraw(), Status::Done);
  }
  EXPECT_LT(committed(), before + kMostKeptBytes + 20 * 1024 * 1024);
}

}  // namespace korvel::test
