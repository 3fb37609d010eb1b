// Any bytes as a picture file: looking at it ends and stays inside, and what is handed to a decoder
// is a picture file again, of which nothing more is left out. Decoding it is left to GDI+. Bytes as
// a stream of I-frames have a size that is decoded, or none.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "presentation/mpeg_file.h"
#include "presentation/picture_file.h"
#include "presentation/picture_limits.h"

namespace {

// The pieces behind one another, as the decoder gets them.
bool Find(std::string_view file, std::string& found) {
  korvel::FilePieces pieces;
  if (!korvel::FindPicture(file, korvel::kLongestPicturesNs, pieces)) return false;
  for (const std::string_view piece : pieces) found += piece;
  return true;
}

bool HasSizeBeyondLimits(std::string_view stream) {
  korvel::FrameSize size;
  return korvel::FindFrameSize(stream, korvel::kLongestPicturesNs, size) &&
         (size.Width < 1 || size.Width > 4095 || size.Height < 1 || size.Height > 4095);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view file(reinterpret_cast<const char*>(bytes), size);
  if (HasSizeBeyondLimits(file)) std::abort();
  std::string picture;
  if (!Find(file, picture)) return 0;
  std::string again;
  if (!Find(picture, again)) std::abort();
  // The end that a GIF file gets is taken for data when it was cut short there, and gets another.
  if (again != picture && again != picture + ';') std::abort();
  return 0;
}
