// Sets, calculates with, appends to and tests variables. A value of a kind that a variable's class
// does not accept is ignored: nothing changes and no event is raised.
#include <algorithm>
#include <charconv>
#include <functional>
#include <limits>
#include <utility>

#include "actions/behaviours.h"
#include "objects/limits.h"
#include "objects/messages.h"

namespace korvel {
namespace {

// The number at the start of a text: an optional sign and digits; 0 if there is none. A number
// outside 32 bits is clamped.
std::int32_t LeadingNumber(std::string_view text) {
  std::size_t at = 0;
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) ++at;
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  std::int64_t number = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    number = std::min(number * 10 + (text[at] - '0'), kMost + 1);
  }
  if (isNegative) return static_cast<std::int32_t>(-number);
  return static_cast<std::int32_t>(std::min(number, kMost));
}

// Writes the number as decimal text. False if memory runs out.
bool WriteDecimal(std::int32_t number, OctetString& text) {
  char digits[12] = {};
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  return text.Assign({digits, static_cast<std::size_t>(end - digits)});
}

// Set a variable to a value of a kind that its class accepts.
Status Set(BooleanVariable& variable, const GenericValue& value) {
  return SetValue(variable, value.Boolean);
}

Status Set(IntegerVariable& variable, const GenericValue& value) {
  const bool isText = value.Kind == ValueKind::OctetString;
  return SetValue(variable, isText ? LeadingNumber(value.Octets.View()) : value.Integer);
}

Status Set(OctetStringVariable& variable, GenericValue& value) {
  const bool isText = value.Kind == ValueKind::OctetString;
  if (!isText && !WriteDecimal(value.Integer, value.Octets)) Say(Message::NoMemoryForOctets);
  return SetValue(variable, std::move(value.Octets));
}

Status Set(ObjectRefVariable& variable, GenericValue& value) {
  return SetValue(variable, std::move(value.Reference));
}

Status Set(ContentRefVariable& variable, GenericValue& value) {
  return SetValue(variable, std::move(value.Octets));
}

// Ends a path at its first zero byte and includes that byte in its length. Makes the path absent if
// memory runs out.
void CountEndingZero(OctetString& path) {
  if (path.Assign({path.Text(), path.TextView().size() + 1})) return;
  Say(Message::NoMemoryForOctets);
  path.Clear();
}

// Replaces the value of the integer variable that is the target.
template <class Calculate> Status Calculated(const Arguments& arguments, Calculate&& calculate) {
  auto& variable = arguments.target.As<IntegerVariable>();
  return SetValue(variable, calculate(variable.Value, arguments.Integer(0)));
}

// The same in two's complement arithmetic that wraps.
template <class Operation> Status Wrapped(const Arguments& arguments, Operation&& operation) {
  return Calculated(arguments, [&operation](std::int32_t value, std::int32_t operand) {
    return static_cast<std::int32_t>(
        operation(static_cast<std::uint32_t>(value), static_cast<std::uint32_t>(operand)));
  });
}

// Whether the quotient does not fit into 32 bits; processors cannot calculate it.
constexpr bool OverflowsDivision(std::int32_t dividend, std::int32_t divisor) {
  return dividend == std::numeric_limits<std::int32_t>::min() && divisor == -1;
}

// Whether the value begins with the operand, as if zero bytes followed the value. An empty operand
// matches only a value that is empty or begins with a zero byte.
bool BeginsWith(const OctetString& value, const OctetString& operand) {
  if (operand.IsEmpty()) return value.TextView().empty();
  const std::string_view bytes = value.View();
  const std::string_view wanted = operand.View();
  if (wanted.size() <= bytes.size()) return bytes.starts_with(wanted);
  return wanted.starts_with(bytes) &&
         wanted.substr(bytes.size()).find_first_not_of('\0') == std::string_view::npos;
}

bool IsEqual(bool value, const GenericValue& operand) { return value == operand.Boolean; }
bool IsEqual(const OctetString& value, const GenericValue& operand) {
  return BeginsWith(value, operand.Octets);
}
bool IsEqual(const ObjectReference& value, const GenericValue& operand) {
  const ObjectReference& other = operand.Reference;
  return value.Number == other.Number &&
         value.GroupIdentifier.View() == other.GroupIdentifier.View();
}

// Only integers have an order. For other values every comparison except Equal means NotEqual.
template <class Value>
bool IsTrue(const Value& value, Comparison comparison, const GenericValue& operand) {
  return IsEqual(value, operand) == (comparison == Comparison::Equal);
}
bool IsTrue(std::int32_t value, Comparison comparison, const GenericValue& operand) {
  return IsTrue(value, comparison, operand.Integer);
}

}  // namespace

bool CopyValue(const FoundObject& found, GenericValue& value) {
  value.Kind = KindOf(found.type);
  return VisitVariable(found, true, [&value](const auto& variable) {
    return Copy(ValueOf(variable), FieldOf(value, ValueOf(variable)));
  });
}

Status SetVariable(const Arguments& arguments) {
  const FoundObject& target = arguments.target;
  const GenericValue& given = *arguments.given->At(0);
  // Setting one content reference from another does not fetch its content.
  const ContentLoading loading = target.type == ItemType::ContentRefVariable
                                     ? ContentLoading::LeaveOut
                                     : ContentLoading::Fetch;
  GenericValue value;
  if (!ReadValue(arguments, given, loading, value)) return Refuse(Reason::UnreadableParameter, 1);
  if (!MayBeSetTo(target.type, value.Kind, IsIndirect(given))) return Refuse(Reason::WrongKind);
  // A path that is given directly keeps its length. One that is read from a variable includes its
  // terminating zero byte.
  const bool isPath = target.type == ItemType::ContentRefVariable;
  if (isPath && (IsIndirect(given) || value.Octets.IsEmpty())) CountEndingZero(value.Octets);
  return VisitVariable(target, Status::Refused,
                       [&](auto& variable) { return Set(variable, value); });
}

Status TestVariable(const Arguments& arguments) {
  const GenericValue& given = *arguments.given->At(1);
  GenericValue operand;
  if (!ReadValue(arguments, given, ContentLoading::Fetch, operand)) {
    return Refuse(Reason::UnreadableParameter, 2);
  }
  // IsEqual accepts a prefix. The zero byte makes a path from a variable match only a whole path.
  if (IsIndirect(given) && operand.Kind == ValueKind::ContentReference) {
    CountEndingZero(operand.Octets);
  }
  if (!ComparesWith(arguments.target.type, operand.Kind)) return Refuse(Reason::WrongKind);
  const bool result = VisitVariable(arguments.target, false, [&](const auto& variable) {
    return IsTrue(ValueOf(variable), static_cast<Comparison>(arguments.Integer(0)), operand);
  });
  return RaiseFrom(arguments.target.As<Ingredient>(), EventType::TestEvent,
                   EventData::Boolean(result));
}

Status Add(const Arguments& arguments) { return Wrapped(arguments, std::plus()); }

Status Subtract(const Arguments& arguments) { return Wrapped(arguments, std::minus()); }

Status Multiply(const Arguments& arguments) { return Wrapped(arguments, std::multiplies()); }

Status Divide(const Arguments& arguments) {
  if (arguments.Integer(0) == 0) return Refuse(Reason::DivisionByZero);
  return Calculated(arguments, [](std::int32_t value, std::int32_t operand) {
    return OverflowsDivision(value, operand) ? value : value / operand;
  });
}

Status Modulo(const Arguments& arguments) {
  if (arguments.Integer(0) == 0) return Refuse(Reason::DivisionByZero);
  return Calculated(arguments, [](std::int32_t value, std::int32_t operand) {
    return OverflowsDivision(value, operand) ? 0 : value % operand;
  });
}

Status Append(const Arguments& arguments) {
  auto& variable = arguments.target.As<OctetStringVariable>();
  if (!variable.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  const std::string_view added = arguments.Octets(0);
  const bool isTooLong = added.size() + variable.Value.Length() > kLongestString;
  if (isTooLong || !variable.Value.Append(added)) {
    Say(Message::NoMemoryForAppended);
  }
  ObserveValue(variable);
  return Status::Done;
}

}  // namespace korvel
