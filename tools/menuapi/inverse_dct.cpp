// Evaluates the DCT formula in double precision, first along rows and then along columns. Most
// coefficients are 0; skipping them saves more time than a faster algorithm would.
#include "menuapi/inverse_dct.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace menuapi {
namespace {

using Line = std::array<double, kBlockSide>;
using Lines = std::array<Line, kBlockSide>;

// The cosine wave of each frequency, scaled so that frequency 0 is exactly 1: flat blocks then have
// no rounding errors. The final division by 8 does the rest of the scaling.
Lines MakeWaves() {
  Lines waves{};
  waves[0].fill(1);
  for (std::size_t frequency = 1; frequency < waves.size(); ++frequency) {
    for (std::size_t x = 0; x < kBlockSide; ++x) {
      const auto angle = static_cast<double>((2 * x + 1) * frequency) * std::numbers::pi / 16;
      waves[frequency][x] = std::numbers::sqrt2 * std::cos(angle);
    }
  }
  return waves;
}

void AddScaled(Line& sum, const Line& line, double factor) {
  for (std::size_t x = 0; x < sum.size(); ++x) sum[x] += line[x] * factor;
}

// Adds the waves of a row of coefficients to `row`. Returns false if all coefficients are 0.
bool TransformRow(const int* coefficients, const Lines& waves, Line& row) {
  bool isUsed = false;
  for (std::size_t frequency = 0; frequency < waves.size(); ++frequency) {
    if (coefficients[frequency] == 0) continue;
    AddScaled(row, waves[frequency], coefficients[frequency]);
    isUsed = true;
  }
  return isUsed;
}

}  // namespace

Samples InverseDct(const Coefficients& coefficients) {
  static const Lines waves = MakeWaves();
  // In eighths of a level. Starts at half a level so that truncation rounds to nearest.
  Lines sums;
  for (Line& line : sums) line.fill(4);
  for (std::size_t frequency = 0; frequency < waves.size(); ++frequency) {
    Line row{};
    if (!TransformRow(&coefficients[frequency * kBlockSide], waves, row)) continue;
    for (std::size_t y = 0; y < sums.size(); ++y) AddScaled(sums[y], row, waves[frequency][y]);
  }
  Samples samples;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double level = sums[i / kBlockSide][i % kBlockSide] / 8;
    samples[i] = static_cast<std::uint8_t>(std::clamp(level, 0.0, 255.0));
  }
  return samples;
}

}  // namespace menuapi
