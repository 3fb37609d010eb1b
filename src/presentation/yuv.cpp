// Planar YUV to colours.
#include "presentation/yuv.h"

#include <algorithm>

namespace korvel {

namespace {

// A side has 12 bits in a sequence header, and decoders may write whole macroblocks of 16.
constexpr std::int32_t kLargestSide = 4096;
constexpr double kChromaZero = 128;

std::size_t Area(std::int32_t width, std::int32_t height) noexcept {
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

std::uint32_t Level(double value) noexcept {
  return static_cast<std::uint32_t>(std::clamp(static_cast<int>(value), 0, 255));
}

}  // namespace

PlanarFrame::PlanarFrame(FrameSize size) noexcept
    : size_(size),
      bytes_(static_cast<std::uint8_t*>(AllocateZeroed(Area(kLargestSide, kLargestSide) * 3 / 2))) {
}

bool PlanarFrame::IsUntouched() const noexcept {
  return std::all_of(bytes_, bytes_ + Area(size_.Width, size_.Height),
                     [](std::uint8_t sample) { return sample == 0; });
}

std::uint32_t PlanarFrame::PixelAt(std::int32_t column, std::int32_t row) const noexcept {
  const std::size_t lumaSize = Area(size_.Width, size_.Height);
  const std::size_t chromaSize = Area(size_.Width / 2, size_.Height / 2);
  // The last column and row of an odd size have no chroma of their own.
  const std::int32_t chromaColumn = std::min(column / 2, std::max(size_.Width / 2 - 1, 0));
  const std::int32_t chromaRow = std::min(row / 2, std::max(size_.Height / 2 - 1, 0));
  const std::size_t chroma =
      Area(chromaRow, size_.Width / 2) + static_cast<std::size_t>(chromaColumn);
  const double luma =
      1.164 * (bytes_[Area(row, size_.Width) + static_cast<std::size_t>(column)] - 16.0);
  const double u = bytes_[lumaSize + chroma] - kChromaZero;
  const double v = bytes_[lumaSize + chromaSize + chroma] - kChromaZero;
  const std::uint32_t red = Level(luma + 1.596 * v);
  const std::uint32_t green = Level(luma - 0.813 * v - 0.391 * u);
  const std::uint32_t blue = Level(luma + 2.018 * u);
  return 0xFF000000 | red << 16 | green << 8 | blue;
}

}  // namespace korvel
