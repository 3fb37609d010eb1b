// Substitutes for the presentation in native tests: they draw nothing, and record the requests.
#include "presentation.h"

#include <iomanip>
#include <sstream>

#include "objects/visibles.h"

namespace korvel {

using test::ThePresentation;

void ClearSurface() { ++ThePresentation().clears; }

Status Redraw() {
  ++ThePresentation().redraws;
  return ThePresentation().onRedraw ? ThePresentation().onRedraw() : Status::Done;
}

void DeviceUpdate() { ++ThePresentation().updates; }

namespace {

struct Hex {
  DrawnColour colour;
};
std::ostream& operator<<(std::ostream& out, Hex hex) {
  return out << '#' << std::hex << std::setw(8) << std::setfill('0') << hex.colour << std::dec;
}
std::ostream& operator<<(std::ostream& out, CanvasPoint point) {
  return out << point.x << ',' << point.y;
}
std::ostream& operator<<(std::ostream& out, const LineAttributes& line) {
  return out << "line " << line.width << '/' << static_cast<std::int32_t>(line.style)
             << Hex{line.ink};
}

// Records a call, unless the canvas is null.
template <class... Parts> void Draw(const Canvas* canvas, const char* what, const Parts&... parts) {
  std::ostringstream line;
  line << what;
  ((line << ' ' << parts), ...);
  if (canvas != nullptr) ThePresentation().drawings.push_back(line.str());
}

}  // namespace

Status StartVideo(const Stream& stream, std::int32_t componentTag, const Position& at,
                  const BoxSize& size) {
  std::ostringstream line;
  line << "start " << stream.Reference.Number << " video " << componentTag << " at " << at.X << ','
       << at.Y << ' ' << size.Width << ' ' << size.Height;
  ThePresentation().streams.push_back(line.str());
  return Status::Done;
}

Status EndStream(const Stream& stream) {
  ThePresentation().streams.push_back("end " + std::to_string(stream.Reference.Number));
  return Status::Done;
}

struct Canvas {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

Canvas* NewCanvas(std::int32_t width, std::int32_t height) {
  if (width < 1 || height < 1) return nullptr;
  auto* canvas = new Canvas{width, height};
  ++ThePresentation().canvases;
  Draw(canvas, "new", width, height);
  return canvas;
}

void DestroyCanvas(Canvas* canvas) {
  if (canvas == nullptr) return;
  --ThePresentation().canvases;
  delete canvas;
}

void ClipCanvas(std::int32_t width, std::int32_t height, Canvas* canvas) {
  Draw(canvas, "clip", width, height);
}

void ClearCanvas(DrawnColour fill, Canvas* canvas) { Draw(canvas, "clear", Hex{fill}); }

void CanvasLine(CanvasPoint from, CanvasPoint to, const LineAttributes& line, Canvas* canvas) {
  Draw(canvas, "line", from, to, line);
}

void CanvasRectangle(CanvasPoint from, CanvasPoint to, const LineAttributes& line, DrawnColour fill,
                     Canvas* canvas) {
  Draw(canvas, "rectangle", from, to, line, Hex{fill});
}

void CanvasOval(CanvasPoint at, std::int32_t width, std::int32_t height, DrawnColour fill,
                Canvas* canvas) {
  Draw(canvas, "oval", at, width, height, Hex{fill});
}

void CanvasArc(CanvasPoint at, std::int32_t width, std::int32_t height, std::int32_t startAngle,
               std::int32_t arcAngle, const LineAttributes& line, DrawnColour fill, ArcForm form,
               Canvas* canvas) {
  Draw(canvas, form == ArcForm::Arc ? "arc" : "sector", at, width, height, startAngle, arcAngle,
       line, Hex{fill});
}

void CanvasPolygon(std::span<const CanvasPoint> points, const LineAttributes& line,
                   DrawnColour fill, Canvas* canvas) {
  std::ostringstream corners;
  for (const CanvasPoint& point : points) corners << point << ';';
  Draw(canvas, "polygon", corners.str(), line, Hex{fill});
}

namespace test {

FakePresentation& ThePresentation() {
  static FakePresentation presentation;
  return presentation;
}

}  // namespace test
}  // namespace korvel
