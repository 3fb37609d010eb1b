// I-frames up to the host's decoder.
#include "presentation/i_frame.h"

#include "presentation/encoder.h"
#include "windows/presentation/content.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

namespace {

// A sequence header of 720 x 576 and nothing behind it.
constexpr std::string_view kSequence("\x00\x00\x01\xB3\x2D\x02\x40\x33", 8);

}  // namespace

class IFrameTest : public Stage {
 protected:
  IFrameTest() {
    Place(bitmap, 0, 0, 720, 576);
    bitmap.ContentHOOK = 2;
    bitmap.Content.IsReferenced = true;
    bitmap.Content.Data = Octets("~/frame");
    Show(ItemType::Bitmap, bitmap);
  }
  [[nodiscard]] std::string TemporaryStream() const {
    return TemporaryPath() + "mheg_bmp_tmpfile000.m2v";
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

}  // namespace korvel::test
