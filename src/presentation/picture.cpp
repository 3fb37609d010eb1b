// Pictures from bytes. Painting them is left to picture_painting.cpp, I-frames to i_frame.cpp.
#include "presentation/picture.h"

#include "appearance/picture_size.h"

namespace korvel {

namespace {

// A stream over the block, released with the last picture that reads from it.
class BlockStream {
 public:
  explicit BlockStream(const GlobalBlock& block) {
    if (CreateStreamOnHGlobal(block.Get(), FALSE, &stream_) != S_OK) stream_ = nullptr;
  }
  ~BlockStream() {
    if (stream_ != nullptr) stream_->Release();
  }
  BlockStream(const BlockStream&) = delete;
  BlockStream& operator=(const BlockStream&) = delete;
  [[nodiscard]] IStream* Get() const { return stream_; }

 private:
  IStream* stream_ = nullptr;
};

// Metafiles are refused: they are programs for the graphics system, and content is hostile.
[[nodiscard]] bool IsAllowed(Gdiplus::GpImage* image) {
  Gdiplus::ImageType type = Gdiplus::ImageTypeUnknown;
  UINT width = 0;
  UINT height = 0;
  return Succeeded(gdip::GdipGetImageType(image, &type)) && type == Gdiplus::ImageTypeBitmap &&
         Succeeded(gdip::GdipGetImageWidth(image, &width)) &&
         Succeeded(gdip::GdipGetImageHeight(image, &height)) && IsDecodableSize(width, height);
}

}  // namespace

bool GlobalBlock::Assign(std::string_view bytes) {
  GlobalBlock made;
  made.block_ = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (made.block_ == nullptr) return false;
  void* to = GlobalLock(made.block_);
  if (to == nullptr) return false;
  bytes.copy(static_cast<char*>(to), bytes.size());
  GlobalUnlock(made.block_);
  *this = std::move(made);
  return true;
}

bool ReadPicture(std::string_view bytes, Picture& picture) {
  Picture read;
  if (!MayBeDecoded(bytes) || !read.Block.Assign(bytes)) return false;
  const BlockStream stream(read.Block);
  if (stream.Get() == nullptr ||
      !Succeeded(gdip::GdipLoadImageFromStream(stream.Get(), read.Image.Slot())) ||
      !IsAllowed(read.Image)) {
    return false;
  }
  // The order matters: the old image before the old block.
  picture.Image = std::move(read.Image);
  picture.Block = std::move(read.Block);
  return true;
}

}  // namespace korvel
