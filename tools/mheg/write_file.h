// Writes a whole file.
#pragma once

#include <filesystem>
#include <string_view>

namespace mheg {

// Replaces the contents of a file, or creates it. The old contents stay until the new ones are
// complete, so that a failure destroys nothing and other programs never see half a file. Returns
// false if that fails.
[[nodiscard]] bool WriteFile(const std::filesystem::path& path, std::string_view bytes);

}  // namespace mheg
