// The arguments and results of the recording decoder, shared with the tests that load it.
#pragma once

#include <cstdint>

namespace korvel::test {

struct DecoderRecord {
  int calls = 0;
  // The arguments of the last call.
  char path[300] = {};
  int one = 0;
  bool isZeroFilled = false;  // the buffer contained only zeros

  // The samples for the frame, and the result to return.
  std::uint8_t y = 0;
  std::uint8_t u = 128;
  std::uint8_t v = 128;
  int result = 0;
  // If not null, called instead of filling the frame with the samples. It may fill the buffer or
  // replace the pointer to it.
  void (*decode)(const char* path, std::uint8_t** buffer) = nullptr;
};

}  // namespace korvel::test
