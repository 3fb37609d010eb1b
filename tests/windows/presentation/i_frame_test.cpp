// Tests I-frames: the call of the host's decoder, and the picture made from its result.
#include "presentation/i_frame.h"

#include <algorithm>
#include <fstream>
#include <set>

#include "presentation/presentation.h"
#include "presentation/state.h"
#include "windows/presentation/content.h"
#include "windows/presentation/stage.h"
#include "windows/support/decoder.h"

namespace korvel::test {

namespace {

// A sequence header of 720 x 576 and nothing after it.
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

TEST_F(IFrameTest, content_that_is_no_sequence_is_a_missing_picture) {
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

class DecodedIFrameTest : public IFrameTest {
 protected:
  // Paints a frame in which all samples have these values.
  [[nodiscard]] Pixels PaintSamples(std::uint8_t y, std::uint8_t u, std::uint8_t v) {
    TheHost().files["frame"] = kSequence;
    decoder.Record().y = y;
    decoder.Record().u = u;
    decoder.Record().v = v;
    return Paint();
  }

  Decoder decoder;
};

TEST_F(DecodedIFrameTest, the_decoder_receives_the_path_a_zeroed_buffer_and_1) {
  static_cast<void>(PaintSamples(16, 128, 128));
  EXPECT_EQ(decoder.Record().calls, 1);
  EXPECT_EQ(decoder.Record().one, 1);
  EXPECT_TRUE(decoder.Record().isZeroFilled);
  const std::string path = decoder.Record().path;
  EXPECT_TRUE(path.starts_with(TemporaryPath())) << path;
  EXPECT_TRUE(path.ends_with("\\mheg_bmp_tmpfile000.m2v")) << path;
}

TEST_F(DecodedIFrameTest, content_that_is_no_sequence_never_reaches_the_decoder) {
  for (const std::string_view stream :
       {std::string_view("\x00\x00\x01\xB8\x2D\x02\x40\x33", 8),
        std::string_view("\x00\x01\x01\xB3\x2D\x02\x40\x33", 8),
        std::string_view("\x01\x00\x01\xB3\x2D\x02\x40\x33", 8),
        std::string_view("\x00\x00\x00\x01\xB3\x2D\x02\x40", 8), kSequence.substr(0, 6)}) {
    TheHost().files["frame"] = stream;
    TheEngine().raised.clear();
    EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
    EXPECT_EQ(TheEngine().raised.size(), 1U);
  }
  EXPECT_EQ(decoder.Record().calls, 0);
}

TEST_F(DecodedIFrameTest, a_header_of_2d_02_40_is_a_frame_of_720_by_576) {
  EXPECT_TRUE(PaintSamples(235, 128, 128).IsAll(kWholeScene, 0xFEFEFE));
  Place(bitmap, 5, 0, 720, 576);
  EXPECT_EQ(Paint().Extent(kWholeScene), (Area{5, 0, 720, 576}));
  bitmap.ScaledSize = {72, 64};
  Place(bitmap, 0, 0, 720, 576);
  const Area small = Paint().Extent(kWholeScene);
  EXPECT_EQ(small.Width(), 72) << "a tenth of 720";
  EXPECT_EQ(small.Height(), 64) << "a ninth of 576";
}

TEST_F(DecodedIFrameTest, luma_and_chroma_become_colours) {
  EXPECT_TRUE(PaintSamples(235, 128, 128).IsAll(kWholeScene, 0xFEFEFE)) << "1.164 x 219 = 254.9";
  EXPECT_TRUE(PaintSamples(16, 128, 128).IsAll(kWholeScene, kBlack));
  // 1.164 * 84 = 97.776; 1.596 * 10 = 15.96; 0.813 * 10 + 0.391 * 20 = 15.95; 2.018 * 20 = 40.36
  EXPECT_TRUE(PaintSamples(100, 148, 138).IsAll(kWholeScene, 113 << 16 | 81 << 8 | 138));
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(DecodedIFrameTest, the_result_of_the_decoder_is_ignored) {
  decoder.Record().result = 2;
  EXPECT_TRUE(PaintSamples(235, 128, 128).IsAll(kWholeScene, 0xFEFEFE));
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(DecodedIFrameTest, a_decoder_that_finds_a_larger_frame_stays_inside_the_buffer) {
  decoder.DecodeBy([](const char* path, std::uint8_t** buffer) {
    constexpr std::size_t kLargest = std::size_t{4096} * 4096 * 3 / 2;
    std::fill_n(*buffer, kLargest, std::uint8_t{128});
    DecodeStream(FileBytes(path), *buffer);
  });
  TheHost().files["frame"] = Stream(720, 576, 235);
  for (int count = 0; count < 5; ++count) {
    ASSERT_TRUE(Paint().IsAll(kWholeScene, 0xFEFEFE));
  }
}

TEST_F(DecodedIFrameTest, the_decoder_opens_the_file_in_any_sharing_mode) {
  TheHost().files["frame"] = Stream(720, 576, 235);
  for (const DWORD shares : {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_WRITE}}) {
    decoder.DecodeBy([shares](const char* path, std::uint8_t** buffer) {
      HANDLE file = CreateFileA(path, GENERIC_READ | GENERIC_WRITE, shares, nullptr, OPEN_EXISTING,
                                0, nullptr);
      ASSERT_NE(file, INVALID_HANDLE_VALUE);
      CloseHandle(file);
      DecodeStream(FileBytes(path), *buffer);
    });
    EXPECT_TRUE(Paint().IsAll(kWholeScene, 0xFEFEFE)) << shares;
  }
  EXPECT_EQ(decoder.Record().calls, 3) << "once each";
}

TEST_F(DecodedIFrameTest, the_decoder_is_loaded_once_and_kept_until_the_presentation_closes) {
  static_cast<void>(PaintSamples(235, 128, 128));
  HMODULE library = State().decoderLibrary;
  EXPECT_EQ(library, GetModuleHandleA("MenuAPI"));
  static_cast<void>(PaintSamples(235, 128, 128));
  EXPECT_EQ(State().decoderLibrary, library);
  ReleasePictures();
  EXPECT_EQ(State().decoderLibrary, nullptr);
  ClosePresentation();
  OpenPresentation(Window());
}

TEST_F(DecodedIFrameTest, a_frame_is_converted_to_a_png_file) {
  decoder.Record().y = 235;
  std::ofstream(TemporaryPath() + "frame.m2v", std::ios::binary) << kSequence;
  const std::string target = TemporaryPath() + "frame.png";
  ASSERT_TRUE(ConvertIFrameToPng((TemporaryPath() + "frame.m2v").c_str(), target.c_str()));
  const std::string png = FileBytes(target);
  EXPECT_TRUE(png.starts_with("\x89PNG"));
  bitmap.ContentHOOK = 4;
  TheHost().files["frame"] = png;
  EXPECT_TRUE(Paint().IsAll(kWholeScene, 0xFEFEFE));
}

class DecoderConventionTest : public IFrameTest, public testing::WithParamInterface<const char*> {
 protected:
  Decoder decoder{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(, DecoderConventionTest,
                         testing::Values("recording_decoder", "stdcall_decoder"),
                         [](const auto& name) { return std::string(name.param); });

TEST_P(DecoderConventionTest, a_hundred_calls_leave_the_stack_and_the_locals_unchanged) {
  constexpr int kCalls = 100;
  std::set<const void*> frames;
  decoder.DecodeBy([&frames](const char* path, std::uint8_t** buffer) {
    frames.insert(__builtin_frame_address(0));
    DecodeStream(FileBytes(path), *buffer);
  });
  const std::string stream = Stream(16, 16, 235);
  int decoded = 0;
  for (int call = 0; call < kCalls; ++call) {
    BitmapOwner image;
    Gdiplus::ARGB colour = 0;
    if (DecodeIFrame(stream, image) &&
        Succeeded(gdip::GdipBitmapGetPixel(image, 15, 15, &colour)) && colour == 0xFFFEFEFE) {
      ++decoded;
    }
  }
  EXPECT_EQ(decoded, kCalls);
  EXPECT_EQ(decoder.Record().calls, kCalls);
  EXPECT_EQ(frames.size(), 1U) << "each call must begin at the same stack address";
  EXPECT_EQ(stream, Stream(16, 16, 235));
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
