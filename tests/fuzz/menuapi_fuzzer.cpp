// Any bytes as a video stream: decoding ends, stays inside the stream and the frame, leaks nothing,
// and what is refused is black.
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "menuapi/decoder.h"

namespace {

// A larger frame takes longer to allocate than its stream to decode. The tallest one is not larger.
constexpr int kMaxArea = 32 * 4096;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  menuapi::FrameSize frame;
  if (!menuapi::ReadFrameSize({bytes, size}, frame)) return 0;
  if (frame.width * frame.height > kMaxArea) return 0;
  std::vector<std::uint8_t> planes(menuapi::PlanesBytes(frame));
  if (menuapi::DecodeFrame({bytes, size}, planes) != menuapi::Result::Refused) return 0;
  std::vector<std::uint8_t> black(planes.size());
  menuapi::FillBlack(frame, black);
  if (planes != black) std::abort();
  return 0;
}
