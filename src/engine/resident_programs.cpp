// The table of resident programs and their dispatcher. The dispatcher reads every input and finds
// every output before the program runs, so that a failed call writes nothing.
#include "engine/resident_programs.h"

#include <string_view>
#include <utility>

#include "actions/actions.h"
#include "engine/engine.h"
#include "objects/messages.h"

namespace korvel {
namespace {

// One place of a program's signature.
enum class Slot : std::uint8_t {
  None,  // past the last parameter
  BooleanIn,
  IntegerIn,
  TextIn,
  ReferenceIn,
  BooleanOut,
  IntegerOut,
  TextOut,
  ReferenceOut,
  ContentOut,
};

struct ProgramRow {
  std::string_view name;
  std::array<Slot, kMostProgramParameters> slots;
  bool (*run)(ProgramValues& values);
};

using enum Slot;

constexpr ProgramRow kPrograms[] = {
    {"GCD", {IntegerOut, IntegerOut}, GetCurrentDate},
    {"FDa", {TextIn, IntegerIn, IntegerIn, TextOut}, FormatDate},
    {"GDW", {IntegerIn, IntegerOut}, GetDayOfWeek},
    {"Rnd", {IntegerIn, IntegerOut}, GetRandomNumber},
    {"CTC", {TextIn, ContentOut}, CastToContentReference},
    {"CTO", {TextIn, IntegerIn, ReferenceOut}, CastToObjectReference},
    {"GSL", {TextIn, IntegerOut}, GetStringLength},
    {"GSS", {TextIn, IntegerIn, IntegerIn, TextOut}, GetSubstring},
    {"SSS", {TextIn, IntegerIn, TextIn, IntegerOut}, SearchSubstring},
    {"SES", {TextIn, IntegerIn, TextIn, TextOut, IntegerOut}, SearchAndExtractSubstring},
    {"GSI", {TextIn, IntegerOut}, GetServiceIndex},
    {"BSI",
     {IntegerIn, IntegerOut, IntegerOut, IntegerOut, IntegerOut},
     GetBasicServiceInformation},
    {"TIn", {IntegerIn}, TuneToIndex},
    {"TII", {IntegerIn}, SetTuneInfo},
    {"GBI", {BooleanOut, TextOut}, GetBootInfo},
    {"CCR", {TextIn, BooleanOut, ContentOut}, CheckContentReference},
    {"CGR", {ReferenceIn, BooleanOut, ReferenceOut}, CheckGroupReference},
    {"VTG", {}, DoNothing},
    {"SWA", {IntegerIn}, SetWidescreenAlignment},
    {"GDA", {IntegerOut}, GetDisplayAspectRatio},
    {"CIS", {}, DoNothing},
    {"SSM", {BooleanIn}, SetSubtitleMode},
    {"WAI", {TextOut}, WhoAmI},
    {"DBG", {}, DoNothing},
};

const ProgramRow* FindProgram(std::string_view name) {
  for (const ProgramRow& row : kPrograms) {
    if (row.name == name) return &row;
  }
  return nullptr;
}

Status ReportType() {
  Say(Message::GetItemTypeError);
  return Status::Failure;
}

constexpr bool IsInput(Slot slot) {
  return slot == BooleanIn || slot == IntegerIn || slot == TextIn || slot == ReferenceIn;
}

// The class of the variables that a slot accepts.
constexpr ItemType ClassOf(Slot slot) {
  switch (slot) {
  case BooleanIn:
  case BooleanOut: return ItemType::BooleanVariable;
  case IntegerIn:
  case IntegerOut: return ItemType::IntegerVariable;
  case TextIn:
  case TextOut: return ItemType::OctetStringVariable;
  case ReferenceIn:
  case ReferenceOut: return ItemType::ObjectRefVariable;
  case ContentOut: return ItemType::ContentRefVariable;
  case None: break;
  }
  return ItemType::None;
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

  Status Read(Slot slot, std::size_t place) {
    GenericValue& value = values_[place];
    if (given_[place].Kind == KindOf(ClassOf(slot))) {
      return Copy(given_[place], value) ? Status::Done : Status::Failure;
    }
    const FoundObject variable = FindVariable(place);
    if (variable.type != ClassOf(slot)) return Status::Refused;
    return CopyValue(variable, value) ? Status::Done : Status::Failure;
  }

  Status FindOutput(Slot slot, std::size_t place) {
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
  if (!row->run(call.Values())) return Status::Failure;
  call.Write();
  return Status::Done;
}

}  // namespace korvel
