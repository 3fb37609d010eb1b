// Finds links that test a variable again in reaction to its test, although nothing changes in
// between, so the tests never end.
#include <algorithm>

#include "actions/actions.h"
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

// Whether an action raises no event and leaves the tested variable and the link as they are, unless
// it refers to one of them.
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

bool IsTest(const ElementaryAction& action) { return ActionOf(action) == Action::TestVariable; }

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
bool MayBothHave(bool result, const ConstantTest& one, const ConstantTest& other) {
  for (const std::int64_t constant : {one.constant, other.constant}) {
    for (const std::int64_t value : {constant - 1, constant, constant + 1}) {
      if (one.ResultFor(value) == result && other.ResultFor(value) == result) return true;
    }
  }
  return false;
}

// Collects the tests of one variable in a group.
class TestCollector : public GroupVisitor {
 public:
  TestCollector(const Carousel& carousel, const CheckedGroup& group, const CheckedGroup& owner,
                std::int32_t variable)
      : carousel_(carousel), group_(group), owner_(owner), variable_(variable) {}

  void VisitAction(const ElementaryAction& action) override {
    const ObjectReference& target = action.Target.Reference;
    if (!IsTest(action) || action.Target.Kind != ValueKind::ObjectReference) return;
    if (target.Number != variable_) return;
    if (carousel_.Find(group_, target.GroupIdentifier.View()) == &owner_) tests.push_back(&action);
  }

  std::vector<const ElementaryAction*> tests;

 private:
  const Carousel& carousel_;
  const CheckedGroup& group_;
  const CheckedGroup& owner_;
  std::int32_t variable_;
};

class EndlessTestCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type != ItemType::Link) return;
    const auto& link = static_cast<const Link&>(record);
    if (link.Condition.EventType != EventType::TestEvent) return;
    const ObjectReference& variable = link.Condition.EventSource;
    owner_ = carousel_.Find(group_, variable.GroupIdentifier.View());
    if (owner_ == nullptr) return;
    for (const ElementaryAction& action : link.LinkEffect) {
      if (IsTest(action) && IsAbout(action.Target, variable)) {
        if (MayRepeat(link, action) && !MayOthersChangeResult(link)) {
          ReportAt(":LinkEffect", Rule::EndlessTest,
                   "tests variable " + std::to_string(variable.Number) +
                       " again in reaction to its test, with the same result, so it never ends");
        }
        return;
      }
      if (MayChangeResult(action, link)) return;
    }
  }

 private:
  // Whether the value refers to that object of the variable's group.
  [[nodiscard]] bool IsAbout(const GenericValue& value, const ObjectReference& object) const {
    return IsReference(value) && value.Reference.Number == object.Number &&
           carousel_.Find(group_, value.Reference.GroupIdentifier.View()) == owner_;
  }

  // Whether the action may change the result of the next test.
  [[nodiscard]] bool MayChangeResult(const ElementaryAction& action, const Link& link) const {
    if (!IsQuiet(ActionOf(action))) return true;
    if (action.Target.Kind == ValueKind::IndirectReference) return true;
    return IsAbout(action.Target, link.Condition.EventSource);
  }

  // Whether another link that the same result runs may change the next one.
  [[nodiscard]] bool MayOthersChangeResult(const Link& link) const {
    for (std::size_t i = 0; i < carousel_.Size(); ++i) {
      const CheckedGroup& group = carousel_.At(i);
      for (const auto& [number, object] : group.objects) {
        if (object.type != ItemType::Link || object.record == &link) continue;
        const auto& other = static_cast<const Link&>(*object.record);
        if (!WaitsForSameResult(group, other, link)) continue;
        for (const ElementaryAction& action : other.LinkEffect) {
          if (MayChangeResult(action, link)) return true;
        }
      }
    }
    return false;
  }

  [[nodiscard]] bool WaitsForSameResult(const CheckedGroup& group, const Link& other,
                                        const Link& link) const {
    const ObjectReference& source = other.Condition.EventSource;
    return other.Condition.EventType == EventType::TestEvent &&
           source.Number == link.Condition.EventSource.Number &&
           (other.Condition.EventData.Kind == ValueKind::None ||
            link.Condition.EventData.Kind == ValueKind::None ||
            other.Condition.EventData == link.Condition.EventData) &&
           carousel_.Find(group, source.GroupIdentifier.View()) == owner_;
  }

  // Whether the test `again` of a link, which it reacts to, may have the result that the link waits
  // for. Undecided, and thus false, for an operand that actions may change.
  [[nodiscard]] bool MayRepeat(const Link& link, const ElementaryAction& again) const {
    const GenericValue& data = link.Condition.EventData;
    if (data.Kind == ValueKind::None) return true;
    if (data.Kind != ValueKind::Boolean) return false;
    ConstantTest test;
    if (!ReadTest(again, test)) return false;
    TestCollector others(carousel_, group_, *owner_, link.Condition.EventSource.Number);
    Walk(group_.Group(), others);
    std::erase(others.tests, &again);
    if (others.tests.empty()) return true;
    return std::ranges::any_of(others.tests, [&](const ElementaryAction* action) {
      ConstantTest other;
      return ReadTest(*action, other) && MayBothHave(data.Boolean, test, other);
    });
  }

  const CheckedGroup* owner_ = nullptr;  // of the variable
};

}  // namespace

void CheckEndlessTests(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  EndlessTestCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
