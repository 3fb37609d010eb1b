// New content for an ingredient: included in the action, or named by it. Text is read from
// it immediately; a bitmap is drawn from it at the next redraw.
#include <utility>

#include "actions/behaviours.h"
#include "objects/messages.h"

namespace korvel {
namespace {

// An optional number after a content reference.
Status ReadNumber(const Arguments& arguments, std::size_t place, std::int32_t& number) {
  GenericValue value;
  const Status status =
      ReadValueOfKind(arguments, arguments.given->At(place), ValueKind::Integer, value);
  if (status == Status::Done && value.Kind == ValueKind::Integer) number = value.Integer;
  return status;
}

// Reads the new content. Reading a content reference variable also loads its content, as always;
// the object receives the path.
Status ReadContent(const Arguments& arguments, ContentBody& content) {
  GenericValue value;
  Status status = ReadValue(arguments, *arguments.given->At(0), ContentLoading::Fetch, value);
  if (status != Status::Done) return status;
  content.IsReferenced = value.Kind == ValueKind::ContentReference;
  if (!content.IsReferenced && value.Kind != ValueKind::OctetString) return Status::Refused;
  content.Data = std::move(value.Octets);
  if (!content.IsReferenced) return Status::Done;
  status = ReadNumber(arguments, 1, content.Size);
  return status == Status::Done ? ReadNumber(arguments, 2, content.CachePriority) : status;
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
  const Status status = ReadContent(arguments, content);
  if (status != Status::Done) return status;
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
