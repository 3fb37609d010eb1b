// An I-frame decoder for tests. While the object exists, the engine finds the recording decoder
// instead of the host's.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>

#include "decoders/recording_decoder/record.h"

namespace korvel::test {

class Decoder {
 public:
  // `name` is the folder of the decoder's DLL, beside the test program.
  explicit Decoder(const char* name = "recording_decoder");
  ~Decoder();
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  // The arguments of the last call, and the results that the decoder returns.
  [[nodiscard]] DecoderRecord& Record() { return *record_; }

  // Makes `decode` decode all later frames. It may replace the pointer to the buffer.
  using Decode = std::function<void(const char* path, std::uint8_t** buffer)>;
  void DecodeBy(Decode decode);

  // Removes the function with ordinal 1.
  void RemoveFunction();

 private:
  HMODULE library_;
  DecoderRecord* record_ = nullptr;
  Decode decode_;
};

// A stream whose sequence header has this size, followed by one byte, the luma of the whole frame.
[[nodiscard]] std::string Stream(int width, int height, std::uint8_t luma);

// Decodes such a stream as a real decoder does: reads its size and fills a frame of that size.
void DecodeStream(const std::string& stream, std::uint8_t* buffer);

}  // namespace korvel::test
