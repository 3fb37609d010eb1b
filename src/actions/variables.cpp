// Setting, calculating with, appending to and testing variables. A value of a kind that a
// variable's class does not take is passed over: nothing changes and no event is raised.
#include <charconv>
#include <cstdio>
#include <limits>
#include <utility>

#include "actions/answers.h"
#include "actions/behaviours.h"
#include "objects/limits.h"

namespace korvel {
namespace {

// Two's complement arithmetic that wraps.
constexpr std::int32_t Wrapped(std::uint32_t value) { return static_cast<std::int32_t>(value); }
constexpr std::uint32_t Bits(std::int32_t value) { return static_cast<std::uint32_t>(value); }

// The number that a text begins with: an optional sign and digits; 0 when there is none. A number
// that is too large becomes the largest.
std::int32_t LeadingNumber(std::string_view text) {
  std::size_t at = 0;
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) ++at;
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  std::int64_t number = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    number = number * 10 + (text[at] - '0');
    if (number > kMost + 1) number = kMost + 1;
  }
  if (isNegative) return static_cast<std::int32_t>(-number);
  return static_cast<std::int32_t>(number > kMost ? kMost : number);
}

// Writes the number as decimal text. False when memory is out.
bool WriteDecimal(std::int32_t number, OctetString& text) {
  char digits[12] = {};
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  return text.Assign({digits, static_cast<std::size_t>(end - digits)});
}

Status SetInteger(IntegerVariable& variable, const GenericValue& value) {
  switch (value.Kind) {
  case ValueKind::Integer: return SetValue(variable, value.Integer);
  case ValueKind::OctetString: return SetValue(variable, LeadingNumber(value.Octets.View()));
  default: return Status::Refused;
  }
}

// A number is written as text only when it comes from a variable.
Status SetOctets(OctetStringVariable& variable, GenericValue value, bool isIndirect) {
  if (value.Kind == ValueKind::Integer && isIndirect) {
    if (!WriteDecimal(value.Integer, value.Octets)) {
      std::fputs("Can't allocate memory for CharVal\n", stdout);
    }
  } else if (value.Kind != ValueKind::OctetString) {
    return Status::Refused;
  }
  return SetValue(variable, std::move(value.Octets));
}

// Counts the zero after a path that comes as text without a length. Empty when memory is out.
void CountEndingZero(OctetString& path) {
  if (path.Assign({path.Text(), path.TextView().size() + 1})) return;
  std::fputs("Can't allocate memory for CharVal\n", stdout);
  path.Clear();
}

// A path given directly keeps its length. One read from a variable has none.
Status SetContentReference(ContentRefVariable& variable, GenericValue value, bool isIndirect) {
  const bool isPath = value.Kind == ValueKind::ContentReference ||
                      (value.Kind == ValueKind::OctetString && !isIndirect);
  if (!isPath) return Status::Refused;
  OctetString path = std::move(value.Octets);
  if (isIndirect || path.IsEmpty()) CountEndingZero(path);
  return SetValue(variable, std::move(path));
}

// Replaces the value of the integer variable that is the target.
template <class Calculate>
Status Calculated(const Arguments& arguments, Calculate&& calculate) {
  auto& variable = arguments.Target.As<IntegerVariable>();
  return SetValue(variable, calculate(variable.Value, arguments.Integer(0)));
}

// What Divide and Modulo cannot calculate on any processor.
constexpr bool OverflowsDivision(std::int32_t dividend, std::int32_t divisor) {
  return dividend == std::numeric_limits<std::int32_t>::min() && divisor == -1;
}

// A number without a name compares like the last one.
bool CompareIntegers(Comparison comparison, std::int32_t value, std::int32_t operand) {
  switch (comparison) {
  case Comparison::Equal: return value == operand;
  case Comparison::NotEqual: return value != operand;
  case Comparison::Less: return value < operand;
  case Comparison::LessOrEqual: return value <= operand;
  case Comparison::Greater: return value > operand;
  case Comparison::GreaterOrEqual: break;
  }
  return value >= operand;
}

// An operand with a length is compared with as many leading bytes; behind the value's end there is
// a zero byte.
bool BeginsWith(const OctetString& value, const OctetString& operand) {
  if (operand.IsEmpty()) return value.TextView().empty();
  const std::string_view bytes = value.View();
  const std::string_view wanted = operand.View();
  if (wanted.size() <= bytes.size()) return bytes.starts_with(wanted);
  return wanted.starts_with(bytes) &&
         wanted.substr(bytes.size()).find_first_not_of('\0') == std::string_view::npos;
}

bool IsSameReference(const ObjectReference& one, const ObjectReference& other) {
  return one.Number == other.Number && one.GroupIdentifier.View() == other.GroupIdentifier.View();
}

constexpr bool IsPathKind(ValueKind kind) {
  return kind == ValueKind::ContentReference || kind == ValueKind::OctetString;
}

// Compares the target with the operand. False when the target's class does not take an operand of
// this kind.
bool Compare(const FoundObject& target, Comparison comparison, const GenericValue& operand,
             bool& result) {
  const auto asComparison = [comparison](bool isEqual) {
    return comparison == Comparison::Equal ? isEqual : !isEqual;
  };
  switch (target.Type) {
  case ItemType::BooleanVariable:
    result = asComparison(target.As<BooleanVariable>().Value == operand.Boolean);
    return operand.Kind == ValueKind::Boolean;
  case ItemType::IntegerVariable:
    result = CompareIntegers(comparison, target.As<IntegerVariable>().Value, operand.Integer);
    return operand.Kind == ValueKind::Integer;
  case ItemType::OctetStringVariable:
    result = asComparison(BeginsWith(target.As<OctetStringVariable>().Value, operand.Octets));
    return operand.Kind == ValueKind::OctetString;
  case ItemType::ObjectRefVariable:
    result = asComparison(IsSameReference(target.As<ObjectRefVariable>().Value, operand.Reference));
    return operand.Kind == ValueKind::ObjectReference;
  case ItemType::ContentRefVariable:
    result = asComparison(BeginsWith(target.As<ContentRefVariable>().Value.Path, operand.Octets));
    return IsPathKind(operand.Kind);
  default: return false;
  }
}

}  // namespace

Status SetVariable(const Arguments& arguments) {
  const FoundObject& target = arguments.Target;
  const GenericValue& given = *arguments.Given->At(0);
  // One content reference is set from another without fetching what it names.
  const ContentLoading loading = target.Type == ItemType::ContentRefVariable
                                     ? ContentLoading::LeaveOut
                                     : ContentLoading::Fetch;
  GenericValue value;
  const Status status = ReadValue(arguments, given, loading, value);
  if (status != Status::Done) return status;
  const bool isIndirect = IsIndirect(given);
  switch (target.Type) {
  case ItemType::BooleanVariable:
    if (value.Kind != ValueKind::Boolean) return Status::Refused;
    return SetValue(target.As<BooleanVariable>(), value.Boolean);
  case ItemType::IntegerVariable: return SetInteger(target.As<IntegerVariable>(), value);
  case ItemType::OctetStringVariable:
    return SetOctets(target.As<OctetStringVariable>(), std::move(value), isIndirect);
  case ItemType::ObjectRefVariable:
    if (value.Kind != ValueKind::ObjectReference) return Status::Refused;
    return SetValue(target.As<ObjectRefVariable>(), std::move(value.Reference));
  case ItemType::ContentRefVariable:
    return SetContentReference(target.As<ContentRefVariable>(), std::move(value), isIndirect);
  default: return Status::Refused;
  }
}

Status TestVariable(const Arguments& arguments) {
  const GenericValue& given = *arguments.Given->At(1);
  GenericValue operand;
  const Status status = ReadValue(arguments, given, ContentLoading::Fetch, operand);
  if (status != Status::Done) return status;
  // A path read from a variable has no length: with its ending zero it equals only a whole path.
  if (IsIndirect(given) && operand.Kind == ValueKind::ContentReference) {
    CountEndingZero(operand.Octets);
  }
  bool result = false;
  const auto comparison = static_cast<Comparison>(arguments.Integer(0));
  if (!Compare(arguments.Target, comparison, operand, result)) return Status::Refused;
  return RaiseFrom(arguments.Target.As<Ingredient>(), EventType::TestEvent,
                   EventData::Boolean(result));
}

Status Add(const Arguments& arguments) {
  return Calculated(arguments, [](std::int32_t value, std::int32_t operand) {
    return Wrapped(Bits(value) + Bits(operand));
  });
}

Status Subtract(const Arguments& arguments) {
  return Calculated(arguments, [](std::int32_t value, std::int32_t operand) {
    return Wrapped(Bits(value) - Bits(operand));
  });
}

Status Multiply(const Arguments& arguments) {
  return Calculated(arguments, [](std::int32_t value, std::int32_t operand) {
    return Wrapped(Bits(value) * Bits(operand));
  });
}

Status Divide(const Arguments& arguments) {
  if (arguments.Integer(0) == 0) return Status::Refused;
  return Calculated(arguments, [](std::int32_t value, std::int32_t operand) {
    return OverflowsDivision(value, operand) ? value : value / operand;
  });
}

Status Modulo(const Arguments& arguments) {
  if (arguments.Integer(0) == 0) return Status::Refused;
  return Calculated(arguments, [](std::int32_t value, std::int32_t operand) {
    return OverflowsDivision(value, operand) ? 0 : value % operand;
  });
}

Status Append(const Arguments& arguments) {
  auto& variable = arguments.Target.As<OctetStringVariable>();
  if (!variable.AvailabilityStatus) return Status::Refused;
  const std::string_view added = arguments.Octets(0);
  const bool isTooLong = added.size() + variable.Value.Length() > kLongestString;
  if (isTooLong || !variable.Value.Append(added)) {
    std::fputs("Can't allocate memory for NewVariableValue\n", stdout);
  }
  return Status::Done;
}

}  // namespace korvel
