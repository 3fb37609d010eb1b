// Prints the lines that many classes share: numbers, strings, references, colours, positions.
#include "dump/tree.h"

#include <cstdarg>

namespace korvel {

const char* TextOrNull(const OctetString& value) {
  return value.IsPresent() ? value.Text() : "NULL";
}

void Tree::Prefix() const {
  for (int i = 0; i < depth_; ++i) std::fputs("|   ", stream_);
  std::fputs("|---", stream_);
}

void Tree::Line(const char* format, ...) const {
  Prefix();
  va_list values;
  va_start(values, format);
  std::vfprintf(stream_, format, values);
  va_end(values);
  std::fputc('\n', stream_);
}

void Tree::Number(const char* label, std::int32_t value) const { Line("%s: %d", label, value); }

void Tree::Boolean(const char* label, bool value) const {
  Line("%s: %s", label, value ? "TRUE" : "FALSE");
}

void Tree::String(const char* label, const OctetString& value) const {
  Line("%s: %s", label, TextOrNull(value));
}

void Tree::ReferenceLine(const ObjectReference& value) const {
  Line("ObjectReference:(%s %d)", TextOrNull(value.GroupIdentifier), value.Number);
}

void Tree::OctetsLine(const OctetString& value) const {
  Prefix();
  std::fprintf(stream_, "OctetString: length(%d) data(%s) hex(", static_cast<int>(value.Length()),
               TextOrNull(value));
  for (const char byte : value.View()) {
    std::fprintf(stream_, "%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
  }
  std::fputs(")\n", stream_);
}

void Tree::Reference(const char* label, const ObjectReference& value) const {
  Line("%s:", label);
  Deeper().ReferenceLine(value);
}

void Tree::Colour(const char* label, const ColourValue& value) const {
  Line("%s:", label);
  if (value.Kind == ValueKind::None) return Deeper().Line("None %d", 0);
  if (value.Kind == ValueKind::Integer) return Deeper().Number("Integer", value.Index);
  Deeper().OctetsLine(value.Absolute);
}

void Tree::Font(const char* label, const FontBody& value) const {
  Line("%s:", label);
  if (value.Kind == ValueKind::None) return Deeper().Line("None %d", 0);
  if (value.Kind == ValueKind::OctetString) return Deeper().OctetsLine(value.Name);
  Deeper().ReferenceLine(value.Reference);
}

void Tree::Pair(const char* label, std::int32_t x, std::int32_t y) const {
  Line("%s:", label);
  Deeper().Number("X", x);
  Deeper().Number("Y", y);
}

void Tree::Size(const char* label, const BoxSize& value) const {
  Pair(label, value.Width, value.Height);
}

void Tree::Place(const char* label, const Position& value) const { Pair(label, value.X, value.Y); }

}  // namespace korvel
