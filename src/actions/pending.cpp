// Behaviours whose own files follow.
#include "actions/behaviours.h"
#include "actions/lifecycle.h"

namespace korvel {

Status CallProgram(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ForkProgram(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetEngineSupport(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ReadPersistent(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status StorePersistent(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status Move(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status MoveTo(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetTokenPosition(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status CallActionSlot(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status AddItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DelItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ScrollItems(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetFirstItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetCellPosition(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetCellItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetFirstItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetListItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetListSize(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status Select(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status Deselect(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SelectItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DeselectItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ToggleItem(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetItemStatus(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status BringTargetToFront(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SendTargetToBack(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status PutTargetBefore(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status PutTargetBehind(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetPosition(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetPosition(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetBoxSize(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetBoxSize(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetPaletteRef(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetData(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ScaleBitmap(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetTransparency(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetBitmapDecodeOffset(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetBitmapDecodeOffset(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetCounterTrigger(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetVolume(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetVolume(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ScaleVideo(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetVideoDecodeOffset(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetVideoDecodeOffset(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetLineWidth(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetLineStyle(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetLineColour(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetFillColour(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetLineWidth(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetLineStyle(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetLineColour(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetFillColour(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ClearDrawing(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DrawArc(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DrawLine(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DrawOval(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DrawPolygon(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DrawPolyline(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DrawRectangle(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status DrawSector(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetTextContent(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetTextData(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetFontRef(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetFontAttributes(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetTextColour(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetBackgroundColour(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetEntryPoint(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetEntryPoint(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetOverwriteMode(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetOverwriteMode(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetLastAnchorFired(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status StepSlider(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetSliderValue(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetSliderValue(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetPortion(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetPortion(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetHighlightStatus(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetHighlightStatus(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status SetInteractionStatus(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetInteractionStatus(const Arguments& /*arguments*/) noexcept { return Status::Refused; }

Change ActivateStream(Stream& stream) noexcept {
  stream.RunningStatus = true;
  return Change::Changed;
}
Change DeactivateStream(Stream& stream) noexcept {
  stream.RunningStatus = false;
  return Change::Changed;
}
Change ActivateTokenGroup(TokenGroup& group) noexcept {
  group.RunningStatus = true;
  return Change::Changed;
}
Change DeactivateTokenGroup(TokenGroup& group) noexcept {
  group.RunningStatus = false;
  return Change::Changed;
}
Change ActivateListGroup(ListGroup& group) noexcept {
  group.RunningStatus = true;
  return Change::Changed;
}
Change DeactivateListGroup(ListGroup& group) noexcept {
  group.RunningStatus = false;
  return Change::Changed;
}
Status FetchText(Text& /*text*/) noexcept { return Status::Done; }
Status EndInteraction(Ingredient& /*object*/, Interactible& /*interactible*/) noexcept {
  return Status::Done;
}
bool TakeInteractionKey(std::int32_t /*key*/, Status& /*result*/) noexcept { return false; }

}  // namespace korvel
