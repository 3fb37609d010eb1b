// Finds actions on objects whose class does not accept them, and transitions to the wrong kind of
// group.
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

class ActionCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitAction(const ElementaryAction& action) override {
    const ActionRow& row = *FindAction(action.ActionType);
    if (action.Target.Kind != ValueKind::ObjectReference) return;
    const ObjectReference& target = action.Target.Reference;
    const CheckedGroup* owner = carousel_.Find(group_, target.GroupIdentifier.View());
    if (owner == nullptr) return;
    const ItemType type = owner->ClassOf(target.Number);
    const ClassSet accepted = Accepted(row);
    if (type == ItemType::None || accepted == 0 || Contains(accepted, type)) return;
    Report(Rule::WrongTarget, std::string(row.name) + " does nothing to object " +
                                  std::to_string(target.Number) + ", which is of class " +
                                  ClassName(type));
  }

 private:
  // The classes that an action accepts; 0 if its effect does not depend on the class.
  static ClassSet Accepted(const ActionRow& row) {
    switch (row.action) {
    case Action::TransitionTo: return SetOf(ItemType::Scene);
    case Action::Launch:
    case Action::Spawn: return SetOf(ItemType::Application);
    default: return row.accepts;
    }
  }
};

}  // namespace

void CheckActions(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  ActionCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
