// What to tell of a field that could not be read: the form that its type has in a file.
#pragma once

#include "objects/class_tables.h"
#include "objects/values.h"

namespace korvel::ber {

inline const char* ExpectedFor(const bool& /*field*/) { return "a BOOLEAN"; }
inline const char* ExpectedFor(const std::int32_t& /*field*/) { return "an INTEGER"; }
template <IsEnumeration Enumeration>
const char* ExpectedFor(const Enumeration& /*field*/) {
  return kWords<Enumeration>.empty() ? "an INTEGER" : "an ENUMERATED";
}
inline const char* ExpectedFor(const OctetString& /*field*/) { return "an OCTET STRING"; }
inline const char* ExpectedFor(const ContentReference& /*field*/) { return "an OCTET STRING"; }
inline const char* ExpectedFor(const ObjectReference& /*field*/) { return "an object reference"; }
inline const char* ExpectedFor(const OptionalReference& /*field*/) { return "an object reference"; }
inline const char* ExpectedFor(const ColourValue& /*field*/) {
  return "an INTEGER or an OCTET STRING";
}
inline const char* ExpectedFor(const FontBody& /*field*/) {
  return "an OCTET STRING or an object reference";
}
inline const char* ExpectedFor(const ContentBody& /*field*/) {
  return "an OCTET STRING or a content reference";
}
inline const char* ExpectedFor(const LinkCondition& /*field*/) {
  return "an event source, an event type and event data";
}
inline const char* ExpectedFor(const ActionList& /*field*/) { return "actions"; }
inline const char* ExpectedFor(const List<Item>& /*field*/) { return "objects"; }
template <class Entry>
const char* ExpectedFor(const List<Entry>& /*field*/) {
  return "a list";
}
template <IsSequence Record>
const char* ExpectedFor(const Record& /*field*/) {
  return "two INTEGERs";
}
template <IsDescribed Record>
const char* ExpectedFor(const Record& /*field*/) {
  return "attributes";
}

}  // namespace korvel::ber
