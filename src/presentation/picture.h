// A picture read from bytes: what GDI+ made of them, and the memory that it reads from.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "presentation/gdi_plus.h"
#include "presentation/picture_file.h"

namespace korvel {

// A block of global memory; GDI+ reads pictures from nothing else.
class GlobalBlock {
 public:
  GlobalBlock() noexcept = default;
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

  // A movable block with a copy of the pieces, one behind the other. False when memory is out.
  [[nodiscard]] bool Assign(const FilePieces& pieces) noexcept;
  [[nodiscard]] HGLOBAL Get() const noexcept { return block_; }

 private:
  HGLOBAL block_ = nullptr;
};

// The image may read from the block as long as it lives, so it goes first.
struct Picture {
  GlobalBlock Block;
  ImageOwner Image;
};

// Reads a picture of any of the kinds of picture_file.h. False, and `picture` unchanged, when the
// bytes are no picture, or one that could take more than `mostNs` nanoseconds to decode and paint.
[[nodiscard]] bool ReadPicture(std::string_view bytes, std::uint64_t mostNs,
                               Picture& picture) noexcept;

}  // namespace korvel
