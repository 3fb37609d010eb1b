// The kinds of picture files, each of which has a file of its own.
#include "presentation/picture_file.h"

namespace korvel {

namespace {

struct PictureKind {
  std::string_view Signature;
  bool (*Find)(std::string_view file, FilePieces& pieces) noexcept;
};

constexpr PictureKind kKinds[] = {{"\x89PNG\r\n\x1A\n", FindPngPicture},
                                  {"GIF8", FindGifPicture},
                                  {"\xFF\xD8", FindJpegPicture},
                                  {"BM", FindBmpPicture}};

}  // namespace

bool FindPicture(std::string_view file, FilePieces& pieces) noexcept {
  for (const PictureKind& kind : kKinds) {
    if (file.starts_with(kind.Signature)) return kind.Find(file, pieces);
  }
  return false;
}

}  // namespace korvel
