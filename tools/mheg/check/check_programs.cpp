// Finds resident programs that do not exist, and calls whose parameters differ from the program's
// signature.
#include <algorithm>

#include "actions/actions.h"
#include "mheg/check/check.h"
#include "objects/program_table.h"

namespace mheg {
namespace {

using namespace korvel;

class ProgramCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type != ItemType::ResidentProgram) return;
    const std::string_view name = static_cast<const ResidentProgram&>(record).Name.View();
    if (FindProgram(name) != nullptr) return;
    ReportAt(":Name", Rule::UnknownProgram,
             "there is no resident program \"" + std::string(name) + "\"");
  }

  void VisitAction(const ElementaryAction& action) override {
    if (ActionOf(action) != Action::Call && ActionOf(action) != Action::Fork) return;
    const CheckedObject* object = TargetOf(action, SetOf(ItemType::ResidentProgram));
    if (object == nullptr) return;
    const auto& program = static_cast<const ResidentProgram&>(*object->record);
    const ProgramRow* row = FindProgram(program.Name.View());
    if (row != nullptr && !action.Parameters.IsEmpty()) CheckCall(*row, action.Parameters);
  }

 private:
  void CheckCall(const ProgramRow& row, const List<GenericValue>& parameters) {
    CheckVariable(row, "the success", parameters[0], ItemType::BooleanVariable);
    const auto wanted = static_cast<std::size_t>(
        std::find(row.slots.begin(), row.slots.end(), ProgramSlot::None) - row.slots.begin());
    const std::size_t given = parameters.Size() - 1;
    const bool takesAnything = wanted == 0;
    if (given < wanted || (given > wanted && !takesAnything)) {
      ReportCall(row,
                 "takes " + std::to_string(wanted) + " parameters, not " + std::to_string(given));
    }
    for (std::size_t i = 0; i < std::min(given, wanted); ++i) {
      CheckParameter(row, i + 1, parameters[i + 1], row.slots[i]);
    }
  }

  void CheckParameter(const ProgramRow& row, std::size_t position, const GenericValue& value,
                      ProgramSlot slot) {
    const ItemType wanted = ClassOf(slot);
    if (IsInput(slot) && value.Kind == KindOf(wanted)) return;
    CheckVariable(row, (IsInput(slot) ? "input " : "output ") + std::to_string(position), value,
                  wanted);
  }

  // Skips variables that do not exist, because CheckReferences reports them.
  void CheckVariable(const ProgramRow& row, const std::string& what, const GenericValue& value,
                     ItemType wanted) {
    const ItemType type =
        IsReference(value) ? carousel_.ClassOf(group_, value.Reference) : ItemType::None;
    if (type == wanted || (IsReference(value) && type == ItemType::None)) return;
    const std::string given =
        IsReference(value)
            ? "object " + std::to_string(value.Reference.Number) + " is of class " + ClassName(type)
            : "the parameter is of another type";
    ReportCall(row, "wants " + ClassName(wanted) + " for " + what + ", but " + given);
  }

  void ReportCall(const ProgramRow& row, const std::string& text) {
    Report(Rule::ProgramParameters, "program " + std::string(row.name) + " " + text);
  }
};

}  // namespace

void CheckPrograms(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  ProgramCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
