// Finds questions without end: a link that waits for an answer about a variable and asks about it
// again, although nothing changes in between.
#include <algorithm>

#include "actions/actions.h"
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

// Whether an action raises no event and leaves the variable of a question and the link as they are,
// unless it refers to one of them.
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

bool IsTest(const ElementaryAction& action) {
  return action.ActionType == static_cast<int>(Action::TestVariable);
}

bool IsReference(const GenericValue& value) {
  return value.Kind == ValueKind::ObjectReference || value.Kind == ValueKind::IndirectReference;
}

// A question whose operator and operand are constant integers.
struct Question {
  Comparison comparison{};
  std::int64_t constant = 0;

  [[nodiscard]] bool Answer(std::int64_t value) const {
    return IsTrue(value, comparison, constant);
  }
};

bool ReadQuestion(const ElementaryAction& action, Question& question) {
  const GenericValue* comparison = action.Parameters.At(0);
  const GenericValue* operand = action.Parameters.At(1);
  const bool isConstant = comparison != nullptr && operand != nullptr &&
                          comparison->Kind == ValueKind::Integer &&
                          operand->Kind == ValueKind::Integer;
  if (!isConstant) return false;
  question = {static_cast<Comparison>(comparison->Integer), operand->Integer};
  return true;
}

// Whether a value exists for which both questions have that answer. It is enough to try the
// constants and their neighbours.
bool MayBothAnswer(const Question& one, const Question& other, bool answer) {
  for (const std::int64_t constant : {one.constant, other.constant}) {
    for (const std::int64_t value : {constant - 1, constant, constant + 1}) {
      if (one.Answer(value) == answer && other.Answer(value) == answer) return true;
    }
  }
  return false;
}

// Collects the questions of a group about one variable.
class QuestionCollector : public GroupVisitor {
 public:
  QuestionCollector(const Carousel& carousel, const CheckedGroup& group, const CheckedGroup& owner,
                    std::int32_t variable)
      : carousel_(carousel), group_(group), owner_(owner), variable_(variable) {}

  void VisitAction(const ElementaryAction& action) override {
    const ObjectReference& target = action.Target.Reference;
    if (!IsTest(action) || action.Target.Kind != ValueKind::ObjectReference) return;
    if (target.Number != variable_) return;
    if (carousel_.Find(group_, target.GroupIdentifier.View()) == &owner_) asked.push_back(&action);
  }

  std::vector<const ElementaryAction*> asked;

 private:
  const Carousel& carousel_;
  const CheckedGroup& group_;
  const CheckedGroup& owner_;
  std::int32_t variable_;
};

class QuestionCheck : public CheckVisitor {
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
        if (MayRepeat(link, action) && !MayBeDisturbed(link)) {
          ReportAt(":LinkEffect", Rule::EndlessQuestion,
                   "asks about variable " + std::to_string(variable.Number) +
                       " in the answer about it, and the answer is the same without end");
        }
        return;
      }
      if (MayDisturb(action, link)) return;
    }
  }

 private:
  // Whether the value refers to that object of the question's group.
  [[nodiscard]] bool IsAbout(const GenericValue& value, const ObjectReference& object) const {
    return IsReference(value) && value.Reference.Number == object.Number &&
           carousel_.Find(group_, value.Reference.GroupIdentifier.View()) == owner_;
  }

  // Whether the action may change the next answer.
  [[nodiscard]] bool MayDisturb(const ElementaryAction& action, const Link& link) const {
    if (!IsQuiet(static_cast<Action>(action.ActionType))) return true;
    if (action.Target.Kind == ValueKind::IndirectReference) return true;
    return IsAbout(action.Target, link.Condition.EventSource);
  }

  // Whether another link that the same answer runs may change the next one.
  [[nodiscard]] bool MayBeDisturbed(const Link& link) const {
    for (std::size_t i = 0; i < carousel_.Size(); ++i) {
      const CheckedGroup& group = carousel_.At(i);
      for (const auto& [number, object] : group.objects) {
        if (object.type != ItemType::Link || object.record == &link) continue;
        const auto& other = static_cast<const Link&>(*object.record);
        if (!IsForSameAnswer(group, other, link)) continue;
        for (const ElementaryAction& action : other.LinkEffect) {
          if (MayDisturb(action, link)) return true;
        }
      }
    }
    return false;
  }

  [[nodiscard]] bool IsForSameAnswer(const CheckedGroup& group, const Link& other,
                                     const Link& link) const {
    const ObjectReference& source = other.Condition.EventSource;
    return other.Condition.EventType == EventType::TestEvent &&
           source.Number == link.Condition.EventSource.Number &&
           (other.Condition.EventData.Kind == ValueKind::None ||
            link.Condition.EventData.Kind == ValueKind::None ||
            other.Condition.EventData == link.Condition.EventData) &&
           carousel_.Find(group, source.GroupIdentifier.View()) == owner_;
  }

  // Whether the question is asked again for its own answer. A question with an operand that
  // actions may change is not decided.
  [[nodiscard]] bool MayRepeat(const Link& link, const ElementaryAction& again) const {
    const GenericValue& data = link.Condition.EventData;
    if (data.Kind == ValueKind::None) return true;
    if (data.Kind != ValueKind::Boolean) return false;
    Question question;
    if (!ReadQuestion(again, question)) return false;
    QuestionCollector others(carousel_, group_, *owner_, link.Condition.EventSource.Number);
    Walk(group_.Group(), others);
    std::erase(others.asked, &again);
    if (others.asked.empty()) return true;
    return std::ranges::any_of(others.asked, [&](const ElementaryAction* asked) {
      Question other;
      return ReadQuestion(*asked, other) && MayBothAnswer(question, other, data.Boolean);
    });
  }

  const CheckedGroup* owner_ = nullptr;  // of the variable
};

}  // namespace

void CheckQuestions(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  QuestionCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
