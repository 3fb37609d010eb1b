// Collects departures in one pass over a group.
#include "mheg/check/departures.h"

#include <string_view>

#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

class DepartureCollector : public GroupVisitor {
 public:
  explicit DepartureCollector(const Group& group) : group_(group) {}

  void VisitObject(ItemType type, const Ingredient& record) override {
    ofObject_ = type == ItemType::Link ? MomentOf(static_cast<const Link&>(record)) : Moment::Event;
  }

  void VisitAction(const ElementaryAction& action) override {
    if (!IsDeparture(ActionOf(action))) return;
    const bool isOfGroup = Contains(kGroups, currentClass);
    departures.push_back({&action, isOfGroup ? MomentOf(currentKeyword) : ofObject_,
                          isOfGroup ? 0 : currentObject, currentKeyword, currentAction});
  }

  std::vector<Departure> departures;

 private:
  static Moment MomentOf(std::string_view listOfGroup) {
    return listOfGroup == ":OnStartUp" ? Moment::Start : Moment::Input;
  }
  [[nodiscard]] Moment MomentOf(const Link& link) const {
    switch (link.Condition.EventType) {
    case EventType::UserInput:
    case EventType::TimerFired:
    case EventType::EngineEvent:
    case EventType::AnchorFired:
    case EventType::EntryFieldFull: return Moment::Input;
    case EventType::IsAvailable:
    case EventType::ContentAvailable:
    case EventType::IsRunning: break;
    default: return Moment::Event;
    }
    const ObjectReference& source = link.Condition.EventSource;
    const bool isOwnGroup =
        !source.GroupIdentifier.IsPresent() ||
        IsSameGroup(source.GroupIdentifier.View(), group_.Reference.GroupIdentifier.View());
    const bool isCertain = link.InitiallyActive && isOwnGroup &&
                           source.Number == group_.Reference.Number &&
                           link.Condition.EventData.Kind == ValueKind::None;
    return isCertain ? Moment::Start : Moment::Event;
  }

  const Group& group_;
  Moment ofObject_ = Moment::Event;
};

}  // namespace

std::vector<Departure> DeparturesOf(const Group& group) {
  DepartureCollector collector(group);
  Walk(group, collector);
  return std::move(collector.departures);
}

bool IsTransitionTo(const ElementaryAction& action, const Group& group) {
  if (ActionOf(action) != Action::TransitionTo) return false;
  if (action.Target.Kind != ValueKind::ObjectReference) return false;
  const OctetString& name = action.Target.Reference.GroupIdentifier;
  return !name.IsPresent() || name.View() == group.Reference.GroupIdentifier.View();
}

}  // namespace mheg
