// Follows the departures of all groups of a carousel.
#include "mheg/check/navigation.h"

#include <algorithm>
#include <vector>

#include "mheg/check/carousel.h"
#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

// The group that a departure leads to; null if it is unknown or if there is none, as for Quit.
const CheckedGroup* TargetOf(const Carousel& carousel, const CheckedGroup& from,
                             const Departure& departure) {
  const GenericValue& target = departure.action->Target;
  const bool isGroup = LeadsToGroup(ActionOf(*departure.action));
  if (!isGroup || target.Kind != ValueKind::ObjectReference) return nullptr;
  return carousel.Find(from, target.Reference.GroupIdentifier.View());
}

// Tuning to a service ends the application.
bool MayTune(const CheckedGroup& group) {
  return std::any_of(group.objects.begin(), group.objects.end(), [](const auto& entry) {
    return entry.second.type == ItemType::ResidentProgram &&
           static_cast<const ResidentProgram&>(*entry.second.record).Name.View() == "TIn";
  });
}

}  // namespace

Navigation::Navigation(const Carousel& carousel) {
  for (std::size_t i = 0; i < carousel.Size(); ++i) {
    const CheckedGroup& group = carousel.At(i);
    if (!group.file.group) continue;
    if (group.Group().type == ItemType::Scene) {
      ++sceneCount_;
      continue;
    }
    for (const Departure& departure : group.departures) {
      applicationsLead_ = applicationsLead_ || departure.moment != Moment::Start;
      mayDivert_ = mayDivert_ || departure.moment == Moment::Event;
    }
    applicationsLead_ = applicationsLead_ || MayTune(group);
  }
  FindReached(carousel);
  FindNexts(carousel);
  FindCycles();
}

void Navigation::FindReached(const Carousel& carousel) {
  std::vector<const CheckedGroup*> left;
  for (std::size_t i = 0; i < carousel.Size(); ++i) {
    if (carousel.IsStartUp(carousel.At(i))) left.push_back(&carousel.At(i));
  }
  isAllReached_ = left.empty();
  while (!left.empty()) {
    const CheckedGroup& group = *left.back();
    left.pop_back();
    if (!reached_.insert(&group).second) continue;
    for (const Departure& departure : group.departures) {
      const CheckedGroup* target = TargetOf(carousel, group, departure);
      if (target != nullptr) left.push_back(target);
      if (departure.action->Target.Kind == ValueKind::IndirectReference) isAllReached_ = true;
    }
  }
}

// A group leads to another one in any case if all its departures at its start lead there and no
// event can lead anywhere else before.
Navigation::Next Navigation::NextOf(const Carousel& carousel, const CheckedGroup& group) const {
  Next next;
  if (mayDivert_) return next;
  for (const Departure& departure : group.departures) {
    if (departure.moment == Moment::Input || IsTransitionTo(*departure.action, group.Group())) {
      continue;
    }
    const bool mayBeInactive =
        departure.object != 0 && carousel.May(group, Action::Deactivate, departure.object);
    const bool isSpawn = ActionOf(*departure.action) == Action::Spawn;
    const CheckedGroup* target = TargetOf(carousel, group, departure);
    const bool isOther = next.group != nullptr && next.group != target;
    if (departure.moment == Moment::Event || mayBeInactive || isSpawn || target == nullptr ||
        isOther) {
      return {};
    }
    if (next.group == nullptr) next = {&departure, target};
  }
  return next;
}

void Navigation::FindNexts(const Carousel& carousel) {
  for (std::size_t i = 0; i < carousel.Size(); ++i) {
    const CheckedGroup& group = carousel.At(i);
    if (!group.file.group) continue;
    const Next next = NextOf(carousel, group);
    if (next.group != nullptr) nexts_[&group] = next;
  }
}

// Every group has at most one next one, so each path is followed until it ends or meets a group
// that was seen before. If that group is on the same path, it begins a cycle.
void Navigation::FindCycles() {
  std::unordered_map<const CheckedGroup*, std::size_t> pathOf;
  std::size_t path = 0;
  for (const auto& [first, ignored] : nexts_) {
    ++path;
    const CheckedGroup* group = first;
    while (nexts_.contains(group) && pathOf.emplace(group, path).second) {
      group = nexts_.at(group).group;
    }
    if (!nexts_.contains(group) || pathOf.at(group) != path) continue;
    while (cycles_.emplace(group, nexts_.at(group).departure).second) {
      group = nexts_.at(group).group;
    }
  }
}

bool Navigation::IsReached(const CheckedGroup& group) const {
  return isAllReached_ || reached_.contains(&group);
}

bool Navigation::HasWayOut(const CheckedGroup& scene) const {
  return sceneCount_ <= 1 || applicationsLead_ || MayTune(scene) ||
         std::any_of(scene.departures.begin(), scene.departures.end(),
                     [&scene](const Departure& departure) {
                       return !IsTransitionTo(*departure.action, scene.Group());
                     });
}

const Departure* Navigation::CycleFrom(const CheckedGroup& group) const {
  const auto found = cycles_.find(&group);
  return found == cycles_.end() ? nullptr : found->second;
}

}  // namespace mheg
