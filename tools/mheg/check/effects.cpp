// Collects the effects of a group's actions.
#include "mheg/check/effects.h"

#include <limits>

#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

class EffectCollector : public GroupVisitor {
 public:
  explicit EffectCollector(std::string_view groupName) : groupName_(groupName) {}
  void VisitAction(const ElementaryAction& action) override { effects.Add(action, groupName_); }

  Effects effects;

 private:
  std::string_view groupName_;
};

// Whether a check queries the effect of the action.
bool IsRecorded(const ElementaryAction& action) {
  const GenericValue* first = action.Parameters.At(0);
  switch (ActionOf(action)) {
  case Action::Activate:
  case Action::Deactivate:
  case Action::SendEvent:
  case Action::TestVariable:
  case Action::SetPosition:
  case Action::SetBoxSize:
  case Action::Step:
  case Action::SetSliderValue:
  case Action::SetPortion: return true;
  case Action::SetInteractionStatus:
    return first == nullptr || first->Kind != ValueKind::Boolean || first->Boolean;
  case Action::SetTimer: return action.Parameters.Size() > 1;  // without a value it cancels
  default: return false;
  }
}

}  // namespace

void Effects::Add(const ElementaryAction& action, std::string_view groupName) {
  if (!IsRecorded(action)) return;
  const Action kind = ActionOf(action);
  const GenericValue& target = action.Target;
  // SendEvent targets the scene, but the event may come from any object.
  const bool isOnAny = target.Kind == ValueKind::IndirectReference || kind == Action::SendEvent;
  if (isOnAny) onAny_.insert(kind);
  const OctetString& group = target.Reference.GroupIdentifier;
  Effect effect{kind, WithoutTilde(group.IsPresent() ? group.View() : groupName),
                target.Reference.Number, std::nullopt};
  effects_.insert(effect);
  if (kind != Action::SetTimer) return;
  const GenericValue& timer = action.Parameters[0];
  if (timer.Kind != ValueKind::Integer) onAny_.insert(kind);
  effect.timer = timer.Integer;
  effects_.insert(effect);
}

void Effects::Add(const Effects& others) {
  effects_.insert(others.effects_.begin(), others.effects_.end());
  onAny_.insert(others.onAny_.begin(), others.onAny_.end());
}

void Effects::AddOn(const std::set<std::string_view>& groups, const Effects& others) {
  for (const Effect& effect : others.effects_) {
    if (groups.contains(effect.group)) effects_.insert(effect);
  }
  onAny_.insert(others.onAny_.begin(), others.onAny_.end());
}

bool Effects::HasAction(Action action) const {
  const auto found =
      effects_.lower_bound({action, {}, std::numeric_limits<std::int32_t>::min(), {}});
  return MayAffectAny(action) || (found != effects_.end() && found->action == action);
}

bool Effects::MayHave(const Effect& effect) const {
  return MayAffectAny(effect.action) ||
         effects_.contains(
             {effect.action, WithoutTilde(effect.group), effect.number, effect.timer});
}

Effects EffectsOf(const Group& group) {
  EffectCollector collector(group.Reference.GroupIdentifier.View());
  Walk(group, collector);
  return std::move(collector.effects);
}

}  // namespace mheg
