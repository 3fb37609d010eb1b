// Finds links that test a variable again in reaction to its test, although nothing changes in
// between, so the tests never end.
#include <algorithm>

#include "actions/actions.h"
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

// Whether an action raises no event and changes nothing but its own target. It cannot change the
// result of the next test unless its target is the tested variable.
bool IsQuiet(Action action) {
  switch (action) {
  case Action::Add:
  case Action::Append:
  case Action::BringToFront:
  case Action::Divide:
  case Action::LockScreen:
  case Action::Modulo:
  case Action::Multiply:
  case Action::SendToBack:
  case Action::SetFillColour:
  case Action::SetLineColour:
  case Action::SetPosition:
  case Action::SetTimer:
  case Action::SetVariable:
  case Action::Subtract:
  case Action::UnlockScreen: return true;
  default: return false;
  }
}

// A test whose operator and operand are constant integers.
struct ConstantTest {
  Comparison comparison{};
  std::int64_t constant = 0;

  [[nodiscard]] bool ResultFor(std::int64_t value) const {
    return IsTrue(value, comparison, constant);
  }
};

// False if the action is not such a test.
bool ReadTest(const ElementaryAction& action, ConstantTest& test) {
  const GenericValue* comparison = action.Parameters.At(0);
  const GenericValue* operand = action.Parameters.At(1);
  const bool isConstant = comparison != nullptr && operand != nullptr &&
                          comparison->Kind == ValueKind::Integer &&
                          operand->Kind == ValueKind::Integer;
  if (!isConstant) return false;
  test = {static_cast<Comparison>(comparison->Integer), operand->Integer};
  return true;
}

// Whether a value exists for which both tests have that result. It is enough to try the constants
// and their neighbours.
bool CanBothHave(bool result, const ConstantTest& one, const ConstantTest& other) {
  for (const std::int64_t constant : {one.constant, other.constant}) {
    for (const std::int64_t value : {constant - 1, constant, constant + 1}) {
      if (one.ResultFor(value) == result && other.ResultFor(value) == result) return true;
    }
  }
  return false;
}

// The variable that a link waits for.
struct TestedVariable {
  const Carousel& carousel;
  const CheckedGroup* group;
  std::int32_t number;

  // Whether a reference in the group `from` names the variable.
  [[nodiscard]] bool IsNamedBy(const CheckedGroup& from, const ObjectReference& reference) const {
    return reference.Number == number &&
           carousel.Find(from, reference.GroupIdentifier.View()) == group;
  }
  // Whether an action of the group `from` names it as its target. An indirect target names the
  // variable that holds the target.
  [[nodiscard]] bool IsTargetOf(const CheckedGroup& from, const ElementaryAction& action) const {
    return action.Target.Kind == ValueKind::ObjectReference &&
           IsNamedBy(from, action.Target.Reference);
  }
  [[nodiscard]] bool IsTestedBy(const CheckedGroup& from, const ElementaryAction& action) const {
    return ActionOf(action) == Action::TestVariable && IsTargetOf(from, action);
  }
};

// Collects the tests of one variable in a group.
class TestCollector : public GroupVisitor {
 public:
  TestCollector(const CheckedGroup& group, const TestedVariable& variable)
      : group_(group), variable_(variable) {}

  void VisitAction(const ElementaryAction& action) override {
    if (variable_.IsTestedBy(group_, action)) tests.push_back(&action);
  }

  std::vector<const ElementaryAction*> tests;

 private:
  const CheckedGroup& group_;
  const TestedVariable& variable_;
};

class EndlessTestCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type != ItemType::Link) return;
    const auto& link = static_cast<const Link&>(record);
    if (link.Condition.EventType != EventType::TestEvent) return;
    const ObjectReference& source = link.Condition.EventSource;
    const TestedVariable variable{carousel_, carousel_.Find(group_, source.GroupIdentifier.View()),
                                  source.Number};
    if (variable.group == nullptr) return;
    for (const ElementaryAction& action : link.LinkEffect) {
      if (variable.IsTestedBy(group_, action)) {
        if (MayRepeat(link, action, variable) && !MayOthersChangeResult(link, variable)) {
          ReportAt(":LinkEffect", Rule::EndlessTest,
                   "tests variable " + std::to_string(variable.number) +
                       " again in reaction to its test, with the same result, so it never ends");
        }
        return;
      }
      if (MayChangeResult(group_, action, variable)) return;
    }
  }

 private:
  // Whether an action of the group may change the result of the next test.
  [[nodiscard]] static bool MayChangeResult(const CheckedGroup& group,
                                            const ElementaryAction& action,
                                            const TestedVariable& variable) {
    return !IsQuiet(ActionOf(action)) || action.Target.Kind == ValueKind::IndirectReference ||
           variable.IsTargetOf(group, action);
  }

  // Whether another link that fires on the same result may change the variable before the next
  // test.
  [[nodiscard]] bool MayOthersChangeResult(const Link& link, const TestedVariable& variable) const {
    for (std::size_t i = 0; i < carousel_.Size(); ++i) {
      const CheckedGroup& group = carousel_.At(i);
      for (const auto& [number, object] : group.objects) {
        if (object.type != ItemType::Link || object.record == &link) continue;
        const auto& other = static_cast<const Link&>(*object.record);
        if (!WaitsForSameResult(group, other, link, variable)) continue;
        for (const ElementaryAction& action : other.LinkEffect) {
          if (MayChangeResult(group, action, variable)) return true;
        }
      }
    }
    return false;
  }

  [[nodiscard]] static bool WaitsForSameResult(const CheckedGroup& group, const Link& other,
                                               const Link& link, const TestedVariable& variable) {
    return other.Condition.EventType == EventType::TestEvent &&
           (other.Condition.EventData.Kind == ValueKind::None ||
            link.Condition.EventData.Kind == ValueKind::None ||
            other.Condition.EventData == link.Condition.EventData) &&
           variable.IsNamedBy(group, other.Condition.EventSource);
  }

  // Whether `nextTest`, the link's own test, may have the result that fires the link once more.
  // False if its operand is not constant, because then it cannot be decided.
  [[nodiscard]] bool MayRepeat(const Link& link, const ElementaryAction& nextTest,
                               const TestedVariable& variable) const {
    const GenericValue& data = link.Condition.EventData;
    if (data.Kind == ValueKind::None) return true;
    if (data.Kind != ValueKind::Boolean) return false;
    ConstantTest test;
    if (!ReadTest(nextTest, test)) return false;
    TestCollector others(group_, variable);
    Walk(group_.Group(), others);
    std::erase(others.tests, &nextTest);
    if (others.tests.empty()) return true;
    return std::ranges::any_of(others.tests, [&](const ElementaryAction* action) {
      ConstantTest other;
      return ReadTest(*action, other) && CanBothHave(data.Boolean, test, other);
    });
  }
};

}  // namespace

void CheckEndlessTests(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  EndlessTestCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
