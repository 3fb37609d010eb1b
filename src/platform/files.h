// The broadcast file system, as the engine reads it. Worker thread only.
#pragma once

#include <string_view>

#include "objects/octet_string.h"

namespace korvel {

// Reads a broadcast file through the host object and copies it to `bytes`. While the host reports
// that the file is not yet available, waits and retries every 500 ms as long as the engine may run.
// False, with `bytes` unchanged, if the path is empty, there is no host object, the host returns
// any other result, the engine may not run, or memory runs out. A null `bytes` only checks whether
// the file exists.
[[nodiscard]] bool FetchFile(std::string_view path, OctetString* bytes);

}  // namespace korvel
