// Finds links that can never fire: their source does not raise their event with that kind of data,
// no action causes the event, the scene's input event register blocks their key, nothing activates
// them, or the maximum number of links run for the event before them.
#include <map>
#include <optional>
#include <tuple>

#include "mheg/check/check.h"
#include "mheg/report_words.h"
#include "objects/limits.h"

namespace mheg {
namespace {

using namespace korvel;

constexpr ClassSet kAnything = ~ClassSet{0};
constexpr ClassSet kNotRun = kPrograms | SetOf(ItemType::Link);
// Buttons stop as members of a token group, the other classes also by Stop.
constexpr ClassSet kStoppable = kVisibles | kButtons | kTokenGroups |
                                SetOf(ItemType::Stream, ItemType::Audio, ItemType::RTGraphics);

// The classes that raise an event, and the kind of its data. No class raises the events of cursors,
// buttons and counters, nor those of a stream's content.
struct EventRule {
  ClassSet sources = 0;
  ValueKind data = ValueKind::None;
};

constexpr EventRule RuleOf(EventType event) {
  switch (event) {
  case EventType::IsAvailable:
  case EventType::ContentAvailable:
    return {kGroups | SetOf(ItemType::Bitmap, ItemType::Text, ItemType::LineArt), ValueKind::None};
  case EventType::IsDeleted: return {kGroups, ValueKind::None};
  case EventType::IsRunning: return {kAnything & ~kNotRun, ValueKind::None};
  case EventType::IsStopped: return {kStoppable, ValueKind::None};
  case EventType::UserInput:
  case EventType::EngineEvent: return {kAnything, ValueKind::Integer};
  case EventType::AnchorFired: return {SetOf(ItemType::HyperText), ValueKind::None};
  case EventType::TimerFired: return {SetOf(ItemType::Scene), ValueKind::Integer};
  case EventType::AsynchStopped: return {SetOf(ItemType::ResidentProgram), ValueKind::None};
  case EventType::TokenMovedFrom:
  case EventType::TokenMovedTo: return {kTokenGroups, ValueKind::Integer};
  case EventType::InteractionCompleted:
  case EventType::HighlightOn:
  case EventType::HighlightOff: return {kInteractibles, ValueKind::None};
  case EventType::TestEvent: return {kVariables, ValueKind::Boolean};
  case EventType::FirstItemPresented:
  case EventType::LastItemPresented: return {SetOf(ItemType::ListGroup), ValueKind::Boolean};
  case EventType::HeadItems:
  case EventType::TailItems:
  case EventType::ItemSelected:
  case EventType::ItemDeselected: return {SetOf(ItemType::ListGroup), ValueKind::Integer};
  case EventType::EntryFieldFull: return {SetOf(ItemType::EntryField), ValueKind::None};
  case EventType::StreamEvent:
  case EventType::StreamPlaying:
  case EventType::StreamStopped:
  case EventType::CounterTrigger:
  case EventType::CursorEnter:
  case EventType::CursorLeave:
  case EventType::IsSelected:
  case EventType::IsDeselected: break;
  }
  return {};
}

// Whether an engine event comes from the application. The others, those of keys, reach links of
// any source.
constexpr bool IsReferenceError(std::int32_t engineEvent) {
  return engineEvent == engineEvents::kGroupReferenceError ||
         engineEvent == engineEvents::kContentReferenceError;
}

// The event that a link waits for. Fields that do not apply keep their defaults.
struct Awaited {
  EventType event{};
  const CheckedGroup* owner = nullptr;  // of the event's source
  std::int32_t source = 0;
  ValueKind kind = ValueKind::None;  // of the data; None: any data
  std::int32_t integer = 0;
  bool boolean = false;

  [[nodiscard]] auto Fields() const {
    return std::tie(event, owner, source, kind, integer, boolean);
  }
  bool operator<(const Awaited& other) const { return Fields() < other.Fields(); }
};

constexpr bool HasSource(EventType event) {
  return event != EventType::UserInput && event != EventType::EngineEvent;
}

class LinkCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type != ItemType::Link) return;
    const auto& link = static_cast<const Link&>(record);
    if (!link.InitiallyActive && !carousel_.MayAffect(group_, Action::Activate, currentObject)) {
      ReportNeverFires(":InitiallyActive", Rule::InactiveLink, "nothing activates it");
    }
    if (!carousel_.HasAction(group_, Action::SendEvent)) CheckCondition(link.Condition);
    if (group_.Group().type == ItemType::Scene) CheckLinkLimit(link);
  }

 private:
  void CheckLinkLimit(const Link& link) {
    const LinkCondition& condition = link.Condition;
    Awaited awaited{.event = condition.EventType};
    if (HasSource(condition.EventType)) {
      awaited.owner = carousel_.Find(group_, condition.EventSource.GroupIdentifier.View());
      awaited.source = condition.EventSource.Number;
      if (awaited.owner == nullptr) return;
    }
    std::size_t before = alwaysActive_[awaited];  // earlier links that accept any data
    if (condition.EventData.Kind != ValueKind::None) {
      awaited.kind = condition.EventData.Kind;
      awaited.integer = condition.EventData.Integer;
      awaited.boolean = condition.EventData.Boolean;
      before += alwaysActive_[awaited];
    }
    if (before >= kMostLinksOfEvent) {
      ReportNeverFires("", Rule::SixthLink, "five links before it wait for the same event");
    }
    const bool isDeactivated = carousel_.MayAffect(group_, Action::Deactivate, currentObject);
    if (link.InitiallyActive && !isDeactivated) ++alwaysActive_[awaited];
  }
  void CheckCondition(const LinkCondition& condition) {
    const EventType event = condition.EventType;
    const EventRule rule = RuleOf(event);
    const std::string name = EventName(event);
    if (rule.sources == 0) {
      return ReportNeverFires(
          ":EventType", Rule::ImpossibleEvent,
          (WordOf(event) == nullptr ? "there is no event " : "nothing raises ") + name);
    }
    const bool isSource = CheckSource(condition.EventSource, name, rule.sources);
    const ValueKind data = condition.EventData.Kind;
    if (data != ValueKind::None && data != rule.data) {
      ReportNeverFires(":EventData", Rule::ImpossibleData, name + " has no such data");
    }
    if (isSource) CheckCause(condition);
    if (data == ValueKind::Integer) CheckNumber(condition);
  }
  // TimerFired and TestEvent are events that only actions cause.
  void CheckCause(const LinkCondition& condition) {
    const ObjectReference& source = condition.EventSource;
    const CheckedGroup* owner = carousel_.Find(group_, source.GroupIdentifier.View());
    if (owner == nullptr) return;
    if (condition.EventType == EventType::TimerFired) {
      CheckTimer(*owner, condition.EventData);
    } else if (condition.EventType == EventType::TestEvent &&
               !carousel_.MayAffect(*owner, Action::TestVariable, source.Number) &&
               !group_.effects.MayHave({Action::TestVariable, owner->Name(), source.Number, {}})) {
      ReportNeverFires(":EventSource", Rule::NeverTested,
                       "nothing tests variable " + std::to_string(source.Number));
    }
  }
  void CheckTimer(const CheckedGroup& owner, const GenericValue& data) {
    std::optional<std::int32_t> timer;
    if (data.Kind == ValueKind::Integer) timer = data.Integer;
    if (owner.Group().type != ItemType::Scene ||
        carousel_.MayAffect(owner, Action::SetTimer, owner.Group().Reference.Number, timer)) {
      return;
    }
    const std::string which = timer ? "timer " + std::to_string(*timer) : "a timer";
    ReportNeverFires(":EventData", Rule::TimerNeverSet, "nothing sets " + which);
  }
  void CheckNumber(const LinkCondition& condition) {
    const std::int32_t number = condition.EventData.Integer;
    if (condition.EventType == EventType::UserInput) CheckKey(number);
    if (condition.EventType != EventType::EngineEvent) return;
    if (!IsEngineEvent(number)) {
      ReportNeverFires(":EventData", Rule::UnknownEngineEvent,
                       "there is no engine event " + std::to_string(number));
    } else if (IsReferenceError(number)) {
      CheckSource(condition.EventSource, "EngineEvent " + std::to_string(number),
                  SetOf(ItemType::Application));
    }
  }
  bool CheckSource(const ObjectReference& source, const std::string& event, ClassSet sources) {
    const CheckedGroup* owner = carousel_.Find(group_, source.GroupIdentifier.View());
    const ItemType type = owner == nullptr ? ItemType::None : owner->ClassOf(source.Number);
    if (type == ItemType::None || Contains(sources, type)) return true;
    ReportNeverFires(":EventType", Rule::ImpossibleEvent, ClassName(type) + " raises no " + event);
    return false;
  }
  void CheckKey(std::int32_t key) {
    if (!IsKey(key)) {
      return ReportNeverFires(":EventData", Rule::UnknownKey,
                              "no key has the number " + std::to_string(key));
    }
    if (group_.Group().type != ItemType::Scene) return;
    const std::int32_t inputRegister = static_cast<const Scene&>(group_.Group()).InputEventReg;
    if (!IsKeyBlocked(inputRegister, key)) return;
    ReportNeverFires(":EventData", Rule::BlockedKey,
                     "input event register " + std::to_string(inputRegister) + " keeps out key " +
                         std::to_string(key));
  }
  void ReportNeverFires(const char* keyword, Rule rule, const std::string& why) {
    ReportAt(keyword, rule, "never fires: " + why);
  }

  std::map<Awaited, std::size_t> alwaysActive_;  // number of earlier links that stay active
};

}  // namespace

void CheckLinks(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  LinkCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
