// Finds links that can never fire: their source does not raise their event with that kind of data,
// the scene's input event register excludes their key, nothing activates them, or the maximum
// number of links for the event is reached before them.
#include <map>
#include <tuple>

#include "mheg/check/check.h"
#include "mheg/check/walk.h"
#include "objects/limits.h"

namespace mheg {
namespace {

using namespace korvel;

constexpr ClassSet kAnything = ~ClassSet{0};

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
  case EventType::CursorLeave: return {kInteractibles | kButtons, ValueKind::None};
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

class LinkCheck : public GroupVisitor {
 public:
  LinkCheck(const Carousel& carousel, const CheckedGroup& group, const LinkEffects& effects,
            Findings& findings)
      : carousel_(carousel), group_(group), effects_(effects), findings_(findings) {}

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type != ItemType::Link) return;
    const auto& link = static_cast<const Link&>(record);
    const bool isActivated = effects_.activated.MayBe(group_.Name(), currentObject);
    if (!link.InitiallyActive && !isActivated) Report("nothing activates it");
    if (!effects_.sendsEvents) CheckCondition(link.Condition);
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
    if (before >= kMostLinksOfEvent) Report("five links before it wait for the same event");
    if (link.InitiallyActive && !effects_.deactivated.MayBe(group_.Name(), currentObject)) {
      ++alwaysActive_[awaited];
    }
  }
  void CheckCondition(const LinkCondition& condition) {
    const EventType event = condition.EventType;
    const EventRule rule = RuleOf(event);
    if (rule.sources == 0) {
      return Report("there is no event " + std::to_string(static_cast<std::int32_t>(event)));
    }
    const std::string word = WordOf(event);
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
    if (group_.Group().type != ItemType::Scene) return;
    const std::int32_t inputRegister = static_cast<const Scene&>(group_.Group()).InputEventReg;
    if (!IsKeyBlocked(inputRegister, key)) return;
    Report("input event register " + std::to_string(inputRegister) + " keeps out key " +
           std::to_string(key));
  }
  void Report(const std::string& why) {
    findings_.push_back({currentObject, "never fires: " + why});
  }

  const Carousel& carousel_;
  const CheckedGroup& group_;
  const LinkEffects& effects_;  // of all groups whose actions can affect the links
  Findings& findings_;
  std::map<Awaited, std::size_t> alwaysActive_;  // number of earlier links that stay active
};

}  // namespace

void CheckLinks(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  // A scene's links can be activated by its application, and an application's links by any scene.
  LinkEffects effects = group.effects;
  const CheckedGroup* application = carousel.ApplicationOf(group);
  if (application != nullptr) effects.Add(application->effects);
  const bool isApplication = group.Group().type == ItemType::Application;
  LinkCheck check(carousel, group, isApplication ? carousel.Effects() : effects, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
