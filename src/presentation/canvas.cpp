// Creates canvases and carries out the drawing actions on them. A canvas keeps its pixels until it
// is cleared; the drawing actions are not recorded.
#include "presentation/line_art.h"

#include <algorithm>
#include <cmath>

#include "appearance/colours.h"
#include "appearance/geometry.h"
#include "objects/limits.h"
#include "objects/list.h"
#include "objects/ownership.h"

namespace korvel {
namespace {

constexpr std::int32_t kFullTurn = 360;

// GDI+ converts curves to lines in single precision. Under Wine it never finishes if they are much
// further out than this.
constexpr std::int64_t kFarthestCurve = 8000;

constexpr Gdiplus::ARGB kTransparentBlack = 0;

// The box of a curve, `shrink` pixels smaller on every side.
Box CurveBox(CanvasPoint at, std::int64_t width, std::int64_t height, std::int64_t shrink) {
  const auto limited = [](std::int64_t coordinate) {
    return std::clamp(coordinate, -kFarthestCurve, kFarthestCurve);
  };
  const std::int64_t left = at.x + shrink;
  const std::int64_t top = at.y + shrink;
  return BoxBetween(limited(left), limited(top), limited(left + width - 2 * shrink),
                    limited(top + height - 2 * shrink));
}

[[nodiscard]] bool MakePicture(Canvas& canvas) {
  return MakeBitmap(canvas.width, canvas.height, canvas.picture) &&
         Succeeded(gdip::GdipGetImageGraphicsContext(canvas.picture, canvas.graphics.Slot())) &&
         Succeeded(gdip::GdipGraphicsClear(canvas.graphics, kTransparentBlack));
}

// The start of an arc and its extent, in degrees, clockwise as in GDI+.
struct Turn {
  float start;
  float sweep;
};

void DrawCurve(Gdiplus::GpGraphics* graphics, const Box& box, const Turn& turn,
               const LineAttributes& line, ArcForm form) {
  PenOwner pen;
  if (!MakePen(line, 2.0 * (box.Width() + box.Height()), pen)) return;
  const auto draw = form == ArcForm::Arc ? gdip::GdipDrawArcI : gdip::GdipDrawPieI;
  static_cast<void>(
      draw(graphics, pen, box.left, box.top, box.Width(), box.Height(), turn.start, turn.sweep));
}

void FillSector(Gdiplus::GpGraphics* graphics, const Box& box, const Turn& turn,
                DrawnColour colour) {
  SolidBrushOwner brush;
  if (!MakeBrush(colour, brush)) return;
  static_cast<void>(gdip::GdipFillPieI(graphics, brush, box.left, box.top, box.Width(),
                                       box.Height(), turn.start, turn.sweep));
}

// Dashed lines and polygons are cut at this distance from the origin. It is far enough outside the
// canvas to hide the cut, and the sharp corners of an outline, which reach up to five widths beyond
// their points.
std::int64_t FarthestPoint(const Canvas& canvas, const LineAttributes& line) {
  const std::int64_t margin = 6 * std::int64_t{DrawnWidth(line)} + 2;
  return std::min(std::max(canvas.width, canvas.height) + margin, kFarthestCoordinate);
}

double LengthAround(std::span<const CanvasPoint> corners) {
  double length = 0;
  for (std::size_t corner = 0; corner < corners.size(); ++corner) {
    const CanvasPoint& from = corners[corner];
    const CanvasPoint& to = corners[(corner + 1) % corners.size()];
    length += std::hypot(to.x - from.x, to.y - from.y);
  }
  return length;
}

}  // namespace

Canvas* NewCanvas(std::int32_t width, std::int32_t height) {
  if (width < 1 || height < 1 || std::int64_t{width} * height > kMostCanvasPixels) return nullptr;
  Owned<Canvas> canvas = NewRecord<Canvas>();
  if (!canvas) return nullptr;
  canvas->width = canvas->clipWidth = width;
  canvas->height = canvas->clipHeight = height;
  return MakePicture(*canvas) ? canvas.release() : nullptr;
}

void DestroyCanvas(Canvas* canvas) { const Owned<Canvas> released(canvas); }

void ClipCanvas(std::int32_t width, std::int32_t height, Canvas* canvas) {
  if (canvas == nullptr) return;
  canvas->clipWidth = std::clamp<std::int32_t>(width, 0, canvas->width);
  canvas->clipHeight = std::clamp<std::int32_t>(height, 0, canvas->height);
  static_cast<void>(gdip::GdipSetClipRectI(canvas->graphics, 0, 0, canvas->clipWidth,
                                           canvas->clipHeight, Gdiplus::CombineModeReplace));
}

void ClearCanvas(DrawnColour fill, Canvas* canvas) {
  if (canvas == nullptr) return;
  static_cast<void>(gdip::GdipResetClip(canvas->graphics));
  static_cast<void>(gdip::GdipGraphicsClear(canvas->graphics, kTransparentBlack));
  ClipCanvas(canvas->clipWidth, canvas->clipHeight, canvas);
  SolidBrushOwner brush;
  if (MakeBrush(fill, brush)) {
    static_cast<void>(
        gdip::GdipFillRectangleI(canvas->graphics, brush, 0, 0, canvas->width, canvas->height));
  }
}

void CanvasLine(CanvasPoint from, CanvasPoint to, const LineAttributes& line, Canvas* canvas) {
  if (canvas == nullptr) return;
  const std::int32_t period = DashPeriod(line);
  const std::int64_t farthest = period > 0 ? FarthestPoint(*canvas, line) : kFarthestCoordinate;
  LinePart part;
  PenOwner pen;
  if (!ClipLine(from, to, farthest, period, part) || !MakePen(line, part.Length(), pen)) {
    return;
  }
  static_cast<void>(gdip::GdipDrawLine(canvas->graphics, pen, static_cast<float>(part.fromX),
                                       static_cast<float>(part.fromY), static_cast<float>(part.toX),
                                       static_cast<float>(part.toY)));
}

void CanvasRectangle(CanvasPoint from, CanvasPoint to, const LineAttributes& line, DrawnColour fill,
                     Canvas* canvas) {
  if (canvas == nullptr) return;
  DrawBorderedRectangle(canvas->graphics, BoxBetween(from.x, from.y, to.x, to.y), line, fill);
}

void CanvasOval(CanvasPoint at, std::int32_t width, std::int32_t height, DrawnColour fill,
                Canvas* canvas) {
  const Box box = CurveBox(at, width, height, 0);
  SolidBrushOwner brush;
  if (canvas == nullptr || box.IsEmpty() || !MakeBrush(fill, brush)) return;
  static_cast<void>(gdip::GdipFillEllipseI(canvas->graphics, brush, box.left, box.top, box.Width(),
                                           box.Height()));
}

void CanvasArc(CanvasPoint at, std::int32_t width, std::int32_t height, std::int32_t startAngle,
               std::int32_t arcAngle, const LineAttributes& line, DrawnColour fill, ArcForm form,
               Canvas* canvas) {
  const Box box = CurveBox(at, width, height, DrawnWidth(line));
  if (canvas == nullptr || box.IsEmpty()) return;
  const Turn turn{static_cast<float>(startAngle % kFullTurn),
                  static_cast<float>(std::clamp(arcAngle, -kFullTurn, kFullTurn)) * -1.0F};
  DrawCurve(canvas->graphics, box, turn, line, form);
  // As transparent as the line, unless the fill's own colour is invisible.
  if (form == ArcForm::Sector && IsSeen(fill)) {
    FillSector(canvas->graphics, box, turn,
               (fill & ~kTransparencyByte) | (line.ink & kTransparencyByte));
  }
}

void CanvasPolygon(std::span<const CanvasPoint> points, const LineAttributes& line,
                   DrawnColour fill, Canvas* canvas) {
  if (canvas == nullptr || points.size() > kMostCorners) return;
  // GDI+ rejects polygons of two corners.
  if (points.size() == 2) return CanvasLine(points[0], points[1], line, canvas);
  List<CanvasPoint> clipped;
  if (!ClipPolygon(points, FarthestPoint(*canvas, line), clipped) || clipped.Size() < 2) {
    return;
  }
  // A GDI+ point has the same layout.
  static_assert(sizeof(CanvasPoint) == sizeof(Gdiplus::GpPoint));
  const auto* corners = reinterpret_cast<const Gdiplus::GpPoint*>(clipped.begin());
  const auto count = static_cast<INT>(clipped.Size());
  PenOwner pen;
  if (MakePen(line, LengthAround(clipped), pen) &&
      Succeeded(gdip::GdipSetPenMode(pen, Gdiplus::PenAlignmentInset))) {
    static_cast<void>(gdip::GdipDrawPolygonI(canvas->graphics, pen, corners, count));
  }
  SolidBrushOwner brush;
  if (MakeBrush(fill, brush)) {
    static_cast<void>(gdip::GdipFillPolygonI(canvas->graphics, brush, corners, count,
                                             Gdiplus::FillModeAlternate));
  }
}

}  // namespace korvel
