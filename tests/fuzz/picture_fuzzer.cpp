// Any bytes as a picture file: looking at it ends and stays inside, and what is handed to a decoder
// is a picture file again, of which nothing more is left out. Decoding it is left to GDI+.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "presentation/picture_file.h"

namespace {

// The pieces behind one another, as the decoder gets them.
bool Find(std::string_view file, std::string& found) {
  korvel::FilePieces pieces;
  if (!korvel::FindPicture(file, pieces)) return false;
  for (const std::string_view piece : pieces) found += piece;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::string picture;
  if (!Find({reinterpret_cast<const char*>(bytes), size}, picture)) return 0;
  std::string again;
  if (!Find(picture, again)) std::abort();
  // The end that a GIF file gets is taken for data when it was cut short there, and gets another.
  if (again != picture && again != picture + ';') std::abort();
  return 0;
}
