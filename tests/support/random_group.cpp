// One pass over the class and action tables that fills every kind of field.
#include "support/random_group.h"

#include <random>
#include <string>
#include <utility>

#include "objects/objects.h"

namespace korvel {
namespace {

class Filler {
 public:
  explicit Filler(std::uint32_t seed) : random_(seed) {}

  // A number from 0 up to, but without, the limit.
  int Below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }
  bool Toss() { return Below(2) == 0; }

  void Fill(bool& value) { value = Toss(); }
  void Fill(std::int32_t& value) {
    constexpr std::int32_t kNotable[] = {0,   1,     -1,    127,    128,        255,
                                         256, 32767, 32768, -32768, 2147483647, -2147483647 - 1};
    value = Toss() ? kNotable[Below(static_cast<int>(std::size(kNotable)))]
                   : std::uniform_int_distribution<std::int32_t>()(random_);
  }
  void Fill(OctetString& value) {
    std::string bytes;
    const bool isText = Toss();
    for (int left = Below(12); left > 0; --left) {
      bytes += static_cast<char>(isText ? ' ' + Below(95) : Below(256));
    }
    Keep(value.Assign(bytes));
  }
  void Fill(ObjectReference& value) {
    if (Toss()) Fill(value.GroupIdentifier);
    Fill(value.Number);
  }
  void Fill(OptionalReference& value) {
    value.IsPresent = true;
    Fill(value.Reference);
  }
  void Fill(ColourValue& value) {
    value.Kind = Toss() ? ValueKind::Integer : ValueKind::OctetString;
    if (value.Kind == ValueKind::Integer) return Fill(value.Index);
    Fill(value.Absolute);
  }
  void Fill(FontBody& value) {
    value.Kind = Toss() ? ValueKind::OctetString : ValueKind::ObjectReference;
    if (value.Kind == ValueKind::OctetString) return Fill(value.Name);
    Fill(value.Reference);
  }
  void Fill(ContentReference& value) { Fill(value.Path); }
  void Fill(ContentBody& value) {
    Fill(value.Data);
    value.IsReferenced = Toss();
    if (value.IsReferenced && Toss()) Fill(value.Size);
    if (value.IsReferenced && Toss()) Fill(value.CachePriority);
  }
  // An event's data.
  void Fill(GenericValue& value) { FillKind(value, static_cast<ValueKind>(1 + Below(3))); }
  void Fill(Movement& value) { Fill(value.Targets); }
  void Fill(ActionSlot& value) {
    value.IsNull = Toss();
    if (!value.IsNull) Fill(value.Actions);
  }
  void Fill(ElementaryAction& value) {
    value.ActionType = static_cast<std::uint8_t>(1 + Below(kDecodedActionCount));
    FillGeneric(value.Target, ValueKind::ObjectReference);
    const ActionRow& row = *FindAction(value.ActionType);
    for (const Parameter parameter : row.Syntax()) {
      if (Below(8) == 0) return;
      AddParameter(value.Parameters, parameter);
    }
  }

  template <IsSequence Record>
  void Fill(Record& record) {
    ForEachElement<Record>([&](const auto& element) {
      if (element.keyword == nullptr || Toss()) Fill(record.*element.field, element.form);
    });
  }
  template <class Entry>
  void Fill(List<Entry>& list) {
    for (int left = Below(4); left > 0; --left) {
      Entry entry{};
      Fill(entry);
      Keep(list.Append(std::move(entry)) != nullptr);
    }
  }
  template <class Field>
  void Fill(Field& field, const Form& form) {
    if constexpr (std::is_same_v<Field, std::int32_t>) {
      if (!form.words.empty()) {
        field = 1 + Below(static_cast<int>(form.words.size()));
        return;
      }
    }
    Fill(field);
  }

  template <class Record>
  void FillObject(Record& record) {
    Fill(record.Reference);
    FillAttributes<Record>(record);
  }
  template <class Record>
  void FillAttributes(Record& record) {
    ForEachAttribute<Record>([&](const auto& attribute) {
      auto& field = record.*attribute.field;
      using Field = std::remove_cvref_t<decltype(field)>;
      if constexpr (IsDescribed<Field>) {
        FillAttributes<Field>(field);
      } else if constexpr (std::is_same_v<Field, List<Item>>) {
        FillObjects(field, MemberClasses<Record>{});
      } else if (Toss()) {
        Fill(field, attribute.form);
      }
    });
  }
  template <class... Records>
  void FillObjects(List<Item>& list, Classes<Records...> classes) {
    for (int left = Below(8); left > 0; --left) {
      int place = Below(sizeof...(Records));
      ForEachClass(classes, [&]<class Record>() {
        if (place-- != 0) return;
        Item item = Item::New(Description<Record>::heading.type);
        FillObject(item.As<Record>());
        Keep(list.Append(std::move(item)) != nullptr);
      });
    }
  }

 private:
  // A test that is out of memory has nothing left to say.
  static void Keep(bool isDone) {
    if (!isDone) std::abort();
  }

  void FillKind(GenericValue& value, ValueKind kind) {
    value.Kind = kind;
    switch (kind) {
    case ValueKind::None: break;
    case ValueKind::Boolean: return Fill(value.Boolean);
    case ValueKind::Integer: return Fill(value.Integer);
    case ValueKind::OctetString:
    case ValueKind::ContentReference: return Fill(value.Octets);
    case ValueKind::ObjectReference:
    case ValueKind::IndirectReference: return Fill(value.Reference);
    }
  }
  void FillGeneric(GenericValue& value, ValueKind kind) {
    FillKind(value, Below(4) == 0 ? ValueKind::IndirectReference : kind);
  }
  void Add(List<GenericValue>& parameters, ValueKind kind) {
    GenericValue value;
    FillGeneric(value, kind);
    Keep(parameters.Append(std::move(value)) != nullptr);
  }
  void AddNumberOrNull(List<GenericValue>& parameters) {
    GenericValue value;
    if (Toss()) FillGeneric(value, ValueKind::Integer);
    Keep(parameters.Append(std::move(value)) != nullptr);
  }
  void AddTyped(List<GenericValue>& parameters) {
    constexpr ValueKind kKinds[] = {ValueKind::Boolean, ValueKind::Integer, ValueKind::OctetString,
                                    ValueKind::ObjectReference, ValueKind::ContentReference};
    Add(parameters, kKinds[Below(static_cast<int>(std::size(kKinds)))]);
  }
  void AddNewContent(List<GenericValue>& parameters) {
    if (Toss()) return Add(parameters, ValueKind::OctetString);
    Add(parameters, ValueKind::ContentReference);
    if (Toss()) return;
    AddNumberOrNull(parameters);
    if (Toss()) AddNumberOrNull(parameters);
  }
  void AddParameter(List<GenericValue>& parameters, Parameter parameter) {
    switch (parameter) {
    case Parameter::Integer: return Add(parameters, ValueKind::Integer);
    case Parameter::IntegerOrNull: return AddNumberOrNull(parameters);
    case Parameter::Boolean: return Add(parameters, ValueKind::Boolean);
    case Parameter::Octets: return Add(parameters, ValueKind::OctetString);
    case Parameter::Reference: return Add(parameters, ValueKind::ObjectReference);
    case Parameter::Typed: return AddTyped(parameters);
    case Parameter::TypedList:
      for (int left = Below(4); left > 0; --left) AddTyped(parameters);
      return;
    case Parameter::References:
      for (int left = Below(4); left > 0; --left) Add(parameters, ValueKind::ObjectReference);
      return;
    case Parameter::Points:
      for (int left = 2 * Below(4); left > 0; --left) Add(parameters, ValueKind::Integer);
      return;
    case Parameter::Colour:
      return Add(parameters, Toss() ? ValueKind::Integer : ValueKind::OctetString);
    case Parameter::FontChoice:
      return Add(parameters, Toss() ? ValueKind::ObjectReference : ValueKind::OctetString);
    case Parameter::NewContent: return AddNewContent(parameters);
    case Parameter::NewTimer:
      Add(parameters, ValueKind::Integer);
      if (Toss()) Add(parameters, ValueKind::Boolean);
      return;
    case Parameter::Speed:
      Add(parameters, ValueKind::Integer);
      if (Toss()) Add(parameters, ValueKind::Integer);
      return;
    case Parameter::EventNumber: {
      GenericValue event;
      event.Kind = ValueKind::Integer;
      event.Integer = Below(40);
      Keep(parameters.Append(std::move(event)) != nullptr);
      return;
    }
    }
  }

  std::mt19937 random_;
};

}  // namespace

OwnedGroup RandomGroup(std::uint32_t seed) {
  Filler filler(seed);
  if (filler.Toss()) {
    auto application = Owned<Application>::New();
    filler.FillObject(*application);
    return OwnedGroup(application.Release());
  }
  auto scene = Owned<Scene>::New();
  filler.FillObject(*scene);
  return OwnedGroup(scene.Release());
}

}  // namespace korvel
