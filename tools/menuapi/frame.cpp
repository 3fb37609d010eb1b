// Planes and the positions of lines in them. A field is the same plane with a step of two lines, so
// the rest of the decoder needs no special case for fields.
#include "menuapi/frame.h"

#include <algorithm>

namespace menuapi {
namespace {

constexpr std::uint8_t kBlackLuma = 16;
constexpr std::uint8_t kNoChroma = 128;

std::size_t Area(int width, int height) {
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

int FrameWidth(const Sequence& sequence) { return MacroblockColumns(sequence) * kMacroblockSide; }

int FrameHeight(const Sequence& sequence) {
  return MacroblockRows(sequence, Picture{}) * kMacroblockSide;
}

Plane ChromaPlane(const Sequence& sequence) {
  return {FrameWidth(sequence) / 2, FrameHeight(sequence) / 2, kNoChroma};
}

}  // namespace

void Put(const Samples& samples, SampleLines target) {
  for (std::size_t line = 0; line < kBlockSide; ++line) {
    std::copy_n(&samples[line * kBlockSide], kBlockSide, target.first);
    target.first += target.step;
  }
}

Plane::Plane(int width, int height, std::uint8_t level)
    : width_(static_cast<std::size_t>(width)), samples_(Area(width, height), level) {}

SampleLines Plane::Lines(PictureStructure structure) {
  const auto step = static_cast<std::ptrdiff_t>(width_);
  if (structure == PictureStructure::Frame) return {samples_.data(), step};
  const bool isBottom = structure == PictureStructure::BottomField;
  return {samples_.data() + (isBottom ? step : 0), 2 * step};
}

void Plane::DoubleLines(PictureStructure field) {
  const std::size_t other = field == PictureStructure::TopField ? width_ : 0;
  for (std::size_t pair = 0; pair < samples_.size(); pair += 2 * width_) {
    std::copy_n(&samples_[pair + width_ - other], width_, &samples_[pair + other]);
  }
}

void Plane::CopyTo(int width, std::span<std::uint8_t> target) const {
  const auto copied = static_cast<std::size_t>(width);
  for (std::size_t line = 0; (line + 1) * copied <= target.size() && copied > 0; ++line) {
    std::copy_n(&samples_[line * width_], copied, &target[line * copied]);
  }
}

Frame::Frame(const Sequence& sequence)
    : planes_{Plane(FrameWidth(sequence), FrameHeight(sequence), kBlackLuma), ChromaPlane(sequence),
              ChromaPlane(sequence)} {}

void Frame::DoubleLines(PictureStructure field) {
  for (Plane& plane : planes_) plane.DoubleLines(field);
}

void Frame::CopyTo(FrameSize size, std::span<std::uint8_t> planes) const {
  const std::size_t luma = LumaBytes(size);
  const std::size_t chroma = ChromaBytes(size);
  planes_[kLuma].CopyTo(size.width, planes.first(luma));
  planes_[kChromaBlue].CopyTo(size.width / 2, planes.subspan(luma, chroma));
  planes_[kChromaRed].CopyTo(size.width / 2, planes.subspan(luma + chroma, chroma));
}

std::size_t LumaBytes(FrameSize size) { return Area(size.width, size.height); }

std::size_t ChromaBytes(FrameSize size) { return Area(size.width / 2, size.height / 2); }

std::size_t PlanesBytes(FrameSize size) { return LumaBytes(size) + 2 * ChromaBytes(size); }

void FillBlack(FrameSize size, std::span<std::uint8_t> planes) {
  std::fill_n(planes.begin(), LumaBytes(size), kBlackLuma);
  std::fill_n(planes.begin() + static_cast<std::ptrdiff_t>(LumaBytes(size)), 2 * ChromaBytes(size),
              kNoChroma);
}

}  // namespace menuapi
