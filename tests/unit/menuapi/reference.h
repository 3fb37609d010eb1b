// Encodes and decodes streams with ffmpeg, the reference. It runs in a temporary folder, and a
// failed run fails the test.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "menuapi/sequence.h"

namespace menuapi::test {

using Bytes = std::vector<std::uint8_t>;

class Reference {
 public:
  Reference();
  ~Reference();
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;

  // Encodes one frame of a source (a filter such as "testsrc2=size=64x48") with each set of
  // options, in one run. Encodes MPEG-2 unless the options name another encoder.
  [[nodiscard]] std::vector<Bytes> Encode(const std::string& source,
                                          const std::vector<std::string>& options) const;
  [[nodiscard]] Bytes Encode(const std::string& source, const std::string& options) const;

  // The first frame of each stream: luma, then blue and red chroma, whose sizes are rounded up.
  // Uses the floating-point inverse transform, which follows the formula. The others round
  // intermediate results and are sometimes off by one.
  [[nodiscard]] std::vector<Bytes> Decode(const std::vector<Bytes>& streams) const;
  [[nodiscard]] Bytes Decode(const Bytes& stream) const;

 private:
  void Run(const std::string& arguments) const;
  [[nodiscard]] Bytes Load(const std::string& name) const;

  std::filesystem::path folder_;
};

// The differences between two frames in the samples that both have. The chroma of the reference has
// one more column and row if the size is odd.
struct Difference {
  int largest = 0;
  std::size_t count = 0;  // of samples that differ
};
[[nodiscard]] Difference Compare(FrameSize size, const Bytes& reference,
                                 std::span<const std::uint8_t> planes);

}  // namespace menuapi::test
