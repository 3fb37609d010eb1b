// Collects the effects of a group's actions on links.
#include "mheg/check/link_effects.h"

#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

class EffectCollector : public GroupVisitor {
 public:
  explicit EffectCollector(std::string_view groupName) : groupName_(groupName) {}

  void VisitAction(const ElementaryAction& action) override {
    switch (static_cast<Action>(action.ActionType)) {
    case Action::Activate: return Add(action.Target, effects.activated);
    case Action::Deactivate: return Add(action.Target, effects.deactivated);
    case Action::SendEvent: effects.sendsEvents = true; return;
    default: return;
    }
  }

  LinkEffects effects;

 private:
  void Add(const GenericValue& target, LinkTargets& targets) const {
    targets.areAny = targets.areAny || target.Kind == ValueKind::IndirectReference;
    const OctetString& group = target.Reference.GroupIdentifier;
    targets.links.emplace(WithoutTilde(group.IsPresent() ? group.View() : groupName_),
                          target.Reference.Number);
  }

  std::string_view groupName_;
};

}  // namespace

void LinkTargets::Add(const LinkTargets& others) {
  links.insert(others.links.begin(), others.links.end());
  areAny = areAny || others.areAny;
}

bool LinkTargets::MayBe(std::string_view group, std::int32_t number) const {
  return areAny || links.contains({WithoutTilde(group), number});
}

void LinkEffects::Add(const LinkEffects& others) {
  activated.Add(others.activated);
  deactivated.Add(others.deactivated);
  sendsEvents = sendsEvents || others.sendsEvents;
}

LinkEffects LinkEffectsOf(const Group& group) {
  EffectCollector collector(group.Reference.GroupIdentifier.View());
  Walk(group, collector);
  return std::move(collector.effects);
}

}  // namespace mheg
