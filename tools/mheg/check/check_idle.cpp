// Finds objects, attributes and actions without any effect in this engine.
#include "mheg/check/check.h"
#include "mheg/check/idle.h"

namespace mheg {
namespace {

using namespace korvel;

class IdleCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (Contains(kIdleClasses, type)) {
      return ReportAt("", Rule::IdleClass, ClassName(type) + " has no effect");
    }
    VisitIngredientClass(
        type, [&]<class Record>() { CheckAttributes(type, static_cast<const Record&>(record)); });
  }

  void VisitAction(const ElementaryAction& action) override {
    const ActionRow& row = *FindAction(action.ActionType);
    if (!IsIdleAction(row)) return;
    Report(Rule::IdleAction, std::string(row.name) + " is not performed");
  }

  // Reports attributes whose values differ from those of omitted attributes.
  template <class Record> void CheckAttributes(ItemType type, const Record& record) {
    const Record construction{};
    ForEachWrittenAttribute<Record>(
        [&](const char* keyword, const Form& /*form*/, const auto& field, const auto& omitted) {
          if (field == omitted || !IsIdleAttribute(type, keyword)) return;
          ReportAt(keyword, Rule::IdleAttribute,
                   std::string(keyword) + " of " + ClassName(type) + " has no effect");
        },
        record, construction);
  }
};

}  // namespace

void CheckIdle(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  IdleCheck check(carousel, group, findings);
  Walk(group.Group(), check);
  VisitGroup(group.Group(),
             [&](const auto& record) { check.CheckAttributes(group.Group().type, record); });
}

}  // namespace mheg
