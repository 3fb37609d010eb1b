// The doorway of the interchange form: bytes to records, records to bytes, and completing the
// references of a decoded group.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "objects/octet_string.h"
#include "objects/ownership.h"
#include "objects/status.h"

namespace korvel {

// Why a file was refused: the offset of the first wrong element, the part of the group that
// contains it, and the element that was expected.
struct DecodeError {
  std::size_t offset = 0;
  const char* owner = "";  // the class: "Text"; empty outside all objects
  const char* part = "";   // the keyword of its attribute, or the action: ":OrigFont", "SetData"
  const char* expected = "";
};

// Decodes a whole group. Refused if the bytes are not a well-formed Application or Scene, or if
// memory runs out. Prints nothing. `group` is set before the contents are read: after a failure it
// holds the partly built record, or null if even the first header is wrong. `error`, if given,
// receives the reason of a refusal. Worker thread; tools may use any thread.
Status DecodeGroup(std::span<const std::uint8_t> bytes, OwnedGroup& group,
                   DecodeError* error = nullptr);

// Writes a group in the standard's BER form. Attributes at their construction values are omitted,
// unless they are mandatory. Refused, with `bytes` unchanged, if memory runs out or an action has
// no tag (those above 110).
Status EncodeGroup(const Group& group, OctetString& bytes);

// Sets the group identifier of every reference in the group and its items that has none to
// `groupName`, so that a reference means the same wherever it is read. Failure, with a message that
// names the reference, if memory runs out.
Status CompleteReferences(std::string_view groupName, Group& group);

}  // namespace korvel
