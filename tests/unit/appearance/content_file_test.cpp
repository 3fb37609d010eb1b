// Content paths, and which picture files and streams may be decoded.
#include "appearance/content_file.h"

#include <gtest/gtest.h>

#include <string>

#include "support/number_bytes.h"

namespace korvel::test {

namespace {

std::string Png(std::uint32_t width, std::uint32_t height) {
  return "\x89PNG\r\n\x1A\n" + Big(13, 4) + "IHDR" + Big(width, 4) + Big(height, 4);
}

std::string Bmp(std::uint32_t width, std::uint32_t height) {
  return "BM" + std::string(12, '\0') + Little(40, 4) + Little(width, 4) + Little(height, 4);
}

std::string OldBmp(std::uint32_t width, std::uint32_t height) {
  return "BM" + std::string(12, '\0') + Little(12, 4) + Little(width, 2) + Little(height, 2);
}

std::string GifScreen(std::uint32_t width, std::uint32_t height, char flags) {
  return "GIF89a" + Little(width, 2) + Little(height, 2) + flags + std::string(2, '\0');
}

std::string GifFrame(std::uint32_t width, std::uint32_t height) {
  return "," + std::string(4, '\0') + Little(width, 2) + Little(height, 2) + std::string(1, '\0');
}

std::string Gif(std::uint32_t width, std::uint32_t height) {
  return GifScreen(width, height, '\0') + GifFrame(width, height);
}

std::string JpegFrame(std::uint32_t width, std::uint32_t height) {
  return "\xFF\xC2" + Big(8, 2) + "\x08" + Big(height, 2) + Big(width, 2) + "\x03";
}

std::string Jpeg(std::uint32_t width, std::uint32_t height) {
  return "\xFF\xD8" + JpegFrame(width, height);
}

std::string Scans(int count) {
  std::string scans;
  for (; count > 0; --count) scans += "\xFF\xDA" + Big(4, 2) + "..data" + std::string("\xFF\0", 2);
  return scans;
}

using FileOfSize = std::string (*)(std::uint32_t, std::uint32_t);
constexpr FileOfSize kFormats[] = {Png, Bmp, OldBmp, Gif, Jpeg};

}  // namespace

TEST(PictureSize, pictures_of_every_format_are_limited_to_16_mebipixels) {
  for (const FileOfSize file : kFormats) {
    EXPECT_TRUE(MayBeDecoded(file(1, 1)));
    EXPECT_TRUE(MayBeDecoded(file(4096, 4096)));
    EXPECT_FALSE(MayBeDecoded(file(4097, 4096)));
    EXPECT_FALSE(MayBeDecoded(file(4096, 4097)));
    EXPECT_FALSE(MayBeDecoded(file(60000, 60000)));
  }
}

TEST(PictureSize, sides_of_zero_or_of_the_largest_numbers_are_refused) {
  for (const FileOfSize file : kFormats) {
    EXPECT_FALSE(MayBeDecoded(file(0, 1)));
    EXPECT_FALSE(MayBeDecoded(file(1, 0)));
    EXPECT_FALSE(MayBeDecoded(file(0xFFFF, 0xFFFF)));
  }
  for (const FileOfSize file : {Png, Bmp}) {
    EXPECT_FALSE(MayBeDecoded(file(0x7FFFFFFF, 0x7FFFFFFF)));
    EXPECT_FALSE(MayBeDecoded(file(0x80000000, 0x80000000)));
    EXPECT_FALSE(MayBeDecoded(file(0x10000, 0x10000))) << "2 to the power of 32 pixels";
  }
}

TEST(PictureSize, a_bmp_file_may_be_stored_top_down) {
  EXPECT_TRUE(MayBeDecoded(Bmp(4096, static_cast<std::uint32_t>(-4096))));
  EXPECT_FALSE(MayBeDecoded(Bmp(4096, static_cast<std::uint32_t>(-4097))));
}

TEST(PictureSize, the_pixels_of_a_bmp_file_must_begin_inside_it) {
  std::string file = Bmp(8, 8);
  file.replace(10, 4, Little(static_cast<std::uint32_t>(file.size()), 4));
  EXPECT_TRUE(MayBeDecoded(file));
  file.replace(10, 4, Little(static_cast<std::uint32_t>(file.size()) + 1, 4));
  EXPECT_FALSE(MayBeDecoded(file));
}

TEST(PictureSize, both_the_screen_and_the_first_frame_of_a_gif_file_are_limited) {
  EXPECT_TRUE(MayBeDecoded(GifScreen(0, 0, '\0') + GifFrame(8, 8)));
  EXPECT_FALSE(MayBeDecoded(GifScreen(60000, 60000, '\0') + GifFrame(8, 8)));
  EXPECT_FALSE(MayBeDecoded(GifScreen(8, 8, '\0') + GifFrame(60000, 60000)));
}

TEST(PictureSize, the_first_frame_of_a_gif_file_follows_its_palette_and_extensions) {
  const std::string palette(std::size_t{3} << 3, '\x2C');
  const std::string comment("!\xFE\x02hi\x01,\0", 8);
  const std::string start = GifScreen(8, 8, '\x82') + palette + comment + comment;
  EXPECT_TRUE(MayBeDecoded(start + GifFrame(8, 8)));
  EXPECT_FALSE(MayBeDecoded(start + GifFrame(60000, 60000)));
}

TEST(PictureSize, pixels_times_scans_of_a_jpeg_file_are_limited) {
  EXPECT_TRUE(MayBeDecoded(Jpeg(4096, 4096) + Scans(16)));
  EXPECT_FALSE(MayBeDecoded(Jpeg(4096, 4096) + Scans(17)));
  EXPECT_TRUE(MayBeDecoded(Jpeg(1024, 1024) + Scans(256)));
  EXPECT_FALSE(MayBeDecoded(Jpeg(1024, 1024) + Scans(257)));
}

TEST(PictureSize, every_frame_of_a_jpeg_file_is_examined) {
  EXPECT_FALSE(MayBeDecoded(Jpeg(8, 8) + JpegFrame(60000, 60000)));
  EXPECT_FALSE(MayBeDecoded(Jpeg(60000, 60000) + JpegFrame(8, 8)));
  EXPECT_FALSE(MayBeDecoded("\xFF\xD8" + Scans(1))) << "no frame";
}

TEST(PictureSize, every_kind_of_frame_of_a_jpeg_file_is_examined) {
  for (const int kind : {0, 1, 2, 3, 5, 6, 7, 9, 10, 11, 13, 14, 15}) {
    const auto ofKind = [kind](std::string frame) {
      frame[1] = static_cast<char>(0xC0 + kind);
      return "\xFF\xD8" + frame;
    };
    EXPECT_TRUE(MayBeDecoded(ofKind(JpegFrame(8, 8)))) << kind;
    EXPECT_FALSE(MayBeDecoded(ofKind(JpegFrame(60000, 60000)))) << kind;
  }
}

TEST(PictureSize, markers_inside_segments_and_data_of_a_jpeg_file_are_ignored) {
  const std::string hidden = JpegFrame(60000, 60000);
  const std::string segment =
      "\xFF\xE0" + Big(static_cast<std::uint32_t>(2 + hidden.size()), 2) + hidden;
  EXPECT_TRUE(MayBeDecoded("\xFF\xD8" + segment + JpegFrame(8, 8)));
  EXPECT_TRUE(MayBeDecoded(Jpeg(8, 8) + Scans(1) + std::string("\xFF\0\xC0\xFF\xD0\xFF\xD7", 7)));
}

TEST(PictureSize, data_after_the_end_of_a_jpeg_image_is_ignored) {
  const std::string image = Jpeg(8, 8) + Scans(1) + "\xFF\xD9";
  EXPECT_TRUE(MayBeDecoded(image + JpegFrame(60000, 60000)));
  EXPECT_FALSE(MayBeDecoded("\xFF\xD8\xFF\xD9" + JpegFrame(8, 8))) << "an image without a frame";
}

TEST(PictureSize, a_truncated_header_is_refused) {
  for (const FileOfSize file : kFormats) {
    const std::string whole = file(8, 8);
    for (std::size_t length = 8; length < 11; ++length) {
      EXPECT_FALSE(MayBeDecoded(whole.substr(0, length))) << length;
    }
  }
}

TEST(PictureSize, files_of_other_formats_are_allowed) {
  for (const char* file : {"", "B", "II+", "RIFF....WEBP", "PNG"}) {
    EXPECT_TRUE(MayBeDecoded(file)) << file;
  }
}

TEST(PictureSize, a_file_of_more_than_64_mebibytes_is_refused) {
  std::string file = Png(8, 8);
  file.resize(std::size_t{64} * 1024 * 1024);
  EXPECT_TRUE(MayBeDecoded(file));
  EXPECT_FALSE(MayBeDecoded(file + '.'));
}

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kHeader = "\x00\x00\x01\xB3\x2D\x02\x40\x33"sv;  // 720 x 576
constexpr std::string_view kPlain = "\x00\x00\x01\xB5\x14\x8A\x00\x01\x00\x00"sv;

bool IsSized(const std::string& stream) {
  FrameSize size;
  return FindFrameSize(stream, size);
}

std::string operator+(std::string_view left, std::string_view right) {
  return std::string(left) + std::string(right);
}

}  // namespace

TEST(FrameSizeTest, the_size_is_read_from_the_sequence_header) {
  FrameSize size;
  ASSERT_TRUE(FindFrameSize(kHeader, size));
  EXPECT_EQ(size.width, 720);
  EXPECT_EQ(size.height, 576);
  ASSERT_TRUE(FindFrameSize("\x00\x00\x01\xB3\x00\x1F\x01"sv, size)) << "7 bytes are enough";
  EXPECT_EQ(size.width, 1);
  EXPECT_EQ(size.height, 0xF01);
}

TEST(FrameSizeTest, a_stream_that_does_not_begin_with_a_whole_header_has_no_size) {
  for (std::size_t length = 0; length < 7; ++length) {
    EXPECT_FALSE(IsSized(std::string(kHeader.substr(0, length)))) << length;
  }
  EXPECT_FALSE(IsSized("\x01"sv + kHeader));
  EXPECT_FALSE(IsSized("\x00\x00\x01\xB8\x2D\x02\x40"sv + kHeader));
}

TEST(FrameSizeTest, a_failure_leaves_the_size_unchanged) {
  FrameSize size{.width = 3, .height = 4};
  EXPECT_FALSE(FindFrameSize("\x00\x00\x01\xB3\x00\x00\x40"sv, size)) << "no width";
  EXPECT_FALSE(FindFrameSize("\x00\x00\x01\xB3\x2D\x00\x00"sv, size)) << "no height";
  EXPECT_EQ(size.width, 3);
  EXPECT_EQ(size.height, 4);
}

TEST(FrameSizeTest, the_largest_size_of_a_header_is_allowed) {
  constexpr std::string_view kLargest = "\x00\x00\x01\xB3\xFF\xFF\xFF"sv;
  FrameSize size;
  ASSERT_TRUE(FindFrameSize(kLargest, size));
  EXPECT_EQ(size.width, 4095);
  EXPECT_EQ(size.height, 4095);
}

TEST(FrameSizeTest, a_stream_longer_than_any_picture_is_not_decoded) {
  std::string stream(kHeader);
  stream.resize(kMostPictureBytes);
  EXPECT_TRUE(IsSized(stream));
  EXPECT_FALSE(IsSized(stream + '.'));
}

TEST(FrameSizeTest, an_extension_that_does_not_add_to_the_size_is_allowed) {
  EXPECT_TRUE(IsSized(kHeader + kPlain));
  EXPECT_TRUE(IsSized(kHeader + "\x00\x00\x01\xB5"sv)) << "cut short";
  EXPECT_TRUE(IsSized(kHeader + "\x00\x00\x01\xB5\x8F\xFF\xFF\xFF"sv)) << "of a picture";
}

TEST(FrameSizeTest, a_stream_with_an_extension_to_a_larger_size_is_not_decoded) {
  const std::string_view wider = "\x00\x00\x01\xB5\x14\x8B\x00\x01\x00\x00"sv;
  const std::string_view muchWider = "\x00\x00\x01\xB5\x14\x8A\x80\x01\x00\x00"sv;
  const std::string_view higher = "\x00\x00\x01\xB5\x14\x8A\x20\x01\x00\x00"sv;
  const std::string_view muchHigher = "\x00\x00\x01\xB5\x14\x8A\x40\x01\x00\x00"sv;
  for (const std::string_view extension : {wider, muchWider, higher, muchHigher}) {
    EXPECT_FALSE(IsSized(kHeader + extension));
    EXPECT_FALSE(IsSized(kHeader + (kPlain + extension))) << "after another one";
    EXPECT_FALSE(IsSized(kHeader + extension.substr(0, 7)));
  }
}

std::string PathOf(std::string_view reference) {
  OctetString path;
  EXPECT_TRUE(ContentPath(reference, path));
  return std::string(path.View());
}

TEST(ContentPath, everything_up_to_the_first_slash_is_removed) {
  EXPECT_EQ(PathOf("~/a.png"), "a.png");
  EXPECT_EQ(PathOf("DSM:/a.png"), "a.png");
  EXPECT_EQ(PathOf("dir/a.png"), "a.png");
}

TEST(ContentPath, other_slashes_become_backslashes) {
  EXPECT_EQ(PathOf("~/a/b.png"), "a\\b.png");
  EXPECT_EQ(PathOf("DSM://a/b"), "\\a\\b");
}

TEST(ContentPath, a_reference_without_a_slash_is_unchanged) {
  EXPECT_EQ(PathOf("b.png"), "b.png");
  EXPECT_EQ(PathOf("~b.png"), "~b.png");
  EXPECT_EQ(PathOf(""), "");
}

}  // namespace korvel::test
