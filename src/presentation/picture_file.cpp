// The kinds of picture files, each of which has a file of its own. Metafiles (EMF, WMF) are none of
// them, though GDI+ opens them: they are programs that draw for as long as they like, and it makes
// no brush of them to paint a box with.
#include "presentation/picture_file.h"

namespace korvel {

namespace {

struct PictureKind {
  std::string_view Signature;
  PictureFinder* Find;
};

constexpr PictureKind kKinds[] = {{kPngSignature, FindPngPicture},  {"GIF8", FindGifPicture},
                                  {"\xFF\xD8", FindJpegPicture},    {"BM", FindBmpPicture},
                                  {{"II*\0", 4}, FindTiffPicture},  {{"MM\0*", 4}, FindTiffPicture},
                                  {{"\0\0\1\0", 4}, FindIcoPicture}};

}  // namespace

bool FindPicture(std::string_view file, std::uint64_t mostNs, FilePieces& pieces) noexcept {
  for (const PictureKind& kind : kKinds) {
    if (file.starts_with(kind.Signature)) return kind.Find(file, mostNs, pieces);
  }
  return false;
}

}  // namespace korvel
