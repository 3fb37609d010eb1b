// The frame that a test decoder fills: its size from the stream's sequence header.
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

// Reads kSequenceHeaderBytes.
inline PlaneSizes PlaneSizesIn(const std::uint8_t* header) {
  const int width = header[4] << 4 | header[5] >> 4;
  const int height = (header[5] & 15) << 8 | header[6];
  return {width * height, (width / 2) * (height / 2)};
}

// No samples if the file has no whole header.
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
