// The attributes with which line art is drawn. Setting one does not redraw: it holds for what is
// painted later.
#include <cstdio>

#include "actions/answers.h"
#include "actions/behaviours.h"
#include "actions/colours.h"

namespace korvel {
namespace {

LineArt& TargetOf(const Arguments& arguments) { return arguments.Target.As<LineArt>(); }

Status SetColour(const Arguments& arguments, ColourValue& colour, const char* message) {
  if (!TargetOf(arguments).AvailabilityStatus) return Status::Refused;
  const Status status = ReadColour(arguments, colour);
  if (status == Status::Refused) std::fputs(message, stdout);
  return status;
}

template <class Number>
Status SetNumber(const Arguments& arguments, Number& attribute) {
  if (!TargetOf(arguments).AvailabilityStatus) return Status::Refused;
  attribute = static_cast<Number>(arguments.Integer(0));
  return Status::Done;
}

Status AnswerColour(const Arguments& arguments, const ColourValue& colour) {
  if (!TargetOf(arguments).AvailabilityStatus) return Status::Refused;
  switch (colour.Kind) {
  case ValueKind::Integer: return AnswerInteger(arguments, 0, colour.Index);
  case ValueKind::OctetString:
    return AnswerOctets(arguments, 0, colour.Absolute.View(),
                        "Can't allocate memory for CharVal\n");
  default: return Status::Refused;
  }
}

Status AnswerNumber(const Arguments& arguments, std::int32_t attribute) {
  if (!TargetOf(arguments).AvailabilityStatus) return Status::Refused;
  return AnswerInteger(arguments, 0, attribute);
}

}  // namespace

Status SetLineColour(const Arguments& arguments) {
  return SetColour(arguments, TargetOf(arguments).RefLineColour,
                   "MHEG_DYNAMICLINEART_SetLineColour Error\n");
}

Status SetFillColour(const Arguments& arguments) {
  return SetColour(arguments, TargetOf(arguments).RefFillColour,
                   "MHEG_DYNAMICLINEART_SetFillColour Error\n");
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
