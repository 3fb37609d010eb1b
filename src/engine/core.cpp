// The core's state, the release of ended groups, and the limits that stop content from nesting or
// working endlessly.
#include "engine/core.h"

#include <algorithm>
#include <utility>

#include "objects/limits.h"
#include "objects/messages.h"
#include "objects/ownership.h"
#include "platform/canvases.h"
#include "platform/clocks.h"
#include "platform/running.h"

namespace korvel {
namespace {

// The worker resets it with ResetEngine.
NeverDestroyed<Core> theCore;

void ReportLimit(Message message) {
  if (!std::exchange(TheCore().isOverLimit, true)) Say(message);
}

void LimitAccountForClose(Core& core) {
  const std::uint32_t now = MillisecondsSinceProcessStart();
  if (!core.closeNoticedAt) {
    core.closeNoticedAt = now;
    core.actionsLeft = std::min(core.actionsLeft, kMostActionsWhileClosing);
  }
  if (now - *core.closeNoticedAt > kMostMillisecondsWhileClosing) core.actionsLeft = 0;
}

// The canvases belong to the presentation, which must destroy them before the record is released.
void DestroyCanvases(const Group& group) {
  for (const Item& item : group.Items) {
    if (item.Type() != ItemType::DynamicLineArt) continue;
    DestroyCanvas(std::exchange(item.As<DynamicLineArt>().Canvas, nullptr));
  }
}

}  // namespace

Core& TheCore() { return theCore.value; }

void ReleaseEndedGroups() {
  Core& core = TheCore();
  if (core.busyCount > 0) return;
  while (core.ended != nullptr) {
    OwnedGroup group(std::exchange(core.ended, core.ended->nextEnded));
    DestroyCanvases(*group);
  }
}

void BeginWork() {
  Core& core = TheCore();
  ReleaseEndedGroups();
  if (!core.closeNoticedAt) core.actionsLeft = kMostActions;
  core.isOverLimit = false;
}

Busy::Busy() { ++TheCore().busyCount; }

Busy::~Busy() { --TheCore().busyCount; }

NestingLevel::NestingLevel() {
  Core& core = TheCore();
  ++core.nestingLevel;
  if (core.nestingLevel > kMostLevels) ReportLimit(Message::NestingTooDeep);
  isAllowed_ = !core.isOverLimit;
}

NestingLevel::~NestingLevel() { --TheCore().nestingLevel; }

bool TakeAction() {
  Core& core = TheCore();
  if (IsClosing()) LimitAccountForClose(core);
  if (core.actionsLeft == 0) ReportLimit(Message::TooManyActions);
  if (core.isOverLimit) return false;
  --core.actionsLeft;
  return true;
}

bool MayContinue() {
  if (!IsClosing()) return true;
  LimitAccountForClose(TheCore());
  return TheCore().actionsLeft > 0;
}

Application* CurrentApplication() { return TheCore().application; }

Scene* CurrentScene() { return TheCore().scene; }

Generations& CurrentGenerations() { return TheCore().generations; }

std::uint32_t NextRandom() {
  // A linear congruential generator modulo 2^31; its high bits are mixed in, so that small moduli
  // vary as well.
  constexpr std::uint32_t kMask = 0x7FFFFFFF;
  Core& core = TheCore();
  core.random = core.random * 1103515245U + 12345U;
  return (core.random ^ (core.random >> 16U)) & kMask;
}

}  // namespace korvel
