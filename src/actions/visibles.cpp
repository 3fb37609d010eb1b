// The actions on visibles: their place in the display stack, position, box and palette, and the
// attributes of bitmaps. A visible that is not available cannot be changed, but its position and
// box can be read.
#include "actions/behaviours.h"

namespace korvel {
namespace {

Visible& TargetOf(const Arguments& arguments) { return arguments.target.As<Visible>(); }

// Moves the target to its place beside the reference object, which must be an ingredient.
template <class Put> Status PutTarget(const Arguments& arguments, Put&& put) {
  const FoundObject reference = Find(arguments, arguments.Reference(0));
  if (reference.type < ItemType::Link) return Status::Refused;
  return put(arguments.target.type, TargetOf(arguments), reference.As<Ingredient>());
}

constexpr std::int32_t kMostTransparent = 100;  // per cent

Bitmap& BitmapOf(const Arguments& arguments) { return arguments.target.As<Bitmap>(); }

}  // namespace

Status BringTargetToFront(const Arguments& arguments) {
  return BringToFront(arguments.target.type, TargetOf(arguments));
}

Status SendTargetToBack(const Arguments& arguments) {
  return SendToBack(arguments.target.type, TargetOf(arguments));
}

Status PutTargetBefore(const Arguments& arguments) { return PutTarget(arguments, PutBefore); }

Status PutTargetBehind(const Arguments& arguments) { return PutTarget(arguments, PutBehind); }

Status SetPosition(const Arguments& arguments) {
  Visible& visible = TargetOf(arguments);
  if (!visible.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  visible.Position = {arguments.Integer(0), arguments.Integer(1)};
  return RedrawIfRunning(visible);
}

Status GetPosition(const Arguments& arguments) {
  const Position& position = TargetOf(arguments).Position;
  return AnswerPair(arguments, position.X, position.Y);
}

Status SetBoxSize(const Arguments& arguments) {
  Visible& visible = TargetOf(arguments);
  const BoxSize size{arguments.Integer(0), arguments.Integer(1)};
  if (!visible.AvailabilityStatus || size.Width < 0 || size.Height < 0) return Status::Refused;
  visible.BoxSize = size;
  return RedrawIfRunning(visible);
}

Status GetBoxSize(const Arguments& arguments) {
  const BoxSize& size = TargetOf(arguments).BoxSize;
  return AnswerPair(arguments, size.Width, size.Height);
}

Status SetPaletteRef(const Arguments& arguments) {
  Visible& visible = TargetOf(arguments);
  if (!visible.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  OptionalReference palette;
  palette.IsPresent = true;
  if (!Copy(arguments.Reference(0), palette.Reference)) return Status::Failure;
  visible.PaletteRef = std::move(palette);
  return RedrawIfRunning(visible);
}

// Unlike the other actions, it requests a redraw even if the bitmap is not running.
Status ScaleBitmap(const Arguments& arguments) {
  Bitmap& bitmap = BitmapOf(arguments);
  const BoxSize size{arguments.Integer(0), arguments.Integer(1)};
  if (!bitmap.AvailabilityStatus || size.Width < 0 || size.Height < 0) return Status::Refused;
  bitmap.ScaledSize = size;
  return RequestRedraw();
}

Status SetTransparency(const Arguments& arguments) {
  Bitmap& bitmap = BitmapOf(arguments);
  const std::int32_t transparency = arguments.Integer(0);
  const bool isInRange = transparency >= 0 && transparency <= kMostTransparent;
  if (!bitmap.AvailabilityStatus || !isInRange) return Status::Refused;
  bitmap.Transparency = transparency;
  return RedrawIfRunning(bitmap);
}

Status GetBitmapDecodeOffset(const Arguments& arguments) {
  const Position& offset = BitmapOf(arguments).DecodeOffset;
  return AnswerPair(arguments, offset.X, offset.Y);
}

Status SetBitmapDecodeOffset(const Arguments& arguments) {
  BitmapOf(arguments).DecodeOffset = {arguments.Integer(0), arguments.Integer(1)};
  return Status::Done;
}

}  // namespace korvel
