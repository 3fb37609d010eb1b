// The doorway of the interchange form: bytes to records, records to bytes, and the completion of
// the references that a decoded group leaves open.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "objects/octet_string.h"
#include "objects/ownership.h"
#include "objects/status.h"

namespace korvel {

// Why a file was refused: the first byte of the element that does not fit, the part of the
// group that it is in, and the element that should be there.
struct DecodeError {
  std::size_t offset = 0;
  const char* owner = "";  // the class: "Text"; empty outside of everything
  const char* part = "";   // the keyword of its attribute, or the action: ":OrigFont", "SetData"
  const char* expected = "";
};

// Reads a whole group from its BER encoding. Done, or Refused for anything that is no well-formed
// Application or Scene, and when memory is out; nothing is printed. `group` is set before the
// contents are read, so that after a failure the caller has the partly built record; it is null
// when even the first header is wrong. `error`, if given, receives why a file was refused. Worker
// thread; tools: any one.
Status DecodeGroup(std::span<const std::uint8_t> bytes, OwnedGroup& group,
                   DecodeError* error = nullptr);

// Writes a group in the standard's BER form. Attributes at their construction values are left out,
// unless the class must have them. Refused, with `bytes` untouched, when memory runs out and for an
// action that the form has no tag for (those above 110).
Status EncodeGroup(const Group& group, OctetString& bytes);

// Gives every reference of the group and its items that has no group identifier a copy of
// `groupName`, after which a reference means the same wherever it is read. Failure, with a message
// naming the reference, when memory runs out.
Status CompleteReferences(std::string_view groupName, Group& group);

}  // namespace korvel
