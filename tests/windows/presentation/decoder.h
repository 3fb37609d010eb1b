// A decoder of I-frames for the tests that want one. While it lives, the engine finds the recording
// decoder under the name of the host's.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>

#include "decoders/recording_decoder/record.h"

namespace korvel::test {

class Decoder {
 public:
  explicit Decoder(const char* name = "recording_decoder");
  ~Decoder();
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  // What it was asked for, and what it answers.
  [[nodiscard]] DecoderRecord& Record() { return *record_; }

  // From now on the function decodes, as any maker's might: it gets the path and the buffer.
  using Decode = std::function<void(const char* path, std::uint8_t* buffer)>;
  void DecodeBy(Decode decode);

 private:
  HMODULE library_;
  DecoderRecord* record_ = nullptr;
  Decode decode_;
};

// A stream of that size; the byte behind the size says how light the frame is.
[[nodiscard]] std::string Stream(int width, int height, std::uint8_t luma);

// What a maker's decoder does with such bytes: it takes the size from them, and fills as much.
void DecodeStream(const std::string& stream, std::uint8_t* buffer);

}  // namespace korvel::test
