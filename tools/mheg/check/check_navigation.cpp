// Finds faults in the transitions between groups: scenes that nothing leads to or that the viewer
// cannot leave, transitions that do nothing or never end, and group names that do not lead to their
// file.
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

class NavigationCheck {
 public:
  NavigationCheck(const Carousel& carousel, const CheckedGroup& group, Findings& findings)
      : carousel_(carousel), group_(group), findings_(findings) {}

  void Check() {
    const Navigation& navigation = carousel_.Routes();
    CheckName();
    for (const Departure& departure : group_.departures) CheckDeparture(departure);
    if (const Departure* departure = navigation.CycleFrom(group_)) {
      Report(*departure, Rule::EndlessStart,
             "the start of this group leads through other groups back to it, without end");
    }
    if (group_.Group().type != ItemType::Scene) return;
    if (!navigation.IsReached(group_)) {
      Report({}, Rule::UnreachableScene,
             "nothing leads from the start-up application to this scene");
    }
    if (!navigation.HasWayOut(group_)) {
      Report({}, Rule::NoWayOut, "nothing leads out of this scene");
    }
  }

 private:
  void CheckName() {
    if (group_.Name().empty() || carousel_.IsNamedAfterFile(group_)) return;
    Report({}, Rule::FileName,
           "is named " + std::string(group_.Name()) + ", which does not lead to its file");
  }

  void CheckDeparture(const Departure& departure) {
    if (group_.Group().type != ItemType::Scene) return;
    if (!IsTransitionTo(*departure.action, group_.Group())) return;
    Report(departure, Rule::TransitionToItself,
           "TransitionTo does nothing: the scene is the current one");
  }

  void Report(const Departure& at, Rule rule, std::string text) {
    const std::int32_t index = at.action == nullptr ? -1 : at.index;
    const std::int32_t number = at.object == 0 ? group_.Group().Reference.Number : at.object;
    findings_.push_back(
        {rule,
         number,
         {{}, std::move(text), group_.file.places.Find(at.object, at.keyword, index)}});
  }

  const Carousel& carousel_;
  const CheckedGroup& group_;
  Findings& findings_;
};

}  // namespace

void CheckNavigation(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  NavigationCheck(carousel, group, findings).Check();
}

}  // namespace mheg
