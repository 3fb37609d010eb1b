// Decodes any bytes as a video stream. Decoding must end, stay within the stream and the frame and
// leak nothing. Rejected streams must give a black frame.
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "menuapi/decoder.h"

namespace {

// Larger frames are skipped, because allocating them takes longer than decoding. The tallest
// possible frame is within this limit.
constexpr int kMaxArea = 32 * 4096;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  menuapi::FrameSize frame;
  if (!menuapi::ReadFrameSize({bytes, size}, frame)) return 0;
  if (frame.width * frame.height > kMaxArea) return 0;
  std::vector<std::uint8_t> planes(menuapi::PlanesBytes(frame));
  if (menuapi::DecodeFrame({bytes, size}, planes) != menuapi::Result::Rejected) return 0;
  std::vector<std::uint8_t> black(planes.size());
  menuapi::FillBlack(frame, black);
  if (planes != black) std::abort();
  return 0;
}
