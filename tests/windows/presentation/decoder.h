// A decoder of I-frames for tests. While the object exists, the engine finds the recording decoder
// under the name of the host's.
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

  // The arguments that it received, and its results.
  [[nodiscard]] DecoderRecord& Record() { return *record_; }

  // Makes `decode` decode all further frames.
  using Decode = std::function<void(const char* path, std::uint8_t* buffer)>;
  void DecodeBy(Decode decode);

 private:
  HMODULE library_;
  DecoderRecord* record_ = nullptr;
  Decode decode_;
};

// A stream of that size; the byte after the size is the luma of the frame.
[[nodiscard]] std::string Stream(int width, int height, std::uint8_t luma);

// Decodes such a stream as a real decoder does: reads the size from it and fills that frame.
void DecodeStream(const std::string& stream, std::uint8_t* buffer);

}  // namespace korvel::test
