// Drawing on dynamic line art. Each action paints immediately on the object's canvas, with the
// object's current attributes, and requests a redraw; the canvas is the only record of the drawing.
#include <algorithm>
#include <limits>
#include <span>

#include "actions/behaviours.h"
#include "appearance/colours.h"
#include "objects/messages.h"
#include "platform/canvases.h"

namespace korvel {
namespace {

DynamicLineArt& TargetOf(const Arguments& arguments) {
  return arguments.target.As<DynamicLineArt>();
}

constexpr std::int32_t Narrow(std::int64_t number) {
  constexpr std::int64_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(number, kLeast, kMost));
}

// The width of the border on each side of the box. The canvas begins inside the border, but the
// coordinates that content gives begin at the corner of the box.
std::int64_t BorderOf(const DynamicLineArt& lineArt, std::int32_t lineWidth) {
  return lineArt.BorderedBoundingBox ? std::max(lineWidth, 0) : 0;
}

CanvasPoint PointOf(const DynamicLineArt& lineArt, std::int32_t x, std::int32_t y) {
  const std::int64_t border = BorderOf(lineArt, lineArt.LineWidth);
  return {Narrow(x - border), Narrow(y - border)};
}

// The canvas, created on first use and clipped to the area inside a border of that line width. It
// keeps its size when the box changes.
Canvas* CanvasOf(DynamicLineArt& lineArt, std::int32_t lineWidth) {
  const BoxSize& size = lineArt.BoxSize;
  if (lineArt.Canvas == nullptr) lineArt.Canvas = NewCanvas(size.Width, size.Height);
  if (!lineArt.BorderedBoundingBox) return lineArt.Canvas;
  const std::int64_t borders = 2 * BorderOf(lineArt, lineWidth);
  ClipCanvas(Narrow(size.Width - borders), Narrow(size.Height - borders), lineArt.Canvas);
  return lineArt.Canvas;
}

// Paints on a running object and requests a redraw.
template <class Paint> Status Painted(const Arguments& arguments, Paint&& paint) {
  DynamicLineArt& lineArt = TargetOf(arguments);
  if (!lineArt.AvailabilityStatus || !lineArt.RunningStatus) return Status::Refused;
  paint(lineArt, CanvasOf(lineArt, lineArt.LineWidth));
  return RedrawIfRunning(lineArt);
}

Status PaintArc(const Arguments& arguments, ArcForm form) {
  return Painted(arguments, [&](const DynamicLineArt& lineArt, Canvas* canvas) {
    const DrawnColour fill =
        form == ArcForm::Sector ? FillColourOf(lineArt, CurrentGroups()) : kTransparentColour;
    return CanvasArc(PointOf(lineArt, arguments.Integer(0), arguments.Integer(1)),
                     arguments.Integer(2), arguments.Integer(3), arguments.Integer(4),
                     arguments.Integer(5), LineAttributesOf(lineArt, CurrentGroups()), fill, form,
                     canvas);
  });
}

// Reads whole pairs of coordinates. A single value at the end is ignored.
bool ReadPoints(const Arguments& arguments, List<CanvasPoint>& points) {
  bool hasX = false;
  std::int32_t x = 0;
  for (const GenericValue& given : *arguments.given) {
    GenericValue value;
    if (!ReadValueOfKind(arguments, &given, ValueKind::Integer, value)) return false;
    hasX = !hasX;
    if (hasX) {
      x = value.Integer;
    } else if (!points.Append(PointOf(TargetOf(arguments), x, value.Integer))) {
      Say(Message::NoMemoryForPoints);
      return false;
    }
  }
  return true;
}

Status PaintPolygon(const Arguments& arguments) {
  List<CanvasPoint> points;
  if (!ReadPoints(arguments, points)) return Status::Refused;
  return Painted(arguments, [&](const DynamicLineArt& lineArt, Canvas* canvas) {
    return CanvasPolygon(std::span(points.begin(), points.Size()),
                         LineAttributesOf(lineArt, CurrentGroups()),
                         FillColourOf(lineArt, CurrentGroups()), canvas);
  });
}

}  // namespace

// Clears the whole canvas with the original fill colour and line width, not the current ones.
Status ClearDrawing(const Arguments& arguments) {
  DynamicLineArt& lineArt = TargetOf(arguments);
  if (!lineArt.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  ClearCanvas(OriginalFillColourOf(lineArt, CurrentGroups()),
              CanvasOf(lineArt, lineArt.OriginalLineWidth));
  return RedrawIfRunning(lineArt);
}

Status DrawArc(const Arguments& arguments) { return PaintArc(arguments, ArcForm::Arc); }

Status DrawSector(const Arguments& arguments) { return PaintArc(arguments, ArcForm::Sector); }

Status DrawLine(const Arguments& arguments) {
  return Painted(arguments, [&](const DynamicLineArt& lineArt, Canvas* canvas) {
    return CanvasLine(PointOf(lineArt, arguments.Integer(0), arguments.Integer(1)),
                      PointOf(lineArt, arguments.Integer(2), arguments.Integer(3)),
                      LineAttributesOf(lineArt, CurrentGroups()), canvas);
  });
}

Status DrawRectangle(const Arguments& arguments) {
  return Painted(arguments, [&](const DynamicLineArt& lineArt, Canvas* canvas) {
    return CanvasRectangle(PointOf(lineArt, arguments.Integer(0), arguments.Integer(1)),
                           PointOf(lineArt, arguments.Integer(2), arguments.Integer(3)),
                           LineAttributesOf(lineArt, CurrentGroups()),
                           FillColourOf(lineArt, CurrentGroups()), canvas);
  });
}

Status DrawOval(const Arguments& arguments) {
  return Painted(arguments, [&](const DynamicLineArt& lineArt, Canvas* canvas) {
    return CanvasOval(PointOf(lineArt, arguments.Integer(0), arguments.Integer(1)),
                      arguments.Integer(2), arguments.Integer(3),
                      FillColourOf(lineArt, CurrentGroups()), canvas);
  });
}

Status DrawPolygon(const Arguments& arguments) { return PaintPolygon(arguments); }

// A polyline is closed and filled like a polygon.
Status DrawPolyline(const Arguments& arguments) { return PaintPolygon(arguments); }

}  // namespace korvel
