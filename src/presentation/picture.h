// A picture read from bytes: what GDI+ made of them, and the memory that it reads from.
#pragma once

#include <string_view>
#include <utility>

#include "presentation/gdi_plus.h"

namespace korvel {

// A block of global memory: the only kind that GDI+ reads pictures from.
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

  // A movable block with a copy of the bytes. False when memory is out.
  [[nodiscard]] bool Assign(std::string_view bytes);
  [[nodiscard]] HGLOBAL Get() const { return block_; }

 private:
  HGLOBAL block_ = nullptr;
};

// The image may read from the block as long as it lives, so it is released first.
struct Picture {
  GlobalBlock Block;
  ImageOwner Image;
};

// Reads a picture of any format that GDI+ knows, but no metafile. False, with `picture` unchanged,
// when GDI+ cannot read the bytes or the picture is beyond the limits.
[[nodiscard]] bool ReadPicture(std::string_view bytes, Picture& picture);

}  // namespace korvel
