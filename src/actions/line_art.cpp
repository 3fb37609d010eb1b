// The attributes with which line art is drawn. Setting one does not redraw; it applies to later
// drawing.

#include <utility>

#include "actions/behaviours.h"
#include "objects/messages.h"

namespace korvel {
namespace {

LineArt& TargetOf(const Arguments& arguments) { return arguments.target.As<LineArt>(); }

Status SetColour(const Arguments& arguments, ColourValue& colour, Message message) {
  if (!TargetOf(arguments).AvailabilityStatus) return Refuse(Reason::NotAvailable);
  const Status status = ReadColour(arguments, colour);
  if (status == Status::Refused) Say(message);
  return status;
}

template <class Number> Status SetNumber(const Arguments& arguments, Number& attribute) {
  if (!TargetOf(arguments).AvailabilityStatus) return Refuse(Reason::NotAvailable);
  attribute = static_cast<Number>(arguments.Integer(0));
  return Status::Done;
}

Status AnswerColour(const Arguments& arguments, const ColourValue& colour) {
  if (!TargetOf(arguments).AvailabilityStatus) return Refuse(Reason::NotAvailable);
  switch (colour.Kind) {
  case ValueKind::Integer: return AnswerInteger(arguments, 0, colour.Index);
  case ValueKind::OctetString:
    return AnswerOctets(arguments, 0, colour.Absolute.View(), Message::NoMemoryForOctets);
  default: return Status::Refused;
  }
}

Status AnswerNumber(const Arguments& arguments, std::int32_t attribute) {
  if (!TargetOf(arguments).AvailabilityStatus) return Refuse(Reason::NotAvailable);
  return AnswerInteger(arguments, 0, attribute);
}

}  // namespace

Status ReadColour(const Arguments& arguments, ColourValue& colour) {
  GenericValue value;
  if (!ReadValue(arguments, *arguments.given->At(0), ContentLoading::Fetch, value)) {
    return Status::Refused;
  }
  if (value.Kind != ValueKind::Integer && value.Kind != ValueKind::OctetString) {
    return Status::Refused;
  }
  colour.Kind = value.Kind;
  colour.Index = value.Integer;
  colour.Absolute = std::move(value.Octets);
  return Status::Done;
}

Status SetLineColour(const Arguments& arguments) {
  return SetColour(arguments, TargetOf(arguments).RefLineColour, Message::SetLineColourError);
}

Status SetFillColour(const Arguments& arguments) {
  return SetColour(arguments, TargetOf(arguments).RefFillColour, Message::SetFillColourError);
}

Status SetLineWidth(const Arguments& arguments) {
  return SetNumber(arguments, TargetOf(arguments).LineWidth);
}

Status SetLineStyle(const Arguments& arguments) {
  return SetNumber(arguments, TargetOf(arguments).LineStyle);
}

Status GetLineColour(const Arguments& arguments) {
  return AnswerColour(arguments, TargetOf(arguments).RefLineColour);
}

Status GetFillColour(const Arguments& arguments) {
  return AnswerColour(arguments, TargetOf(arguments).RefFillColour);
}

Status GetLineWidth(const Arguments& arguments) {
  return AnswerNumber(arguments, TargetOf(arguments).LineWidth);
}

Status GetLineStyle(const Arguments& arguments) {
  return AnswerNumber(arguments, static_cast<std::int32_t>(TargetOf(arguments).LineStyle));
}

}  // namespace korvel
