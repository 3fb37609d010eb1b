// A folder that acts as the broadcast file system: resolves the engine's paths and reads the files.
// Portable; independent of the host object that uses it.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace player {

class Carousel {
 public:
  explicit Carousel(std::filesystem::path root) : root_(std::move(root)) {}

  // The file in the folder for a broadcast path; nothing if the path leads outside the folder or
  // names no file. '\\' and '/' are both separators; a leading one is ignored.
  [[nodiscard]] std::optional<std::filesystem::path> Resolve(std::string_view path) const;

  // The bytes of a file, which may be empty; nothing if there is no such file. Any thread.
  [[nodiscard]] std::optional<std::vector<char>> Read(std::string_view path) const;

 private:
  std::filesystem::path root_;
};

}  // namespace player
