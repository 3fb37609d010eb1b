// Reads chunks with stream.read(), which reports errors of the system by the stream's state.
// Iterators over the stream's buffer would throw exceptions.
#include "mheg/read_file.h"

#include <array>
#include <fstream>
#include <system_error>

namespace mheg {
namespace {

// Far more than a file of a carousel needs, but small enough for many threads to hold one each.
constexpr std::size_t kMaxFileSize = 128U << 20;

}  // namespace

const char* ReadBytes(const std::filesystem::path& path, std::string& bytes) {
  bytes.clear();
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return "is a folder, expected a file";
  std::ifstream stream(path, std::ios::binary);
  std::array<char, 16384> chunk;
  do {
    stream.read(chunk.data(), chunk.size());
    bytes.append(chunk.data(), static_cast<std::size_t>(stream.gcount()));
    if (bytes.size() > kMaxFileSize) return "is longer than 128 MiB";
  } while (stream);
  return stream.eof() ? nullptr : "cannot be read";
}

}  // namespace mheg
