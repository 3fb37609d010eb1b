// The functions of the resident programs and their dispatcher. The dispatcher reads every input and
// finds every output before the program runs, so that a failed call writes nothing.
#include "engine/resident_programs.h"

#include <string_view>
#include <utility>

#include "actions/actions.h"
#include "engine/engine.h"
#include "objects/messages.h"

namespace korvel {
namespace {

using enum ProgramSlot;

struct Program {
  std::string_view name;
  bool (*run)(ProgramValues& values);
};

// In the order of the table.
constexpr std::array<Program, program_rows::kPrograms.size()> kFunctions = {{
    {"GCD", GetCurrentDate},
    {"FDa", FormatDate},
    {"GDW", GetDayOfWeek},
    {"Rnd", GetRandomNumber},
    {"CTC", CastToContentReference},
    {"CTO", CastToObjectReference},
    {"GSL", GetStringLength},
    {"GSS", GetSubstring},
    {"SSS", SearchSubstring},
    {"SES", SearchAndExtractSubstring},
    {"GSI", GetServiceIndex},
    {"BSI", GetBasicServiceInformation},
    {"TIn", TuneToIndex},
    {"TII", SetTuneInfo},
    {"GBI", GetBootInfo},
    {"CCR", CheckContentReference},
    {"CGR", CheckGroupReference},
    {"VTG", DoNothing},
    {"SWA", SetWidescreenAlignment},
    {"GDA", GetDisplayAspectRatio},
    {"CIS", DoNothing},
    {"SSM", SetSubtitleMode},
    {"WAI", WhoAmI},
    {"DBG", DoNothing},
}};

consteval bool AreInOrderOfTable() {
  for (std::size_t i = 0; i < kFunctions.size(); ++i) {
    if (kFunctions[i].name != program_rows::kPrograms[i].name) return false;
  }
  return true;
}
static_assert(AreInOrderOfTable());

Status ReportType() {
  Say(Message::GetItemTypeError);
  return Status::Failure;
}

// One call: the program's parameters as given, the values that it works on, and the variables of
// its outputs.
class ProgramCall {
 public:
  ProgramCall(ProgramParameters given, std::string_view groupName)
      : given_(given), groupName_(groupName) {}

  // Reads the inputs and finds the outputs.
  Status Open(const ProgramRow& row) {
    for (std::size_t place = 0; place < row.slots.size() && row.slots[place] != None; ++place) {
      if (place >= given_.size()) return Status::Refused;
      const Status status = IsInput(row.slots[place]) ? Read(row.slots[place], place)
                                                      : FindOutput(row.slots[place], place);
      if (status != Status::Done) return status;
    }
    return Status::Done;
  }

  [[nodiscard]] ProgramValues& Values() { return values_; }

  // Writes the results. A variable that is not available keeps its value.
  void Write() {
    for (std::size_t place = 0; place < outputs_.size(); ++place) {
      (void)VisitVariable(outputs_[place], Status::Refused, [&](auto& variable) {
        auto& result = FieldOf(values_[place], ValueOf(variable));
        return SetValue(variable, std::move(result));
      });
    }
  }

 private:
  // Variables are searched in the application first, even if a scene calls the program.
  [[nodiscard]] FoundObject FindVariable(std::size_t place) const {
    const GenericValue& given = given_[place];
    const bool isReference =
        given.Kind == ValueKind::ObjectReference || given.Kind == ValueKind::IndirectReference;
    if (!isReference) return {};
    const OctetString& group = given.Reference.GroupIdentifier;
    return FindObject(Scope::ApplicationFirst, group.IsPresent() ? group.View() : groupName_,
                      given.Reference.Number);
  }

  Status Read(ProgramSlot slot, std::size_t place) {
    GenericValue& value = values_[place];
    if (given_[place].Kind == KindOf(ClassOf(slot))) {
      return Copy(given_[place], value) ? Status::Done : Status::Failure;
    }
    const FoundObject variable = FindVariable(place);
    if (variable.type != ClassOf(slot)) return Status::Refused;
    return CopyValue(variable, value) ? Status::Done : Status::Failure;
  }

  Status FindOutput(ProgramSlot slot, std::size_t place) {
    const FoundObject variable = FindVariable(place);
    if (!variable) return Status::Refused;
    if (variable.type != ClassOf(slot)) return ReportType();
    outputs_[place] = variable;
    return Status::Done;
  }

  ProgramParameters given_;
  std::string_view groupName_;
  ProgramValues values_;
  std::array<FoundObject, kMostProgramParameters> outputs_;
};

}  // namespace

Status RunResidentProgram(std::string_view name, ProgramParameters parameters,
                          std::string_view groupName) {
  const ProgramRow* row = FindProgram(name);
  if (row == nullptr) return ReportType();
  ProgramCall call(parameters, groupName);
  const Status status = call.Open(*row);
  if (status != Status::Done) return status;
  const auto place = static_cast<std::size_t>(row - program_rows::kPrograms.data());
  if (!kFunctions[place].run(call.Values())) return Status::Failure;
  call.Write();
  return Status::Done;
}

}  // namespace korvel
