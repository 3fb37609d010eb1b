// Fills the frame of a test decoder. Its size is in the stream's sequence header.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace korvel::test {

constexpr int kSequenceHeaderBytes = 7;

// The numbers of samples in the luma plane and in each of the chroma planes.
struct PlaneSizes {
  int luma = 0;
  int chroma = 0;
};

// `header` has kSequenceHeaderBytes bytes.
inline PlaneSizes PlaneSizesIn(const std::uint8_t* header) {
  const int width = header[4] << 4 | header[5] >> 4;
  const int height = (header[5] & 15) << 8 | header[6];
  return {width * height, (width / 2) * (height / 2)};
}

// Both sizes are 0 if the file does not contain a complete header.
inline PlaneSizes PlaneSizesInFile(const char* path) {
  std::uint8_t header[kSequenceHeaderBytes] = {};
  std::FILE* file = std::fopen(path, "rb");
  if (file == nullptr) return {};
  const bool isRead = std::fread(header, 1, sizeof header, file) == sizeof header;
  std::fclose(file);
  return isRead ? PlaneSizesIn(header) : PlaneSizes{};
}

inline void FillPlanes(const PlaneSizes& sizes, std::uint8_t y, std::uint8_t u, std::uint8_t v,
                       std::uint8_t* buffer) {
  buffer = std::fill_n(buffer, sizes.luma, y);
  buffer = std::fill_n(buffer, sizes.chroma, u);
  std::fill_n(buffer, sizes.chroma, v);
}

}  // namespace korvel::test
