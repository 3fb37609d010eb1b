// What to tell of a field that could not be read: the form that its type has in a file.
#pragma once

#include "objects/class_tables.h"
#include "objects/values.h"

namespace korvel::ber {

inline const char* ExpectedFor(const bool& /*field*/, const Form& /*form*/) { return "a BOOLEAN"; }
inline const char* ExpectedFor(const std::int32_t& /*field*/, const Form& /*form*/) {
  return "an INTEGER";
}
template <IsEnumeration Enumeration>
const char* ExpectedFor(const Enumeration& /*field*/, const Form& /*form*/) {
  return kWords<Enumeration>.empty() ? "an INTEGER" : "an ENUMERATED";
}
inline const char* ExpectedFor(const OctetString& /*field*/, const Form& /*form*/) {
  return "an OCTET STRING";
}
inline const char* ExpectedFor(const ContentReference& /*field*/, const Form& /*form*/) {
  return "an OCTET STRING";
}
inline const char* ExpectedFor(const ObjectReference& /*field*/, const Form& /*form*/) {
  return "an object reference";
}
inline const char* ExpectedFor(const OptionalReference& /*field*/, const Form& /*form*/) {
  return "an object reference";
}
inline const char* ExpectedFor(const ColourValue& /*field*/, const Form& /*form*/) {
  return "an INTEGER or an OCTET STRING";
}
inline const char* ExpectedFor(const FontBody& /*field*/, const Form& /*form*/) {
  return "an OCTET STRING or an object reference";
}
inline const char* ExpectedFor(const ContentBody& /*field*/, const Form& /*form*/) {
  return "an OCTET STRING or a content reference";
}
inline const char* ExpectedFor(const LinkCondition& /*field*/, const Form& /*form*/) {
  return "an event source, an event type and event data";
}
inline const char* ExpectedFor(const ActionList& /*field*/, const Form& /*form*/) {
  return "actions";
}
inline const char* ExpectedFor(const List<Item>& /*field*/, const Form& /*form*/) {
  return "objects";
}
template <class Entry>
const char* ExpectedFor(const List<Entry>& /*field*/, const Form& /*form*/) {
  return "a list";
}
template <IsSequence Record>
const char* ExpectedFor(const Record& /*field*/, const Form& /*form*/) {
  return "two INTEGERs";
}
template <IsDescribed Record>
const char* ExpectedFor(const Record& /*field*/, const Form& /*form*/) {
  return "attributes";
}

}  // namespace korvel::ber
