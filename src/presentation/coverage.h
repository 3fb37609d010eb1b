// Which pixels of an area a shape covers, found without sorting: each edge of the shape is counted
// in every row that it crosses, and the counts along a row then tell what lies inside. The time
// grows with the rows crossed, however many edges there are. What shape it is, is left to others.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "presentation/geometry.h"
#include "presentation/presentation.h"

namespace korvel {

// When a pixel counts as covered: when the edges to its left, those upwards taken from those
// downwards, are an odd number, or when they are any but none.
enum class FillRule { EvenOdd, NonZero };

// A pixel lies where its top-left corner does; on an edge, it belongs to what is right of and below
// the edge. So GDI+ has it, and so shapes with a common edge neither overlap nor leave a gap.
class Coverage {
 public:
  Coverage() noexcept = default;
  Coverage(const Coverage&) = delete;
  Coverage& operator=(const Coverage&) = delete;
  ~Coverage();

  // Makes room for areas of up to so many pixels. False when memory is out.
  [[nodiscard]] bool Reserve(std::int64_t pixels) noexcept;

  // Begins anew, with nothing covered, in an area no larger than what was reserved.
  void Begin(const Box& area) noexcept;
  [[nodiscard]] const Box& Area() const noexcept { return area_; }

  // An edge of the shape, of coordinates less than 2^30. Those of a shape make closed figures.
  void AddEdge(CanvasPoint from, CanvasPoint to) noexcept;

  // A closed figure by its corners.
  void AddFigure(std::span<const CanvasPoint> corners) noexcept;

  // A figure of the single pixel.
  void AddPixel(CanvasPoint pixel) noexcept;

  // Ends the shape: the area's pixels row by row, `ink` where covered and 0 elsewhere. They stay
  // until the next area is begun.
  [[nodiscard]] std::uint32_t* Colour(FillRule rule, std::uint32_t ink) noexcept;

 private:
  [[nodiscard]] std::size_t RowStart(std::int32_t y) const noexcept;

  // For each pixel, how many more edges lead downwards than upwards between it and its left
  // neighbour, modulo 2^32; at last its colour.
  std::uint32_t* counts_ = nullptr;
  Box area_;
};

}  // namespace korvel
