// Entry fields: the entry point, the overwrite mode, and input from the viewer's keys.
#include <algorithm>
#include <utility>

#include "actions/behaviours.h"
#include "objects/limits.h"
#include "objects/messages.h"

namespace korvel {
namespace {

EntryField& TargetOf(const Arguments& arguments) { return arguments.target.As<EntryField>(); }

std::size_t EntryPlace(const EntryField& field) {
  return static_cast<std::size_t>(field.EntryPoint);
}

// The entry point, limited to the end of the text, so that a new character leaves no gap.
std::size_t PlaceInText(const EntryField& field) {
  const std::size_t length = field.TextData.Length();
  return std::min(EntryPlace(field), length);
}

// Builds the text with the character at `place`, replacing `replaced` bytes (0 or 1). Fills a gap
// after the end of the text with zero bytes. Allocates once, because the gap may be millions of
// bytes long. False if memory runs out.
bool MakeText(std::string_view text, std::size_t place, std::size_t replaced, char character,
              OctetString& made) {
  if (place >= kLongestString) return false;
  const std::string_view before = text.substr(0, place);
  const std::size_t next = place + replaced;
  const std::string_view after = next < text.size() ? text.substr(next) : std::string_view{};
  if (!made.AssignZeros(place + 1 + after.size())) return false;
  char* bytes = made.MutableBytes();
  std::copy(before.begin(), before.end(), bytes);
  bytes[place] = character;
  std::copy(after.begin(), after.end(), bytes + place + 1);
  return true;
}

// Writes the character at `place`, replacing `replaced` bytes (0 or 1), and moves the entry point
// after it.
Status Write(EntryField& field, std::size_t place, std::size_t replaced, char character) {
  const std::string_view text = field.TextData.View();
  OctetString made;
  if (!MakeText(text, place, replaced, character, made)) {
    Say(text.empty() ? Message::NoMemoryForTextData : Message::NoMemoryForLongerText);
    return Status::Failure;
  }
  field.TextData = std::move(made);
  field.EntryPoint = static_cast<std::int32_t>(place + 1);
  return RedrawIfRunning(field);
}

Status Insert(EntryField& field, char character) {
  return Write(field, PlaceInText(field), 0, character);
}

Status RefuseCharacter(EntryField& field) { return RaiseFrom(field, EventType::EntryFieldFull); }

Status EnterByInserting(EntryField& field, char character) {
  if (field.MaxLength == 0) {
    const bool isLineEnd = character == '\r' || character == '\n';
    return isLineEnd ? EndInteraction(field, field) : Insert(field, character);
  }
  // One place stays free: a field of length 4 accepts 3 characters.
  const auto maxLength = static_cast<std::size_t>(field.MaxLength);
  if (field.TextData.Length() + 1 >= maxLength) return RefuseCharacter(field);
  return Insert(field, character);
}

Status EnterByOverwriting(EntryField& field, char character) {
  if (field.MaxLength == 0) return Write(field, PlaceInText(field), 1, character);
  if (field.EntryPoint >= field.MaxLength) return RefuseCharacter(field);
  return Write(field, EntryPlace(field), 1, character);
}

bool TakesDigit(const EntryField& field, char digit) {
  switch (field.InputType) {
  case InputType::Alpha: return false;
  case InputType::Listed: return field.CharList.View().find(digit) != std::string_view::npos;
  default: return true;  // including unknown input types
  }
}

// Moves the entry point by one place within the text.
Status MoveEntryPoint(EntryField& field, int step) {
  const auto place = static_cast<std::int32_t>(PlaceInText(field));
  const auto length = static_cast<std::int32_t>(field.TextData.Length());
  field.EntryPoint = std::clamp(place + step, 0, length);
  return RedrawIfRunning(field);
}

Status Complete(EntryField& field) {
  const bool completesByCharacter = !field.OverwriteMode && field.MaxLength == 0;
  return completesByCharacter ? EnterCharacter(field, '\r') : EndInteraction(field, field);
}

}  // namespace

Status EnterCharacter(EntryField& field, char character) {
  if (field.MaxLength < 0) return Status::Refused;
  return field.OverwriteMode ? EnterByOverwriting(field, character)
                             : EnterByInserting(field, character);
}

bool TakeKey(EntryField& field, std::int32_t key, Status& result) {
  if (IsDigitKey(key)) {
    const char digit = static_cast<char>('0' + (key - keys::kDigit0));
    if (!TakesDigit(field, digit)) return false;
    result = EnterCharacter(field, digit);
    return true;
  }
  switch (key) {
  case keys::kLeft: result = MoveEntryPoint(field, -1); return true;
  case keys::kRight: result = MoveEntryPoint(field, 1); return true;
  case keys::kSelect: result = Complete(field); return true;
  case keys::kCancel: result = EndInteraction(field, field); return true;
  default: return false;
  }
}

Status GetEntryPoint(const Arguments& arguments) {
  return AnswerInteger(arguments, 0, TargetOf(arguments).EntryPoint);
}

// The entry point may be any distance beyond the end of the text.
Status SetEntryPoint(const Arguments& arguments) {
  if (arguments.Integer(0) < 0) return Status::Refused;
  TargetOf(arguments).EntryPoint = arguments.Integer(0);
  return RedrawIfRunning(TargetOf(arguments));
}

Status GetOverwriteMode(const Arguments& arguments) {
  return AnswerBoolean(arguments, 0, TargetOf(arguments).OverwriteMode);
}

Status SetOverwriteMode(const Arguments& arguments) {
  TargetOf(arguments).OverwriteMode = arguments.Boolean(0);
  return Status::Done;
}

}  // namespace korvel
