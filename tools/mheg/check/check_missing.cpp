// Finds missing mandatory attributes in BER groups. (The reader of the notation reports them
// itself.) A decoded group does not record whether an attribute was present, so an attribute counts
// as missing if it has its initial value and an author could not have meant that value.
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

// Whether an author may have written the initial value on purpose: true for booleans, numbers,
// references and box sizes.
template <class Field>
constexpr bool kIsUsable = std::is_same_v<Field, bool> || std::is_same_v<Field, std::int32_t> ||
                           std::is_same_v<Field, ObjectReference> || std::is_same_v<Field, BoxSize>;

class MissingCheck {
 public:
  MissingCheck(std::int32_t object, ItemType type, Findings& findings)
      : object_(object), type_(type), findings_(findings) {}

  template <class Record> void Check(const Record& record) {
    const Record construction{};
    ForEachWrittenAttribute<Record>(
        [&](const char* keyword, const Form& form, const auto& field, const auto& constructed) {
          Check(keyword, form, field, constructed);
        },
        record, construction);
  }

 private:
  template <class Field>
  void Check(const char* keyword, const Form& form, const Field& field, const Field& constructed) {
    if (!form.isRequired || kIsUsable<Field> || field != constructed) return;
    findings_.push_back(
        {Rule::InvalidGroup, object_, {{}, ClassName(type_) + " lacks " + keyword}});
  }

  std::int32_t object_;
  ItemType type_;
  Findings& findings_;
};

}  // namespace

void CheckMissing(const Carousel& /*carousel*/, const CheckedGroup& group, Findings& findings) {
  if (group.file.form == GroupForm::Text) return;
  for (const auto& [number, object] : group.objects) {
    MissingCheck check(number, object.type, findings);
    VisitIngredientClass(object.type, [&, record = object.record]<class Record>() {
      check.Check(static_cast<const Record&>(*record));
    });
  }
}

}  // namespace mheg
