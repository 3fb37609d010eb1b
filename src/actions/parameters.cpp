// Evaluates parameters by the syntax of the action table, and reads the variables that they name.
#include "actions/parameters.h"
#include "objects/messages.h"
#include "objects/observer.h"

#include "objects/action_values.h"

namespace korvel {
namespace {

// If memory runs out, the copy stays empty and the action continues with it.
void CopyOctets(const OctetString& from, OctetString& to) {
  if (!to.CopyFrom(from)) Say(Message::NoMemoryForOctets);
}

void CopyReference(const ObjectReference& from, ObjectReference& to) {
  if (!Copy(from, to)) Say(Message::NoMemoryForReference);
}

void CopyValue(const GenericValue& from, GenericValue& to) {
  to.Kind = from.Kind;
  switch (from.Kind) {
  case ValueKind::None: return;
  case ValueKind::Boolean: to.Boolean = from.Boolean; return;
  case ValueKind::Integer: to.Integer = from.Integer; return;
  case ValueKind::OctetString:
  case ValueKind::ContentReference: return CopyOctets(from.Octets, to.Octets);
  case ValueKind::ObjectReference:
  case ValueKind::IndirectReference: return CopyReference(from.Reference, to.Reference);
  }
}

// Content that cannot be read now is requested again at the next reading.
void LoadContent(ContentRefVariable& variable) {
  if (variable.Content.Data.IsPresent() || variable.Value.Path.TextView().empty()) return;
  OctetString bytes;
  if (ResolveGroup(variable.Value.Path.TextView(), bytes) == Status::Done) {
    variable.Content.Data = std::move(bytes);
  }
}

// If memory runs out, the copy stays empty and the action continues with it.
void CopyVariable(const FoundObject& found, GenericValue& value) {
  if (CopyValue(found, value)) return;
  Say(found.type == ItemType::ObjectRefVariable ? Message::NoMemoryForReference
                                                : Message::NoMemoryForOctets);
}

// The kinds that the values at a place must have. If `first` is None, the behaviour reads this
// place and all later ones itself. TransitionTo ignores its connection tag and transition effect.
struct EvaluatedKinds {
  ValueKind first = ValueKind::None;
  ValueKind second = ValueKind::None;  // None: one value
};

constexpr EvaluatedKinds KindsAt(Parameter place) {
  switch (place) {
  case Parameter::Integer:
  case Parameter::EventNumber: return {ValueKind::Integer};
  case Parameter::Boolean: return {ValueKind::Boolean};
  case Parameter::Octets: return {ValueKind::OctetString};
  case Parameter::Reference: return {ValueKind::ObjectReference};
  case Parameter::NewTimer: return {ValueKind::Integer, ValueKind::Boolean};
  case Parameter::Speed: return {ValueKind::Integer, ValueKind::Integer};
  case Parameter::IntegerOrNull:
  case Parameter::Typed:
  case Parameter::TypedList:
  case Parameter::References:
  case Parameter::Points:
  case Parameter::Colour:
  case Parameter::FontChoice:
  case Parameter::NewContent: break;
  }
  return {};
}

// Evaluates the next value into a place of the arguments. It stays absent if the action does not
// give it.
bool EvaluateNext(ActionValues& given, ValueKind kind, std::size_t place, Arguments& arguments) {
  if (given.IsEmpty()) return true;
  const GenericValue& value = given.Take();
  if (value.Kind == kind) {
    arguments.values[place] = &value;
    return true;
  }
  if (value.Kind == ValueKind::None) return true;
  GenericValue& read = arguments.read[place].emplace();
  arguments.values[place] = &read;
  return ReadValueOfKind(arguments, &value, kind, read);
}

bool ReportUnreadable(std::size_t place) {
  ObserveReason(Reason::UnreadableParameter, static_cast<std::int32_t>(place) + 1);
  return false;
}

}  // namespace

ReferenceContext ContextOf(const Ingredient& ingredient) {
  const bool isApplications =
      ingredient.owner != nullptr && ingredient.owner->type == ItemType::Application;
  return {isApplications ? Scope::ApplicationFirst : Scope::SceneFirst,
          ingredient.Reference.GroupIdentifier.View()};
}

FoundObject Find(const ReferenceContext& context, const ObjectReference& reference) {
  const OctetString& group = reference.GroupIdentifier;
  return FindObject(context.scope, group.IsPresent() ? group.View() : context.groupName,
                    reference.Number);
}

FoundObject FindTarget(const ReferenceContext& context, const GenericValue& target) {
  if (!IsIndirect(target)) return Find(context, target.Reference);
  const FoundObject variable = Find(context, target.Reference);
  if (variable.type != ItemType::ObjectRefVariable) return {};
  return Find(context, variable.As<ObjectRefVariable>().Value);
}

void ReadVariable(const ReferenceContext& context, const ObjectReference& reference,
                  ContentLoading loading, GenericValue& value) {
  const FoundObject found = Find(context, reference);
  if (found.type == ItemType::ContentRefVariable && loading == ContentLoading::Fetch) {
    LoadContent(found.As<ContentRefVariable>());
  }
  CopyVariable(found, value);
}

bool ReadValue(const ReferenceContext& context, const GenericValue& given, ContentLoading loading,
               GenericValue& value) {
  IsIndirect(given) ? ReadVariable(context, given.Reference, loading, value)
                    : CopyValue(given, value);
  return value.Kind != ValueKind::None;
}

bool ReadValueOfKind(const ReferenceContext& context, const GenericValue* given, ValueKind kind,
                     GenericValue& value) {
  if (given == nullptr || given->Kind == ValueKind::None) return true;
  if (given->Kind == kind) {
    CopyValue(*given, value);
    return true;
  }
  if (!IsIndirect(*given) && given->Kind != ValueKind::ObjectReference) return false;
  GenericValue read;
  ReadVariable(context, given->Reference, ContentLoading::Fetch, read);
  if (read.Kind != kind) return false;
  value = std::move(read);
  return true;
}

bool EvaluateParameters(const ActionRow& row, Arguments& arguments) {
  ActionValues given(*arguments.given);
  std::size_t place = 0;
  std::size_t evaluated = 0;
  for (const Parameter parameter : row.Syntax()) {
    const bool isRequired = place < row.requiredCount;
    const EvaluatedKinds kinds = KindsAt(parameter);
    if (kinds.first == ValueKind::None) {
      // There may be no points.
      return !isRequired || parameter == Parameter::Points || !given.IsEmpty() ||
             ReportUnreadable(place);
    }
    ActionValues values = given.TakePlace(parameter);
    for (const ValueKind kind : {kinds.first, kinds.second}) {
      if (kind == ValueKind::None) break;
      if (!EvaluateNext(values, kind, evaluated++, arguments)) return ReportUnreadable(place);
    }
    if (isRequired && !arguments.IsPresent(place)) return ReportUnreadable(place);
    ++place;
  }
  return true;
}

}  // namespace korvel
