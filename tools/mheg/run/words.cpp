// Names objects by their class, number and group, and writes values with the writer of the
// notation.
#include "mheg/run/words.h"

#include <iterator>
#include <vector>

#include "actions/actions.h"
#include "engine/engine.h"
#include "objects/action_table.h"
#include "objects/class_tables.h"
#include "textual/text_writer.h"

namespace mheg {
namespace {

using korvel::Reason;

// The text that `write` writes with a TextWriter.
template <class Write> std::string Written(Write&& write) {
  korvel::TextWriter writer;
  write(writer);
  return std::string(writer.Text());
}

std::string_view GroupNameOf(const korvel::Root& object) {
  return object.Reference.GroupIdentifier.View();
}

std::string NumberIn(std::string_view group, std::int32_t number) {
  return std::to_string(number) + " of " + std::string(group);
}

// Replaces ("home" 5) by 5.
void ShortenReferences(std::string_view home, std::string& text) {
  const std::string opening = "(" + Quoted(home) + " ";
  for (std::size_t at = 0; (at = text.find(opening, at)) != std::string::npos; ++at) {
    const std::size_t number = at + opening.size();
    const std::size_t end = text.find_first_not_of("-0123456789", number);
    if (end == std::string::npos || text[end] != ')') continue;
    text.erase(end, 1);
    text.erase(at, opening.size());
  }
}

// "target 40" of the action, or "the target".
std::string TargetOf(const korvel::ElementaryAction* action) {
  if (action == nullptr || action->Target.Kind == korvel::ValueKind::IndirectReference) {
    return "the target";
  }
  return "target " + std::to_string(action->Target.Reference.Number);
}

const korvel::ActionRow* RowOf(const korvel::ElementaryAction* action) {
  return action == nullptr ? nullptr : korvel::FindAction(action->ActionType);
}

std::string ClassMismatch(korvel::ItemType type, const korvel::ElementaryAction* action) {
  const korvel::ActionRow* row = RowOf(action);
  std::string text = TargetOf(action) + " is of class " + ClassName(type);
  if (row != nullptr) text += ", " + std::string(row->name) + " wants " + ClassNames(row->accepts);
  return text;
}

struct ReasonRow {
  Reason reason;
  const char* name;
  const char* text;  // the detail replaces a '#' in it
};

constexpr ReasonRow kReasons[] = {
    {Reason::NotActive, "NotActive", "not active"},
    {Reason::OtherScene, "OtherScene", "it belongs to another scene"},
    {Reason::TooManyLinks, "TooManyLinks", "sixth link of this event, which runs five at most"},
    {Reason::GroupEnded, "GroupEnded", "its group has ended"},
    {Reason::Stopped, "Stopped", "an earlier link of this event failed or replaced a group"},
    {Reason::KeyTaken, "KeyTaken", "the interaction in progress takes the key"},
    {Reason::KeyBlocked, "KeyBlocked", "input register # keeps the key out"},
    {Reason::UnknownTimer, "UnknownTimer", "the scene has not set timer #"},
    {Reason::UnreadableParameter, "UnreadableParameter",
     "parameter # is missing, cannot be read or is of the wrong type"},
    {Reason::NoTarget, "NoTarget", "there is no such object"},
    {Reason::ClassNotAccepted, "ClassNotAccepted", "the class is not accepted"},
    {Reason::NotAvailable, "NotAvailable", "the object is not available"},
    {Reason::NotRunning, "NotRunning", "the object does not run"},
    {Reason::WrongKind, "WrongKind", "the variable is of another type than the value"},
    {Reason::NoAnswerVariable, "NoAnswerVariable",
     "parameter # names no variable, or one of another type than the answer"},
    {Reason::DivisionByZero, "DivisionByZero", "division by zero"},
    {Reason::SamePosition, "SamePosition", "the token is there already"},
    {Reason::NoSuchPosition, "NoSuchPosition", "nothing at number #"},
    {Reason::InteractionBusy, "InteractionBusy",
     "the object does not run, or another interaction is in progress"},
    {Reason::SameScene, "SameScene", "it is the current scene"},
    {Reason::NoName, "NoName", "no name of a file"},
    {Reason::NotReadable, "NotReadable", "the file cannot be read"},
    {Reason::NotAGroup, "NotAGroup", "the file holds no group"},
    {Reason::NotAnApplication, "NotAnApplication",
     "the file holds a scene instead of an application, or the other way round"},
    {Reason::TooManyApplications, "TooManyApplications", "too many applications wait to return"},
    {Reason::ListEnds, "ListEnds",
     "the rest of these actions is skipped: a launch or a transition "
     "ends its list"},
};

constexpr bool HasEachReasonInOrder() {
  for (std::size_t i = 0; i < std::size(kReasons); ++i) {
    if (static_cast<std::size_t>(kReasons[i].reason) != i) return false;
  }
  return std::size(kReasons) == static_cast<std::size_t>(Reason::ListEnds) + 1;
}
static_assert(HasEachReasonInOrder());

const ReasonRow& RowOf(Reason reason) { return kReasons[static_cast<std::size_t>(reason)]; }

}  // namespace

std::string ClassNames(korvel::ClassSet classes) {
  std::vector<std::string> names;
  for (std::uint32_t type = 1; type < 64; ++type) {
    const auto item = static_cast<korvel::ItemType>(type);
    if (korvel::Contains(classes, item)) names.push_back(ClassName(item));
  }
  return Joined(names, ", ", " or ");
}

korvel::ItemType ClassOf(const korvel::Ingredient& object) {
  if (object.owner == nullptr) return korvel::ItemType::None;
  const auto& objects = object.owner->objects;
  const auto* entry = objects.Find(object.Reference.Number);
  for (; entry != nullptr; entry = objects.Next(*entry)) {
    if (entry->value.record == &object) return entry->value.type;
  }
  return korvel::ItemType::None;
}

std::string NameOf(const korvel::Ingredient& object) {
  return ClassName(ClassOf(object)) + " " + NumberIn(GroupNameOf(object), object.Reference.Number);
}

std::string NameOf(const korvel::Group& group) {
  return ClassName(group.type) + " " + std::string(GroupNameOf(group));
}

std::string NameOf(std::string_view group, std::int32_t number) {
  const korvel::FoundObject found = korvel::FindObject(korvel::Scope::SceneFirst, group, number);
  if (korvel::Contains(korvel::kGroups, found.type)) return NameOf(found.As<korvel::Group>());
  return found ? NameOf(found.As<korvel::Ingredient>()) : "object " + NumberIn(group, number);
}

std::string Quoted(std::string_view bytes) {
  return Written([bytes](korvel::TextWriter& writer) { writer.String(bytes); });
}

std::string ValueOf(const korvel::Ingredient& variable) {
  const korvel::ItemType type = ClassOf(variable);
  // VisitVariable takes a mutable object, but the visitor only reads it.
  auto& object = const_cast<korvel::Ingredient&>(variable);
  return korvel::VisitVariable({type, &object}, std::string(), [](const auto& record) {
    return Written([&](korvel::TextWriter& writer) { Write(writer, korvel::ValueOf(record)); });
  });
}

std::string TextOf(const korvel::ElementaryAction& action, std::string_view home) {
  korvel::TextWriter writer;
  WriteEntry(writer, action);
  const korvel::ActionRow* row = korvel::FindAction(action.ActionType);
  if (writer.HasFailed()) return row == nullptr ? "unknown action" : row->name;
  std::string text(writer.Text());
  ShortenReferences(home, text);
  return text;
}

std::string TextOf(Reason reason, std::int32_t detail, const korvel::ElementaryAction* action) {
  if (reason == Reason::ClassNotAccepted) {
    return ClassMismatch(static_cast<korvel::ItemType>(detail), action);
  }
  if (reason == Reason::NoTarget) return TargetOf(action) + " does not exist";
  std::string text = RowOf(reason).text;
  if (const std::size_t at = text.find('#'); at != std::string::npos) {
    text.replace(at, 1, std::to_string(detail));
  }
  return text;
}

std::string NameOf(Reason reason) { return RowOf(reason).name; }

}  // namespace mheg
