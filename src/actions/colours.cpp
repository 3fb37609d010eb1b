// Reading the colours that actions give.
#include "actions/colours.h"

#include <utility>

namespace korvel {

Status ReadColour(const Arguments& arguments, ColourValue& colour) {
  GenericValue value;
  const Status status = ReadValue(arguments, *arguments.Given->At(0), ContentLoading::Fetch, value);
  if (status != Status::Done) return status;
  if (value.Kind != ValueKind::Integer && value.Kind != ValueKind::OctetString) {
    return Status::Refused;
  }
  colour.Kind = value.Kind;
  colour.Index = value.Integer;
  colour.Absolute = std::move(value.Octets);
  return Status::Done;
}

}  // namespace korvel
