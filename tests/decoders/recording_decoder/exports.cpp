// An I-frame decoder that decodes nothing: it records its arguments and fills the frame with
// samples that the test has chosen. The engine finds it under the same name as the host's decoder.
// It is built once for each calling convention that a decoder may use on 32 bits.
#include <algorithm>
#include <cstring>

#include "decoders/frame.h"
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
    record.decode(path, buffer);
    return record.result;
  }
  const korvel::test::PlaneSizes sizes = korvel::test::PlaneSizesInFile(path);
  const int samples = sizes.luma + 2 * sizes.chroma;
  record.isZeroFilled = std::count(*buffer, *buffer + samples, 0) == samples;
  korvel::test::FillPlanes(sizes, record.y, record.u, record.v, *buffer);
  return record.result;
}
