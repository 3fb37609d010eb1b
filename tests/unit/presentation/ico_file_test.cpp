// What of an ICO file is handed to a decoder: its first picture alone.
#include <gtest/gtest.h>

#include <random>

#include "presentation/picture_limits.h"
#include "support/picture_files.h"
#include "unit/presentation/found_picture.h"

namespace korvel::test {

namespace {

// 8 x 2 pixels, rows of 8 bytes with four bits each, and mask rows of 4 bytes.
const std::string kRest4 =
    std::string(16 * 4, 'p') + std::string(2 * 4, 'r') + std::string(2 * 4, 'm');
const std::string kPicture4 = IcoPicture(8, 4, 4, kRest4);
// 2 x 2 pixels of 32 bits, without a mask.
const std::string kPicture32 = IcoPicture(2, 4, 32, std::string(16, 'p'));

// A PNG file that says 8 x 9 and has a text, and the same without.
const std::string kPngStart("\x89PNG\r\n\x1A\n\0\0\0\x0D"
                            "IHDR\0\0\0\x08\0\0\0\x09"
                            "bcfi.CRC.",
                            33);
const std::string kPngText("\0\0\0\x02tEXtabCRC.", 14);
const std::string kPngEnd("\0\0\0\0IENDCRC.", 12);

bool IsFound(const std::string& picture) { return Found(IcoFile({picture})) != "none"; }

std::string With(std::string picture, std::size_t at, const std::string& bytes) {
  return picture.replace(at, bytes.size(), bytes);
}

}  // namespace

TEST(IcoFile, of_one_picture_is_kept_as_it_is) {
  EXPECT_EQ(Found(IcoFile({kPicture4})), IcoFile({kPicture4}));
  EXPECT_EQ(Found(IcoFile({kPicture32})), IcoFile({kPicture32}));
}

TEST(IcoFile, of_many_pictures_has_the_first_one) {
  EXPECT_EQ(Found(IcoFile({kPicture4, kPicture32, "wrong"})), IcoFile({kPicture4}));
  EXPECT_EQ(Found(IcoFile({kPicture32, kPicture4})), IcoFile({kPicture32}));
  EXPECT_EQ(Found(IcoFile({"wrong", kPicture32})), "none");
  EXPECT_EQ(Found(IcoFile(std::vector<std::string>(65535, kPicture32))), IcoFile({kPicture32}));
  EXPECT_EQ(Found(With(IcoFile({kPicture32}), 4, std::string(1, '\0'))), "none") << "of none";
}

TEST(IcoFile, with_a_png_file_is_that_file) {
  const std::string found = kPngStart + kPngEnd;
  EXPECT_EQ(Found(IcoFile({kPngStart + kPngText + kPngEnd, kPicture32})), found);
  const std::string large = With(kPngStart, 16, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF");
  EXPECT_EQ(Found(IcoFile({large + kPngEnd})), "none");
}

TEST(IcoFile, of_no_size_or_too_large_a_size_has_no_picture) {
  for (const std::size_t side : {4U, 8U}) {
    for (const char* size : {"\0\0\0\0", "\xFF\xFF\xFF\x7F", "\0\0\0\x80", "\xFF\xFF\xFF\xFF"}) {
      EXPECT_FALSE(IsFound(With(kPicture32, side, std::string(size, 4))));
    }
  }
  EXPECT_FALSE(IsFound(With(kPicture32, 8, std::string("\x01", 1)))) << "a mask alone";
  // A pixel takes 36 nanoseconds, and the rows of the mask take nothing.
  const std::string file = IcoFile({IcoPicture(1000, 20, 1, std::string(2600, '\0'))});
  EXPECT_NE(Found(file, 360'000), "none");
  EXPECT_EQ(Found(file, 359'999), "none");
}

TEST(IcoFile, has_all_its_pixels_and_its_mask) {
  EXPECT_FALSE(IsFound(kPicture4.substr(0, kPicture4.size() - 1)));
  EXPECT_FALSE(IsFound(kPicture32.substr(0, kPicture32.size() - 1)));
  EXPECT_TRUE(IsFound(kPicture32 + "mask")) << "and perhaps more";
}

TEST(IcoFile, has_a_header_of_40_bytes_and_pixels_that_are_not_packed) {
  for (const char size : {'\0', '\x0C', '\x27', '\x29', '\x7C'}) {
    EXPECT_FALSE(IsFound(With(kPicture4 + kPicture4, 0, std::string(1, size)))) << size;
  }
  for (const char way : {'\1', '\2', '\3', '\4', '\5'}) {
    EXPECT_FALSE(IsFound(With(kPicture4, 16, std::string(1, way)))) << way;
    EXPECT_FALSE(IsFound(With(kPicture32, 16, std::string(1, way)))) << way;
  }
  for (const int bits : {0, 2, 3, 5, 15, 48, 64}) {
    EXPECT_FALSE(
        IsFound(With(kPicture32 + kPicture4, 14, std::string(1, static_cast<char>(bits)))));
  }
}

TEST(IcoFile, has_a_palette_of_as_many_colours_as_it_says) {
  const std::string fewer = With(kPicture4, 32, "\x0F");
  EXPECT_TRUE(IsFound(fewer.substr(0, fewer.size() - 4)));
  EXPECT_FALSE(IsFound(fewer.substr(0, fewer.size() - 5)));
  EXPECT_FALSE(IsFound(With(kPicture4 + kPicture4, 32, "\x11"))) << "more than four bits tell";
  EXPECT_FALSE(IsFound(With(kPicture32, 32, "\x01"))) << "its pixels are one colour further on";
}

TEST(IcoFile, has_its_picture_in_the_file) {
  const std::string file = IcoFile({kPicture32});
  constexpr std::size_t kSize = 14;
  constexpr std::size_t kPlace = 18;
  EXPECT_EQ(Found(With(file, kPlace, "\xFF\xFF\xFF\xFF")), "none");
  EXPECT_EQ(Found(With(file, kPlace, std::string(1, static_cast<char>(file.size())))), "none");
  EXPECT_EQ(Found(With(file, kSize, "\xFF\xFF\xFF\xFF")), "none");
  EXPECT_EQ(Found(With(file, 2, "\x02")), "none") << "a mouse pointer";
}

TEST(IcoFile, that_is_cut_short_has_no_picture) {
  const std::string whole = IcoFile({kPicture4});
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(Found(whole.substr(0, length)), "none") << length;
  }
}

TEST(IcoFile, with_any_bytes_is_read_within_its_bounds) {
  std::minstd_rand random;
  for (const std::string& whole : {IcoFile({kPicture4, kPicture32}), IcoFile({kPicture32}),
                                   IcoFile({kPngStart + kPngText + kPngEnd})}) {
    for (int round = 0; round < 20'000; ++round) {
      std::string wrong = whole;
      for (int count = 0; count < 3; ++count) {
        wrong[random() % wrong.size()] = static_cast<char>(random());
      }
      const std::string found = Found(wrong);
      ASSERT_TRUE(found == "none" || found.size() <= wrong.size());
    }
  }
}

}  // namespace korvel::test
