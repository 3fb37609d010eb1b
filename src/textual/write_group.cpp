// The writers of objects, and the entry: a group becomes its text.
#include <utility>

#include "textual/write_value.h"
#include "textual/written_attributes.h"

namespace korvel {
namespace {

template <class Record>
void WriteObject(TextWriter& writer, const Record& record) {
  const Record construction{};
  bool hasAttributes = false;
  writer.Open('{');
  writer.Word(Description<Record>::heading.keyword);
  Write(writer, record.Reference);
  writer.Indent();
  const auto writeIfSet = [&](const char* keyword, const Form& form, const auto& field,
                              const auto& constructed) {
    const bool isWritten = !IsSame(field, constructed) || (form.isRequired && IsGiven(field));
    if (!isWritten) return;
    hasAttributes = true;
    writer.SetPlace(record.Reference.Number, keyword);
    writer.NewLine();
    writer.Word(keyword);
    if (form.innerKeyword != nullptr) writer.Word(form.innerKeyword);
    Write(writer, field);
  };
  ForEachWrittenAttribute<Record>(writeIfSet, record, construction);
  writer.Outdent();
  if (hasAttributes) writer.NewLine();
  writer.Close('}');
}

}  // namespace

void WriteEntry(TextWriter& writer, const Item& item) {
  VisitIngredientClass(item.Type(), [&]<class Record>() {
    WriteObject(writer, static_cast<const Record&>(item.As<Record>()));
  });
}

Status WriteTextGroup(const Group& group, OctetString& text, WordlessValue* wordless) {
  TextWriter writer;
  if (group.Type == ItemType::Application) {
    WriteObject(writer, static_cast<const Application&>(group));
  } else {
    WriteObject(writer, static_cast<const Scene&>(group));
  }
  writer.NewLine();
  if (writer.HasFailed()) {
    if (wordless != nullptr) *wordless = writer.Wordless();
    return Status::Refused;
  }
  return text.Assign(writer.Text()) ? Status::Done : Status::Refused;
}

}  // namespace korvel
