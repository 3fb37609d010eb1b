// Fills records attribute by attribute as the tables list them, so that new rows of a table appear
// in the groups automatically. `Choices` makes every decision: which attributes, items and actions
// there are, and their numbers, strings and references.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "objects/action_table.h"
#include "objects/class_tables.h"
#include "objects/ownership.h"

namespace korvel::test {

// The name of an object in content. Without a group, the object is in the group that uses the name.
struct ObjectName {
  std::optional<std::string> group;
  std::int32_t number = 0;
};

// An action to make. If it is indirect, all its values are references to variables that hold them.
struct ChosenAction {
  std::uint8_t number = 0;
  bool isIndirect = false;
};

inline constexpr ClassSet kAllClasses = ~ClassSet{0};

// The class of the variables that hold values of the kind.
constexpr ClassSet VariableClassOf(ValueKind kind) {
  switch (kind) {
  case ValueKind::Boolean: return SetOf(ItemType::BooleanVariable);
  case ValueKind::Integer: return SetOf(ItemType::IntegerVariable);
  case ValueKind::OctetString: return SetOf(ItemType::OctetStringVariable);
  case ValueKind::ContentReference: return SetOf(ItemType::ContentRefVariable);
  default: return SetOf(ItemType::ObjectRefVariable);
  }
}

// `Choices` has these functions:
//   std::uint32_t Below(std::uint32_t limit)      a number from 0 to limit - 1
//   bool IsComplete()                             whether nothing is omitted
//   bool Sometimes()                              whether to add an optional part
//   std::int32_t Integer(), std::string Octets()  any value
//   std::int32_t EnumerationNumber(std::uint32_t count)
//   ObjectName Group(ItemType), Item(ItemType)    the name of a new object
//   ObjectName ObjectOf(ClassSet)                 a reference, if possible to one of the classes
//   std::size_t ItemCount(ItemType)               how many items of a class to add to a list
//   std::vector<ChosenAction> Actions()           the actions of a new list
template <class Choices> class GroupMaker {
 public:
  explicit GroupMaker(Choices& choices) : choices_(choices) {}

  OwnedGroup Make(ItemType type) {
    if (type == ItemType::Application) return MakeGroup<Application>();
    return MakeGroup<Scene>();
  }

  template <class Record> Item MakeItem() {
    const ItemType type = Description<Record>::heading.type;
    Item item = Item::New(type);
    SetName(choices_.Item(type), item.As<Record>().Reference);
    FillAttributes(item.As<Record>());
    return item;
  }

  ElementaryAction MakeAction(ChosenAction chosen) {
    const ActionRow& row = *FindAction(chosen.number);
    ElementaryAction action;
    action.ActionType = chosen.number;
    isIndirect_ = chosen.isIndirect;
    action.Target =
        ChooseValue(ValueKind::ObjectReference, row.accepts == 0 ? kGroups : row.accepts);
    for (const Parameter parameter : row.Syntax()) {
      if (!IsComplete() && Below(6) == 0) break;
      AddParameter(action, parameter);
    }
    return action;
  }

  // Fills the chosen attributes; in a complete group each gets a value different from its default.
  template <class Record> void FillAttributes(Record& record) {
    const Record fresh;
    ForEachAttribute<Record>([&](const auto& attribute) {
      auto& field = record.*attribute.field;
      using Field = std::remove_reference_t<decltype(field)>;
      if (!Sometimes()) return;
      if constexpr (IsDescribed<Field>) {
        FillAttributes(field);
      } else if constexpr (std::is_same_v<Field, List<Item>>) {
        FillItems(MemberClasses<Record>{}, field);
      } else {
        do Fill(field);
        while (IsComplete() && field == fresh.*attribute.field);
      }
    });
  }

  template <class... Records> void FillItems(Classes<Records...> classes, List<Item>& items) {
    ForEachClass(classes, [&]<class Record>() {
      const std::size_t count = choices_.ItemCount(Description<Record>::heading.type);
      for (std::size_t i = 0; i < count; ++i) Add(items, MakeItem<Record>());
    });
  }

  void Fill(bool& field) { field = Below(2) == 0; }
  void Fill(std::int32_t& field) { field = choices_.Integer(); }
  template <IsEnumeration Enumeration> void Fill(Enumeration& field) {
    constexpr auto count = static_cast<std::uint32_t>(kWords<Enumeration>.size());
    field = static_cast<Enumeration>(count == 0 ? choices_.Integer()
                                                : choices_.EnumerationNumber(count));
  }
  void Fill(OctetString& field) { Require(field.Assign(choices_.Octets())); }
  void Fill(ObjectReference& field) { SetName(choices_.ObjectOf(kAllClasses), field); }
  void Fill(OptionalReference& field) {
    field.IsPresent = true;
    Fill(field.Reference);
  }
  void Fill(ContentReference& field) { Fill(field.Path); }
  void Fill(ColourValue& field) {
    field = ColourValue{};
    field.Kind = Below(2) == 0 ? ValueKind::Integer : ValueKind::OctetString;
    if (field.Kind == ValueKind::Integer) Fill(field.Index);
    if (field.Kind == ValueKind::OctetString) Fill(field.Absolute);
  }
  void Fill(FontBody& field) {
    field = FontBody{};
    field.Kind = Below(2) == 0 ? ValueKind::ObjectReference : ValueKind::OctetString;
    if (field.Kind == ValueKind::ObjectReference) Fill(field.Reference);
    if (field.Kind == ValueKind::OctetString) Fill(field.Name);
  }
  void Fill(ContentBody& field) {
    field = ContentBody{};
    Fill(field.Data);
    field.IsReferenced = Below(2) == 0;
    if (field.IsReferenced && Below(2) == 0) Fill(field.Size);
    if (field.IsReferenced && Below(2) == 0) Fill(field.CachePriority);
  }
  // A link's event data.
  void Fill(GenericValue& field) {
    constexpr std::array kinds = {ValueKind::None, ValueKind::Boolean, ValueKind::Integer,
                                  ValueKind::OctetString};
    field = MakeValue(kinds[Below(kinds.size())]);
  }
  void Fill(ActionSlot& field) {
    field.IsNull = Below(3) == 0;
    if (!field.IsNull) Fill(field.Actions);
  }
  void Fill(Movement& field) { Fill(field.Targets); }
  void Fill(ActionList& field) {
    field.Clear();
    for (const ChosenAction chosen : choices_.Actions()) Add(field, MakeAction(chosen));
  }
  template <IsSequence Record> void Fill(Record& field) {
    ForEachElement<Record>([&](const auto& element) { Fill(field.*element.field); });
  }
  template <class T> void Fill(List<T>& field) {
    field.Clear();
    const std::size_t count = SomeCount();
    for (std::size_t i = 0; i < count; ++i) {
      T entry{};
      Fill(entry);
      Add(field, std::move(entry));
    }
  }

  template <class T> static void Add(List<T>& list, T&& value) {
    Require(list.Append(std::move(value)) != nullptr);
  }

 private:
  [[nodiscard]] bool IsComplete() const { return choices_.IsComplete(); }
  std::uint32_t Below(std::uint32_t limit) { return choices_.Below(limit); }
  bool Sometimes() { return choices_.Sometimes(); }
  std::size_t SomeCount() { return IsComplete() ? 3 : Below(4); }

  template <class Record> OwnedGroup MakeGroup() {
    OwnedGroup group(NewRecord<Record>().release());
    auto& record = static_cast<Record&>(*group);
    SetName(choices_.Group(record.type), record.Reference);
    FillAttributes(record);
    return group;
  }

  static void SetName(const ObjectName& name, ObjectReference& reference) {
    reference = ObjectReference{};
    reference.Number = name.number;
    Require(!name.group || reference.GroupIdentifier.Assign(*name.group));
  }

  // ---- Actions ----

  GenericValue MakeValue(ValueKind kind, ClassSet classes = kAllClasses) {
    GenericValue value;
    value.Kind = kind;
    if (kind == ValueKind::Boolean) Fill(value.Boolean);
    if (kind == ValueKind::Integer) Fill(value.Integer);
    if (kind == ValueKind::OctetString || kind == ValueKind::ContentReference) {
      Fill(value.Octets);
    }
    if (kind == ValueKind::ObjectReference || kind == ValueKind::IndirectReference) {
      SetName(choices_.ObjectOf(classes), value.Reference);
    }
    return value;
  }

  // A value, or a reference to a variable that holds it.
  GenericValue ChooseValue(ValueKind kind, ClassSet classes = kAllClasses) {
    const bool isIndirect = isIndirect_ || (!IsComplete() && Below(4) == 0);
    return isIndirect ? MakeValue(ValueKind::IndirectReference, VariableClassOf(kind))
                      : MakeValue(kind, classes);
  }

  void AddValue(ElementaryAction& action, ValueKind kind, ClassSet classes = kAllClasses) {
    Add(action.Parameters, ChooseValue(kind, classes));
  }
  void AddSome(ElementaryAction& action, ValueKind kind, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) AddValue(action, kind);
  }
  void AddTyped(ElementaryAction& action, std::uint32_t choice) {
    constexpr std::array kinds = {ValueKind::Boolean, ValueKind::Integer, ValueKind::OctetString,
                                  ValueKind::ObjectReference, ValueKind::ContentReference};
    AddValue(action, kinds[choice % kinds.size()], kVariables);
  }
  void AddIntegerOrNull(ElementaryAction& action) {
    if (Below(2) == 0) {
      Add(action.Parameters, GenericValue{});
    } else {
      AddValue(action, ValueKind::Integer);
    }
  }
  void AddNewContent(ElementaryAction& action) {
    if (Below(2) == 0) return AddValue(action, ValueKind::OctetString);
    AddValue(action, ValueKind::ContentReference);
    if (Sometimes()) {
      AddIntegerOrNull(action);
      if (Sometimes()) AddIntegerOrNull(action);
    }
  }

  void AddParameter(ElementaryAction& action, Parameter parameter) {
    switch (parameter) {
    case Parameter::Integer:
    case Parameter::EventNumber: return AddValue(action, ValueKind::Integer);
    case Parameter::IntegerOrNull: return AddIntegerOrNull(action);
    case Parameter::Boolean: return AddValue(action, ValueKind::Boolean);
    case Parameter::Octets: return AddValue(action, ValueKind::OctetString);
    case Parameter::Reference:
      return AddValue(action, ValueKind::ObjectReference, Sometimes() ? kVariables : kAllClasses);
    case Parameter::Typed: return AddTyped(action, Below(5));
    case Parameter::TypedList:
      for (std::uint32_t i = 0; i < (IsComplete() ? 5 : Below(6)); ++i) AddTyped(action, i);
      return;
    case Parameter::References: return AddSome(action, ValueKind::ObjectReference, SomeCount());
    case Parameter::Points: return AddSome(action, ValueKind::Integer, 2 * SomeCount());
    case Parameter::Colour:
      return AddValue(action, Below(2) == 0 ? ValueKind::Integer : ValueKind::OctetString);
    case Parameter::FontChoice:
      return AddValue(action, Below(2) == 0 ? ValueKind::ObjectReference : ValueKind::OctetString);
    case Parameter::NewContent: return AddNewContent(action);
    case Parameter::NewTimer:
      AddValue(action, ValueKind::Integer);
      if (Sometimes()) AddValue(action, ValueKind::Boolean);
      return;
    case Parameter::Speed:
      AddValue(action, ValueKind::Integer);
      if (Sometimes()) AddValue(action, ValueKind::Integer);
      return;
    }
  }

  // Aborts after a failed allocation: no test makes one fail while a group is generated.
  static void Require(bool isDone) {
    if (!isDone) std::abort();
  }

  Choices& choices_;
  bool isIndirect_ = false;  // the current ChosenAction::isIndirect
};

}  // namespace korvel::test
