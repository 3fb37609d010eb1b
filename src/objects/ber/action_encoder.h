// Writing action lists: the flat row of values that an action carries gets back the nesting of the
// standard's syntax.
#pragma once

#include "objects/ber/ber_writer.h"
#include "objects/values.h"

namespace korvel::ber {

// Writes the elements of an action list, which the caller puts into a SEQUENCE or under an
// attribute's tag. The extensions that only run have no tag: an action of theirs makes the writer
// fail.
void EncodeActions(BerWriter& writer, const ActionList& actions);

}  // namespace korvel::ber
