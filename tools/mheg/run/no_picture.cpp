// The drawing functions of a run without a window, which draw nothing. The redraw itself is that of
// the library, so a missing picture raises the same event.
#include "appearance/content_file.h"
#include "appearance/geometry.h"
#include "objects/limits.h"
#include "platform/canvases.h"
#include "platform/screen.h"
#include "presentation/drawings.h"
#include "presentation/presentation.h"

namespace korvel {

bool Draw(Bitmap& bitmap) {
  OctetString file;
  std::string_view bytes;
  return !HasArea(bitmap.BoxSize) || ReadPictureContent(bitmap.Content, file, bytes);
}

bool Draw(const Video& /*video*/) { return true; }

void Draw(const Rectangle& /*rectangle*/) {}
void Draw(const DynamicLineArt& /*lineArt*/) {}
void Draw(const Text& /*text*/) {}
void Draw(const EntryField& /*entryField*/) {}
void Draw(const Slider& /*slider*/) {}

void ClearSurface() {}
void DeviceUpdate() {}

Status StartVideo(const Stream& /*stream*/, std::int32_t /*componentTag*/, const Position& /*at*/,
                  const BoxSize& /*size*/) {
  return Status::Done;
}

Status EndStream(const Stream& /*stream*/) { return Status::Done; }

// ---- Canvases ----

struct Canvas {};

Canvas* NewCanvas(std::int32_t width, std::int32_t height) {
  const bool isPossible =
      width >= 1 && height >= 1 && std::int64_t{width} * height <= kMostCanvasPixels;
  return isPossible ? new Canvas : nullptr;
}

void DestroyCanvas(Canvas* canvas) { delete canvas; }

void ClipCanvas(std::int32_t /*width*/, std::int32_t /*height*/, Canvas* /*canvas*/) {}
void ClearCanvas(DrawnColour /*fill*/, Canvas* /*canvas*/) {}
void CanvasLine(CanvasPoint /*from*/, CanvasPoint /*to*/, const LineAttributes& /*line*/,
                Canvas* /*canvas*/) {}
void CanvasRectangle(CanvasPoint /*from*/, CanvasPoint /*to*/, const LineAttributes& /*line*/,
                     DrawnColour /*fill*/, Canvas* /*canvas*/) {}
void CanvasOval(CanvasPoint /*at*/, std::int32_t /*width*/, std::int32_t /*height*/,
                DrawnColour /*fill*/, Canvas* /*canvas*/) {}
void CanvasArc(CanvasPoint /*at*/, std::int32_t /*width*/, std::int32_t /*height*/,
               std::int32_t /*startAngle*/, std::int32_t /*arcAngle*/,
               const LineAttributes& /*line*/, DrawnColour /*fill*/, ArcForm /*form*/,
               Canvas* /*canvas*/) {}
void CanvasPolygon(std::span<const CanvasPoint> /*points*/, const LineAttributes& /*line*/,
                   DrawnColour /*fill*/, Canvas* /*canvas*/) {}

}  // namespace korvel
