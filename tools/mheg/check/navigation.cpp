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

// Whether the group has the resident program that tunes to a service, which ends the application.
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
      applicationsNavigate_ = applicationsNavigate_ || departure.moment != Moment::Start;
      mayDivert_ = mayDivert_ || departure.moment == Moment::Event;
    }
    applicationsNavigate_ = applicationsNavigate_ || MayTune(group);
  }
  FindReached(carousel);
  FindSuccessors(carousel);
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

// A group has a successor if its start always leads there: all departures that may happen during
// the start lead to the same group, and no event can cause another departure first.
Navigation::Successor Navigation::SuccessorOf(const Carousel& carousel,
                                              const CheckedGroup& group) const {
  Successor successor;
  if (mayDivert_) return successor;
  for (const Departure& departure : group.departures) {
    if (departure.moment == Moment::Input || IsTransitionTo(*departure.action, group.Group())) {
      continue;
    }
    const bool mayBeInactive =
        departure.object != 0 && carousel.MayAffect(group, Action::Deactivate, departure.object);
    const bool isSpawn = ActionOf(*departure.action) == Action::Spawn;
    const CheckedGroup* target = TargetOf(carousel, group, departure);
    const bool isOther = successor.group != nullptr && successor.group != target;
    if (departure.moment == Moment::Event || mayBeInactive || isSpawn || target == nullptr ||
        isOther) {
      return {};
    }
    if (successor.group == nullptr) successor = {&departure, target};
  }
  return successor;
}

void Navigation::FindSuccessors(const Carousel& carousel) {
  for (std::size_t i = 0; i < carousel.Size(); ++i) {
    const CheckedGroup& group = carousel.At(i);
    if (!group.file.group) continue;
    const Successor successor = SuccessorOf(carousel, group);
    if (successor.group != nullptr) successors_[&group] = successor;
  }
}

// Every group has at most one successor, so each path is followed until it ends or reaches a
// group that was visited before. If that group is on the same path, it is part of a cycle.
void Navigation::FindCycles() {
  std::unordered_map<const CheckedGroup*, std::size_t> pathOf;
  std::size_t path = 0;
  for (const auto& [first, ignored] : successors_) {
    ++path;
    const CheckedGroup* group = first;
    while (successors_.contains(group) && pathOf.emplace(group, path).second) {
      group = successors_.at(group).group;
    }
    if (!successors_.contains(group) || pathOf.at(group) != path) continue;
    while (cycles_.emplace(group, successors_.at(group).departure).second) {
      group = successors_.at(group).group;
    }
  }
}

bool Navigation::IsReached(const CheckedGroup& group) const {
  return isAllReached_ || reached_.contains(&group);
}

bool Navigation::HasWayOut(const CheckedGroup& scene) const {
  return sceneCount_ <= 1 || applicationsNavigate_ || MayTune(scene) ||
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
