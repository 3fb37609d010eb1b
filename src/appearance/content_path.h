// The file that a content reference of something drawn means. A rule of drawing's own: the current
// directory plays no part in it, unlike in the names of groups.
#pragma once

#include <string_view>

#include "objects/octet_string.h"

namespace korvel {

// Everything up to and including the first '/' goes ("~/", "DSM:/"), and the other '/' become '\'.
// False when memory is out.
[[nodiscard]] bool ContentPath(std::string_view reference, OctetString& path);

}  // namespace korvel
