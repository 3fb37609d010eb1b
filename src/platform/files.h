// The broadcast file system, as the engine reads it. Worker thread only.
#pragma once

#include <string_view>

#include "objects/octet_string.h"
#include "objects/status.h"

namespace korvel {

// Reads a broadcast file through the host object. Waits, asking again every 500 ms, while the host
// answers that the file is not there yet and the engine may run. Done, with the bytes copied to
// `bytes`; Refused, with `bytes` untouched, for an empty path, without a host object, on any other
// answer of the host, when the engine may not run, and when memory is out. A null `bytes` only asks
// whether the file is there.
Status FetchFile(std::string_view path, OctetString* bytes);

}  // namespace korvel
