// The writers of values and objects, and WriteTextGroup.
#include <utility>

#include "textual/text_writer.h"

namespace korvel {
bool IsGiven(const OctetString& value) { return value.IsPresent(); }
bool IsGiven(const ContentReference& value) { return value.Path.IsPresent(); }

void Write(TextWriter& writer, bool value) { writer.Word(value ? "TRUE" : "FALSE"); }

void Write(TextWriter& writer, std::int32_t value) { writer.Number(value); }

void Write(TextWriter& writer, const OctetString& value) { writer.String(value.View()); }

void Write(TextWriter& writer, const ObjectReference& value) {
  if (!value.GroupIdentifier.IsPresent()) return writer.Number(value.Number);
  writer.Open('(');
  writer.String(value.GroupIdentifier.View());
  writer.Number(value.Number);
  writer.Close(')');
}

void Write(TextWriter& writer, const OptionalReference& value) { Write(writer, value.Reference); }

void Write(TextWriter& writer, const ColourValue& value) {
  if (value.Kind == ValueKind::Integer) return writer.Number(value.Index);
  writer.CodedString(value.Absolute.View());
}

void Write(TextWriter& writer, const FontBody& value) {
  if (value.Kind == ValueKind::OctetString) return writer.String(value.Name.View());
  Write(writer, value.Reference);
}

void Write(TextWriter& writer, const ContentBody& value) {
  if (!value.IsReferenced) return writer.String(value.Data.View());
  const ContentBody construction;
  writer.Word(":ContentRef");
  writer.Open('(');
  writer.String(value.Data.View());
  if (value.Size != construction.Size) {
    writer.Word(":ContentSize");
    writer.Number(value.Size);
  }
  if (value.CachePriority != construction.CachePriority) {
    writer.Word(":CCPriority");
    writer.Number(value.CachePriority);
  }
  writer.Close(')');
}

void Write(TextWriter& writer, const ContentReference& value) { writer.String(value.Path.View()); }

void Write(TextWriter& writer, const GenericValue& value) {
  switch (value.Kind) {
  case ValueKind::None: return writer.Word("NULL");
  case ValueKind::Boolean: return Write(writer, value.Boolean);
  case ValueKind::Integer: return Write(writer, value.Integer);
  case ValueKind::OctetString: return Write(writer, value.Octets);
  case ValueKind::ObjectReference: return Write(writer, value.Reference);
  case ValueKind::IndirectReference:
    writer.Word(":IndirectRef");
    return Write(writer, value.Reference);
  case ValueKind::ContentReference: writer.Word(":ContentRef"); return Write(writer, value.Octets);
  }
}

void WriteEntry(TextWriter& writer, const Movement& movement) { Write(writer, movement.Targets); }

void WriteEntry(TextWriter& writer, const ActionSlot& slot) {
  slot.IsNull ? writer.Word("NULL") : Write(writer, slot.Actions);
}

namespace {

template <class Record> void WriteObject(TextWriter& writer, const Record& record) {
  const Record construction{};
  bool hasAttributes = false;
  writer.Open('{');
  writer.Word(Description<Record>::heading.keyword);
  Write(writer, record.Reference);
  writer.Indent();
  const auto writeIfSet = [&](const char* keyword, const Form& form, const auto& field,
                              const auto& constructed) {
    const bool isWritten = field != constructed || (form.isRequired && IsGiven(field));
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
  VisitGroup(group, [&writer](const auto& record) { WriteObject(writer, record); });
  writer.NewLine();
  if (writer.HasFailed()) {
    if (wordless != nullptr) *wordless = writer.Wordless();
    return Status::Refused;
  }
  return text.Assign(writer.Text()) ? Status::Done : Status::Refused;
}

}  // namespace korvel
