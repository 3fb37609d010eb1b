// Finds comparisons and assignments that a variable's class does not accept. The engine skips them.
#include "actions/actions.h"
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

const char* NameOf(ValueKind kind) {
  switch (kind) {
  case ValueKind::Boolean: return "a boolean";
  case ValueKind::Integer: return "an integer";
  case ValueKind::OctetString: return "an octet string";
  case ValueKind::ObjectReference: return "an object reference";
  case ValueKind::ContentReference: return "a content reference";
  case ValueKind::None:
  case ValueKind::IndirectReference: break;
  }
  return "nothing";
}

class VariableCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitAction(const ElementaryAction& action) override {
    const bool isTest = ActionOf(action) == Action::TestVariable;
    const bool isSet = ActionOf(action) == Action::SetVariable;
    const GenericValue* value = action.Parameters.At(isTest ? 1 : 0);
    if ((!isTest && !isSet) || value == nullptr) return;
    const CheckedObject* variable = TargetOf(action, kVariables);
    if (variable == nullptr) return;
    const ItemType type = variable->type;
    const bool isIndirect = value->Kind == ValueKind::IndirectReference;
    const ItemType source =
        isIndirect ? carousel_.ClassOf(group_, value->Reference) : ItemType::None;
    if (isIndirect && source == ItemType::None) return;
    const ValueKind kind = isIndirect ? KindOf(source) : value->Kind;
    const bool isAccepted = isTest ? ComparesWith(type, kind) : MayBeSetTo(type, kind, isIndirect);
    if (isAccepted) return;
    const std::string given = isIndirect ? "object " + std::to_string(value->Reference.Number) +
                                               ", which is of class " + ClassName(source)
                                         : NameOf(kind);
    Report(Rule::WrongType, (isTest ? "compares " : "sets ") + ClassName(type) + " " +
                                std::to_string(action.Target.Reference.Number) +
                                (isTest ? " with " : " to ") + given);
  }
};

}  // namespace

void CheckVariables(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  VariableCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
