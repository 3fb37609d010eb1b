// Evaluation of parameters by the syntax of the action table, and the reading of variables that it
// rests on.
#include "actions/parameters.h"
#include "objects/messages.h"

namespace korvel {
namespace {

// The copy of what cannot be copied is empty; the action proceeds with that.
void CopyOctets(const OctetString& from, OctetString& to) {
  if (!to.CopyFrom(from)) Say(Message::NoMemoryForOctets);
}

void CopyReference(const ObjectReference& from, ObjectReference& to) {
  if (!Copy(from, to)) Say(Message::NoMemoryForReference);
}

void CopyValue(const GenericValue& from, GenericValue& to) {
  to.Kind = from.Kind;
  to.Boolean = from.Boolean;
  to.Integer = from.Integer;
  CopyOctets(from.Octets, to.Octets);
  CopyReference(from.Reference, to.Reference);
}

// A content that cannot be had now is asked for again at the next reading.
void LoadContent(ContentRefVariable& variable) {
  if (variable.Content.Data.IsPresent() || variable.Value.Path.TextView().empty()) return;
  OctetString bytes;
  if (ResolveGroup(variable.Value.Path.TextView(), bytes) == Status::Done) {
    variable.Content.Data = std::move(bytes);
  }
}

// The copy of a value that cannot be copied is empty; the action proceeds with that.
void CopyVariable(const FoundObject& found, GenericValue& value) {
  if (CopyValue(found, value)) return;
  Say(found.Type == ItemType::ObjectRefVariable ? Message::NoMemoryForReference
                                                : Message::NoMemoryForOctets);
}

// Walks an action's parameters as its syntax asks for them, one value after the other.
class Evaluation {
 public:
  explicit Evaluation(Arguments& arguments)
      : arguments_(arguments), next_(arguments.Given->begin()) {}

  [[nodiscard]] bool IsAtEnd() const { return next_ == arguments_.Given->end(); }

  Status Take(ValueKind kind) {
    const GenericValue* given = IsAtEnd() ? nullptr : &*next_;
    if (given != nullptr) ++next_;
    return ReadValueOfKind(arguments_, given, kind, arguments_.Values[taken_++]);
  }

  // A place that stands for two values of which the second may be absent.
  Status TakePair(ValueKind first, ValueKind second) {
    const Status status = Take(first);
    return status == Status::Done ? Take(second) : status;
  }

  // How many of the leading places are evaluated; a behaviour reads the others in its own way.
  [[nodiscard]] std::size_t Taken() const { return taken_; }

 private:
  Arguments& arguments_;
  decltype(std::declval<const List<GenericValue>&>().begin()) next_;
  std::size_t taken_ = 0;
};

// Whether behaviours read this parameter themselves. A transition reads neither its
// connection nor its effect.
constexpr bool IsReadByBehaviour(Parameter parameter) {
  switch (parameter) {
  case Parameter::IntegerOrNull:
  case Parameter::Typed:
  case Parameter::TypedList:
  case Parameter::References:
  case Parameter::Points:
  case Parameter::Colour:
  case Parameter::FontChoice:
  case Parameter::NewContent: return true;
  default: return false;
  }
}

constexpr bool IsList(Parameter parameter) {
  return parameter == Parameter::TypedList || parameter == Parameter::References ||
         parameter == Parameter::Points;
}

Status TakePlace(Parameter parameter, Evaluation& evaluation) {
  switch (parameter) {
  case Parameter::Integer:
  case Parameter::EventNumber: return evaluation.Take(ValueKind::Integer);
  case Parameter::Boolean: return evaluation.Take(ValueKind::Boolean);
  case Parameter::Octets: return evaluation.Take(ValueKind::OctetString);
  case Parameter::Reference: return evaluation.Take(ValueKind::ObjectReference);
  case Parameter::NewTimer: return evaluation.TakePair(ValueKind::Integer, ValueKind::Boolean);
  case Parameter::Speed: return evaluation.TakePair(ValueKind::Integer, ValueKind::Integer);
  default: return Status::Done;
  }
}

}  // namespace

Asker AskerFor(const Ingredient& ingredient) {
  const bool isApplications =
      ingredient.owner != nullptr && ingredient.owner->Type == ItemType::Application;
  return {isApplications ? Scope::ApplicationFirst : Scope::SceneFirst,
          ingredient.Reference.GroupIdentifier.View()};
}

FoundObject Find(const Asker& asker, const ObjectReference& reference) {
  const OctetString& group = reference.GroupIdentifier;
  return FindObject(asker.scope, group.IsPresent() ? group.View() : asker.groupName,
                    reference.Number);
}

FoundObject FindTarget(const Asker& asker, const GenericValue& target) {
  if (!IsIndirect(target)) return Find(asker, target.Reference);
  const FoundObject variable = Find(asker, target.Reference);
  if (variable.Type != ItemType::ObjectRefVariable) return {};
  return Find(asker, variable.As<ObjectRefVariable>().Value);
}

Status ReadVariable(const Asker& asker, const ObjectReference& reference, ContentLoading loading,
                    GenericValue& value) {
  const FoundObject found = Find(asker, reference);
  if (found.Type == ItemType::ContentRefVariable && loading == ContentLoading::Fetch) {
    LoadContent(found.As<ContentRefVariable>());
  }
  CopyVariable(found, value);
  return Status::Done;
}

Status ReadValue(const Asker& asker, const GenericValue& given, ContentLoading loading,
                 GenericValue& value) {
  if (!IsIndirect(given)) {
    CopyValue(given, value);
    return value.Kind == ValueKind::None ? Status::Refused : Status::Done;
  }
  const Status status = ReadVariable(asker, given.Reference, loading, value);
  if (status != Status::Done) return status;
  return value.Kind == ValueKind::None ? Status::Refused : Status::Done;
}

Status ReadValueOfKind(const Asker& asker, const GenericValue* given, ValueKind kind,
                       GenericValue& value) {
  if (given == nullptr || given->Kind == ValueKind::None) return Status::Done;
  if (given->Kind == kind) {
    CopyValue(*given, value);
    return Status::Done;
  }
  if (!IsIndirect(*given) && given->Kind != ValueKind::ObjectReference) return Status::Refused;
  GenericValue read;
  const Status status = ReadVariable(asker, given->Reference, ContentLoading::Fetch, read);
  if (status != Status::Done) return status;
  if (read.Kind != kind) return Status::Refused;
  value = std::move(read);
  return Status::Done;
}

Status EvaluateParameters(const ActionRow& row, Arguments& arguments) {
  Evaluation evaluation(arguments);
  std::size_t place = 0;
  for (const Parameter parameter : row.Syntax()) {
    const bool isRequired = place < row.requiredCount;
    if (IsReadByBehaviour(parameter)) {
      const bool isMissing = isRequired && !IsList(parameter) && evaluation.IsAtEnd();
      return isMissing ? Status::Refused : Status::Done;
    }
    const Status status = TakePlace(parameter, evaluation);
    if (status != Status::Done) return status;
    if (isRequired && !arguments.IsPresent(place)) return Status::Refused;
    ++place;
  }
  return Status::Done;
}

}  // namespace korvel
