// The colours of planar frames, including sides of one pixel and odd sides.
#include "appearance/yuv.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace korvel::test {

std::uint32_t PixelAt(const PlanarFrame& frame, std::int32_t column, std::int32_t row) {
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(frame.Size().width));
  frame.ConvertRow(row, pixels.data());
  return pixels[static_cast<std::size_t>(column)];
}

// The colour of a 2 x 2 frame whose samples of each plane are equal.
std::uint32_t ColourOf(std::uint8_t y, std::uint8_t u, std::uint8_t v) {
  const PlanarFrame frame({2, 2});
  std::uint8_t* bytes = frame.Bytes();
  for (int luma = 0; luma < 4; ++luma) *bytes++ = y;
  *bytes++ = u;
  *bytes = v;
  return PixelAt(frame, 1, 1);
}

TEST(PlanarFrame, without_chroma_16_is_black_and_235_is_nearly_white) {
  EXPECT_EQ(ColourOf(16, 128, 128), 0xFF000000U);
  EXPECT_EQ(ColourOf(235, 128, 128), 0xFFFEFEFEU);
  EXPECT_EQ(ColourOf(0, 128, 128), 0xFF000000U);
  EXPECT_EQ(ColourOf(255, 128, 128), 0xFFFFFFFFU);
}

TEST(PlanarFrame, colours_are_calculated_in_fractions_and_truncated) {
  // 1.164 * 84 = 97.776; 1.596 * 10 = 15.96; 0.813 * 10 + 0.391 * 20 = 15.95; 2.018 * 20 = 40.36
  EXPECT_EQ(ColourOf(100, 148, 138), 0xFF000000U | 113U << 16 | 81U << 8 | 138U);
}

TEST(PlanarFrame, each_chroma_sample_colours_two_columns_of_two_rows) {
  const PlanarFrame frame({6, 4});
  std::fill_n(frame.Bytes(), 24, std::uint8_t{126});
  const auto u = [](int sample) { return static_cast<std::uint8_t>(100 + 5 * sample); };
  const auto v = [](int sample) { return static_cast<std::uint8_t>(150 - 5 * sample); };
  for (int sample = 0; sample < 6; ++sample) {
    frame.Bytes()[24 + sample] = u(sample);
    frame.Bytes()[30 + sample] = v(sample);
  }
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 6; ++column) {
      const int sample = row / 2 * 3 + column / 2;
      EXPECT_EQ(PixelAt(frame, column, row), ColourOf(126, u(sample), v(sample)))
          << column << ' ' << row;
    }
  }
}

TEST(PlanarFrame, the_last_row_and_column_of_an_odd_size_share_the_chroma_before_them) {
  const PlanarFrame frame({3, 3});
  for (int sample = 0; sample < 9; ++sample) frame.Bytes()[sample] = 126;
  frame.Bytes()[9] = 128;
  frame.Bytes()[10] = 255;
  EXPECT_EQ(PixelAt(frame, 2, 2), PixelAt(frame, 0, 0));
}

TEST(PlanarFrame, the_buffer_holds_the_largest_frame_of_a_sequence_header) {
  const PlanarFrame frame({2, 2});
  std::fill_n(frame.Bytes(), std::size_t{4096} * 4096 * 3 / 2, std::uint8_t{128});
  EXPECT_EQ(PixelAt(frame, 1, 1), 0xFF828282U);
}

TEST(PlanarFrame, the_chroma_of_a_frame_of_one_pixel_follows_its_luma) {
  const PlanarFrame frame({1, 1});
  frame.Bytes()[0] = 235;
  frame.Bytes()[1] = 128;
  EXPECT_EQ(PixelAt(frame, 0, 0), 0xFFFEFEFEU);
}

}  // namespace korvel::test
