// Examines any bytes as a picture file, which must end and stay within the file. Then reads their
// frame size as an I-frame stream, which must be a size that can be decoded, or none.
#include <cstdint>
#include <cstdlib>

#include "appearance/content_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view file(reinterpret_cast<const char*>(bytes), size);
  static_cast<void>(korvel::MayBeDecoded(file));
  korvel::FrameSize frame;
  const bool isSized = korvel::FindFrameSize(file, frame);
  const auto isSide = [](std::int32_t side) { return side >= 1 && side <= 4095; };
  if (isSized && !(isSide(frame.width) && isSide(frame.height))) std::abort();
  return 0;
}
