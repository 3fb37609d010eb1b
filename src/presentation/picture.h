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

// The image of a picture file, decoded and kept unless a kept picture is of the same bytes. The
// limits are kMostKeptPictures and kMostKeptBytes. Null if it cannot be read. Valid until the next
// call.
[[nodiscard]] Gdiplus::GpImage* DecodedImage(std::string_view file);

// The named picture of the library's resources. It is decoded on first use, and kept until the
// engine restarts or closes. Null if the library does not have it.
[[nodiscard]] Gdiplus::GpImage* NamedImage(std::string_view name);

struct PicturePlacement {
  korvel::Position position;
  korvel::BoxSize boxSize;
  std::int32_t transparency = 0;  // per cent
  bool tiling = false;
  korvel::BoxSize scaledSize{kNotScaled, kNotScaled};  // of the whole picture
};

// Paints the picture from the box's top-left corner on, cut to the box. False if there is no
// picture; true if it was painted, or if the box or the scale leaves nothing to paint.
[[nodiscard]] bool PaintPicture(Gdiplus::GpImage* image, const PicturePlacement& placement);

}  // namespace korvel
