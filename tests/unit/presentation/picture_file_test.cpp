// What of a picture file is handed to a decoder: the pieces that make up its picture.
#include "presentation/picture_file.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "presentation/picture_limits.h"
#include "unit/presentation/found_picture.h"

namespace korvel::test {

// Strings with zeros in them, by their length.
template <std::size_t size>
std::string Octets(const char (&bytes)[size]) {
  return {bytes, size - 1};
}

std::string Chunk(char length, const std::string& name, const std::string& data) {
  return Octets("\0\0\0") + length + name + data + "CRC.";
}

const std::string kPngStart =
    "\x89PNG\r\n\x1A\n" + Chunk(13, "IHDR", Octets("\0\0\0\x08\0\0\0\x09") + "bcfi.");
const std::string kGifStart = "GIF89a" + Octets("\x08\0\x09\0\x80\0\0") + "RGBrgb";
const std::string kGifPicture = Octets("\x2C\0\0\0\0\x08\0\x09\0\0\x02\x03") + "abc" + Octets("\0");

TEST(PictureFile, of_a_png_file_the_chunks_of_the_picture_are_kept) {
  const std::string data =
      Chunk(3, "PLTE", "RGB") + Chunk(2, "tRNS", "aa") + Chunk(4, "IDAT", "data");
  const std::string end = Chunk(0, "IEND", "");
  EXPECT_EQ(
      Found(kPngStart + Chunk(5, "tEXt", "words") + data + Chunk(2, "iCCP", "zz") + end + "more"),
      kPngStart + data + end);
}

TEST(PictureFile, of_a_gif_file_the_first_picture_is_kept_with_its_transparency) {
  const std::string control = Octets("\x21\xF9\x04\x01\0\0\x01\0");
  const std::string comment = Octets("\x21\xFE\x02hi\x01!\0");
  EXPECT_EQ(Found(kGifStart + comment + control + comment + kGifPicture + kGifPicture + ";"),
            kGifStart + control + kGifPicture + ";");
  EXPECT_EQ(Found(kGifStart + ";"), "none");
}

TEST(PictureFile, a_jpeg_file_is_kept_whole) {
  const std::string frame = Octets("\xFF\xC2\0\x0B\x08\0\x09\0\x08\x01\x01\x11\0");
  const std::string scan = Octets("\xFF\xDA\0\x04..data\xFF\0data\xFF\xD0rest");
  const std::string file = Octets("\xFF\xD8\xFF\xE0\0\x04\xFF\xC2") + frame + scan + "\xFF\xD9";
  EXPECT_EQ(Found(file), file) << "what is in a segment is no marker";
  std::string scans = file;
  for (int count = 1; count < kMostScans; ++count) scans.insert(scans.size() - 2, scan);
  EXPECT_EQ(Found(scans), scans);
  scans.insert(scans.size() - 2, scan);
  EXPECT_EQ(Found(scans), "none");
  EXPECT_EQ(Found(Octets("\xFF\xD8") + scan), "none") << "no frame";
}

TEST(PictureFile, a_second_frame_of_a_jpeg_file_counts_too) {
  const std::string small = Octets("\xFF\xC0\0\x0B\x08\0\x09\0\x08\x01\x01\x11\0");
  const std::string large = Octets("\xFF\xC0\0\x0B\x08\xFF\xFF\xFF\xFF\x01\x01\x11\0");
  EXPECT_NE(Found("\xFF\xD8" + small), "none");
  EXPECT_EQ(Found("\xFF\xD8" + small + "rubbish" + large), "none");
}

TEST(PictureFile, other_files_are_no_pictures) {
  for (const char* file : {"", "B", "II+", "RIFF....WEBP", "%PDF", "PNG"}) {
    EXPECT_EQ(Found(file), "none") << file;
  }
  EXPECT_EQ(Found(Octets("\x01\0\0\0\x6C\0\0\0") + std::string(32, '\0') + " EMF"), "none");
  EXPECT_EQ(Found(Octets("\xD7\xCD\xC6\x9A\0\0\0\0")), "none") << "WMF";
}

TEST(PictureFile, a_file_that_is_cut_short_has_the_pieces_that_are_there) {
  const std::string file = kPngStart + Chunk(4, "IDAT", "data");
  EXPECT_EQ(Found(file.substr(0, file.size() - 6)), file.substr(0, file.size() - 6));
  EXPECT_EQ(Found(kGifStart + kGifPicture.substr(0, 13)),
            kGifStart + kGifPicture.substr(0, 13) + ";");
  EXPECT_EQ(Found(kPngStart.substr(0, 20)), "none") << "the size is not there";
}

TEST(PictureFile, a_png_file_whose_size_is_not_in_its_header_has_no_picture) {
  std::string file = kPngStart + Chunk(4, "IDAT", "data");
  EXPECT_EQ(Found(file), file);
  file[11] = 2;
  EXPECT_EQ(Found(file), "none");
}

TEST(PictureFile, a_gif_file_that_is_cut_within_its_size_has_no_picture) {
  const std::string header = kGifPicture.substr(0, 9);
  EXPECT_EQ(Found(kGifStart + header), "none");
  EXPECT_EQ(Found(kGifStart + header.substr(0, 8)), "none") << "its end would make it higher";
  EXPECT_NE(Found(kGifStart + header + Octets("\0")), "none");
}

TEST(PictureFile, any_bytes_are_read_within_their_bounds) {
  std::minstd_rand random;
  const std::string jpeg =
      Octets("\xFF\xD8\xFF\xC0\0\x0B\x08\0\x09\0\x08\x01\x01\x11\0\xFF\xDA\0\x04..");
  const std::string bmp =
      "BM" + Octets("....\0\0\0\0\x36\0\0\0\x28\0\0\0\x01\0\0\0\x01\0\0\0\x01\0\x20\0") +
      std::string(24, '\0') + "BGR.";
  EXPECT_EQ(Found(bmp), bmp);
  for (const std::string& whole :
       {kPngStart + Chunk(4, "IDAT", "data"), kGifStart + kGifPicture + ";", jpeg, bmp}) {
    for (int round = 0; round < 20'000; ++round) {
      std::string wrong =
          whole.substr(0, random() % 4 == 0 ? random() % whole.size() : whole.size());
      for (int count = 0; count < 3 && !wrong.empty(); ++count) {
        wrong[random() % wrong.size()] = static_cast<char>(random());
      }
      const std::string found = Found(wrong);
      ASSERT_TRUE(found == "none" || found.size() <= wrong.size() + 1);
    }
  }
}

}  // namespace korvel::test
