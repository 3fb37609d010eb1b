// Writes a whole file. The old contents stay until the new contents are complete, so that a failure
// destroys nothing and other programs never read half a file.
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

namespace mheg {

// Replaces the contents of a file, or creates it. Returns false if that fails.
[[nodiscard]] bool WriteFile(const std::filesystem::path& path, std::string_view bytes);

// The same for a path that is not a link. `write` writes the contents to the path that it is called
// with, and returns false if it fails.
[[nodiscard]] bool WriteFile(const std::filesystem::path& path,
                             const std::function<bool(const std::filesystem::path&)>& write);

}  // namespace mheg
