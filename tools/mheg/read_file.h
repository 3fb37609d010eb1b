// Reads a whole file.
#pragma once

#include <filesystem>
#include <string>

namespace mheg {

// Replaces `bytes` with the contents of the file. Returns null, or the reason why the file cannot
// be used; `bytes` is then incomplete.
[[nodiscard]] const char* ReadBytes(const std::filesystem::path& path, std::string& bytes);

}  // namespace mheg
