// Pictures: read from bytes or from the library's resources, and painted into a box.
#pragma once

#include <string_view>
#include <utility>

#include "objects/visibles.h"
#include "presentation/gdi_plus.h"

namespace korvel {

// A block of global memory, the only kind of memory that GDI+ reads pictures from.
class GlobalBlock {
 public:
  GlobalBlock() = default;
  GlobalBlock(GlobalBlock&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  GlobalBlock& operator=(GlobalBlock&& other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  GlobalBlock(const GlobalBlock&) = delete;
  GlobalBlock& operator=(const GlobalBlock&) = delete;
  ~GlobalBlock() {
    if (block_ != nullptr) GlobalFree(block_);
  }

  // A movable block with a copy of the bytes. False if memory runs out.
  [[nodiscard]] bool Assign(std::string_view bytes);
  [[nodiscard]] HGLOBAL Get() const { return block_; }

 private:
  HGLOBAL block_ = nullptr;
};

// GDI+ may read from the block while the image exists, so the image is released first.
struct Picture {
  GlobalBlock block;
  ImageOwner image;
};

// Reads a picture of any format that GDI+ supports, except metafiles. False, with `picture`
// unchanged, when GDI+ cannot read the bytes or the picture is beyond the limits.
[[nodiscard]] bool ReadPicture(std::string_view bytes, Picture& picture);

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
