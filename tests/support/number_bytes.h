// Converts numbers to bytes, for files that tests build.
#pragma once

#include <cstdint>
#include <string>

namespace korvel::test {

// The lowest `bytes` bytes of the number, in big-endian order.
inline std::string Big(std::uint32_t number, int bytes) {
  std::string text;
  for (int byte = bytes - 1; byte >= 0; --byte) text += static_cast<char>(number >> 8 * byte);
  return text;
}

// The same bytes in little-endian order.
inline std::string Little(std::uint32_t number, int bytes) {
  const std::string text = Big(number, bytes);
  return {text.rbegin(), text.rend()};
}

}  // namespace korvel::test
