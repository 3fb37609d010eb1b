// Stores variables in the persistent store and reads them back. An entry holds the values in the
// order of the action's list, without a header or a count: a reader must name variables of the same
// classes. Variables beyond the end of a short entry are reset.
#include <type_traits>
#include <utility>

#include "actions/behaviours.h"
#include "objects/limits.h"
#include "objects/messages.h"

namespace korvel {
namespace {

constexpr std::size_t kNumberBytes = 4;  // of a number or a length, lowest byte first

// The parts of the two actions' parameter lists.
struct PersistentArguments {
  BooleanVariable* success = nullptr;
  OctetString name;
  List<FoundObject> variables;  // type None if a reference names nothing
};

// All references are searched in the application first, even for actions of a scene.
ReferenceContext PersistentContext(const Arguments& arguments) {
  return {Scope::ApplicationFirst, arguments.groupName};
}

// Refused if the action must do nothing.
Status ReadArguments(const Arguments& arguments, PersistentArguments& read) {
  const ReferenceContext context = PersistentContext(arguments);
  const FoundObject success = Find(context, arguments.Reference(0));
  if (success.type != ItemType::BooleanVariable) return Status::Refused;
  read.success = &success.As<BooleanVariable>();
  const std::size_t count = arguments.given->Size();
  if (!read.success->AvailabilityStatus || count < 2) return Status::Refused;
  const List<GenericValue>& given = *arguments.given;
  for (std::size_t place = 1; place + 1 < count; ++place) {
    const bool isAdded = MayContinue() && read.variables.Append(FindTarget(context, given[place]));
    if (!isAdded) return Status::Failure;
  }
  GenericValue name;
  if (!ReadValueOfKind(context, given.At(count - 1), ValueKind::OctetString, name)) {
    return Status::Refused;
  }
  read.name = std::move(name.Octets);
  return Status::Done;
}

// Adds values to an entry. Each returns false if the entry would be too long or memory runs out.
[[nodiscard]] bool AddBytes(OctetString& data, std::string_view bytes) {
  return data.Length() + bytes.size() <= kLongestString && data.Append(bytes);
}

[[nodiscard]] bool Add(OctetString& data, bool value) {
  const char byte = value ? '\1' : '\0';
  return AddBytes(data, {&byte, 1});
}

[[nodiscard]] bool Add(OctetString& data, std::int32_t value) {
  auto number = static_cast<std::uint32_t>(value);
  char bytes[kNumberBytes];
  for (char& byte : bytes) {
    byte = static_cast<char>(number & 0xFF);
    number >>= 8;
  }
  return AddBytes(data, {bytes, sizeof bytes});
}

[[nodiscard]] bool Add(OctetString& data, const OctetString& value) {
  return Add(data, static_cast<std::int32_t>(value.Length())) && AddBytes(data, value.View());
}

[[nodiscard]] bool Add(OctetString& data, const ObjectReference& value) {
  return Add(data, value.GroupIdentifier) && Add(data, value.Number);
}

// Adds a variable's value. Refused if the object is not a variable.
Status AddVariable(OctetString& data, const FoundObject& found) {
  return VisitVariable(found, Status::Refused, [&data](const auto& variable) {
    return Add(data, ValueOf(variable)) ? Status::Done : Status::Failure;
  });
}

// Reads an entry. A value that is cut off, and all values after it, are 0, empty or false.
class EntryReader {
 public:
  explicit EntryReader(std::string_view data) : rest_(data) {}

  [[nodiscard]] std::string_view Bytes(std::size_t count) {
    if (count > rest_.size()) {
      rest_ = {};
      isShort_ = true;
    }
    if (isShort_) return {};
    const std::string_view bytes = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return bytes;
  }

  [[nodiscard]] std::uint32_t Number() {
    std::uint32_t number = 0;
    std::uint32_t shift = 0;
    for (const char byte : Bytes(kNumberBytes)) {
      number |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte)) << shift;
      shift += 8;
    }
    return number;
  }

  [[nodiscard]] std::string_view Octets() { return Bytes(Number()); }

  [[nodiscard]] bool IsShort() const { return isShort_; }

 private:
  std::string_view rest_;
  bool isShort_ = false;
};

// Read the next value of an entry. Each returns false if memory runs out.
[[nodiscard]] bool Read(EntryReader& reader, bool& value) {
  const std::string_view byte = reader.Bytes(1);
  value = !byte.empty() && byte.front() != '\0';
  return true;
}

[[nodiscard]] bool Read(EntryReader& reader, std::int32_t& value) {
  value = static_cast<std::int32_t>(reader.Number());
  return true;
}

[[nodiscard]] bool Read(EntryReader& reader, OctetString& value) {
  return value.Assign(reader.Octets());
}

[[nodiscard]] bool Read(EntryReader& reader, ObjectReference& value) {
  const std::string_view group = reader.Octets();
  value.Number = static_cast<std::int32_t>(reader.Number());
  // A reference whose number is cut off is reset as a whole.
  return value.GroupIdentifier.Assign(reader.IsShort() ? std::string_view{} : group);
}

// Sets a variable to the next value of an entry. Refused if the object is not a variable. A
// variable that is not available keeps its value, and the entry's value is skipped.
Status ReadVariable(EntryReader& reader, const FoundObject& found) {
  return VisitVariable(found, Status::Refused, [&reader](auto& variable) {
    std::remove_cvref_t<decltype(ValueOf(variable))> value{};
    if (!Read(reader, value)) return Status::Failure;
    (void)SetValue(variable, std::move(value));
    return Status::Done;
  });
}

}  // namespace

Status StorePersistent(const Arguments& arguments) {
  PersistentArguments read;
  Status status = ReadArguments(arguments, read);
  if (status != Status::Done) return status;
  RemovePersistent(read.name.View());
  OctetString data;
  for (const FoundObject& variable : read.variables) {
    if (!MayContinue()) return Status::Failure;
    status = AddVariable(data, variable);
    if (status == Status::Refused) return status;
    if (status == Status::Failure) {
      Say(Message::NoMemoryForPersistent);
      break;
    }
  }
  if (status == Status::Done) status = AppendPersistent(read.name.View(), std::move(data));
  (void)SetValue(*read.success, status == Status::Done);
  return status;
}

// Reading removes the entry from the store. An entry that was never stored is not an error: the
// variables are reset.
Status ReadPersistent(const Arguments& arguments) {
  PersistentArguments read;
  Status status = ReadArguments(arguments, read);
  if (status != Status::Done) return status;
  OctetString data;
  TakePersistent(read.name.View(), data);
  EntryReader reader(data.View());
  for (const FoundObject& variable : read.variables) {
    status = ReadVariable(reader, variable);
    if (status != Status::Done) return status;
  }
  return SetValue(*read.success, true);
}

}  // namespace korvel
