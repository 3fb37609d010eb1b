// Keeping variables in the persistent store and reading them back. An entry is the values in the
// order of the action's list, with no header and no count: whoever reads has to ask for the same
// classes. An entry that is too short for what is asked for yields reset values from there on.
#include <cstring>
#include <utility>

#include "actions/answers.h"
#include "actions/behaviours.h"
#include "objects/messages.h"

namespace korvel {
namespace {

constexpr std::size_t kNumberBytes = 4;  // of a number and of a length, the lowest first

// The parts of the two actions' parameter lists.
struct PersistentArguments {
  BooleanVariable* success = nullptr;
  OctetString name;
  Sequence<FoundObject> variables;  // None where a reference names nothing
};

// Everything is looked for in the application first, whoever asks.
Asker PersistentAsker(const Arguments& arguments) {
  return {Scope::ApplicationFirst, arguments.groupName};
}

// Refused when the action is to do nothing at all.
Status ReadArguments(const Arguments& arguments, PersistentArguments& read) {
  const Asker asker = PersistentAsker(arguments);
  const FoundObject success = Find(asker, arguments.Reference(0));
  if (success.Type != ItemType::BooleanVariable) return Status::Refused;
  read.success = &success.As<BooleanVariable>();
  const std::size_t count = arguments.Given->Size();
  if (!read.success->AvailabilityStatus || count < 2) return Status::Refused;
  auto given = arguments.Given->begin();
  for (std::size_t place = 1; place + 1 < count; ++place) {
    ++given;
    const bool isTaken = MayGoOn() && read.variables.Append(FindTarget(asker, *given));
    if (!isTaken) return Status::Failure;
  }
  GenericValue name;
  ++given;
  const Status status = ReadValueOfKind(asker, &*given, ValueKind::OctetString, name);
  if (status != Status::Done) return status;
  read.name = std::move(name.Octets);
  return Status::Done;
}

// Adds values to an entry. Each returns false when memory is out.
[[nodiscard]] bool AddNumber(OctetString& data, std::uint32_t number) {
  char bytes[kNumberBytes];
  for (char& byte : bytes) {
    byte = static_cast<char>(number & 0xFF);
    number >>= 8;
  }
  return data.Append({bytes, sizeof bytes});
}

[[nodiscard]] bool AddOctets(OctetString& data, const OctetString& octets) {
  return AddNumber(data, static_cast<std::uint32_t>(octets.Length())) && data.Append(octets.View());
}

// Adds a variable's value. Refused when the object is no variable.
Status AddVariable(OctetString& data, const FoundObject& variable) {
  bool isAdded = false;
  switch (variable.Type) {
  case ItemType::BooleanVariable: {
    const char byte = variable.As<BooleanVariable>().Value ? '\1' : '\0';
    isAdded = data.Append({&byte, 1});
    break;
  }
  case ItemType::IntegerVariable:
    isAdded = AddNumber(data, static_cast<std::uint32_t>(variable.As<IntegerVariable>().Value));
    break;
  case ItemType::OctetStringVariable:
    isAdded = AddOctets(data, variable.As<OctetStringVariable>().Value);
    break;
  case ItemType::ObjectRefVariable: {
    const ObjectReference& value = variable.As<ObjectRefVariable>().Value;
    isAdded = AddOctets(data, value.GroupIdentifier) &&
              AddNumber(data, static_cast<std::uint32_t>(value.Number));
    break;
  }
  case ItemType::ContentRefVariable:
    isAdded = AddOctets(data, variable.As<ContentRefVariable>().Value.Path);
    break;
  default: return Status::Refused;
  }
  return isAdded ? Status::Done : Status::Failure;
}

// Reads an entry. What lies beyond its end is 0, empty, or false, and so is everything after that.
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

Status TakeReference(EntryReader& reader, ObjectRefVariable& variable) {
  ObjectReference reference;
  const std::string_view group = reader.Octets();
  reference.Number = static_cast<std::int32_t>(reader.Number());
  // A reference that is cut off within its number is reset as a whole.
  if (!reference.GroupIdentifier.Assign(reader.IsShort() ? std::string_view{} : group)) {
    return Status::Failure;
  }
  (void)SetValue(variable, std::move(reference));
  return Status::Done;
}

// Gives a variable its value from an entry. Refused when the object is no variable. One that is not
// available keeps its value, and the entry's value is passed over.
Status TakeVariable(EntryReader& reader, const FoundObject& variable) {
  OctetString octets;
  switch (variable.Type) {
  case ItemType::BooleanVariable: {
    const std::string_view byte = reader.Bytes(1);
    (void)SetValue(variable.As<BooleanVariable>(), !byte.empty() && byte.front() != '\0');
    return Status::Done;
  }
  case ItemType::IntegerVariable:
    (void)SetValue(variable.As<IntegerVariable>(), static_cast<std::int32_t>(reader.Number()));
    return Status::Done;
  case ItemType::OctetStringVariable:
    if (!octets.Assign(reader.Octets())) return Status::Failure;
    (void)SetValue(variable.As<OctetStringVariable>(), std::move(octets));
    return Status::Done;
  case ItemType::ObjectRefVariable: return TakeReference(reader, variable.As<ObjectRefVariable>());
  case ItemType::ContentRefVariable:
    if (!octets.Assign(reader.Octets())) return Status::Failure;
    (void)SetValue(variable.As<ContentRefVariable>(), std::move(octets));
    return Status::Done;
  default: return Status::Refused;
  }
}

}  // namespace

Status StorePersistent(const Arguments& arguments) {
  PersistentArguments read;
  Status status = ReadArguments(arguments, read);
  if (status != Status::Done) return status;
  (void)RemovePersistent(read.name.View());
  OctetString data;
  for (const FoundObject& variable : read.variables) {
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

// Reading takes the entry out of the store. An entry that was never stored is no error: the
// variables are reset.
Status ReadPersistent(const Arguments& arguments) {
  PersistentArguments read;
  Status status = ReadArguments(arguments, read);
  if (status != Status::Done) return status;
  OctetString data;
  (void)TakePersistent(read.name.View(), data);
  EntryReader reader(data.View());
  for (const FoundObject& variable : read.variables) {
    status = TakeVariable(reader, variable);
    if (status != Status::Done) return status;
  }
  return SetValue(*read.success, true);
}

}  // namespace korvel
