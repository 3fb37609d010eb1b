// Group names as file names: the start-up search, the resolution of a name against the current
// directory, and the directory that launching or spawning a name leaves behind.
#pragma once

#include <string_view>

#include "objects/octet_string.h"
#include "objects/status.h"

namespace korvel {

// Reads the start-up application: "a", else "startup", in two passes. With a path, the path itself,
// else the two names in the directory that the path names, else the two names. False when every
// pass has failed.
[[nodiscard]] bool FetchStartUp(std::string_view path, OctetString& bytes);

// The current directory after a Launch and after a Spawn of the name; the two differ. False when
// memory is out.
[[nodiscard]] bool SetDirectoryOfLaunched(std::string_view groupName);
[[nodiscard]] bool SetDirectoryOfSpawned(std::string_view groupName);

}  // namespace korvel
