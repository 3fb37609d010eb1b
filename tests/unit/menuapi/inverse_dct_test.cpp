// Compares the inverse transform with its formula, written as four loops, for blocks of ordinary
// pictures and for coefficients of any size.
#include "menuapi/inverse_dct.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace menuapi::test {

namespace {

double Wave(int frequency, int x) {
  const double scale = frequency == 0 ? std::numbers::sqrt2 / 2 : 1;
  return scale * std::cos((2 * x + 1) * frequency * std::numbers::pi / 16);
}

// The sample by the formula, neither rounded nor clamped.
double SampleOf(const Coefficients& block, int x, int y) {
  double sum = 0;
  for (int v = 0; v < 8; ++v) {
    for (int u = 0; u < 8; ++u) {
      sum += block[static_cast<std::size_t>(8 * v + u)] * Wave(u, x) * Wave(v, y);
    }
  }
  return sum / 4;
}

// The rounded coefficients of a block of random samples at most `range` from the middle level.
Coefficients Transformed(std::mt19937& random, int range) {
  std::array<int, kBlockSize> samples{};
  for (int& sample : samples) sample = 128 + static_cast<int>(random() % (2 * range + 1)) - range;
  Coefficients block{};
  for (int v = 0; v < 8; ++v) {
    for (int u = 0; u < 8; ++u) {
      double sum = 0;
      for (int i = 0; i < 64; ++i) {
        sum += samples[static_cast<std::size_t>(i)] * Wave(u, i % 8) * Wave(v, i / 8);
      }
      block[static_cast<std::size_t>(8 * v + u)] = static_cast<int>(std::lround(sum / 4));
    }
  }
  return block;
}

// Half a level may be rounded up or down.
void ExpectFormula(const Coefficients& block) {
  const Samples samples = InverseDct(block);
  for (int i = 0; i < 64; ++i) {
    const double exact = std::clamp(SampleOf(block, i % 8, i / 8), 0.0, 255.0);
    ASSERT_NEAR(samples[static_cast<std::size_t>(i)], exact, 0.5 + 1e-9);
  }
}

}  // namespace

TEST(InverseDct, rounds_the_formula_to_the_nearest_level) {
  std::mt19937 random(1);
  for (const int range : {1, 5, 60, 127}) {
    for (int round = 0; round < 500; ++round) ExpectFormula(Transformed(random, range));
  }
}

TEST(InverseDct, of_a_single_coefficient_is_its_wave) {
  for (std::size_t position = 0; position < kBlockSize; ++position) {
    for (const int level : {-2048, -300, 1, 2047}) {
      Coefficients block{};
      block[0] = 1024;
      block[position] += level;
      ExpectFormula(block);
    }
  }
}

TEST(InverseDct, of_a_flat_block_is_exact) {
  for (int dc = 0; dc <= 2040; ++dc) {
    const Samples samples = InverseDct({dc});
    for (const int sample : samples) ASSERT_EQ(sample, (dc + 4) / 8);
  }
}

TEST(InverseDct, of_any_coefficients_is_clamped_to_0_and_255) {
  std::mt19937 random(2);
  for (int round = 0; round < 200; ++round) {
    Coefficients block{};
    for (int& coefficient : block) coefficient = static_cast<int>(random() % 4096) - 2048;
    ExpectFormula(block);
  }
}

}  // namespace menuapi::test
