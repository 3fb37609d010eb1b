// The counting of edges, and the walk along the rows.
#include "presentation/coverage.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "objects/memory.h"
#include "presentation/slope.h"

namespace korvel {

Coverage::~Coverage() { ReleaseMemory(counts_); }

bool Coverage::Reserve(std::int64_t pixels) noexcept {
  ReleaseMemory(counts_);
  counts_ = static_cast<std::uint32_t*>(
      AllocateZeroed(static_cast<std::size_t>(pixels) * sizeof(std::uint32_t)));
  return counts_ != nullptr;
}

void Coverage::Begin(const Box& area) noexcept {
  area_ = area;
  std::memset(counts_, 0, RowStart(area.Bottom) * sizeof(std::uint32_t));
}

std::size_t Coverage::RowStart(std::int32_t y) const noexcept {
  return static_cast<std::size_t>(y - area_.Top) * static_cast<std::size_t>(area_.Width());
}

void Coverage::AddEdge(CanvasPoint from, CanvasPoint to) noexcept {
  const bool isDownwards = from.Y < to.Y;
  if (!isDownwards) std::swap(from, to);
  const std::int32_t first = std::max(from.Y, area_.Top);
  const std::int32_t end = std::min(to.Y, area_.Bottom);
  if (first >= end || std::min(from.X, to.X) >= area_.Right) return;
  const std::uint32_t count = isDownwards ? 1 : 0xFFFFFFFF;
  std::uint32_t* row = counts_ + RowStart(first);
  // Rounded up: the first pixel that does not lie left of the edge.
  const std::int64_t width = std::int64_t{to.X} - from.X;
  const std::int64_t height = std::int64_t{to.Y} - from.Y;
  Slope column((std::int64_t{first} - from.Y) * width + height - 1, width, height);
  const std::int64_t left = std::int64_t{area_.Left} - from.X;
  const std::int64_t right = std::int64_t{area_.Right} - from.X;
  for (std::int32_t y = first; y < end; ++y, row += area_.Width(), column.Step()) {
    const std::int64_t inside = std::max(column.Value(), left);
    if (inside < right) row[inside - left] += count;
  }
}

void Coverage::AddFigure(std::span<const CanvasPoint> corners) noexcept {
  for (std::size_t corner = 0; corner < corners.size(); ++corner) {
    AddEdge(corners[corner], corners[(corner + 1) % corners.size()]);
  }
}

void Coverage::AddPixel(CanvasPoint pixel) noexcept {
  if (pixel.X < area_.Left || pixel.X >= area_.Right) return;
  if (pixel.Y < area_.Top || pixel.Y >= area_.Bottom) return;
  std::uint32_t* count = counts_ + RowStart(pixel.Y) + (pixel.X - area_.Left);
  ++count[0];
  if (pixel.X + 1 < area_.Right) --count[1];
}

std::uint32_t* Coverage::Colour(FillRule rule, std::uint32_t ink) noexcept {
  const std::uint32_t deciding = rule == FillRule::EvenOdd ? 1 : 0xFFFFFFFF;
  std::uint32_t* pixel = counts_;
  for (std::int32_t y = area_.Top; y < area_.Bottom; ++y) {
    std::uint32_t enclosing = 0;
    for (std::int32_t x = area_.Left; x < area_.Right; ++x, ++pixel) {
      enclosing += *pixel;
      *pixel = (enclosing & deciding) != 0 ? ink : 0;
    }
  }
  return counts_;
}

}  // namespace korvel
