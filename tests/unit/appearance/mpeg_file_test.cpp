// What a stream says of the size of its frames, and streams that say it twice.
#include "appearance/mpeg_file.h"

#include <gtest/gtest.h>

#include <string>

#include "objects/limits.h"

namespace korvel::test {

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

TEST(MpegFile, the_size_is_in_the_sequence_header) {
  FrameSize size;
  ASSERT_TRUE(FindFrameSize(kHeader, size));
  EXPECT_EQ(size.Width, 720);
  EXPECT_EQ(size.Height, 576);
  ASSERT_TRUE(FindFrameSize("\x00\x00\x01\xB3\x00\x1F\x01"sv, size)) << "7 bytes are enough";
  EXPECT_EQ(size.Width, 1);
  EXPECT_EQ(size.Height, 0xF01);
}

TEST(MpegFile, what_does_not_begin_with_a_whole_header_has_no_size) {
  for (std::size_t length = 0; length < 7; ++length) {
    EXPECT_FALSE(IsSized(std::string(kHeader.substr(0, length)))) << length;
  }
  EXPECT_FALSE(IsSized("\x01"sv + kHeader));
  EXPECT_FALSE(IsSized("\x00\x00\x01\xB8\x2D\x02\x40"sv + kHeader));
}

TEST(MpegFile, a_size_that_is_not_decoded_leaves_the_one_that_was_there) {
  FrameSize size{.Width = 3, .Height = 4};
  EXPECT_FALSE(FindFrameSize("\x00\x00\x01\xB3\x00\x00\x40"sv, size)) << "no width";
  EXPECT_FALSE(FindFrameSize("\x00\x00\x01\xB3\x2D\x00\x00"sv, size)) << "no height";
  EXPECT_EQ(size.Width, 3);
  EXPECT_EQ(size.Height, 4);
}

TEST(MpegFile, the_largest_size_of_a_header_is_decoded) {
  constexpr std::string_view kLargest = "\x00\x00\x01\xB3\xFF\xFF\xFF"sv;
  FrameSize size;
  ASSERT_TRUE(FindFrameSize(kLargest, size));
  EXPECT_EQ(size.Width, 4095);
  EXPECT_EQ(size.Height, 4095);
}

TEST(MpegFile, a_stream_longer_than_any_picture_is_not_decoded) {
  std::string stream(kHeader);
  stream.resize(kMostPictureBytes);
  EXPECT_TRUE(IsSized(stream));
  EXPECT_FALSE(IsSized(stream + '.'));
}

TEST(MpegFile, an_extension_that_adds_nothing_to_the_size_is_none_to_fear) {
  EXPECT_TRUE(IsSized(kHeader + kPlain));
  EXPECT_TRUE(IsSized(kHeader + "\x00\x00\x01\xB5"sv)) << "cut short";
  EXPECT_TRUE(IsSized(kHeader + "\x00\x00\x01\xB5\x8F\xFF\xFF\xFF"sv)) << "of a picture";
}

TEST(MpegFile, a_stream_with_an_extension_to_a_larger_size_is_not_decoded) {
  const std::string_view wider = "\x00\x00\x01\xB5\x14\x8B\x00\x01\x00\x00"sv;
  const std::string_view muchWider = "\x00\x00\x01\xB5\x14\x8A\x80\x01\x00\x00"sv;
  const std::string_view higher = "\x00\x00\x01\xB5\x14\x8A\x20\x01\x00\x00"sv;
  const std::string_view muchHigher = "\x00\x00\x01\xB5\x14\x8A\x40\x01\x00\x00"sv;
  for (const std::string_view extension : {wider, muchWider, higher, muchHigher}) {
    EXPECT_FALSE(IsSized(kHeader + extension));
    EXPECT_FALSE(IsSized(kHeader + (kPlain + extension))) << "wherever it stands";
    EXPECT_FALSE(IsSized(kHeader + extension.substr(0, 7)));
  }
}

}  // namespace korvel::test
