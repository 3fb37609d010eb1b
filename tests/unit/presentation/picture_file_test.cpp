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
  EXPECT_EQ(Found(Octets("\xFF\xD8") + scan), "none") << "no frame";
}

TEST(PictureFile, a_jpeg_file_of_two_frames_has_no_picture) {
  const std::string small = Octets("\xFF\xC0\0\x0B\x08\0\x09\0\x08\x01\x01\x11\0");
  const std::string large = Octets("\xFF\xC0\0\x0B\x08\xFF\xFF\xFF\xFF\x01\x01\x11\0");
  EXPECT_NE(Found("\xFF\xD8" + small), "none");
  EXPECT_EQ(Found("\xFF\xD8" + small + "rubbish" + large), "none");
  EXPECT_EQ(Found("\xFF\xD8" + large + "rubbish" + small), "none");
}

TEST(PictureFile, a_jpeg_file_of_a_coding_that_is_not_read_has_no_picture) {
  for (const char coding : {'\xC0', '\xC1', '\xC2'}) {
    EXPECT_NE(Found(Octets("\xFF\xD8\xFF") + coding + Octets("\0\x08\x08\0\x09\0\x08\x01")),
              "none");
  }
  for (const char coding : {'\xC3', '\xC5', '\xC9', '\xCA', '\xCF'}) {
    EXPECT_EQ(Found(Octets("\xFF\xD8\xFF") + coding + Octets("\0\x08\x08\0\x09\0\x08\x01")),
              "none");
  }
}

// A JPEG file of so many scans whose frame tells these components and this size, 1024 x 1024.
std::string JpegFile(int scans, char components) {
  std::string file = Octets("\xFF\xD8\xFF\xC2\0\x08\x08\x04\0\x04\0") + components;
  for (int count = 0; count < scans; ++count) file += Octets("\xFF\xDA\0\x04..data");
  return file;
}

TEST(PictureFile, every_scan_of_a_jpeg_file_goes_over_the_whole_picture) {
  EXPECT_NE(Found(JpegFile(10, 3)), "none") << "as encoders write it";
  EXPECT_NE(Found(JpegFile(70, 3)), "none");
  EXPECT_EQ(Found(JpegFile(120, 3)), "none");
  EXPECT_NE(Found(JpegFile(1, 4), 100'000'000), "none");
  EXPECT_EQ(Found(JpegFile(1, 4), 60'000'000), "none") << "inks take longer than colours";
  EXPECT_NE(Found(JpegFile(1, 3), 60'000'000), "none");
}

TEST(PictureFile, data_of_a_jpeg_file_take_their_time) {
  const std::string file = JpegFile(1, 3);
  EXPECT_NE(Found(file + std::string(1'000'000, 'd'), 60'000'000), "none");
  EXPECT_EQ(Found(file + std::string(2'000'000, 'd'), 60'000'000), "none");
}

// The beginning of a PNG file of 1024 x 1024 pixels of so many bits.
std::string PngFile(char sampleBits, char colourType) {
  return "\x89PNG\r\n\x1A\n" +
         Chunk(13, "IHDR", Octets("\0\0\x04\0\0\0\x04\0") + sampleBits + colourType + "fi.");
}

TEST(PictureFile, the_more_bits_a_png_picture_has_the_longer_it_takes) {
  // A million pixels, each at 28 nanoseconds and one for each bit.
  constexpr std::uint64_t kMillion = 1024 * 1024;
  struct Kind {
    char sampleBits;
    char colourType;
    std::uint64_t pixelBits;
  };
  for (const Kind& kind : {Kind{1, 0, 1}, Kind{16, 0, 16}, Kind{8, 3, 8}, Kind{8, 2, 24},
                           Kind{16, 4, 32}, Kind{8, 6, 32}, Kind{16, 6, 64}}) {
    const std::string file = PngFile(kind.sampleBits, kind.colourType);
    const std::uint64_t time = (28 + kind.pixelBits) * kMillion + 3 * file.size();
    EXPECT_EQ(Found(file, time), file) << kind.pixelBits;
    EXPECT_EQ(Found(file, time - 1), "none") << kind.pixelBits;
  }
}

TEST(PictureFile, a_png_file_has_a_number_of_chunks_that_an_encoder_writes) {
  std::string file = kPngStart;
  for (int count = 0; count < 10'000; ++count) file += Chunk(0, "IDAT", "");
  EXPECT_EQ(Found(file), file);
  for (int count = 0; count < 10'000; ++count) file += Chunk(0, "IDAT", "");
  EXPECT_EQ(Found(file), "none");
}

TEST(PictureFile, without_time_there_is_no_picture) {
  const std::string bmp =
      "BM" + Octets("....\0\0\0\0\x36\0\0\0\x28\0\0\0\x01\0\0\0\x01\0\0\0\x01\0\x20\0") +
      std::string(24, '\0') + "BGR.";
  for (const std::string& file :
       {PngFile(8, 2), kGifStart + kGifPicture + ";", JpegFile(1, 3), bmp}) {
    EXPECT_NE(Found(file), "none");
    EXPECT_EQ(Found(file, 0), "none");
  }
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
