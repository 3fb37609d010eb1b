// Tests pictures that are made to exhaust memory, to run programs or to confuse a decoder. Pictures
// beyond the limits count as missing, and missing pictures are reported.
#include <random>

#include "presentation/picture.h"
#include "support/number_bytes.h"
#include "windows/presentation/content.h"
#include "windows/presentation/picture_stage.h"

namespace korvel::test {

namespace {

// The library's own picture, which is a progressive JPEG.
std::string ProgressiveJpeg() {
  HRSRC resource = FindResourceA(nullptr, MAKEINTRESOURCEA(101), "VIDEO_JPG");
  return {static_cast<const char*>(LockResource(LoadResource(nullptr, resource))),
          SizeofResource(nullptr, resource)};
}

// The last scan of a JPEG file, without the end-of-image marker.
std::string LastScan(const std::string& jpeg) {
  const std::size_t start = jpeg.rfind("\xFF\xDA");
  return jpeg.substr(start, jpeg.rfind("\xFF\xD9") - start);
}

// A metafile that fills a rectangle with green.
std::string GreenMetafile() {
  HDC context = CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
  const RECT all{0, 0, 100, 100};
  HBRUSH green = CreateSolidBrush(RGB(0, 255, 0));
  FillRect(context, &all, green);
  DeleteObject(green);
  HENHMETAFILE metafile = CloseEnhMetaFile(context);
  std::string bytes(GetEnhMetaFileBits(metafile, 0, nullptr), '\0');
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()),
                     reinterpret_cast<BYTE*>(bytes.data()));
  DeleteEnhMetaFile(metafile);
  return bytes;
}

// Whether GDI+ by itself can read the file.
bool IsReadByGdiPlus(const std::string& file) {
  IStream* stream = nullptr;
  if (CreateStreamOnHGlobal(nullptr, TRUE, &stream) != S_OK) return false;
  stream->Write(file.data(), static_cast<ULONG>(file.size()), nullptr);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  ImageOwner image;
  const bool isRead = Succeeded(gdip::GdipLoadImageFromStream(stream, image.Slot()));
  image.Reset();
  stream->Release();
  return isRead;
}

}  // namespace

using HostilePictureTest = PictureStage;

TEST_F(HostilePictureTest, pictures_of_up_to_16_mebipixels_are_drawn) {
  ExpectShown(FlatPng(1920, 1152, kGreen), "high definition");
  ExpectShown(FlatPng(4096, 4096, kGreen), "the limit");
  ExpectShown(FlatPng(900'000, 1, kGreen), "one row");
  ExpectShown(FlatPng(1, 900'000, kGreen), "one column");
}

TEST_F(HostilePictureTest, larger_pictures_of_few_bytes_are_missing) {
  ExpectMissing(FlatPng(4097, 4096, kGreen), "a column too many");
  ExpectMissing(FlatPng(20000, 20000, kGreen), "20,000 x 20,000");
  ExpectMissing(FlatPng(60000, 1000, kGreen), "60,000 x 1000");
}

TEST_F(HostilePictureTest, a_size_that_only_the_decoder_finds_has_the_same_limit) {
  // The engine does not examine a TIFF file's size before GDI+ reads it.
  const auto tiff = [](int side) {
    return Encoded(BmpFile(side, side, [](int, int) { return kGreen; }), L"image/tiff");
  };
  ExpectShown(tiff(64), "64 x 64");
  std::string large = tiff(64);
  const std::string width("\0\1\4\0\1\0\0\0", 8);
  const std::string height("\1\1\4\0\1\0\0\0", 8);
  for (const std::string& tag : {width, height}) {
    std::size_t at = large.find(tag);
    if (at == std::string::npos) at = large.find(std::string(tag).replace(2, 1, 1, '\3'));
    ASSERT_NE(at, std::string::npos);
    large.replace(at + 8, 4, Little(30000, 4));
  }
  ExpectMissing(large, "30,000 x 30,000");
}

TEST_F(HostilePictureTest, several_large_pictures_are_all_drawn) {
  std::vector<Bitmap> more(3);
  for (Bitmap& one : more) {
    Place(one, 0, 0, 720, 576);
    one.ContentHOOK = 4;
    one.Content.IsReferenced = true;
    one.Content.Data = Octets("~/picture");
    Show(ItemType::Bitmap, one);
  }
  ExpectShown(FlatPng(4000, 4000, kGreen), "four times 4000 x 4000");
}

TEST_F(HostilePictureTest, a_picture_that_claims_no_size_or_any_size_is_missing) {
  std::string jpeg = Encoded(BmpFile(8, 8, [](int, int) { return kGreen; }), L"image/jpeg");
  const std::size_t frame = jpeg.find("\xFF\xC0");
  ASSERT_NE(frame, std::string::npos);
  for (const std::uint32_t side : {0U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 0x0000FFFFU}) {
    std::string png = FlatPng(8, 8, kGreen);
    png.replace(16, 8, Big(side, 4) + Big(side, 4));
    ExpectMissing(png, "PNG");
    std::string bmp = BmpFile(8, 8, [](int, int) { return kGreen; });
    bmp.replace(18, 8, Little(side, 4) + Little(side, 4));
    ExpectMissing(bmp, "BMP");
    std::string gif = GifFile(1);
    gif.replace(24, 4, Little(side, 2) + Little(side, 2));
    if ((side & 0xFFFF) != 0 || side == 0) ExpectMissing(gif, "GIF");
    jpeg.replace(frame + 5, 4, Big(side, 2) + Big(side, 2));
    ExpectMissing(jpeg, "JPEG");
  }
}

TEST_F(HostilePictureTest, run_lengths_in_a_picture_that_claims_to_be_huge_are_not_followed) {
  std::string bmp = BmpFile(1, 1, [](int, int) { return kGreen; });
  bmp.replace(18, 16, Little(30000, 4) + Little(30000, 4) + Little(0x00080001, 4) + Little(1, 4));
  ExpectMissing(bmp, "8 bits with run lengths");
}

TEST_F(HostilePictureTest, after_pixels_and_colours_outside_the_file_the_next_picture_is_drawn) {
  const std::string bmp = BmpFile(8, 8, [](int, int) { return kGreen; });
  struct Change {
    std::size_t at;
    std::string bytes;
  };
  for (const Change& change : {Change{10, Little(0x75000036, 4)}, Change{10, Little(0xFFFFFFF0, 4)},
                               Change{14, Little(13, 4)}, Change{28, Little(64, 2)},
                               Change{28, Little(8, 2) + std::string(16, '\0') + Little(257, 4)}}) {
    std::string wrong = bmp;
    wrong.replace(change.at, change.bytes.size(), change.bytes);
    Redraw(wrong);
    ExpectShown(bmp, "the next good picture");
  }
}

TEST_F(HostilePictureTest, a_jpeg_picture_of_three_thousand_scans_is_missing) {
  const std::string jpeg = ProgressiveJpeg();
  Redraw(jpeg);
  EXPECT_FALSE(BackBufferPixels().IsAll(kWholeScene, kBlack));
  std::string scans = jpeg.substr(0, jpeg.rfind("\xFF\xD9"));
  for (int count = 0; count < 3000; ++count) scans += LastScan(jpeg);
  ExpectMissing(scans + "\xFF\xD9", "3000 scans");
}

TEST_F(HostilePictureTest, a_metafile_is_missing) {
  const std::string metafile = GreenMetafile();
  ASSERT_TRUE(IsReadByGdiPlus(metafile));
  ExpectMissing(metafile, "EMF");
}

TEST_F(HostilePictureTest, every_prefix_of_a_picture_is_drawn_in_part_or_missing) {
  const std::string bmp = BmpFile(4, 4, [](int, int) { return kGreen; });
  for (const std::string& whole :
       {FlatPng(4, 4, kGreen), GifFile(2), bmp, Encoded(bmp, L"image/jpeg")}) {
    for (std::size_t length = 0; length < whole.size(); length += whole.size() / 60 + 1) {
      Redraw(whole.substr(0, length));
      EXPECT_LE(TheEngine().raised.size(), 1U);
    }
    ExpectShown(FlatPng(4, 4, kGreen), "the next good picture");
  }
}

TEST_F(HostilePictureTest, after_pictures_with_wrong_bytes_the_next_good_one_is_drawn) {
  const std::string bmp = BmpFile(
      16, 16, [](int x, int y) { return static_cast<std::uint32_t>(x * 16 << 16 | y * 16); });
  std::string runs = bmp;
  runs.replace(28, 6, Little(8, 2) + Little(1, 4));
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
    ExpectShown(FlatPng(4, 4, kGreen), "the next good picture");
  }
}

}  // namespace korvel::test
