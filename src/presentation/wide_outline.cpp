// Outlines of several pixels: the contour of what the pen covers, one side of it forwards and the
// other backwards. Worked in single precision and rounded to whole pixels in the end, in the order
// in which GDI+ does it: its outlines are the same to the pixel.
#include <cmath>
#include <optional>

#include "presentation/outline.h"

namespace korvel {

namespace {

// A mitre reaches no further from its corner than so many times half the width.
constexpr float kMitreLimit = 10;

// A vector too.
struct Place {
  float X = 0;
  float Y = 0;
};

Place PlaceOf(const CanvasPoint& point) noexcept {
  return {static_cast<float>(point.X), static_cast<float>(point.Y)};
}

Place Between(const Place& from, const Place& to) noexcept {
  return {to.X - from.X, to.Y - from.Y};
}

float Length(const Place& way) noexcept { return std::sqrt(way.X * way.X + way.Y * way.Y); }

float Cross(const Place& one, const Place& other) noexcept {
  return one.X * other.Y - one.Y * other.X;
}

// A closed figure, told to the coverage edge by edge.
class Figure {
 public:
  explicit Figure(Coverage& coverage) noexcept : coverage_(coverage) {}
  Figure(const Figure&) = delete;
  Figure& operator=(const Figure&) = delete;
  ~Figure() {
    if (first_) coverage_.AddEdge(last_, *first_);
  }

  void Add(const Place& place) noexcept {
    const CanvasPoint point{Rounded(place.X), Rounded(place.Y)};
    if (first_) {
      coverage_.AddEdge(last_, point);
    } else {
      first_ = point;
    }
    last_ = point;
  }

 private:
  static std::int32_t Rounded(float place) noexcept {
    return static_cast<std::int32_t>(std::floor(place + 0.5F));
  }

  Coverage& coverage_;
  std::optional<CanvasPoint> first_;
  CanvasPoint last_;
};

// A pen of twice the reach. What it covers lies between its right side on the way there and its
// right side on the way back.
class WidePen {
 public:
  WidePen(float reach, Coverage& coverage) noexcept : reach_(reach), coverage_(coverage) {}

  void DrawAround(std::span<const CanvasPoint> corners) const noexcept;
  // From end to end, by way of some corners. The ends are flat.
  void DrawDash(const Place& start, std::span<const CanvasPoint> corners,
                const Place& end) const noexcept;

 private:
  // On the right of `at` for who comes from `from`. On the left with a reach below 0.
  static Place Beside(const Place& from, const Place& at, float reach) noexcept;
  void Turn(const Place& from, const Place& corner, const Place& to, Figure& figure) const noexcept;

  float reach_;
  Coverage& coverage_;
};

Place WidePen::Beside(const Place& from, const Place& at, float reach) noexcept {
  const Place way = Between(from, at);
  const float length = Length(way);
  if (length == 0) return at;
  return {at.X - reach * way.Y / length, at.Y + reach * way.X / length};
}

// Outside of a turn both edges go on until they meet, unless that is too far away.
void WidePen::Turn(const Place& from, const Place& corner, const Place& to,
                   Figure& figure) const noexcept {
  const auto scaled = [this](const Place& way) {
    const float length = Length(way);
    return Place{reach_ * way.X / length, reach_ * way.Y / length};
  };
  if (Cross(Between(from, corner), Between(from, to)) < 0) {
    const Place before = scaled(Between(from, corner));
    const Place after = scaled(Between(corner, to));
    const Place change = Between(before, after);
    const float turn = Cross(before, after);
    const Place mitre{reach_ * reach_ * change.X / turn, reach_ * reach_ * change.Y / turn};
    if (Length(mitre) < kMitreLimit * reach_) {
      figure.Add({corner.X + mitre.X, corner.Y + mitre.Y});
      return;
    }
  }
  figure.Add(Beside(from, corner, reach_));
  figure.Add(Beside(to, corner, -reach_));
}

void WidePen::DrawAround(std::span<const CanvasPoint> corners) const noexcept {
  const std::size_t count = corners.size();
  const auto follow = [&](auto&& at) {
    Figure figure(coverage_);
    for (std::size_t corner = 0; corner < count; ++corner) {
      Turn(at((corner + count - 1) % count), at(corner), at((corner + 1) % count), figure);
    }
  };
  follow([&](std::size_t index) { return PlaceOf(corners[index]); });
  follow([&](std::size_t index) { return PlaceOf(corners[count - 1 - index]); });
}

void WidePen::DrawDash(const Place& start, std::span<const CanvasPoint> corners,
                       const Place& end) const noexcept {
  Figure figure(coverage_);
  const std::size_t last = corners.size() + 1;
  const auto follow = [&](auto&& at) {
    figure.Add(Beside(at(1), at(0), -reach_));
    for (std::size_t index = 1; index < last; ++index) {
      Turn(at(index - 1), at(index), at(index + 1), figure);
    }
    figure.Add(Beside(at(last - 1), at(last), reach_));
  };
  const auto place = [&](std::size_t index) {
    if (index == 0) return start;
    return index == last ? end : PlaceOf(corners[index - 1]);
  };
  follow(place);
  follow([&](std::size_t index) { return place(last - index); });
}

// Walks around once, beginning with the side that closes the polygon, and draws each dash when it
// has come to its end. Dashes and gaps go on around the corners.
class DashWalk {
 public:
  DashWalk(std::span<const CanvasPoint> corners, float width, Dashes dashes,
           Coverage& coverage) noexcept
      : corners_(corners),
        pen_(width / 2, coverage),
        dash_(width * static_cast<float>(dashes)),
        gap_(width) {}

  void Draw() noexcept {
    BeginDash(PlaceOf(corners_.back()), 0);
    for (std::size_t corner = 0; corner < corners_.size(); ++corner) {
      const std::size_t before = (corner == 0 ? corners_.size() : corner) - 1;
      WalkSide(PlaceOf(corners_[before]), corner);
    }
    if (isInDash_) EndDash(PlaceOf(corners_.back()), corners_.size() - 1);
  }

 private:
  void BeginDash(const Place& place, std::size_t nextCorner) noexcept {
    start_ = place;
    nextCorner_ = nextCorner;
  }
  void EndDash(const Place& place, std::size_t nextCorner) const noexcept {
    pen_.DrawDash(start_, corners_.subspan(nextCorner_, nextCorner - nextCorner_), place);
  }

  void WalkSide(const Place& from, std::size_t corner) noexcept {
    const Place way = Between(from, PlaceOf(corners_[corner]));
    const float length = Length(way);
    float place = 0;
    for (;;) {
      const float left = (isInDash_ ? dash_ : gap_) - walked_;
      if (length == 0 || left > length - place) break;
      place += left;
      walked_ = 0;
      const Place here{from.X + way.X * place / length, from.Y + way.Y * place / length};
      if (isInDash_) {
        EndDash(here, corner);
      } else {
        BeginDash(here, corner);
      }
      isInDash_ = !isInDash_;
    }
    walked_ += length - place;
  }

  std::span<const CanvasPoint> corners_;
  WidePen pen_;
  float dash_;
  float gap_;
  bool isInDash_ = true;
  float walked_ = 0;  // of the dash or gap
  Place start_;       // of the dash, and the corner behind it
  std::size_t nextCorner_ = 0;
};

}  // namespace

void AddWideOutline(std::span<const CanvasPoint> corners, std::int32_t width, Dashes dashes,
                    Coverage& coverage) noexcept {
  if (corners.empty()) return;
  const auto drawnWidth = static_cast<float>(width);
  if (dashes == Dashes::None) {
    WidePen(drawnWidth / 2, coverage).DrawAround(corners);
  } else {
    DashWalk(corners, drawnWidth, dashes, coverage).Draw();
  }
}

}  // namespace korvel
