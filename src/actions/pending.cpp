// Behaviours whose own files follow.
#include "actions/behaviours.h"

namespace korvel {

Status CallProgram(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ForkProgram(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status GetEngineSupport(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status ReadPersistent(const Arguments& /*arguments*/) noexcept { return Status::Refused; }
Status StorePersistent(const Arguments& /*arguments*/) noexcept { return Status::Refused; }

}  // namespace korvel
