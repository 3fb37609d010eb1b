// Calls resident programs. A program has finished when its action ends; a forked one also raises
// AsynchStopped.
#include "actions/behaviours.h"

namespace korvel {
namespace {

ResidentProgram& TargetOf(const Arguments& arguments) {
  return arguments.target.As<ResidentProgram>();
}

// Runs the target with the parameters after the success variable, and sets that variable.
Status RunTargetProgram(const Arguments& arguments) {
  const FoundObject success = Find(arguments, arguments.Reference(0));
  if (success.type != ItemType::BooleanVariable) return Status::Refused;
  const ProgramParameters parameters{arguments.given->begin() + 1, arguments.given->end()};
  const Status status =
      RunResidentProgram(TargetOf(arguments).Name.View(), parameters, arguments.groupName);
  (void)SetValue(success.As<BooleanVariable>(), status == Status::Done);
  return status == Status::Failure ? status : Status::Done;
}

}  // namespace

Status CallProgram(const Arguments& arguments) { return RunTargetProgram(arguments); }

Status ForkProgram(const Arguments& arguments) {
  const Status status = RunTargetProgram(arguments);
  return status == Status::Done ? RaiseFrom(TargetOf(arguments), EventType::AsynchStopped) : status;
}

}  // namespace korvel
