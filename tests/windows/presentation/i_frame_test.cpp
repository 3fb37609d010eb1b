// I-frames up to the host's decoder, and the colours of what it gives back.
#include "presentation/i_frame.h"

#include "presentation/encoder.h"
#include "presentation/yuv.h"
#include "windows/presentation/content.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

namespace {

// A sequence header of 720 x 576 and nothing behind it.
constexpr std::string_view kSequence("\x00\x00\x01\xB3\x2D\x02\x40\x33", 8);

std::string TemporaryStream() {
  char folder[MAX_PATH] = {};
  GetTempPathA(MAX_PATH, folder);
  return std::string(folder) + "mheg_bmp_tmpfile000.m2v";
}

// The colour of a frame of one pair of rows whose samples are all the same.
std::uint32_t ColourOf(std::uint8_t y, std::uint8_t u, std::uint8_t v) {
  const PlanarFrame frame({2, 2});
  std::uint8_t* bytes = frame.Bytes();
  for (int luma = 0; luma < 4; ++luma) *bytes++ = y;
  *bytes++ = u;
  *bytes = v;
  return frame.PixelAt(1, 1);
}

}  // namespace

class IFrameTest : public Stage {
 protected:
  IFrameTest() {
    Place(bitmap, 0, 0, 720, 576);
    bitmap.ContentHOOK = 2;
    bitmap.Content.IsReferenced = true;
    bitmap.Content.Data = Octets("~/frame");
    Show(ItemType::Bitmap, bitmap);
    DeleteFileA(TemporaryStream().c_str());
  }
  Bitmap bitmap;
};

TEST_F(IFrameTest, the_stream_is_written_to_the_one_temporary_file) {
  for (const std::string_view stream : {kSequence, std::string_view("other")}) {
    TheHost().files["frame"] = stream;
    static_cast<void>(Paint());
    EXPECT_EQ(FileBytes(TemporaryStream()), stream);
  }
}

TEST_F(IFrameTest, what_is_no_sequence_is_a_missing_picture) {
  TheHost().files["frame"] = "\x89PNG and more";
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  EXPECT_EQ(TheEngine().raised.size(), 1U);
}

TEST_F(IFrameTest, without_the_hosts_decoder_the_picture_is_missing) {
  ASSERT_EQ(GetModuleHandleA("MenuAPI"), nullptr);
  TheHost().files["frame"] = kSequence;
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  EXPECT_EQ(TheEngine().raised.size(), 1U);
}

TEST_F(IFrameTest, a_sequence_without_area_or_cut_short_gives_no_image) {
  BitmapOwner image;
  EXPECT_FALSE(DecodeIFrame(std::string_view("\x00\x00\x01\xB3\x00\x00\x00\x33", 8), image));
  EXPECT_FALSE(DecodeIFrame(kSequence.substr(0, 6), image));
  EXPECT_FALSE(DecodeIFrame("", image));
  EXPECT_FALSE(ConvertIFrameToPng("no such file", "no target"));
  EXPECT_EQ(image.Get(), nullptr);
}

TEST_F(IFrameTest, encoders_are_found_by_their_mime_type) {
  CLSID png{};
  CLSID bmp{};
  EXPECT_TRUE(FindEncoder(L"image/png", png));
  EXPECT_TRUE(FindEncoder(L"image/bmp", bmp));
  EXPECT_FALSE(IsEqualCLSID(png, bmp));
  EXPECT_FALSE(FindEncoder(L"image/none", png));
}

TEST(PlanarFrame, luma_alone_is_grey_between_16_and_235) {
  EXPECT_EQ(ColourOf(16, 128, 128), 0xFF000000U);
  EXPECT_EQ(ColourOf(235, 128, 128), 0xFFFEFEFEU);
  EXPECT_EQ(ColourOf(0, 128, 128), 0xFF000000U);
  EXPECT_EQ(ColourOf(255, 128, 128), 0xFFFFFFFFU);
}

TEST(PlanarFrame, chroma_is_worked_in_fractions_and_cut_off) {
  // 1.164 * 84 = 97.776; 1.596 * 10 = 15.96; 0.813 * 10 + 0.391 * 20 = 15.95; 2.018 * 20 = 40.36
  EXPECT_EQ(ColourOf(100, 148, 138), 0xFF000000U | 113U << 16 | 81U << 8 | 138U);
}

TEST(PlanarFrame, the_last_row_and_column_of_an_odd_size_share_the_chroma_before_them) {
  const PlanarFrame frame({3, 3});
  for (int sample = 0; sample < 9; ++sample) frame.Bytes()[sample] = 126;
  frame.Bytes()[9] = 128;
  frame.Bytes()[10] = 255;
  EXPECT_EQ(frame.PixelAt(2, 2), frame.PixelAt(0, 0));
}

TEST(PlanarFrame, a_frame_of_one_pixel_is_survived) {
  const PlanarFrame frame({1, 1});
  EXPECT_EQ(frame.PixelAt(0, 0) >> 24, 0xFFU);
}

}  // namespace korvel::test
