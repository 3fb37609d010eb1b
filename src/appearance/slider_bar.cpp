// Computes the bar and the marker of a slider, in double precision: its rounding decides which
// pixels are covered.
#include "appearance/slider_bar.h"

#include <algorithm>

namespace korvel {
namespace {

constexpr std::int64_t kMarkerThickness = 3;

// The direction in which the bar grows: from one edge of the box to the opposite one.
class Track {
 public:
  explicit Track(const Slider& slider)
      : slider_(slider),
        isUpright_(slider.Orientation == Orientation::Up ||
                   slider.Orientation == Orientation::Down),
        beginsFar_(slider.Orientation == Orientation::Right ||
                   slider.Orientation == Orientation::Down),
        near_(isUpright_ ? slider.Position.Y : slider.Position.X),
        length_(isUpright_ ? slider.BoxSize.Height : slider.BoxSize.Width) {}

  // The position of a value, in scene pixels. Values count from 0, not from the minimum. The bar
  // never covers the pixel at the end opposite its start.
  [[nodiscard]] std::int64_t At(std::int64_t value) const {
    const double range = static_cast<double>(slider_.MaxValue) - slider_.MinValue;
    const double distance = static_cast<double>(length_ - 1) / range * static_cast<double>(value);
    const double position = static_cast<double>(Beginning()) + (beginsFar_ ? -distance : distance);
    const std::int64_t first = beginsFar_ ? near_ + 1 : near_;
    const double limited = std::clamp(position, static_cast<double>(first),
                                      static_cast<double>(first + std::max(length_ - 1, kNothing)));
    return static_cast<std::int64_t>(limited);
  }

  [[nodiscard]] std::int64_t Beginning() const { return beginsFar_ ? near_ + length_ : near_; }

  // The position `pixels` further along the bar.
  [[nodiscard]] std::int64_t Further(std::int64_t position, std::int64_t pixels) const {
    return beginsFar_ ? position - pixels : position + pixels;
  }

  // The part of the box between two positions, in either order.
  [[nodiscard]] Box Between(std::int64_t one, std::int64_t other) const {
    const auto [from, to] = std::minmax({one, other});
    Box box = BoxOf(slider_);
    (isUpright_ ? box.top : box.left) = NearCoordinate(from);
    (isUpright_ ? box.bottom : box.right) = NearCoordinate(to);
    return box;
  }

  // The marker across the bar's end, moved into the box if the bar is shorter than the marker.
  [[nodiscard]] Box MarkerAt(std::int64_t end) const {
    const std::int64_t thickness = std::min(kMarkerThickness, std::max(length_, kNothing));
    const std::int64_t from =
        std::clamp(beginsFar_ ? end : end - thickness, near_, near_ + length_ - thickness);
    return Between(from, from + thickness);
  }

 private:
  static constexpr std::int64_t kNothing = 0;

  const Slider& slider_;
  bool isUpright_;
  bool beginsFar_;  // at the right or at the bottom
  std::int64_t near_;
  std::int64_t length_;
};

}  // namespace

SliderBar SliderBarOf(const Slider& slider) {
  const Track track(slider);
  std::int64_t from = track.Beginning();
  std::int64_t to = track.Further(from, 1);
  if (slider.MaxValue != slider.MinValue) {
    const std::int64_t value = slider.SliderValue;
    const bool isProportional = slider.SliderStyle == SliderStyle::Proportional;
    if (isProportional) from = track.At(value);
    to = track.At(isProportional ? value + slider.Portion : value);
  }
  SliderBar bar{.bar = track.Between(from, to), .marker = {}};
  if (slider.SliderStyle == SliderStyle::Thermometer) bar.marker = track.MarkerAt(to);
  return bar;
}

}  // namespace korvel
