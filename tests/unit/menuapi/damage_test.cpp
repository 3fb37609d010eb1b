// Damaged streams: for any bytes, decoding stays inside its buffers, ends, and shows the intact
// parts of a picture.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "unit/menuapi/planes.h"
#include "unit/menuapi/reference.h"
#include "unit/menuapi/stream_writer.h"

namespace menuapi::test {

namespace {

constexpr FrameSize kSize{32, 32};

Bytes NoisyStream(const std::string& options) {
  return Reference().Encode("testsrc2=size=64x48,noise=alls=50:all_seed=7", options);
}

// A frame of two rows. The second macroblock of the first row has this head (address increment,
// type, and the fields that depend on the type), this first block, and five flat blocks.
StreamWriter WithMacroblock(std::string_view head, std::string_view block) {
  StreamWriter stream({});
  stream.Headers();
  stream.Slice(0);
  stream.Macroblock("11", 60, 70, 80);
  stream.Bits().Put(head);
  stream.Bits().Put(block);
  for (int luma = 1; luma < 4; ++luma) stream.Bits().Put("100 10");
  for (int chroma = 0; chroma < 2; ++chroma) stream.Bits().Put("00 10");
  stream.FlatRow(1, 90);
  return stream;
}

// Expects that every macroblock except the one with this head and block is decoded.
void ExpectDamaged(std::string_view head, std::string_view block) {
  Planes planes(kSize);
  EXPECT_EQ(planes.Decode(WithMacroblock(head, block).Bytes()), Result::Damaged) << head << block;
  EXPECT_EQ(planes.Luma(15, 15), 60) << head << block;
  EXPECT_EQ(planes.Luma(16, 0), 16) << head << block;
  EXPECT_EQ(planes.Luma(31, 31), 92) << head << block;
}

}  // namespace

TEST(Damage, a_stream_cut_at_any_byte_is_never_decoded_wrongly) {
  const Bytes stream = NoisyStream("-qscale:v 6 -flags +ildct+ilme");
  Planes whole({64, 48});
  ASSERT_EQ(whole.Decode(stream), Result::Done);
  int damaged = 0;
  for (std::size_t size = 7; size < stream.size(); ++size) {
    // A copy, so that the sanitizer reports a read past its end.
    const Bytes cut(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(size));
    Planes planes({64, 48});
    const Result result = planes.Decode(cut);
    EXPECT_TRUE(result != Result::Rejected || planes.IsBlack()) << size;
    EXPECT_TRUE(result != Result::Done || std::ranges::equal(planes.Bytes(), whole.Bytes()))
        << size;
    damaged += result == Result::Damaged ? 1 : 0;
  }
  EXPECT_GT(damaged, 100);
}

// The missing bit is a zero, like the bits that are read past the end, so only the length differs.
TEST(Damage, a_missing_last_bit_is_reported) {
  StreamSettings settings;
  settings.width = 16;
  settings.height = 16;
  StreamWriter stream(settings);
  stream.Headers();
  const std::size_t headers = stream.Bytes().size();
  // With 5 bytes of information the slice is 81 bits long: 5 + 46 + 2 + 4 x 5 + 2 x 4.
  stream.Slice(0, 1, "1 10000000 1 00000000 1 00000000 1 00000000 1 00000000 0");
  stream.Macroblock("11", 128, 128, 128);
  std::vector<std::uint8_t> bytes = stream.Bytes();
  ASSERT_EQ(bytes.size() - headers, 4U + 11U);
  Planes planes({16, 16});
  EXPECT_EQ(planes.Decode(bytes), Result::Done);
  bytes.pop_back();
  EXPECT_EQ(planes.Decode(bytes), Result::Damaged);
}

TEST(Damage, random_bytes_do_not_affect_the_next_stream) {
  for (const char* options :
       {"-qscale:v 4", "-qscale:v 3 -flags +ildct+ilme -alternate_scan 1 -intra_vlc 1 -dc 10"}) {
    const Bytes stream = NoisyStream(options);
    std::mt19937 random(20);
    int decoded = 0;
    for (int round = 0; round < 1000; ++round) {
      Bytes damaged = stream;
      for (unsigned count = 1 + random() % 8; count > 0; --count) {
        // The size stays unchanged, because the buffer is allocated for it.
        damaged[7 + random() % (damaged.size() - 7)] = static_cast<std::uint8_t>(random());
      }
      Planes planes({64, 48});
      if (planes.Decode(damaged) != Result::Rejected) ++decoded;
    }
    EXPECT_GT(decoded, 100);
    EXPECT_EQ(Planes({64, 48}).Decode(stream), Result::Done) << "the next good stream";
  }
}

TEST(Damage, of_one_slice_leaves_the_other_slices_intact) {
  const Bytes stream = NoisyStream("-qscale:v 4");
  Planes whole({64, 48});
  ASSERT_EQ(whole.Decode(stream), Result::Done);
  // The second slice begins with bits that are not a macroblock.
  const Bytes start = {0, 0, 1, 2};
  const auto slice = std::search(stream.begin(), stream.end(), start.begin(), start.end());
  ASSERT_NE(slice, stream.end());
  Bytes damaged = stream;
  std::fill_n(damaged.begin() + (slice - stream.begin()) + 4, 3, std::uint8_t{0x08});
  Planes planes({64, 48});
  EXPECT_EQ(planes.Decode(damaged), Result::Damaged);
  for (int x = 0; x < 64; ++x) {
    EXPECT_EQ(planes.Luma(x, 15), whole.Luma(x, 15));
    EXPECT_EQ(planes.Luma(x, 32), whole.Luma(x, 32));
  }
}

TEST(Damage, of_a_macroblock_ends_its_slice) {
  ExpectDamaged("00000000001 1", "100 10");  // no address increment has this code
  ExpectDamaged("1 001", "100 10");          // no macroblock type of intra pictures has this code
  ExpectDamaged("1 01 00000", "100 10");     // the quantiser scale code 0 is invalid
}

TEST(Damage, of_a_block_ends_its_slice) {
  // The DC coefficient falls below 0 or exceeds its range: 60 - 63, 60 + 255.
  ExpectDamaged("11", "11110 000000 10");
  ExpectDamaged("11", "1111110 11111111 10");
  // No coefficient has this code.
  ExpectDamaged("11", "100 000000000000 1111");
  // An escape with level 0, and with -2048, which has no opposite.
  ExpectDamaged("11", "100 000001 000000 000000000000 10");
  ExpectDamaged("11", "100 000001 000000 100000000000 10");
  // A run past the end of the block, directly and one step after the last coefficient.
  ExpectDamaged("11", "100 000001 111111 000000000001 10");
  ExpectDamaged("11", "100 000001 111110 000000000001 110 10");
}

// The last case above without its extra step.
TEST(Damage, is_not_reported_for_a_full_block) {
  const StreamWriter stream = WithMacroblock("1 01 00001", "100 000001 111110 000000000001 10");
  Planes planes(kSize);
  EXPECT_EQ(planes.Decode(stream.Bytes()), Result::Done);
}

TEST(Damage, a_missing_macroblock_ends_its_slice) {
  StreamSettings settings;
  settings.width = 48;
  settings.height = 16;
  StreamWriter stream(settings);
  stream.Headers();
  stream.Slice(0);
  stream.Macroblock("11", 60, 128, 128);
  stream.Macroblock("011 1", 70, 128, 128);
  Planes planes({48, 16});
  EXPECT_EQ(planes.Decode(stream.Bytes()), Result::Damaged);
  EXPECT_EQ(planes.Luma(0, 0), 60);
  EXPECT_EQ(planes.Luma(32, 0), 16);
}

// Macroblocks that a stream repeats are not decoded again, so repetition costs no time.
TEST(Damage, repeated_rows_and_rows_below_the_picture_are_skipped) {
  StreamWriter stream({});
  stream.Headers();
  stream.FlatRow(0, 60);
  stream.FlatRow(0, 200);
  stream.FlatRow(2, 200);
  Planes planes(kSize);
  EXPECT_EQ(planes.Decode(stream.Bytes()), Result::Damaged);
  EXPECT_EQ(planes.Luma(0, 0), 60);
  EXPECT_EQ(planes.Luma(0, 16), 16);
}

TEST(Damage, macroblocks_beyond_the_end_of_a_row_are_skipped) {
  StreamWriter stream({});
  stream.Headers();
  stream.Slice(0);
  for (int column = 0; column < 3; ++column) stream.Macroblock("11", 60, 128, 128);
  stream.Slice(1);
  stream.Macroblock("010 1", 60, 128, 128);
  Planes planes(kSize);
  EXPECT_EQ(planes.Decode(stream.Bytes()), Result::Damaged);
  EXPECT_EQ(planes.Luma(31, 0), 60);
  EXPECT_EQ(planes.Luma(0, 16), 16);
}

}  // namespace menuapi::test
