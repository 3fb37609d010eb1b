// Converts planar YUV to colours.
#include "appearance/yuv.h"

#include <algorithm>

namespace korvel {
namespace {

// A sequence header has 12 bits for each side, and decoders may write whole macroblocks of 16 x 16
// pixels, even beyond the size in the header.
constexpr std::int32_t kLargestSide = 4096;
constexpr double kBlack = 16;
constexpr double kChromaZero = 128;

std::size_t Area(std::int32_t width, std::int32_t height) {
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

std::uint32_t Level(double value) {
  return static_cast<std::uint32_t>(std::clamp(static_cast<int>(value), 0, 255));
}

std::uint32_t Colour(std::uint8_t y, std::uint8_t u, std::uint8_t v) {
  const double luma = 1.164 * (y - kBlack);
  const double blueness = u - kChromaZero;
  const double redness = v - kChromaZero;
  const std::uint32_t red = Level(luma + 1.596 * redness);
  const std::uint32_t green = Level(luma - 0.813 * redness - 0.391 * blueness);
  const std::uint32_t blue = Level(luma + 2.018 * blueness);
  return 0xFF000000 | red << 16 | green << 8 | blue;
}

}  // namespace

PlanarFrame::PlanarFrame(FrameSize size)
    : size_(size),
      bytes_(static_cast<std::uint8_t*>(AllocateZeroed(Area(kLargestSide, kLargestSide) * 3 / 2))) {
}

void PlanarFrame::ConvertRow(std::int32_t row, std::uint32_t* pixels) const {
  const std::int32_t chromaWidth = size_.width / 2;
  const std::int32_t chromaHeight = size_.height / 2;
  // If the width or height is odd, the last column or row uses the chroma of the one before it.
  const std::int32_t lastColumn = std::max(chromaWidth - 1, 0);
  const std::int32_t chromaRow = std::min(row / 2, std::max(chromaHeight - 1, 0));
  const std::uint8_t* y = bytes_ + Area(row, size_.width);
  const std::uint8_t* u = bytes_ + Area(size_.width, size_.height) + Area(chromaRow, chromaWidth);
  const std::uint8_t* v = u + Area(chromaWidth, chromaHeight);
  for (std::int32_t column = 0; column < size_.width; ++column) {
    const std::int32_t chroma = std::min(column / 2, lastColumn);
    pixels[column] = Colour(y[column], u[chroma], v[chroma]);
  }
}

}  // namespace korvel
