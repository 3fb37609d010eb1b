// Reading the text of text objects, and the attributes with which it is drawn.
#include <utility>

#include "actions/behaviours.h"
#include "objects/messages.h"

namespace korvel {
namespace {

Text& TargetOf(const Arguments& arguments) { return arguments.target.As<Text>(); }

}  // namespace

// The content as decoded, even if the object shows other data now.
Status GetTextContent(const Arguments& arguments) {
  return AnswerOctets(arguments, 0, TargetOf(arguments).OriginalContent.Data.TextView(),
                      Message::NoMemoryForTextVariable);
}

// The text that the object shows. Every call prints its length to standard output.
Status GetTextData(const Arguments& arguments) {
  const FoundObject variable = Find(arguments, arguments.Reference(0));
  if (variable.type != ItemType::OctetStringVariable) return Status::Refused;
  const std::string_view text = TargetOf(arguments).TextData.View();
  Say(Message::TextLength, static_cast<int>(text.size()));
  return AnswerOctets(arguments, 0, text, Message::NoMemoryForTextVariable);
}

// A font name, or a Font object.
Status SetFontRef(const Arguments& arguments) {
  GenericValue value;
  if (!ReadValue(arguments, *arguments.given->At(0), ContentLoading::Fetch, value)) {
    return Status::Refused;
  }
  if (value.Kind != ValueKind::OctetString && value.Kind != ValueKind::ObjectReference) {
    return Status::Refused;
  }
  FontBody& font = TargetOf(arguments).Font;
  font.Kind = value.Kind;
  font.Name = std::move(value.Octets);
  font.Reference = std::move(value.Reference);
  return Status::Done;
}

Status SetFontAttributes(const Arguments& arguments) {
  return TargetOf(arguments).FontAttributes.Assign(arguments.Octets(0)) ? Status::Done
                                                                        : Status::Failure;
}

Status SetTextColour(const Arguments& arguments) {
  return ReadColour(arguments, TargetOf(arguments).TextColour);
}

Status SetBackgroundColour(const Arguments& arguments) {
  return ReadColour(arguments, TargetOf(arguments).BackgroundColour);
}

}  // namespace korvel
