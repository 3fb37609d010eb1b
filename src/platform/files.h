// The broadcast file system, as the engine reads it. Worker thread only.
#pragma once

#include <string_view>

#include "objects/octet_string.h"

namespace korvel {

// Reads a broadcast file through the host object and copies it to `bytes`. While the host answers
// that the file is not there yet, waits and asks again every 500 ms as long as the engine may run.
// False, with `bytes` unchanged, for an empty path, without a host object, on any other answer of
// the host, when the engine may not run, and when memory is out. A null `bytes` only asks whether
// the file exists.
[[nodiscard]] bool FetchFile(std::string_view path, OctetString* bytes);

}  // namespace korvel
