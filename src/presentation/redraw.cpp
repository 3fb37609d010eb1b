// The redraw of the scene: which requests paint, and the walk of the display stack from the bottom
// to the top. How each class looks is left to its own drawing file.
#include <cstdint>

#include "engine/engine.h"
#include "host/host.h"
#include "objects/sequence.h"
#include "presentation/drawings.h"
#include "presentation/painting_time.h"
#include "presentation/presentation.h"

namespace korvel {

namespace {

// Four of every five requests are dropped: a cheap limit on how often content makes us paint.
constexpr std::uint32_t kRequestsPerPainting = 5;

// The datum of the EngineEvent that reports a picture that could not be had.
constexpr std::int32_t kMissingPicture = 3;

struct RedrawState {
  std::uint32_t Requests = 0;
  bool IsPainting = false;
  bool IsDueAgain = false;  // a request that was to paint came from an event of this painting
};

RedrawState state;

// Refused when a picture was to be drawn and could not be had.
Status DrawVisible(ItemType kind, Ingredient& visible, const PaintingTime& time) noexcept {
  if (kind == ItemType::Video) {
    const auto& video = static_cast<const Video&>(visible);
    return visible.RunningStatus ? Draw(video) : StopVideo(video);
  }
  if (!visible.RunningStatus) return Status::Done;
  switch (kind) {
  case ItemType::Bitmap: return Draw(static_cast<Bitmap&>(visible), time);
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
// rearrange or end anything. When the time is over, what lies above is left out. False when the
// walk cannot go on; `result` then says why.
[[nodiscard]] bool DrawStack(Application& application, const PaintingTime& time,
                             Status& result) noexcept {
  Sequence<StackedVisible> entries;
  for (const StackedVisible& entry : application.DisplayStack) {
    if (!entries.Append(entry)) break;
  }
  for (const StackedVisible& entry : entries) {
    if (IsClosing()) return false;
    if (time.IsOver()) break;
    if (IsGone(*entry.Visible)) continue;
    if (DrawVisible(entry.Kind, *entry.Visible, time) != Status::Refused || IsClosing()) continue;
    result = RaiseEvent(application, EventType::EngineEvent, EventData::Integer(kMissingPicture));
    if (result == Status::Failure) return false;
    result = Status::Done;
    if (CurrentApplication() != &application || IsGone(application)) return false;
  }
  return !IsClosing();
}

Status PaintScene(const PaintingTime& time) noexcept {
  state.IsDueAgain = false;
  ClearSurface();
  Application* application = CurrentApplication();
  if (application == nullptr) return Status::Done;
  Status result = Status::Done;
  if (!DrawStack(*application, time, result)) return result;
  return application->LockCount == 0 ? DeviceUpdate() : Status::Done;
}

}  // namespace

Status Redraw() noexcept {
  ++state.Requests;
  if (state.Requests % kRequestsPerPainting != 1 || IsClosing()) return Status::Done;
  if (state.IsPainting) {
    state.IsDueAgain = true;
    return Status::Done;
  }
  const Busy busy;
  const PaintingTime time;
  state.IsPainting = true;
  Status result = PaintScene(time);
  // Once, and not when time is over: content whose events always ask for more must not keep us.
  if (state.IsDueAgain && result == Status::Done && !time.IsOver()) result = PaintScene(time);
  state.IsPainting = false;
  return result;
}

void ResetRedrawCounter() noexcept { state.Requests = 0; }

}  // namespace korvel
