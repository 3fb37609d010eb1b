// A folder that stands for the broadcast file system: resolves the paths that the engine asks for
// and reads the files. Portable; knows nothing of the host object that uses it.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace player {

class Carousel {
 public:
  explicit Carousel(std::filesystem::path root) : root_(std::move(root)) {}

  // The file that a broadcast path means, below the folder; nothing for a path that would leave
  // it, or that names no file. '\\' and '/' separate alike, and a leading one changes nothing.
  [[nodiscard]] std::optional<std::filesystem::path> Resolve(std::string_view path) const;

  // The bytes of a file, which may be none; nothing when there is no such file. Any thread.
  [[nodiscard]] std::optional<std::vector<char>> Read(std::string_view path) const;

 private:
  std::filesystem::path root_;
};

}  // namespace player
