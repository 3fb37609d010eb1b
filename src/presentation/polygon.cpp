// Polygons on a canvas: cut to what is near it, and drawn in the way that suits their corners.
#include "presentation/polygon.h"

#include <algorithm>
#include <cmath>

#include "objects/sequence.h"
#include "presentation/clipping.h"
#include "presentation/colours.h"
#include "presentation/coverage.h"
#include "presentation/geometry.h"
#include "presentation/line.h"
#include "presentation/outline.h"

namespace korvel {

namespace {

// The time that GDI+ takes grows with the square of the corners and with how far they may lie
// apart, seen or not. For this product of the three, 500 corners all over the scene, it is a fourth
// of a second.
constexpr double kMostForGdiPlus = 500.0 * 500.0 * 1000.0;

// Half a second for dashes. An outline that has more is solid, as it nearly looks anyway.
constexpr double kMostDashes = 1'000'000;

// A large canvas is covered part by part, each of so many pixels or of one row.
constexpr std::int32_t kPixelsAtOnce = 1024 * 1024;

// How far an outline reaches beyond its corners at most: where it turns sharply, five widths, and
// some rounding.
std::int32_t Reach(const LineAttributes& line) noexcept { return 5 * DrawnWidth(line) + 2; }

double LengthAround(std::span<const CanvasPoint> corners) noexcept {
  double length = 0;
  for (std::size_t corner = 0; corner < corners.size(); ++corner) {
    const CanvasPoint& from = corners[corner];
    const CanvasPoint& to = corners[(corner + 1) % corners.size()];
    length += std::hypot(to.X - from.X, to.Y - from.Y);
  }
  return length;
}

// Whether GDI+ draws such a polygon soon.
[[nodiscard]] bool SuitsGdiPlus(std::span<const CanvasPoint> corners, const LineAttributes& line,
                                std::int64_t farthest) noexcept {
  const auto count = static_cast<double>(corners.size());
  return count * count * static_cast<double>(farthest) <= kMostForGdiPlus &&
         !HasMoreDashes(line, LengthAround(corners), kMostDashesForGdiPlus);
}

// What of the drawable area lies no further from the corners than `reach`.
Box AreaAround(std::span<const CanvasPoint> corners, std::int32_t reach,
               const Canvas& canvas) noexcept {
  const auto [left, right] = std::ranges::minmax(corners, {}, &CanvasPoint::X);
  const auto [top, bottom] = std::ranges::minmax(corners, {}, &CanvasPoint::Y);
  return {std::max(left.X - reach, 0), std::max(top.Y - reach, 0),
          std::min(right.X + reach + 1, canvas.ClipWidth),
          std::min(bottom.Y + reach + 1, canvas.ClipHeight)};
}

void DrawPixels(const Box& area, std::uint32_t* pixels, const Canvas& canvas) noexcept {
  BitmapOwner picture;
  const auto rowBytes = static_cast<INT>(area.Width() * static_cast<INT>(sizeof(*pixels)));
  if (Succeeded(gdip::GdipCreateBitmapFromScan0(area.Width(), area.Height(), rowBytes,
                                                PixelFormat32bppARGB,
                                                reinterpret_cast<BYTE*>(pixels), picture.Slot()))) {
    static_cast<void>(gdip::GdipDrawImageRectRectI(
        canvas.Graphics, picture, area.Left, area.Top, area.Width(), area.Height(), 0, 0,
        area.Width(), area.Height(), Gdiplus::UnitPixel, nullptr, nullptr, nullptr));
  }
}

// Draws what `addShape` adds to the coverage that it is given, once for each part of the area.
template <class AddShape>
void DrawShape(const Box& area, FillRule rule, DrawnColour colour, const Canvas& canvas,
               AddShape&& addShape) noexcept {
  Coverage coverage;
  if (area.IsEmpty() || !IsSeen(colour)) return;
  const std::int32_t rows =
      std::min(std::max(kPixelsAtOnce / area.Width(), 1), area.Bottom - area.Top);
  if (!coverage.Reserve(std::int64_t{rows} * area.Width())) return;
  for (std::int32_t top = area.Top; top < area.Bottom; top += rows) {
    coverage.Begin({area.Left, top, area.Right, std::min(top + rows, area.Bottom)});
    addShape(coverage);
    DrawPixels(coverage.Area(), coverage.Colour(rule, ToGdiPlus(colour)), canvas);
  }
}

}  // namespace

void DrawPolygonWithGdiPlus(std::span<const CanvasPoint> corners, const LineAttributes& line,
                            DrawnColour fill, const Canvas& canvas) noexcept {
  // A GDI+ point is the same two numbers.
  static_assert(sizeof(CanvasPoint) == sizeof(Gdiplus::GpPoint));
  const auto* points = reinterpret_cast<const Gdiplus::GpPoint*>(corners.data());
  const auto count = static_cast<INT>(corners.size());
  PenOwner pen;
  if (MakePen(line, LengthAround(corners), pen) &&
      Succeeded(gdip::GdipSetPenMode(pen, Gdiplus::PenAlignmentInset))) {
    static_cast<void>(gdip::GdipDrawPolygonI(canvas.Graphics, pen, points, count));
  }
  SolidBrushOwner brush;
  if (MakeBrush(fill, brush)) {
    static_cast<void>(
        gdip::GdipFillPolygonI(canvas.Graphics, brush, points, count, Gdiplus::FillModeAlternate));
  }
}

void DrawPolygonByCoverage(std::span<const CanvasPoint> corners, const LineAttributes& line,
                           DrawnColour fill, const Canvas& canvas) noexcept {
  if (corners.empty()) return;
  const std::int32_t width = DrawnWidth(line);
  const bool isSolid = HasMoreDashes(line, LengthAround(corners), kMostDashes);
  const Dashes dashes = isSolid ? Dashes::None : DashesOf(line);
  if (width > 0) {
    DrawShape(AreaAround(corners, Reach(line), canvas), FillRule::NonZero, line.Ink, canvas,
              [&](Coverage& coverage) {
                if (width == 1) return AddThinOutline(corners, dashes, coverage);
                return AddWideOutline(corners, width, dashes, coverage);
              });
  }
  DrawShape(AreaAround(corners, 0, canvas), FillRule::EvenOdd, fill, canvas,
            [&](Coverage& coverage) { coverage.AddFigure(corners); });
}

Status CanvasPolygon(std::span<const CanvasPoint> points, const LineAttributes& line,
                     DrawnColour fill, Canvas* canvas) noexcept {
  if (canvas == nullptr) return Status::Done;
  // GDI+ knows no polygon of two corners.
  if (points.size() == 2) return CanvasLine(points[0], points[1], line, canvas);
  const std::int64_t farthest = FarthestPoint(*canvas, line);
  Sequence<CanvasPoint> clipped;
  if (!ClipPolygon(points, farthest, clipped) || clipped.Size() < 2) return Status::Done;
  const std::span<const CanvasPoint> corners(clipped.begin(), clipped.Size());
  if (SuitsGdiPlus(corners, line, farthest)) {
    DrawPolygonWithGdiPlus(corners, line, fill, *canvas);
  } else {
    DrawPolygonByCoverage(corners, line, fill, *canvas);
  }
  return Status::Done;
}

}  // namespace korvel
