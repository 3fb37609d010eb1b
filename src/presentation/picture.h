// Pictures: read from bytes or from the library's resources, and painted into a box.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "objects/visibles.h"
#include "presentation/gdi_plus.h"

namespace korvel {

struct GlobalReleaser {
  void operator()(HGLOBAL block) const { GlobalFree(block); }
};
// A movable block of global memory, the only kind of memory that GDI+ reads pictures from.
using GlobalBlock = std::unique_ptr<void, GlobalReleaser>;

// GDI+ may read from the block while the image exists, so the image is released first.
struct Picture {
  Picture() = default;
  Picture(Picture&&) = default;
  Picture& operator=(Picture&& other) noexcept {
    image.Reset();
    image = std::move(other.image);
    block = std::move(other.block);
    return *this;
  }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;
  ~Picture() = default;

  GlobalBlock block;
  ImageOwner image;
};

// Reads a picture of any format that GDI+ supports, except metafiles. False, with `picture`
// unchanged, when GDI+ cannot read the bytes or the picture is beyond the limits.
[[nodiscard]] bool ReadPicture(std::string_view bytes, Picture& picture);

// The image of a picture file, from the kept pictures if one was decoded from the same bytes; else
// decodes it and keeps it within kMostKeptPictures and kMostKeptBytes. Null if it cannot be read.
// Valid until the next call.
[[nodiscard]] Gdiplus::GpImage* DecodedImage(std::string_view file);

// The library's picture for video, decoded once for each name (its first 100 bytes) and kept until
// the engine restarts or closes. Null if it cannot be read.
[[nodiscard]] Gdiplus::GpImage* NamedImage(std::string_view name);

struct PicturePlacement {
  korvel::Position position;
  korvel::BoxSize boxSize;
  std::int32_t transparency = 0;  // per cent
  bool tiling = false;
  korvel::BoxSize scaledSize{kNotScaled, kNotScaled};  // of the whole picture
};

// Paints the picture at the box's top-left corner, clipped to the box. False if there is no
// picture; true if it was painted, or if the box or the scale leaves nothing to paint.
[[nodiscard]] bool PaintPicture(Gdiplus::GpImage* image, const PicturePlacement& placement);

}  // namespace korvel
