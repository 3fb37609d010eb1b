// The redraw of the scene: which requests paint, and the walk of the display stack from the bottom
// to the top. How each class looks is left to its own drawing file.
#include <cstdint>

#include "engine/engine.h"
#include "objects/sequence.h"
#include "platform/running.h"
#include "platform/screen.h"
#include "presentation/drawings.h"
#include "presentation/presentation.h"
#include "presentation/state.h"

namespace korvel {

namespace {

// Four of every five requests are dropped: a cheap limit on how often content makes us paint.
constexpr std::uint32_t kRequestsPerPainting = 5;

// Refused when a picture is missing.
Status DrawVisible(ItemType kind, Ingredient& visible) {
  if (kind == ItemType::Video) {
    const auto& video = static_cast<const Video&>(visible);
    return visible.RunningStatus ? Draw(video) : StopVideo(video);
  }
  if (!visible.RunningStatus) return Status::Done;
  switch (kind) {
  case ItemType::Bitmap: return Draw(static_cast<Bitmap&>(visible));
  case ItemType::Rectangle: return Draw(static_cast<const Rectangle&>(visible));
  case ItemType::DynamicLineArt: return Draw(static_cast<const DynamicLineArt&>(visible));
  case ItemType::Text:
  case ItemType::HyperText: return Draw(static_cast<const Text&>(visible));
  case ItemType::Slider: return Draw(static_cast<const Slider&>(visible));
  case ItemType::EntryField: return Draw(static_cast<const EntryField&>(visible));
  default: return Status::Done;  // the other classes have no looks of their own
  }
}

// Draws the entries that were in the stack when the walk began: the events of a missing picture may
// rearrange or end anything. False when the walk cannot go on; `result` then says why.
[[nodiscard]] bool DrawStack(Application& application, Status& result) {
  Sequence<StackedVisible> entries;
  for (const StackedVisible& entry : application.DisplayStack) {
    if (!entries.Append(entry)) break;
  }
  for (const StackedVisible& entry : entries) {
    if (IsClosing()) return false;
    if (IsGone(*entry.Visible)) continue;
    if (DrawVisible(entry.Kind, *entry.Visible) != Status::Refused || IsClosing()) continue;
    result = RaiseEvent(application, EventType::EngineEvent,
                        EventData::Integer(engineEvents::kContentReferenceError));
    if (result == Status::Failure) return false;
    result = Status::Done;
    if (CurrentApplication() != &application || IsGone(application)) return false;
  }
  return !IsClosing();
}

Status PaintScene() {
  State().isPaintingDueAgain = false;
  ClearSurface();
  Application* application = CurrentApplication();
  if (application == nullptr) return Status::Done;
  Status result = Status::Done;
  if (!DrawStack(*application, result)) return result;
  return application->LockCount == 0 ? DeviceUpdate() : Status::Done;
}

}  // namespace

Status Redraw() {
  PresentationState& state = State();
  ++state.redrawRequests;
  if (state.redrawRequests % kRequestsPerPainting != 1 || IsClosing()) return Status::Done;
  if (state.isPainting) {
    state.isPaintingDueAgain = true;
    return Status::Done;
  }
  const Busy busy;
  state.isPainting = true;
  Status result = PaintScene();
  // Only once: content whose events always ask for more must not keep the worker here.
  if (state.isPaintingDueAgain && result == Status::Done) result = PaintScene();
  state.isPainting = false;
  return result;
}

void ResetRedrawCounter() { State().redrawRequests = 0; }

}  // namespace korvel
