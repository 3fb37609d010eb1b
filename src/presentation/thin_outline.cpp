// Outlines of one pixel: each side steps from pixel to pixel along the axis on which it is longer,
// and takes in each step the pixel that is nearest across it. Half way between two it takes the
// right or lower one, whichever end it starts from.
#include <algorithm>
#include <cstdlib>

#include "presentation/outline.h"
#include "presentation/slope.h"

namespace korvel {

namespace {

// Some of a side's steps; none when the end does not lie behind the first.
struct Steps {
  std::int64_t First;
  std::int64_t End;
};

// A side of the polygon on one axis, where the area to be covered reaches from `Low` to `High`.
struct Way {
  std::int64_t Start;
  std::int64_t Length;
  std::int64_t Low;
  std::int64_t High;

  [[nodiscard]] std::int64_t Distance() const noexcept { return std::abs(Length); }

  // Which of so many steps along the side may lie in the area; at either end it may be some less.
  [[nodiscard]] Steps Inside(std::int64_t steps) const noexcept {
    if (Length == 0) return {0, Low <= Start && Start < High ? steps : 0};
    const std::int64_t toArea = (Length > 0 ? Low - Start : Start - High) - 1;
    const std::int64_t throughArea = toArea + (High - Low) + 2;
    return {std::max<std::int64_t>(toArea * steps / Distance(), 0),
            std::min(throughArea * steps / Distance() + 1, steps)};
  }
};

// A pen that counts its steps: a dash is so many of them, on a slope as elsewhere.
class ThinPen {
 public:
  ThinPen(Dashes dashes, Coverage& coverage) noexcept
      : drawn_(static_cast<std::int64_t>(dashes)), coverage_(coverage) {}

  // Up to the pixel of `to`, which is the next side's first.
  void DrawSide(const CanvasPoint& from, const CanvasPoint& to) noexcept {
    const Box& area = coverage_.Area();
    const Way level{from.X, std::int64_t{to.X} - from.X, area.Left, area.Right};
    const Way upright{from.Y, std::int64_t{to.Y} - from.Y, area.Top, area.Bottom};
    if (level.Distance() >= upright.Distance()) {
      Draw(level, upright, [&](auto x, auto y) { coverage_.AddPixel({x, y}); });
    } else {
      Draw(upright, level, [&](auto y, auto x) { coverage_.AddPixel({x, y}); });
    }
  }

 private:
  template <class AddPixel>
  void Draw(const Way& along, const Way& across, AddPixel&& addPixel) noexcept {
    const std::int64_t steps = along.Distance();
    const std::int64_t direction = along.Length < 0 ? -1 : 1;
    const Steps level = along.Inside(steps);
    const Steps upright = across.Inside(steps);
    const std::int64_t first = std::max(level.First, upright.First);
    const std::int64_t end = std::min(level.End, upright.End);
    if (first < end) {
      Slope place(2 * across.Length * first + steps, 2 * across.Length, 2 * steps);
      for (std::int64_t step = first; step < end; ++step, place.Step()) {
        if (!IsDrawn(step)) continue;
        addPixel(static_cast<std::int32_t>(along.Start + direction * step),
                 static_cast<std::int32_t>(across.Start + place.Value()));
      }
    }
    before_ += steps;
  }

  [[nodiscard]] bool IsDrawn(std::int64_t step) const noexcept {
    return drawn_ == 0 || (before_ + step) % (drawn_ + 1) < drawn_;
  }

  std::int64_t drawn_;
  std::int64_t before_ = 0;  // the steps of the sides before
  Coverage& coverage_;
};

}  // namespace

void AddThinOutline(std::span<const CanvasPoint> corners, Dashes dashes,
                    Coverage& coverage) noexcept {
  ThinPen pen(dashes, coverage);
  for (std::size_t corner = 0; corner < corners.size(); ++corner) {
    pen.DrawSide(corners[corner], corners[(corner + 1) % corners.size()]);
  }
}

}  // namespace korvel
