// New content for an ingredient: included in the action, or named by it. Text is read from
// it immediately; a bitmap is drawn from it at the next redraw.
#include <utility>

#include "actions/behaviours.h"
#include "objects/messages.h"

namespace korvel {
namespace {

// An optional number after a content reference.
bool ReadNumber(const Arguments& arguments, std::size_t place, std::int32_t& number) {
  GenericValue value;
  const GenericValue* given = arguments.given->At(place);
  if (!ReadValueOfKind(arguments, given, ValueKind::Integer, value)) return false;
  if (value.Kind == ValueKind::Integer) number = value.Integer;
  return true;
}

// Reads the new content. Reading a content reference variable also loads its content, as always;
// the object receives the path.
bool ReadContent(const Arguments& arguments, ContentBody& content) {
  GenericValue value;
  if (!ReadValue(arguments, *arguments.given->At(0), ContentLoading::Fetch, value)) return false;
  content.IsReferenced = value.Kind == ValueKind::ContentReference;
  if (!content.IsReferenced && value.Kind != ValueKind::OctetString) return false;
  content.Data = std::move(value.Octets);
  return !content.IsReferenced || (ReadNumber(arguments, 1, content.Size) &&
                                   ReadNumber(arguments, 2, content.CachePriority));
}

Status CopyIncludedText(Text& text) {
  const OctetString& content = text.Content.Data;
  if (!text.TextData.Assign(content.View())) {
    Say(Message::NoMemoryForTextData);
  }
  return Status::Done;
}

Status ShowText(Text& text) {
  const Status status = text.Content.IsReferenced ? FetchText(text) : CopyIncludedText(text);
  if (status == Status::Failure) return status;
  if (IsGone(text)) return Status::Replaced;
  return RedrawIfRunning(text);
}

}  // namespace

Status FetchText(Text& text) {
  OctetString bytes;
  if (ResolveGroup(text.Content.Data.TextView(), bytes) != Status::Done) {
    return RaiseEngineEvent(engineEvents::kContentReferenceError);
  }
  text.TextData = std::move(bytes);
  return Status::Done;
}

Status SetData(const Arguments& arguments) {
  ContentBody content;
  if (!ReadContent(arguments, content)) return Status::Refused;
  auto& target = arguments.target.As<Ingredient>();
  target.Content = std::move(content);
  switch (arguments.target.type) {
  case ItemType::HyperText: ForgetChosenAnchor(arguments.target.As<HyperText>()); [[fallthrough]];
  case ItemType::Text:
  case ItemType::EntryField: return ShowText(arguments.target.As<Text>());
  case ItemType::Bitmap: return RedrawIfRunning(target);
  default: return Status::Done;
  }
}

}  // namespace korvel
