// The positions and values of coefficients, and the correction that makes their sum odd.
// damage_test.cpp tests damaged blocks.
#include "menuapi/block.h"

#include <gtest/gtest.h>

#include <set>

#include "menuapi/macroblock_codes.h"
#include "unit/menuapi/bit_writer.h"

namespace menuapi::test {

namespace {

struct BlockSettings {
  Sequence sequence;
  Picture picture;

  BlockSettings() { sequence.intraMatrix.fill(16); }
};

// Reads a luma block whose DC coefficient is 128. `bits` are those of the other coefficients.
Coefficients ReadBlock(const BlockSettings& settings, std::string_view bits, int scale) {
  BitWriter writer;
  writer.Put("100");
  writer.Put(bits);
  BitReader reader(writer.Bytes());
  Coefficients block{};
  const BlockReader blocks(settings.sequence, settings.picture);
  int dc = blocks.InitialDc();
  EXPECT_TRUE(blocks.Read(reader, LumaDcSizeCodes(), scale, dc, block)) << bits;
  return block;
}

// The escape code of a coefficient after `run` zeros.
std::string Escape(unsigned run, int level) {
  std::string bits = "000001";
  for (int bit = 5; bit >= 0; --bit) bits += (run >> bit & 1) != 0 ? '1' : '0';
  for (int bit = 11; bit >= 0; --bit)
    bits += (static_cast<unsigned>(level) >> bit & 1) != 0 ? '1' : '0';
  return bits;
}

}  // namespace

TEST(Block, multiplies_levels_by_weight_and_scale_and_truncates) {
  BlockSettings settings;
  settings.sequence.intraMatrix.fill(11);
  // 3 x 11 x 6 / 16 = 12.4, rounded towards zero for both signs.
  EXPECT_EQ(ReadBlock(settings, Escape(0, 3) + "10", 6)[1], 12);
  EXPECT_EQ(ReadBlock(settings, Escape(0, -3) + "10", 6)[1], -12);
}

TEST(Block, limits_coefficients_to_12_bits) {
  const BlockSettings settings;
  EXPECT_EQ(ReadBlock(settings, Escape(0, 2047) + "10", 112)[1], 2047);
  EXPECT_EQ(ReadBlock(settings, Escape(0, -2047) + "10", 112)[1], -2048);
}

TEST(Block, uses_the_weight_of_the_position_in_the_block) {
  BlockSettings settings;
  for (std::size_t i = 0; i < kBlockSize; ++i) {
    settings.sequence.intraMatrix[i] = static_cast<std::uint8_t>(16 + i);
  }
  // The third coefficient in zigzag order is the first of the second row.
  EXPECT_EQ(ReadBlock(settings, Escape(1, 1) + "10", 16)[8], 16 + 8);
}

TEST(Block, makes_the_sum_of_its_coefficients_odd_by_changing_the_last) {
  const BlockSettings settings;
  EXPECT_EQ(ReadBlock(settings, "10", 1)[63], 1);                   // 1024 alone
  EXPECT_EQ(ReadBlock(settings, Escape(0, 1) + "10", 1)[63], 0);    // 1024 + 1
  EXPECT_EQ(ReadBlock(settings, Escape(0, -1) + "10", 1)[63], 0);   // 1024 - 1
  EXPECT_EQ(ReadBlock(settings, Escape(62, 5) + "10", 2)[63], 11);  // 1024 + 10 is even: one more
  EXPECT_EQ(ReadBlock(settings, Escape(0, 1) + Escape(61, 5) + "10", 1)[63], 4);  // 5: one less
}

TEST(Block, puts_coefficients_in_scan_order) {
  for (const bool isAlternate : {false, true}) {
    BlockSettings settings;
    settings.picture.usesAlternateScan = isAlternate;
    const ScanOrder& scan = isAlternate ? AlternateScan() : ZigzagScan();
    for (unsigned run = 0; run < 63; ++run) {
      EXPECT_EQ(ReadBlock(settings, Escape(run, 9) + "10", 1)[scan[run + 1]], 9);
    }
  }
}

TEST(Block, changes_the_dc_coefficient_by_the_difference) {
  for (int precision = 0; precision < 4; ++precision) {
    BlockSettings settings;
    settings.picture.dcPrecision = precision;
    const BlockReader blocks(settings.sequence, settings.picture);
    int dc = blocks.InitialDc();
    EXPECT_EQ(dc, 128 << precision);
    BitWriter writer;
    writer.Put("101 011 10");  // 3 bits: the negative difference nearest to 0, -4
    writer.Put("101 100 10");  // the smallest positive difference of 3 bits, 4
    BitReader reader(writer.Bytes());
    Coefficients block{};
    ASSERT_TRUE(blocks.Read(reader, LumaDcSizeCodes(), 1, dc, block));
    EXPECT_EQ(dc, (128 << precision) - 4);
    EXPECT_EQ(block[0], ((128 << precision) - 4) * 8 >> precision);
    ASSERT_TRUE(blocks.Read(reader, LumaDcSizeCodes(), 1, dc, block));
    EXPECT_EQ(dc, 128 << precision);
  }
}

TEST(ScanOrder, visits_every_position_once) {
  for (const ScanOrder* scan : {&ZigzagScan(), &AlternateScan()}) {
    EXPECT_EQ(std::set<int>(scan->begin(), scan->end()).size(), 64U);
  }
}

// The order goes down and up alternate diagonals.
TEST(ScanOrder, follows_the_diagonals) {
  std::size_t index = 0;
  for (int diagonal = 0; diagonal < 15; ++diagonal) {
    for (int step = 0; step <= diagonal; ++step) {
      const int row = diagonal % 2 == 0 ? diagonal - step : step;
      if (row > 7 || diagonal - row > 7) continue;
      EXPECT_EQ(ZigzagScan()[index], 8 * row + diagonal - row) << index;
      ++index;
    }
  }
}

TEST(QuantiserScale, is_twice_the_code_or_comes_from_a_rising_table) {
  EXPECT_EQ(QuantiserScale(0, ScaleType::Linear), 0);
  EXPECT_EQ(QuantiserScale(0, ScaleType::NonLinear), 0);
  int previous = 0;
  int step = 1;
  for (unsigned code = 1; code <= 31; ++code) {
    EXPECT_EQ(QuantiserScale(code, ScaleType::Linear), static_cast<int>(2 * code));
    // Eight codes with steps of 1, then of 2, 4 and 8.
    step = code <= 8 ? 1 : code <= 16 ? 2 : code <= 24 ? 4 : 8;
    EXPECT_EQ(QuantiserScale(code, ScaleType::NonLinear), previous + step) << code;
    previous += step;
  }
  EXPECT_EQ(previous, 112);
}

}  // namespace menuapi::test
