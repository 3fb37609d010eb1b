// Scaling and fading bitmaps, and the offset at which they are decoded.
#include "actions/answers.h"
#include "actions/behaviours.h"

namespace korvel {
namespace {

constexpr std::int32_t kMostTransparent = 100;  // per cent

Bitmap& TargetOf(const Arguments& arguments) { return arguments.Target.As<Bitmap>(); }

}  // namespace

// Unlike the other actions it asks for a redraw whether or not the bitmap is running.
Status ScaleBitmap(const Arguments& arguments) {
  Bitmap& bitmap = TargetOf(arguments);
  const BoxSize size{arguments.Integer(0), arguments.Integer(1)};
  if (!bitmap.AvailabilityStatus || size.Width < 0 || size.Height < 0) return Status::Refused;
  bitmap.ScaledSize = size;
  return RequestRedraw();
}

Status SetTransparency(const Arguments& arguments) {
  Bitmap& bitmap = TargetOf(arguments);
  const std::int32_t transparency = arguments.Integer(0);
  const bool isInRange = transparency >= 0 && transparency <= kMostTransparent;
  if (!bitmap.AvailabilityStatus || !isInRange) return Status::Refused;
  bitmap.Transparency = transparency;
  return RedrawIfRunning(bitmap);
}

Status GetBitmapDecodeOffset(const Arguments& arguments) {
  const Position& offset = TargetOf(arguments).DecodeOffset;
  return AnswerPair(arguments, offset.X, offset.Y);
}

Status SetBitmapDecodeOffset(const Arguments& arguments) {
  TargetOf(arguments).DecodeOffset = {arguments.Integer(0), arguments.Integer(1)};
  return Status::Done;
}

}  // namespace korvel
