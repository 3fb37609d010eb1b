// Reads the file in chunks, without querying its size first, and decodes it.
#include "menuapi/stream_file.h"

#include <cstdio>
#include <memory>
#include <vector>

namespace menuapi {
namespace {

// More than a frame of 4095 x 4095 samples of finely quantised noise needs. The rest of a longer
// file is ignored, which bounds memory and time.
constexpr std::size_t kMaxStreamBytes = std::size_t{32} << 20;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

std::vector<std::uint8_t> ReadStream(const char* path) {
  constexpr std::size_t kChunk = std::size_t{1} << 20;
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path, "rb"));
  std::vector<std::uint8_t> bytes;
  std::size_t size = 0;
  while (file != nullptr && size == bytes.size() && size < kMaxStreamBytes) {
    bytes.resize(size + kChunk);
    size += std::fread(&bytes[size], 1, kChunk, file.get());
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace

Result DecodeFrameFile(const char* path, std::uint8_t* planes) {
  const std::vector<std::uint8_t> stream = ReadStream(path);
  FrameSize size;
  if (!ReadFrameSize(stream, size)) return Result::Rejected;
  return DecodeFrame(stream, {planes, PlanesBytes(size)});
}

}  // namespace menuapi
