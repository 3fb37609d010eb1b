// Traces an action back to the link that contains it, from the link's event to the actions that
// cause that event, and so on to events from outside.
#include "mheg/graph/causes.h"

#include "mheg/check/walk.h"
#include "mheg/report_words.h"

namespace mheg {
namespace {

using namespace korvel;

class ActionCollector : public GroupVisitor {
 public:
  explicit ActionCollector(const CheckedGroup& group) : group_(group) {}

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type == ItemType::Link) link_ = static_cast<const Link*>(&record);
  }
  void VisitAction(const ElementaryAction& action) override {
    const Link* link = currentClass == ItemType::Link ? link_ : nullptr;
    actions.push_back({&group_, currentObject, link, currentKeyword, &action});
  }

  std::vector<HeldAction> actions;

 private:
  const CheckedGroup& group_;
  const Link* link_ = nullptr;
};

// An event in words, with its data if that is a number.
std::string WordsOf(const LinkCondition& condition) {
  const GenericValue& data = condition.EventData;
  const bool hasNumber = data.Kind == ValueKind::Integer;
  if (condition.EventType == EventType::UserInput) {
    return hasNumber ? KeyName(data.Integer) : "any key";
  }
  return EventName(condition.EventType) + (hasNumber ? " " + std::to_string(data.Integer) : "");
}

}  // namespace

bool HeldAction::Targets(const Carousel& carousel, const CheckedGroup& holder,
                         std::int32_t number) const {
  const ObjectReference& target = action->Target.Reference;
  const bool isDirect = action->Target.Kind == ValueKind::ObjectReference;
  return isDirect && target.Number == number &&
         carousel.Find(*group, target.GroupIdentifier.View()) == &holder;
}

std::vector<HeldAction> ActionsOf(const CheckedGroup& group) {
  ActionCollector collector(group);
  Walk(group.Group(), collector);
  return std::move(collector.actions);
}

std::set<std::string> Causes::Of(const HeldAction& held) {
  seen_.clear();
  std::set<std::string> causes;
  Add(held, causes);
  return causes;
}

void Causes::Add(const HeldAction& held, std::set<std::string>& causes) {
  if (!seen_.insert(held.action).second) return;
  if (held.link != nullptr) return AddCausesOfEvent(held, causes);
  const bool isOfGroup = held.object == held.group->Group().Reference.Number;
  if (isOfGroup) {
    causes.insert(IsSameWord(held.keyword, ":OnStartUp") ? "start" : held.keyword + 1);
  } else if (!AddCausesOf({Action::CallActionSlot}, *held.group, held.object, causes)) {
    causes.insert("slot of " + std::to_string(held.object));
  }
}

void Causes::AddCausesOfEvent(const HeldAction& held, std::set<std::string>& causes) {
  const LinkCondition& condition = held.link->Condition;
  const CheckedGroup* source =
      carousel_.Find(*held.group, condition.EventSource.GroupIdentifier.View());
  const std::int32_t number = condition.EventSource.Number;
  const bool isGroup = source != nullptr && number == source->Group().Reference.Number;
  bool isTraced = false;
  switch (condition.EventType) {
  case EventType::IsRunning:
    if (isGroup) {
      causes.insert("start");
      return;
    }
    isTraced = source != nullptr && AddCausesOf({Action::Run}, *source, number, causes);
    break;
  case EventType::IsStopped:
    isTraced = source != nullptr && AddCausesOf({Action::Stop}, *source, number, causes);
    break;
  case EventType::TestEvent:
    isTraced = source != nullptr && AddCausesOf({Action::TestVariable}, *source, number, causes);
    break;
  case EventType::TokenMovedFrom:
  case EventType::TokenMovedTo:
    isTraced =
        source != nullptr && AddCausesOf({Action::Move, Action::MoveTo}, *source, number, causes);
    break;
  default: break;
  }
  if (!isTraced) causes.insert(WordsOf(condition));
}

bool Causes::AddCausesOf(std::initializer_list<Action> actions, const CheckedGroup& group,
                         std::int32_t number, std::set<std::string>& causes) {
  bool isFound = false;
  for (const HeldAction& held : actions_) {
    for (const Action action : actions) {
      if (ActionOf(*held.action) != action || !held.Targets(carousel_, group, number)) continue;
      isFound = true;
      Add(held, causes);
    }
  }
  return isFound;
}

}  // namespace mheg
