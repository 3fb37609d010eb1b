// What of a TIFF file is handed to a decoder: its first picture, with nothing else in the
// directory, unless that is one which is not decoded.
#include <gtest/gtest.h>

#include <random>

#include "presentation/picture_limits.h"
#include "support/picture_files.h"
#include "unit/presentation/found_picture.h"

namespace korvel::test {

namespace {

using Entry = TiffFile::Entry;
using Numbers = std::vector<std::uint32_t>;

// 8 x 6 pixels in strips of 4 and 2 rows.
TiffFile Strips() { return {8, 6, 4, {std::string(8 * 4 * 3, 'a'), std::string(8 * 2 * 3, 'b')}}; }

TiffFile With(TiffFile file, std::uint16_t tag, TiffType type, Numbers numbers) {
  file.Entries[tag] = {type, std::move(numbers)};
  return file;
}

bool IsFound(const TiffFile& file) {
  const std::string bytes = file.Bytes();
  const std::string found = Found(bytes);
  EXPECT_TRUE(found == "none" || found.size() == bytes.size());
  return found != "none";
}

bool IsFoundWith(std::uint16_t tag, TiffType type, Numbers numbers) {
  return IsFound(With(Strips(), tag, type, std::move(numbers)));
}

bool IsFoundWithout(std::uint16_t tag) {
  TiffFile file = Strips();
  file.Entries.erase(tag);
  return IsFound(file);
}

// Pixels of so many samples, and with a palette where they need one.
bool IsFoundAs(std::uint32_t colours, std::uint32_t samples, std::uint32_t bits) {
  TiffFile file(2, 1, 1, {std::string(32, '\0')});
  file.Entries[tiff_tag::kColours].Numbers = {colours};
  file.Entries[tiff_tag::kSamplesPerPixel].Numbers = {samples};
  file.Entries[tiff_tag::kBitsPerSample].Numbers = Numbers(samples, bits);
  if (colours == 3) file.Entries[tiff_tag::kPalette] = {TiffType::Short, Numbers(3U << bits)};
  return IsFound(file);
}

// A picture of one byte for each pixel, all of whose parts are the same bytes.
TiffFile Greys(TiffFile file, std::size_t parts) {
  const bool isTiled = file.Entries.contains(tiff_tag::kTileWidth);
  file.Entries[tiff_tag::kColours].Numbers = {1};
  file.Entries[tiff_tag::kSamplesPerPixel].Numbers = {1};
  file.Entries[tiff_tag::kBitsPerSample].Numbers = {8};
  file.Entries[tiff_tag::kCompression].Numbers = {8};
  const auto bytes = static_cast<std::uint32_t>(file.Parts[0].size());
  file.Entries[isTiled ? tiff_tag::kTilePlaces : tiff_tag::kStripPlaces].Numbers =
      Numbers(parts, 8);
  file.Entries[isTiled ? tiff_tag::kTileBytes : tiff_tag::kStripBytes].Numbers =
      Numbers(parts, bytes);
  return file;
}

}  // namespace

TEST(TiffFile, with_the_entries_of_a_picture_alone_is_kept_as_it_is) {
  TiffFile file = Strips();
  EXPECT_EQ(Found(file.Bytes()), file.Bytes());
  file.IsHighestFirst = true;
  EXPECT_EQ(Found(file.Bytes()), file.Bytes());
}

TEST(TiffFile, loses_other_entries_and_other_directories_and_nothing_moves) {
  for (const bool isHighestFirst : {false, true}) {
    TiffFile file = Strips();
    file.IsHighestFirst = isHighestFirst;
    // The same places: the numbers of the other entries come last, and are unused bytes then.
    file.Entries[tiff_tag::kCameraDirectory] = {TiffType::Long, {8}};
    file.Entries[tiff_tag::kSubDirectories] = {TiffType::Long, {8}};
    file.Entries[tiff_tag::kDescription] = {TiffType::Byte, {'t', 'e', 'x', 't'}};
    file.NextDirectory = static_cast<std::uint32_t>(file.DirectoryPlace());
    const std::string whole = file.Bytes();
    const std::string found = Found(whole);
    ASSERT_EQ(found.size(), whole.size());
    const std::size_t place = file.DirectoryPlace();
    EXPECT_EQ(found.substr(0, place), whole.substr(0, place));
    TiffFile bare = Strips();
    bare.IsHighestFirst = isHighestFirst;
    ASSERT_EQ(bare.DirectoryPlace(), place);
    const std::string directory = bare.Bytes().substr(place);
    EXPECT_EQ(found.substr(place, directory.size()), directory);
    EXPECT_EQ(Found(found), found);
  }
}

TEST(TiffFile, of_no_size_or_too_large_a_size_has_no_picture) {
  for (const std::uint16_t side : {tiff_tag::kWidth, tiff_tag::kHeight}) {
    for (const std::uint32_t size : {0U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
      EXPECT_FALSE(IsFoundWith(side, TiffType::Long, {size})) << size;
    }
    EXPECT_FALSE(IsFoundWithout(side));
  }
  // A pixel takes 28 nanoseconds to paint and 5 to decode, a byte 6, of those that are packed and
  // of those that are not.
  const std::string file = Greys({1000, 10, 10, {"packed"}}, 1).Bytes();
  EXPECT_NE(Found(file, 390'036), "none");
  EXPECT_EQ(Found(file, 390'035), "none");
}

TEST(TiffFile, each_entry_of_the_picture_comes_once_and_in_order) {
  const TiffFile file = With(Strips(), tiff_tag::kDescription, TiffType::Byte, {'t'});
  const std::string bytes = file.Bytes();
  EXPECT_TRUE(IsFound(file));
  const std::size_t colours = file.DirectoryPlace() + 2 + 4 * 12;
  const std::size_t description = colours + 12;
  std::string twice = bytes;
  twice.replace(description, 12, bytes.substr(colours, 12));
  EXPECT_EQ(Found(twice), "none");
  const std::size_t compression = colours - 12;
  std::string exchanged = bytes;
  exchanged.replace(compression, 12, bytes.substr(colours, 12));
  exchanged.replace(colours, 12, bytes.substr(compression, 12));
  EXPECT_EQ(Found(exchanged), "none");
}

TEST(TiffFile, the_directory_lies_behind_the_header) {
  // Its number of entries would be the lower half of its place.
  std::string file("MM\0*\0\0\0\x06", 8);
  const std::pair<char, char> entries[] = {{'\x00', 1}, {'\x01', 1}, {'\x03', 1},
                                           {'\x06', 1}, {'\x11', 8}, {'\x17', 1}};
  for (const auto& [tag, number] : entries) {
    file += std::string("\x01") + tag + std::string("\0\x03\0\0\0\x01\0", 7) + number;
    file += std::string(2, '\0');
  }
  file += std::string(4, '\0');
  EXPECT_EQ(Found(file), "none");
  file.insert(8, std::string("\0\x06", 2));
  file[7] = '\x08';
  EXPECT_EQ(Found(file), file);
}

TEST(TiffFile, numbers_have_two_bytes_or_four) {
  EXPECT_TRUE(IsFoundWith(tiff_tag::kWidth, TiffType::Short, {8}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kWidth, TiffType::Byte, {8}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kWidth, TiffType::Short, {8, 8}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kWidth, TiffType::Short, {}));
}

TEST(TiffFile, numbers_lie_in_the_file_and_not_in_the_directory) {
  // A palette, which these pixels do not need: whatever its six bytes are, they are as good.
  const TiffFile file = With(Strips(), tiff_tag::kPalette, TiffType::Short, {1, 2, 3});
  const std::size_t place = file.DirectoryPlace();
  const std::string bytes = file.Bytes();
  const std::size_t entry = bytes.size() - 4 - 12;
  ASSERT_EQ(bytes.substr(entry, 2), "\x40\x01");
  const auto withPlace = [&](std::size_t at) {
    std::string changed = bytes + "behind";
    for (std::size_t byte = 0; byte < 4; ++byte) {
      changed[entry + 8 + byte] = static_cast<char>(at >> 8 * byte);
    }
    return Found(changed);
  };
  EXPECT_NE(withPlace(bytes.size()), "none");
  EXPECT_EQ(withPlace(bytes.size() + 1), "none") << "beyond the end";
  EXPECT_EQ(withPlace(0xFFFFFFFF), "none");
  EXPECT_EQ(withPlace(bytes.size() - 1), "none") << "reaches into the directory";
  EXPECT_EQ(withPlace(place + 20), "none") << "lies in it";
  EXPECT_NE(withPlace(place - 6), "none");
  EXPECT_EQ(withPlace(place - 5), "none") << "reaches into it from before";
}

TEST(TiffFile, a_count_of_any_size_is_survived) {
  const TiffFile file = Strips();
  const std::size_t first = file.DirectoryPlace() + 2;
  for (std::size_t entry = 0; entry < file.Entries.size() + 2; ++entry) {
    for (const char* count :
         {"\xFF\xFF\xFF\xFF", "\x01\x00\x00\x40", "\x01\x00\x00\x80", "\x00\x00\x01\x00"}) {
      std::string bytes = file.Bytes();
      bytes.replace(first + entry * 12 + 4, 4, count, 4);
      EXPECT_EQ(Found(bytes), "none") << entry;
    }
  }
}

TEST(TiffFile, there_is_a_place_and_a_size_for_each_strip) {
  EXPECT_FALSE(IsFoundWith(tiff_tag::kStripPlaces, TiffType::Long, {8}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kStripPlaces, TiffType::Long, {8, 8, 8}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kStripBytes, TiffType::Long, {96}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kRowsPerStrip, TiffType::Long, {3, 3}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kRowsPerStrip, TiffType::Long, {0}));
  const TiffFile packed = With(Strips(), tiff_tag::kCompression, TiffType::Short, {5});
  EXPECT_TRUE(IsFound(With(packed, tiff_tag::kRowsPerStrip, TiffType::Long, {3}))) << "also two";
  EXPECT_FALSE(IsFoundWith(tiff_tag::kRowsPerStrip, TiffType::Long, {2})) << "three strips";
  TiffFile whole(8, 6, 0xFFFFFFFF, {std::string(8 * 6 * 3, 'a')});
  EXPECT_TRUE(IsFound(whole));
  whole.Entries.erase(tiff_tag::kRowsPerStrip);
  EXPECT_TRUE(IsFound(whole)) << "one strip unless it says otherwise";
}

TEST(TiffFile, each_strip_lies_in_the_file) {
  const auto size = static_cast<std::uint32_t>(Strips().Bytes().size());
  const auto withPlace = [](std::uint32_t place) {
    return IsFoundWith(tiff_tag::kStripPlaces, TiffType::Long, {8, place});
  };
  EXPECT_TRUE(withPlace(size - 48)) << "anywhere, also in the directory";
  EXPECT_FALSE(withPlace(size - 47));
  EXPECT_FALSE(withPlace(0xFFFFFFFF));
}

TEST(TiffFile, pixels_that_are_not_packed_are_all_there) {
  const auto withBytes = [](std::uint32_t first, std::uint32_t last) {
    return IsFoundWith(tiff_tag::kStripBytes, TiffType::Long, {first, last});
  };
  EXPECT_TRUE(withBytes(96, 48));
  EXPECT_FALSE(withBytes(95, 48));
  EXPECT_FALSE(withBytes(96, 47));
  TiffFile packed = With(Strips(), tiff_tag::kStripBytes, TiffType::Long, {1, 0});
  packed.Entries[tiff_tag::kCompression].Numbers = {5};
  EXPECT_TRUE(IsFound(packed));
  const TiffFile tiles = TiledTiff(20, 16, 16, 16, {std::string(768, 'a'), std::string(768, 'b')});
  EXPECT_TRUE(IsFound(tiles));
  EXPECT_FALSE(IsFound(With(tiles, tiff_tag::kTileBytes, TiffType::Long, {768, 767})));
}

TEST(TiffFile, is_packed_in_one_of_the_ways_that_decoders_are_safe_with) {
  for (const std::uint32_t way : {1U, 5U, 8U, 32773U, 32946U}) {
    EXPECT_TRUE(IsFoundWith(tiff_tag::kCompression, TiffType::Short, {way})) << way;
  }
  for (const std::uint32_t way : {0U, 2U, 3U, 4U, 6U, 7U, 32771U, 32809U, 34676U, 34925U, 50000U}) {
    EXPECT_FALSE(IsFoundWith(tiff_tag::kCompression, TiffType::Short, {way})) << way;
  }
  EXPECT_TRUE(IsFoundWithout(tiff_tag::kCompression)) << "not packed";
  EXPECT_TRUE(IsFoundWith(tiff_tag::kPredictor, TiffType::Short, {2}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kPredictor, TiffType::Short, {3})) << "of fractions";
}

TEST(TiffFile, has_pixels_of_a_kind_that_is_read) {
  struct Kind {
    std::uint32_t colours, samples;
    Numbers bits;
  };
  const std::vector<Kind> kinds = {
      {0, 1, {1, 4, 8, 16}}, {1, 1, {1, 4, 8, 16}}, {1, 2, {8}}, {2, 3, {8, 16}},
      {2, 4, {8, 16}},       {3, 1, {1, 2, 4, 8}},  {5, 4, {8}}};
  for (std::uint32_t colours = 0; colours < 9; ++colours) {
    for (std::uint32_t samples = 0; samples < 6; ++samples) {
      for (const std::uint32_t bits : {0U, 1U, 2U, 3U, 4U, 7U, 8U, 12U, 16U, 32U, 64U}) {
        if (colours == 3 && bits > 12) continue;  // an enormous palette
        bool isKnown = false;
        for (const Kind& kind : kinds) {
          isKnown |= kind.colours == colours && kind.samples == samples &&
                     std::find(kind.bits.begin(), kind.bits.end(), bits) != kind.bits.end();
        }
        EXPECT_EQ(IsFoundAs(colours, samples, bits), isKnown)
            << colours << ' ' << samples << ' ' << bits;
      }
    }
  }
  EXPECT_FALSE(IsFoundWithout(tiff_tag::kColours));
}

TEST(TiffFile, all_samples_have_the_same_bits_and_are_whole_numbers) {
  EXPECT_TRUE(IsFoundWith(tiff_tag::kBitsPerSample, TiffType::Short, {8}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kBitsPerSample, TiffType::Short, {8, 8}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kBitsPerSample, TiffType::Short, {8, 8, 16}));
  EXPECT_FALSE(IsFoundWithout(tiff_tag::kBitsPerSample)) << "one bit each";
  EXPECT_TRUE(IsFoundWith(tiff_tag::kSampleFormats, TiffType::Short, {1, 1, 1}));
  EXPECT_TRUE(IsFoundWith(tiff_tag::kSampleFormats, TiffType::Short, {1}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kSampleFormats, TiffType::Short, {1, 1, 3}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kSampleFormats, TiffType::Short, {3}));
  EXPECT_TRUE(IsFoundWith(tiff_tag::kPlanes, TiffType::Short, {1}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kPlanes, TiffType::Short, {2}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kExtraSamples, TiffType::Short, {0, 0}));
  EXPECT_TRUE(IsFoundWith(tiff_tag::kFillOrder, TiffType::Short, {2}));
  EXPECT_FALSE(IsFoundWith(tiff_tag::kFillOrder, TiffType::Short, {3}));
}

TEST(TiffFile, a_palette_has_a_colour_for_each_number_of_a_pixel) {
  TiffFile file = Greys({8, 6, 6, {std::string(48, 'a')}}, 1);
  file.Entries[tiff_tag::kColours].Numbers = {3};
  EXPECT_FALSE(IsFound(file));
  EXPECT_TRUE(IsFound(With(file, tiff_tag::kPalette, TiffType::Short, Numbers(768))));
  EXPECT_FALSE(IsFound(With(file, tiff_tag::kPalette, TiffType::Short, Numbers(767))));
}

TEST(TiffFile, has_strips_or_tiles_but_not_both) {
  const TiffFile tiles = TiledTiff(16, 16, 16, 16, {std::string(768, 'a')});
  EXPECT_TRUE(IsFound(tiles));
  EXPECT_FALSE(IsFound(With(tiles, tiff_tag::kStripPlaces, TiffType::Long, {8})));
  EXPECT_FALSE(IsFound(With(tiles, tiff_tag::kStripBytes, TiffType::Long, {768})));
  EXPECT_FALSE(IsFound(With(tiles, tiff_tag::kTileHeight, TiffType::Long, {0})));
  EXPECT_FALSE(IsFound(With(tiles, tiff_tag::kTileWidth, TiffType::Long, {0})));
  TiffFile neither = tiles;
  for (const std::uint16_t tag : {tiff_tag::kTileWidth, tiff_tag::kTileHeight}) {
    neither.Entries.erase(tag);
  }
  EXPECT_FALSE(IsFound(With(neither, tiff_tag::kTilePlaces, TiffType::Long, {8})));
  EXPECT_FALSE(IsFoundWithout(tiff_tag::kSamplesPerPixel));
}

TEST(TiffFile, in_a_hundred_thousand_strips_has_no_picture) {
  EXPECT_TRUE(IsFound(Greys({1, 16384, 1, {"packed"}}, 16384)));
  EXPECT_FALSE(IsFound(Greys({1, 16385, 1, {"packed"}}, 16385)));
  EXPECT_FALSE(IsFound(Greys({1, 100'000, 1, {"packed"}}, 100'000)));
}

TEST(TiffFile, strips_that_are_read_again_and_again_are_counted_each_time) {
  const std::string megabyte(1'000'000, 'a');
  for (const std::uint32_t way : {1U, 8U}) {
    for (const std::uint32_t strips : {60U, 200U}) {
      TiffFile file = Greys({100, strips, 1, {megabyte}}, strips);
      file.Entries[tiff_tag::kCompression].Numbers = {way};
      EXPECT_EQ(IsFound(file), strips == 60) << way;
    }
  }
}

TEST(TiffFile, tiles_side_by_side_are_unpacked_for_each_of_their_rows) {
  EXPECT_TRUE(IsFound(Greys(TiledTiff(720, 576, 16, 16, {"packed"}), 45 * 36)));
  EXPECT_TRUE(IsFound(Greys(TiledTiff(720, 576, 720, 576, {"packed"}), 1)));
  EXPECT_FALSE(IsFound(Greys(TiledTiff(720, 576, 360, 576, {"packed"}), 2)));
  EXPECT_FALSE(IsFound(Greys(TiledTiff(8, 8, 1, 1'000'000, {"packed"}), 8)));
  TiffFile packed = Greys(TiledTiff(720, 576, 64, 64, {std::string(64 * 64, 'a')}), 12 * 9);
  EXPECT_FALSE(IsFound(packed));
  EXPECT_TRUE(IsFound(With(packed, tiff_tag::kCompression, TiffType::Short, {1})));
  TiffFile enormous = Greys(TiledTiff(8, 8, 0x80000000, 0x80000000, {"packed"}), 1);
  EXPECT_FALSE(IsFound(enormous));
  enormous.Entries[tiff_tag::kColours].Numbers = {2};
  enormous.Entries[tiff_tag::kSamplesPerPixel].Numbers = {4};
  enormous.Entries[tiff_tag::kBitsPerSample].Numbers = {16};
  EXPECT_FALSE(IsFound(enormous)) << "2 to the power of 65 bytes";
}

TEST(TiffFile, that_is_cut_short_has_no_picture) {
  const std::string whole = Strips().Bytes();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(Found(whole.substr(0, length)), "none") << length;
  }
}

TEST(TiffFile, with_any_bytes_is_read_within_its_bounds) {
  std::minstd_rand random;
  TiffFile highestFirst = Strips();
  highestFirst.IsHighestFirst = true;
  const TiffFile tiles = TiledTiff(20, 16, 16, 16, {std::string(768, 'a'), std::string(768, 'b')});
  for (const TiffFile& file : {Strips(), highestFirst, tiles}) {
    const std::string whole = file.Bytes();
    const std::size_t directory = file.DirectoryPlace();
    for (int round = 0; round < 20'000; ++round) {
      std::string wrong = whole;
      for (int count = 0; count < 3; ++count) {
        const std::size_t from = random() % 2 == 0 ? 0 : directory;
        wrong[from + random() % (whole.size() - from)] = static_cast<char>(random());
      }
      const std::string found = Found(wrong);
      ASSERT_TRUE(found == "none" || found.size() == wrong.size());
    }
  }
}

}  // namespace korvel::test
