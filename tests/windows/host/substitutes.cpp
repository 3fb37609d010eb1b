// Replaces the engine and presentation functions that the host's threads call.
#include "windows/host/substitutes.h"

#include <algorithm>

#include "engine/engine.h"
#include "platform/screen.h"
#include "presentation/presentation.h"

namespace korvel {

using test::TheSubstitutes;

namespace {

void Note(const std::string& line) {
  TheSubstitutes().journal.Write(line);
  if (TheSubstitutes().onLine) TheSubstitutes().onLine(line);
}

}  // namespace

// ---- The engine core ----

Status StartEngine(std::string_view path) {
  Note("StartEngine " + std::string(path));
  return TheSubstitutes().onStartEngine ? TheSubstitutes().onStartEngine() : Status::Done;
}

void CloseDown() { Note("CloseDown"); }

void BeginWork() { Note("BeginWork"); }

void ResetEngine() { Note("ResetEngine"); }

Status RaiseOutsideEvent(std::int32_t sourceNumber, EventType type, std::int32_t value) {
  Note("Raise " + std::to_string(sourceNumber) + " " +
       std::to_string(static_cast<std::int32_t>(type)) + " " + std::to_string(value));
  if (TheSubstitutes().onRaise) TheSubstitutes().onRaise(value);
  return Status::Done;
}

void EmptyPersistentStore() { Note("EmptyPersistentStore"); }

// ---- The presentation ----

void OpenScreen() { Note("OpenScreen"); }

void CloseScreen() { Note("CloseScreen"); }

void PaintWindow(void* /*deviceContext*/) { Note("PaintWindow"); }

void OpenPresentation(void* window) {
  Note(window == nullptr ? "OpenPresentation without window" : "OpenPresentation");
}

void ReleasePictures() { Note("ReleasePictures"); }

void ClosePresentation() { Note("ClosePresentation"); }

void ClearSurface() { Note("ClearSurface"); }

void DrawScreenText(std::string_view text) { Note("DrawScreenText " + std::string(text)); }

Status Redraw() {
  Note("Redraw");
  return Status::Done;
}

void ResetRedrawCounter() { Note("ResetRedrawCounter"); }

void DeviceUpdate() { Note("DeviceUpdate"); }

void DiscardUpdateStamp() { Note("DiscardUpdateStamp"); }

void ClearImageCache() { Note("ClearImageCache"); }

namespace test {

void Journal::Write(const std::string& line) {
  const std::lock_guard lock(mutex_);
  lines_.push_back(line);
}

void Journal::Clear() {
  const std::lock_guard lock(mutex_);
  lines_.clear();
}

std::vector<std::string> Journal::Lines() const {
  const std::lock_guard lock(mutex_);
  return lines_;
}

int Journal::CountOf(const std::string& line) const {
  const auto lines = Lines();
  return static_cast<int>(std::ranges::count(lines, line));
}

Substitutes& TheSubstitutes() {
  static Substitutes substitutes;
  return substitutes;
}

}  // namespace test
}  // namespace korvel
