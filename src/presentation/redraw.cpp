// The redraw of the scene: which requests paint, and the drawing of the display stack from the
// bottom to the top. Each class is drawn by its own file. Portable, so that a tool can play content
// without a picture: it links functions that draw nothing.
#include <cstdint>

#include "engine/engine.h"
#include "objects/list.h"
#include "platform/running.h"
#include "platform/screen.h"
#include "presentation/drawings.h"
#include "presentation/presentation.h"

namespace korvel {
namespace {

// Four of every five requests are dropped: a cheap limit on how often content can cause painting.
constexpr std::uint32_t kRequestsPerPainting = 5;

// The requests since the counter was reset, and the painting in progress. Worker thread only.
struct RedrawState {
  std::uint32_t requests = 0;
  bool isPainting = false;
  bool isPaintingDueAgain = false;  // an event raised while painting requested another painting
};
RedrawState state;

// False if a picture is missing.
[[nodiscard]] bool DrawVisible(ItemType kind, Ingredient& visible) {
  if (!visible.RunningStatus) return true;
  switch (kind) {
  case ItemType::Bitmap: return Draw(static_cast<Bitmap&>(visible));
  case ItemType::Video: return Draw(static_cast<const Video&>(visible));
  case ItemType::Rectangle: Draw(static_cast<const Rectangle&>(visible)); break;
  case ItemType::DynamicLineArt: Draw(static_cast<const DynamicLineArt&>(visible)); break;
  case ItemType::Text:
  case ItemType::HyperText: Draw(static_cast<const Text&>(visible)); break;
  case ItemType::Slider: Draw(static_cast<const Slider&>(visible)); break;
  case ItemType::EntryField: Draw(static_cast<const EntryField&>(visible)); break;
  default: break;  // the other classes are not drawn
  }
  return true;
}

// Draws a copy of the stack's entries, because the event that reports a missing picture may change
// the stack or end groups. False if drawing cannot continue; `result` is then Failure if an event
// returned Failure.
[[nodiscard]] bool DrawStack(Application& application, Status& result) {
  List<StackedVisible> entries;
  for (const StackedVisible& entry : application.DisplayStack) {
    if (!entries.Append(entry)) break;
  }
  for (const StackedVisible& entry : entries) {
    if (IsClosing()) return false;
    if (IsGone(*entry.visible)) continue;
    if (DrawVisible(entry.kind, *entry.visible) || IsClosing()) continue;
    result = RaiseEvent(application, EventType::EngineEvent,
                        EventData::Integer(engineEvents::kContentReferenceError));
    if (result == Status::Failure) return false;
    result = Status::Done;
    if (CurrentApplication() != &application || IsGone(application)) return false;
  }
  return !IsClosing();
}

Status PaintScene() {
  state.isPaintingDueAgain = false;
  ClearSurface();
  Application* application = CurrentApplication();
  if (application == nullptr) return Status::Done;
  Status result = Status::Done;
  if (!DrawStack(*application, result)) return result;
  if (application->LockCount == 0) DeviceUpdate();
  return Status::Done;
}

}  // namespace

Status Redraw() {
  ++state.requests;
  if (state.requests % kRequestsPerPainting != 1 || IsClosing()) return Status::Done;
  if (state.isPainting) {
    state.isPaintingDueAgain = true;
    return Status::Done;
  }
  const Busy busy;
  state.isPainting = true;
  Status result = PaintScene();
  // Only once: content whose events always request a painting must not keep the worker here.
  if (state.isPaintingDueAgain && result == Status::Done) result = PaintScene();
  state.isPainting = false;
  return result;
}

void ResetRedrawCounter() { state.requests = 0; }

}  // namespace korvel
