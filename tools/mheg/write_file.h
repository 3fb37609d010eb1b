// Writes a whole file. The old contents stay until the new ones are complete, so that a failure
// destroys nothing and other programs never see half a file.
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

namespace mheg {

// Replaces the contents of a file, or creates it. Returns false if that fails.
[[nodiscard]] bool WriteFile(const std::filesystem::path& path, std::string_view bytes);

// The same for a file that is not a link. `write` is called with a path and writes the contents
// there. Also returns false if `write` does.
[[nodiscard]] bool WriteFile(const std::filesystem::path& path,
                             const std::function<bool(const std::filesystem::path&)>& write);

}  // namespace mheg
