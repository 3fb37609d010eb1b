// The timers of groups. A group keeps a record of each pending timer; the expiry is a one-shot
// platform timer of the same id, so a timer of the scene replaces one of the application with the
// same id. Only the scene's timers raise events.

#include <algorithm>
#include <utility>

#include "engine/core.h"
#include "objects/limits.h"
#include "objects/messages.h"
#include "platform/clocks.h"

namespace korvel {
namespace {

auto HasId(std::int32_t id) {
  return [id](const Timer& timer) { return timer.id == id; };
}

Timer* FindTimer(Group& group, std::int32_t id) {
  auto* found = std::ranges::find_if(group.Timers, HasId(id));
  return found == group.Timers.end() ? nullptr : found;
}

Timer* AddTimer(Group& group, std::int32_t id, bool isAbsolute) {
  Timer timer;
  timer.id = id;
  timer.isAbsolute = isAbsolute;
  Timer* added =
      Copy(group.Reference, timer.owner) ? group.Timers.Append(std::move(timer)) : nullptr;
  if (added == nullptr) Say(Message::NoMemoryForEvent);
  return added;
}

// An absolute value before the start of the scene wraps around to a very long period, which is
// limited to about 25 days, so the timer never fires in practice. So does a negative relative
// value.
std::uint32_t PeriodOf(const Timer& timer) {
  const auto value = static_cast<std::uint32_t>(timer.value);
  const std::uint32_t period = timer.isAbsolute ? value - TheCore().sceneStartTime : value;
  return std::min(period, kLongestPeriodMs);
}

Status CancelTimer(Group& group, std::int32_t id) {
  if (group.Timers.RemoveFirst(HasId(id))) KillWindowTimer(static_cast<std::uint32_t>(id));
  return Status::Done;
}

}  // namespace

Status SetTimer(Group& group, std::int32_t id, std::int32_t value, bool isAbsolute) {
  if (value == kNoTimerValue) return CancelTimer(group, id);
  Timer* timer = FindTimer(group, id);
  if (timer != nullptr) {
    // A pending timer that is set again keeps its owner and stays absolute or relative.
    KillWindowTimer(static_cast<std::uint32_t>(id));
  } else {
    timer = AddTimer(group, id, isAbsolute);
    if (timer == nullptr) return Status::Failure;
  }
  timer->value = value;
  SetWindowTimer(static_cast<std::uint32_t>(id), PeriodOf(*timer));
  return Status::Done;
}

bool RemoveFiredTimer(std::int32_t id, ObjectReference& owner) {
  Scene* scene = CurrentScene();
  Timer fired;
  if (scene == nullptr || !scene->Timers.RemoveFirst(HasId(id), &fired)) return false;
  owner = std::move(fired.owner);
  return true;
}

void CancelAllTimers(const Group& group) {
  for (const Timer& timer : group.Timers) {
    if (!MayContinue()) break;  // the system kills the others with the window
    KillWindowTimer(static_cast<std::uint32_t>(timer.id));
  }
}

}  // namespace korvel
