// A decoder of I-frames that decodes nothing: it notes what it is asked for and fills the frame
// with samples that the test has chosen. The engine finds it as it finds the host's. It is built
// once with each of the calling conventions that such a library may have on 32 bits.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "decoders/recording_decoder/record.h"

namespace {

korvel::test::DecoderRecord record;

}  // namespace

extern "C" korvel::test::DecoderRecord* Record() { return &record; }

extern "C" int DECODER_CONVENTION Decode(const char* path, std::uint8_t** buffer, int one) {
  ++record.calls;
  std::strncpy(record.path, path, sizeof record.path - 1);
  record.one = one;
  if (record.decode != nullptr) {
    record.decode(path, *buffer);
    return record.result;
  }
  std::uint8_t header[7] = {};
  if (std::FILE* file = std::fopen(path, "rb"); file != nullptr) {
    if (std::fread(header, 1, sizeof header, file) != sizeof header) header[4] = 0;
    std::fclose(file);
  }
  const int width = header[4] * 16 + header[5] / 16;
  const int height = header[5] % 16 * 256 + header[6];
  const int luma = width * height;
  const int chroma = (width / 2) * (height / 2);
  std::uint8_t* to = *buffer;
  record.isZeroFilled =
      std::all_of(to, to + luma + 2 * chroma, [](std::uint8_t sample) { return sample == 0; });
  to = std::fill_n(to, luma, record.y);
  to = std::fill_n(to, chroma, record.u);
  std::fill_n(to, chroma, record.v);
  return record.result;
}
