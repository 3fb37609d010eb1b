// Group names as file names: the start-up search, the resolution of a name against the current
// directory, and the directory that launching or spawning a name leaves behind.
#pragma once

#include <string_view>

#include "objects/octet_string.h"
#include "objects/status.h"

namespace korvel {

// Reads the start-up application: "a", else "startup", in two passes. With a path, the path itself,
// else the two names in the directory that the path names, else the two names. Refused when every
// pass has failed.
Status FetchStartUp(std::string_view path, OctetString& bytes);

// The file name that a group name stands for. Refused for names that lead out of the carousel or to
// a common interface module, and when memory is out.
Status MakeFileName(std::string_view groupName, OctetString& fileName);

// The current directory after a Launch and after a Spawn of the name; the two differ. Failure when
// memory is out.
Status SetDirectoryOfLaunched(std::string_view groupName);
Status SetDirectoryOfSpawned(std::string_view groupName);

}  // namespace korvel
