// Fills records attribute by attribute as the tables list them.
#include "support/sample_groups.h"

#include <array>
#include <cstdlib>
#include <random>
#include <string>
#include <type_traits>

#include "objects/action_table.h"
#include "objects/equality.h"
#include "objects/ownership.h"

namespace korvel::test {
namespace {

enum class Extent { Complete, Random };

class GroupMaker {
 public:
  GroupMaker(std::uint32_t seed, Extent extent) : random_(seed), extent_(extent) {}

  OwnedGroup Make(ItemType type) {
    if (type == ItemType::Application) return MakeGroup<Application>();
    return MakeGroup<Scene>();
  }

 private:
  [[nodiscard]] bool IsComplete() const { return extent_ == Extent::Complete; }
  std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }
  bool Sometimes() { return IsComplete() || Below(2) == 0; }
  std::size_t SomeCount() { return IsComplete() ? 3 : Below(4); }

  template <class Record> OwnedGroup MakeGroup() {
    OwnedGroup group(NewRecord<Record>().release());
    auto& record = static_cast<Record&>(*group);
    if (IsComplete()) {
      Require(record.Reference.GroupIdentifier.Assign("~/sample"));
    } else {
      Fill(record.Reference);
    }
    FillAttributes(record);
    return group;
  }

  // For a complete group, a value different from the attribute's default.
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
        while (IsComplete() && IsSame(field, fresh.*attribute.field));
      }
    });
  }

  template <class... Records> void FillItems(Classes<Records...> classes, List<Item>& items) {
    ForEachClass(classes, [&]<class Record>() {
      if (!Sometimes()) return;
      Item item = Item::New(Description<Record>::heading.type);
      Fill(item.As<Record>().Reference);
      FillAttributes(item.As<Record>());
      Add(items, std::move(item));
    });
  }

  void Fill(bool& field) { field = Below(2) == 0; }
  void Fill(std::int32_t& field) {
    constexpr std::array<std::int32_t, 12> edges = {0,    1,   -1,    127,    128,       -128,
                                                    -129, 255, 32768, -32769, INT32_MAX, INT32_MIN};
    field = Below(2) == 0 ? edges[Below(edges.size())] : static_cast<std::int32_t>(random_());
  }
  template <IsEnumeration Enumeration> void Fill(Enumeration& field) {
    std::int32_t number = 0;
    if (kWords<Enumeration>.empty()) {
      Fill(number);
    } else {
      number = static_cast<std::int32_t>(
          1 + Below(static_cast<std::uint32_t>(kWords<Enumeration>.size())));
    }
    field = static_cast<Enumeration>(number);
  }
  // Random bytes, including zeros, or text. Sometimes empty, sometimes so long that BER needs a
  // longer length field.
  void Fill(OctetString& field) {
    std::string bytes(Below(20) == 0 ? 300 : Below(9), ' ');
    const bool isText = Below(2) == 0;
    for (char& byte : bytes) byte = static_cast<char>(isText ? ' ' + Below(95) : Below(256));
    Require(field.Assign(bytes));
  }
  void Fill(ObjectReference& field) {
    field = ObjectReference{};
    if (Below(2) == 0) Fill(field.GroupIdentifier);
    Fill(field.Number);
  }
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
    const bool addsAll = IsComplete() && !hasAllActions_;
    hasAllActions_ = true;
    for (std::uint8_t number = 1; number <= kDecodedActionCount; ++number) {
      if (addsAll || Below(kDecodedActionCount) < 2) Add(field, MakeAction(number, Values::Direct));
      if (addsAll) Add(field, MakeAction(number, Values::Indirect));
    }
    if (field.IsEmpty() && IsComplete()) Add(field, MakeAction(1, Values::Direct));
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

  // ---- Actions ----

  enum class Values { Direct, Indirect };

  GenericValue MakeValue(ValueKind kind) {
    GenericValue value;
    value.Kind = kind;
    if (kind == ValueKind::Boolean) Fill(value.Boolean);
    if (kind == ValueKind::Integer) Fill(value.Integer);
    if (kind == ValueKind::OctetString || kind == ValueKind::ContentReference) {
      Fill(value.Octets);
    }
    if (kind == ValueKind::ObjectReference || kind == ValueKind::IndirectReference) {
      Fill(value.Reference);
    }
    return value;
  }

  ElementaryAction MakeAction(std::uint8_t number, Values values) {
    ElementaryAction action;
    action.ActionType = number;
    values_ = values;
    AddValue(action, ValueKind::ObjectReference);
    action.Target = std::move(*action.Parameters.At(0));
    action.Parameters.Clear();
    for (const Parameter place : FindAction(number)->Syntax()) {
      if (!IsComplete() && Below(6) == 0) break;
      AddPlace(action, place);
    }
    return action;
  }

  void AddValue(ElementaryAction& action, ValueKind kind) {
    const bool isIndirect = values_ == Values::Indirect || (!IsComplete() && Below(4) == 0);
    Add(action.Parameters, MakeValue(isIndirect ? ValueKind::IndirectReference : kind));
  }
  void AddSome(ElementaryAction& action, ValueKind kind, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) AddValue(action, kind);
  }
  void AddTyped(ElementaryAction& action, std::uint32_t choice) {
    constexpr std::array kinds = {ValueKind::Boolean, ValueKind::Integer, ValueKind::OctetString,
                                  ValueKind::ObjectReference, ValueKind::ContentReference};
    AddValue(action, kinds[choice % kinds.size()]);
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

  void AddPlace(ElementaryAction& action, Parameter place) {
    switch (place) {
    case Parameter::Integer:
    case Parameter::EventNumber: return AddValue(action, ValueKind::Integer);
    case Parameter::IntegerOrNull: return AddIntegerOrNull(action);
    case Parameter::Boolean: return AddValue(action, ValueKind::Boolean);
    case Parameter::Octets: return AddValue(action, ValueKind::OctetString);
    case Parameter::Reference: return AddValue(action, ValueKind::ObjectReference);
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

  template <class T> static void Add(List<T>& list, T&& value) {
    Require(list.Append(std::move(value)) != nullptr);
  }
  // No allocation fails while these groups are generated.
  static void Require(bool isDone) {
    if (!isDone) std::abort();
  }

  std::mt19937 random_;
  Extent extent_;
  Values values_ = Values::Direct;
  bool hasAllActions_ = false;  // set once one list has all actions; later lists stay short
};

}  // namespace

OwnedGroup MakeCompleteGroup(ItemType type) { return GroupMaker(1, Extent::Complete).Make(type); }

OwnedGroup MakeRandomGroup(std::uint32_t seed) {
  return GroupMaker(seed, Extent::Random)
      .Make(seed % 2 == 0 ? ItemType::Application : ItemType::Scene);
}

}  // namespace korvel::test
