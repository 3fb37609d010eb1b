// Links that can never fire: no source of theirs raises their event with their data, no key that
// the scene lets through has their number, nothing ever activates them, or others come first.
#include <algorithm>
#include <set>
#include <vector>

#include "mheg/check/check.h"
#include "mheg/check/class_names.h"
#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

constexpr ClassSet kAnything = ~ClassSet{0};
constexpr ClassSet kVariables =
    SetOf(ItemType::BooleanVariable, ItemType::IntegerVariable, ItemType::OctetStringVariable,
          ItemType::ObjectRefVariable, ItemType::ContentRefVariable);
constexpr ClassSet kTokenGroups = SetOf(ItemType::TokenGroup, ItemType::ListGroup);
constexpr ClassSet kButtons =
    SetOf(ItemType::HotSpot, ItemType::PushButton, ItemType::SwitchButton);
constexpr ClassSet kInteractibles =
    kButtons | SetOf(ItemType::EntryField, ItemType::HyperText, ItemType::Slider);
constexpr ClassSet kPrograms =
    SetOf(ItemType::ResidentProgram, ItemType::RemoteProgram, ItemType::InterchangedProgram);

// Which classes raise an event, and the kind of data that goes with it.
struct EventRule {
  ClassSet sources;
  ValueKind data;
};

constexpr EventRule RuleOf(EventType event) {
  switch (event) {
  case EventType::IsAvailable:
  case EventType::ContentAvailable:
  case EventType::IsDeleted:
  case EventType::IsRunning:
  case EventType::IsStopped: return {kAnything, ValueKind::None};
  case EventType::UserInput:
  case EventType::EngineEvent: return {kAnything, ValueKind::Integer};
  case EventType::AnchorFired: return {SetOf(ItemType::HyperText), ValueKind::None};
  case EventType::TimerFired: return {SetOf(ItemType::Scene), ValueKind::Integer};
  case EventType::AsynchStopped: return {kPrograms, ValueKind::None};
  case EventType::TokenMovedFrom:
  case EventType::TokenMovedTo: return {kTokenGroups, ValueKind::Integer};
  case EventType::StreamEvent:
  case EventType::CounterTrigger: return {SetOf(ItemType::Stream), ValueKind::Integer};
  case EventType::StreamPlaying:
  case EventType::StreamStopped: return {SetOf(ItemType::Stream), ValueKind::None};
  case EventType::InteractionCompleted:
  case EventType::HighlightOn:
  case EventType::HighlightOff:
  case EventType::CursorEnter:
  case EventType::CursorLeave: return {kInteractibles, ValueKind::None};
  case EventType::IsSelected:
  case EventType::IsDeselected: return {kButtons, ValueKind::None};
  case EventType::TestEvent: return {kVariables, ValueKind::Boolean};
  case EventType::FirstItemPresented:
  case EventType::LastItemPresented: return {SetOf(ItemType::ListGroup), ValueKind::Boolean};
  case EventType::HeadItems:
  case EventType::TailItems:
  case EventType::ItemSelected:
  case EventType::ItemDeselected: return {SetOf(ItemType::ListGroup), ValueKind::Integer};
  case EventType::EntryFieldFull: return {SetOf(ItemType::EntryField), ValueKind::None};
  }
  return {};
}

// What actions may do for the links of one group.
class LinkHelp : public GroupVisitor {
 public:
  explicit LinkHelp(const CheckedGroup& group) : group_(group) {}

  // Takes in what the actions of a group do, be it this one or another.
  void TakeIn(const CheckedGroup& acting) {
    actingName_ = acting.Name();
    Walk(acting.Group(), *this);
  }

  void VisitAction(const ElementaryAction& action) override {
    switch (static_cast<Action>(action.ActionType)) {
    case Action::Activate: return activated.TakeIn(action.Target, *this);
    case Action::Deactivate: return deactivated.TakeIn(action.Target, *this);
    case Action::SendEvent: sendsEvents = true; return;
    default: return;
    }
  }

  // The links that an action is done to.
  struct Targets {
    void TakeIn(const GenericValue& target, const LinkHelp& help) {
      areAny = areAny || target.Kind == ValueKind::IndirectReference;
      const OctetString& group = target.Reference.GroupIdentifier;
      const std::string_view name = group.IsPresent() ? group.View() : help.actingName_;
      if (IsSameName(name, help.group_.Name())) numbers.insert(target.Reference.Number);
    }
    [[nodiscard]] bool MayBe(std::int32_t number) const {
      return areAny || numbers.contains(number);
    }

    std::set<std::int32_t> numbers;
    bool areAny = false;  // a variable says which
  };

  Targets activated;
  Targets deactivated;
  bool sendsEvents = false;  // and so may raise an event that nothing else does

 private:
  const CheckedGroup& group_;
  std::string_view actingName_;
};

constexpr bool IsKey(std::int32_t number) {
  return (number >= 1 && number <= 17) || (number >= 100 && number <= 104);
}

// Whether the input event register of a scene keeps a key from it.
constexpr bool KeepsOut(std::int32_t inputRegister, std::int32_t key) {
  const bool isArrowOrSelect = key <= 4 || key == 15;
  switch (inputRegister) {
  case 3: return key <= 15 || key == 17;
  case 4: return key == 17;
  case 5: return key == 17 || (key <= 15 && !isArrowOrSelect);
  default: return false;
  }
}

class LinkCheck : public GroupVisitor {
 public:
  LinkCheck(const Carousel& carousel, const CheckedGroup& group, const LinkHelp& help,
            Findings& findings)
      : carousel_(carousel), group_(group), help_(help), findings_(findings) {}

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type != ItemType::Link) return;
    const auto& link = static_cast<const Link&>(record);
    const bool isHelped = help_.activated.MayBe(currentObject);
    if (!link.InitiallyActive && !isHelped) Report("nothing activates it");
    if (!help_.sendsEvents) CheckCondition(link.Condition);
    if (group_.Group().Type == ItemType::Scene) CheckCrowd(link);
  }

 private:
  // An event runs no more links than this, in the order in which they are written.
  static constexpr std::ptrdiff_t kMostLinks = 5;

  void CheckCrowd(const Link& link) {
    const auto runsToo = [&](const LinkCondition* other) { return Meets(*other, link.Condition); };
    if (std::count_if(alwaysActive_.begin(), alwaysActive_.end(), runsToo) >= kMostLinks) {
      Report("five links before it wait for the same event");
    }
    if (link.InitiallyActive && !help_.deactivated.MayBe(currentObject)) {
      alwaysActive_.push_back(&link.Condition);
    }
  }
  // Whether every event that one link waits for is one that the other waits for as well.
  [[nodiscard]] bool Meets(const LinkCondition& other, const LinkCondition& one) const {
    const auto event = static_cast<EventType>(one.EventType);
    const bool hasSource = event != EventType::UserInput && event != EventType::EngineEvent;
    const GenericValue& data = other.EventData;
    const bool isSameData = data.Kind == one.EventData.Kind &&
                            data.Integer == one.EventData.Integer &&
                            data.Boolean == one.EventData.Boolean;
    return other.EventType == one.EventType && (data.Kind == ValueKind::None || isSameData) &&
           (!hasSource || IsSameObject(other.EventSource, one.EventSource));
  }
  [[nodiscard]] bool IsSameObject(const ObjectReference& one, const ObjectReference& other) const {
    const CheckedGroup* owner = carousel_.Find(group_, one.GroupIdentifier.View());
    return owner != nullptr && owner == carousel_.Find(group_, other.GroupIdentifier.View()) &&
           one.Number == other.Number;
  }
  void CheckCondition(const LinkCondition& condition) {
    const auto event = static_cast<EventType>(condition.EventType);
    const EventRule rule = RuleOf(event);
    if (rule.sources == 0) {
      return Report("there is no event " + std::to_string(condition.EventType));
    }
    const std::string word = kEventWords[static_cast<std::size_t>(condition.EventType) - 1];
    CheckSource(condition.EventSource, word, rule.sources);
    const ValueKind data = condition.EventData.Kind;
    if (data != ValueKind::None && data != rule.data) Report(word + " has no such data");
    if (event == EventType::UserInput && data == ValueKind::Integer) {
      CheckKey(condition.EventData.Integer);
    }
  }
  void CheckSource(const ObjectReference& source, const std::string& word, ClassSet sources) {
    const CheckedGroup* owner = carousel_.Find(group_, source.GroupIdentifier.View());
    const ItemType type = owner == nullptr ? ItemType::None : owner->ClassOf(source.Number);
    if (type == ItemType::None || Contains(sources, type)) return;
    Report(std::string(ClassName(type)) + " raises no " + word);
  }
  void CheckKey(std::int32_t key) {
    if (!IsKey(key)) return Report("no key has the number " + std::to_string(key));
    if (group_.Group().Type != ItemType::Scene) return;
    const std::int32_t inputRegister = static_cast<const Scene&>(group_.Group()).InputEventReg;
    if (!KeepsOut(inputRegister, key)) return;
    Report("input event register " + std::to_string(inputRegister) + " keeps out key " +
           std::to_string(key));
  }
  void Report(const std::string& why) {
    findings_.push_back({currentObject, "never fires: " + why});
  }

  const Carousel& carousel_;
  const CheckedGroup& group_;
  const LinkHelp& help_;
  Findings& findings_;
  std::vector<const LinkCondition*> alwaysActive_;  // of the links before, those that nobody stops
};

}  // namespace

void CheckLinks(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  // A scene's links may be activated by its application, and an application's by any scene.
  LinkHelp help(group);
  help.TakeIn(group);
  const CheckedGroup* application = carousel.ApplicationOf(group);
  if (application != nullptr) help.TakeIn(*application);
  const bool isApplication = group.Group().Type == ItemType::Application;
  for (std::size_t i = 0; isApplication && i < carousel.Size(); ++i) {
    if (carousel.At(i).file.group) help.TakeIn(carousel.At(i));
  }
  LinkCheck check(carousel, group, help, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
