// Pictures from bytes. Painting them is left to picture_painting.cpp, I-frames to i_frame.cpp.
#include "presentation/picture.h"

namespace korvel {

namespace {

// A stream over the block, given back with the last picture that reads from it.
class BlockStream {
 public:
  explicit BlockStream(const GlobalBlock& block) noexcept {
    if (CreateStreamOnHGlobal(block.Get(), FALSE, &stream_) != S_OK) stream_ = nullptr;
  }
  ~BlockStream() {
    if (stream_ != nullptr) stream_->Release();
  }
  BlockStream(const BlockStream&) = delete;
  BlockStream& operator=(const BlockStream&) = delete;
  [[nodiscard]] IStream* Get() const noexcept { return stream_; }

 private:
  IStream* stream_ = nullptr;
};

}  // namespace

bool GlobalBlock::Assign(const FilePieces& pieces) noexcept {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  GlobalBlock made;
  made.block_ = GlobalAlloc(GMEM_MOVEABLE, size);
  if (made.block_ == nullptr) return false;
  auto* to = static_cast<char*>(GlobalLock(made.block_));
  if (to == nullptr) return false;
  for (const std::string_view piece : pieces) to += piece.copy(to, piece.size());
  GlobalUnlock(made.block_);
  *this = std::move(made);
  return true;
}

bool ReadPicture(std::string_view bytes, std::uint64_t mostNs, Picture& picture) noexcept {
  Picture read;
  FilePieces pieces;
  if (!FindPicture(bytes, mostNs, pieces) || !read.Block.Assign(pieces)) return false;
  const BlockStream stream(read.Block);
  if (stream.Get() == nullptr ||
      !Succeeded(gdip::GdipLoadImageFromStream(stream.Get(), read.Image.Slot()))) {
    return false;
  }
  // The order matters: the old image before the old block.
  picture.Image = std::move(read.Image);
  picture.Block = std::move(read.Block);
  return true;
}

}  // namespace korvel
