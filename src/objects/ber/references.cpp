// Completes references: a pass over the class tables that copies the group's name to every
// reference without a group identifier.
#include <type_traits>

#include "objects/ber/ber.h"
#include "objects/class_tables.h"
#include "objects/messages.h"

namespace korvel {
namespace {

// The name of a reference in messages: the class, and the attribute unless it is the object's own
// reference.
struct Subject {
  const char* className;
  const char* name = "";
};

// One pass over a group. Each step returns false, after printing a message, if memory runs out.
class Completion {
 public:
  explicit Completion(std::string_view groupName) : groupName_(groupName) {}

  template <class Record>
  [[nodiscard]] bool CompleteObject(Record& record, const Subject& subject) {
    return Complete(record.Reference, subject) &&
           CompleteAttributes(record, Description<Record>::heading.name);
  }

 private:
  template <IsDescribed Record>
  [[nodiscard]] bool CompleteAttributes(Record& record, const char* className) {
    bool isDone = true;
    ForEachAttribute<Record>([&](const auto& attribute) {
      auto& field = record.*attribute.field;
      if (!isDone) return;
      if constexpr (IsDescribed<std::remove_cvref_t<decltype(field)>>) {
        isDone = CompleteAttributes(field, className);
      } else {
        isDone = Complete(field, Subject{className, attribute.form.name});
      }
    });
    return isDone;
  }

  [[nodiscard]] bool Complete(ObjectReference& reference, const Subject& subject) {
    if (SetGroup(reference)) return true;
    const char* space = *subject.name == 0 ? "" : " ";
    Say(Message::NoMemoryForGroup, subject.className, space, subject.name);
    return false;
  }
  [[nodiscard]] bool Complete(OptionalReference& value, const Subject& subject) {
    return !value.IsPresent || Complete(value.Reference, subject);
  }
  [[nodiscard]] bool Complete(FontBody& value, const Subject& subject) {
    return value.Kind != ValueKind::ObjectReference || Complete(value.Reference, subject);
  }

  [[nodiscard]] bool CompleteParameter(GenericValue& value) {
    const bool isReference =
        value.Kind == ValueKind::ObjectReference || value.Kind == ValueKind::IndirectReference;
    if (!isReference || SetGroup(value.Reference)) return true;
    Say(Message::NoMemoryForParameterGroup);
    return false;
  }
  [[nodiscard]] bool Complete(ElementaryAction& action, const Subject& /*subject*/) {
    if (!CompleteParameter(action.Target)) return false;
    for (GenericValue& value : action.Parameters) {
      if (!CompleteParameter(value)) return false;
    }
    return true;
  }
  [[nodiscard]] bool Complete(ActionSlot& slot, const Subject& subject) {
    return Complete(slot.Actions, subject);
  }

  // A stream's components are named after their class: "Stream Video".
  [[nodiscard]] bool Complete(Item& item, const Subject& subject) {
    bool isDone = true;
    VisitIngredientClass(item.Type(), [&]<class Record>() {
      const char* name = Description<Record>::heading.name;
      const bool isComponent = subject.className == Description<Stream>::heading.name;
      isDone = CompleteObject(item.As<Record>(),
                              isComponent ? Subject{subject.className, name} : Subject{name});
    });
    return isDone;
  }

  template <class T> [[nodiscard]] bool Complete(List<T>& list, const Subject& subject) {
    for (T& entry : list) {
      if (!Complete(entry, subject)) return false;
    }
    return true;
  }
  template <IsSequence Record> [[nodiscard]] bool Complete(Record& record, const Subject& subject) {
    bool isDone = true;
    ForEachElement<Record>([&](const auto& element) {
      isDone =
          isDone && Complete(record.*element.field, Subject{subject.className, element.form.name});
    });
    return isDone;
  }

  // A value without references.
  template <class Value> [[nodiscard]] bool Complete(Value& /*value*/, const Subject& /*subject*/) {
    return true;
  }

  [[nodiscard]] bool SetGroup(ObjectReference& reference) {
    return reference.GroupIdentifier.IsPresent() || reference.GroupIdentifier.Assign(groupName_);
  }

  std::string_view groupName_;
};

}  // namespace

Status CompleteReferences(std::string_view groupName, Group& group) {
  const bool isDone = VisitGroup(group, [groupName]<class Record>(Record& record) {
    return Completion(groupName).CompleteObject(record, {Description<Record>::heading.name});
  });
  return isDone ? Status::Done : Status::Failure;
}

}  // namespace korvel
