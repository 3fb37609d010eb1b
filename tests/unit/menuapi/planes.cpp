// Decodes into a buffer that is larger than the frame and filled with a byte that is rare in
// frames.
#include "unit/menuapi/planes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace menuapi::test {

Result Planes::Decode(std::span<const std::uint8_t> stream) {
  const Result result = DecodeFrame(stream, std::span(bytes_).first(PlanesBytes(size_)));
  const auto end = bytes_.begin() + static_cast<std::ptrdiff_t>(PlanesBytes(size_));
  EXPECT_TRUE(std::all_of(end, bytes_.end(), [](int byte) { return byte == kUntouched; }));
  return result;
}

bool Planes::IsBlack() const {
  const auto all = Bytes();
  const auto chroma = all.begin() + static_cast<std::ptrdiff_t>(LumaBytes(size_));
  return std::all_of(all.begin(), chroma, [](int level) { return level == 16; }) &&
         std::all_of(chroma, all.end(), [](int level) { return level == 128; });
}

bool Planes::IsUntouched() const {
  return std::all_of(bytes_.begin(), bytes_.end(), [](int byte) { return byte == kUntouched; });
}

}  // namespace menuapi::test
