// Reads pictures from bytes, keeps those that bitmaps show, and paints them with a texture brush.
// I-frames are in i_frame.cpp.
#include "presentation/picture.h"

#include <cstring>

#include "appearance/content_file.h"
#include "appearance/geometry.h"
#include "objects/limits.h"
#include "presentation/state.h"

namespace korvel {
namespace {

struct StreamReleaser {
  void operator()(IStream* stream) const { stream->Release(); }
};
// A reference to a stream. A picture that reads from the stream adds its own.
using StreamOwner = std::unique_ptr<IStream, StreamReleaser>;

// Null if memory runs out.
StreamOwner StreamOver(const GlobalBlock& block) {
  IStream* stream = nullptr;
  const bool isMade = CreateStreamOnHGlobal(block.get(), FALSE, &stream) == S_OK;
  return StreamOwner(isMade ? stream : nullptr);
}

// A block with a copy of the bytes. Null if memory runs out.
GlobalBlock CopyToBlock(std::string_view bytes) {
  GlobalBlock block(GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
  void* to = block == nullptr ? nullptr : GlobalLock(block.get());
  if (to == nullptr) return nullptr;
  bytes.copy(static_cast<char*>(to), bytes.size());
  GlobalUnlock(block.get());
  return block;
}

[[nodiscard]] bool ReadSize(Gdiplus::GpImage* image, UINT& width, UINT& height) {
  return Succeeded(gdip::GdipGetImageWidth(image, &width)) &&
         Succeeded(gdip::GdipGetImageHeight(image, &height));
}

// Metafiles are refused: they are programs for the graphics system, and content is hostile.
[[nodiscard]] bool IsAllowed(Gdiplus::GpImage* image) {
  Gdiplus::ImageType type = Gdiplus::ImageTypeUnknown;
  UINT width = 0;
  UINT height = 0;
  return Succeeded(gdip::GdipGetImageType(image, &type)) && type == Gdiplus::ImageTypeBitmap &&
         ReadSize(image, width, height) && IsDecodableSize(width, height);
}

// ---- Kept pictures ----

[[nodiscard]] bool HasFile(const KeptPicture& kept, std::string_view file) {
  if (kept.fileBytes != file.size()) return false;
  const void* block = GlobalLock(kept.content.block.get());
  const bool isSame = block != nullptr && std::memcmp(block, file.data(), file.size()) == 0;
  GlobalUnlock(kept.content.block.get());
  return isSame;
}

[[nodiscard]] std::size_t PixelBytesOf(Gdiplus::GpImage* image) {
  UINT width = 0;
  UINT height = 0;
  return ReadSize(image, width, height) ? std::size_t{width} * height * sizeof(Gdiplus::ARGB) : 0;
}

// Whether one more picture of this size stays within the limits.
[[nodiscard]] bool HasRoom(const KeptPictures& pictures, std::size_t bytes) {
  std::size_t count = 1;
  for (const KeptPicture& kept : pictures) {
    ++count;
    bytes += kept.bytes;
  }
  return count <= kMostKeptPictures && bytes <= kMostKeptBytes;
}

// ---- Painting ----

struct Scale {
  double x = 1.0;
  double y = 1.0;
};

double FactorOf(std::int32_t scaled, UINT own) {
  const double factor = static_cast<double>(scaled) / static_cast<double>(own);
  return factor < 0 ? 1.0 : factor;  // a negative size means not scaled
}

// Scales the alpha by the opacity and changes nothing else.
Gdiplus::ColorMatrix MatrixOf(std::int32_t transparency) {
  Gdiplus::ColorMatrix matrix{};
  for (int index = 0; index < 5; ++index) matrix.m[index][index] = 1.0F;
  matrix.m[3][3] = 1.0F - static_cast<float>(transparency) / 100.0F;
  return matrix;
}

[[nodiscard]] bool MakeAttributes(const PicturePlacement& placement,
                                  ImageAttributesOwner& attributes) {
  const Gdiplus::ColorMatrix matrix = MatrixOf(placement.transparency);
  return Succeeded(gdip::GdipCreateImageAttributes(attributes.Slot())) &&
         Succeeded(gdip::GdipSetImageAttributesColorMatrix(
             attributes, Gdiplus::ColorAdjustTypeBitmap, TRUE, &matrix, nullptr,
             Gdiplus::ColorMatrixFlagsDefault)) &&
         (!placement.tiling || Succeeded(gdip::GdipSetImageAttributesWrapMode(
                                   attributes, Gdiplus::WrapModeTile, 0, FALSE)));
}

[[nodiscard]] bool MakeTexture(Gdiplus::GpImage* image, UINT width, UINT height,
                               const PicturePlacement& placement, TextureOwner& texture) {
  ImageAttributesOwner attributes;
  return MakeAttributes(placement, attributes) &&
         Succeeded(gdip::GdipCreateTextureIA(image, attributes, 0.0F, 0.0F,
                                             static_cast<float>(width), static_cast<float>(height),
                                             texture.Slot())) &&
         Succeeded(
             gdip::GdipScaleTextureTransform(texture, 1.0F, 1.0F, Gdiplus::MatrixOrderAppend));
}

// Fills the box with the texture. A container maps the coordinates of the unscaled picture to the
// box, so that one fill scales, tiles and cuts it.
void FillWithTexture(Gdiplus::GpGraphics* graphics, const Box& box, const Scale& scale,
                     Gdiplus::GpTexture* texture) {
  const Gdiplus::RectF destination = ToGdiPlus(box);
  const Gdiplus::RectF source(0.0F, 0.0F, static_cast<float>(box.Width() / scale.x),
                              static_cast<float>(box.Height() / scale.y));
  Gdiplus::GraphicsContainer container = 0;
  if (!Succeeded(gdip::GdipBeginContainer(graphics, &destination, &source, Gdiplus::UnitPixel,
                                          &container))) {
    return;
  }
  // The container must be closed even if the fill fails.
  static_cast<void>(
      gdip::GdipFillRectangle(graphics, texture, source.X, source.Y, source.Width, source.Height));
  static_cast<void>(gdip::GdipEndContainer(graphics, container));
}

}  // namespace

bool ReadPicture(std::string_view bytes, Picture& picture) {
  Picture read;
  if (!MayBeDecoded(bytes)) return false;
  read.block = CopyToBlock(bytes);
  if (read.block == nullptr) return false;
  const StreamOwner stream = StreamOver(read.block);
  if (stream == nullptr ||
      !Succeeded(gdip::GdipLoadImageFromStream(stream.get(), read.image.Slot())) ||
      !IsAllowed(read.image)) {
    return false;
  }
  picture = std::move(read);
  return true;
}

Gdiplus::GpImage* DecodedImage(std::string_view file) {
  KeptPictures& pictures = State().keptPictures;
  for (const KeptPicture& kept : pictures) {
    if (HasFile(kept, file)) return kept.content.image;
  }
  KeptPicture read;
  if (!ReadPicture(file, read.content)) return nullptr;
  read.fileBytes = file.size();
  read.bytes = file.size() + PixelBytesOf(read.content.image);
  if (!HasRoom(pictures, read.bytes)) pictures.Clear();
  pictures.Append(std::move(read));
  return pictures.Last().content.image;
}

bool PaintPicture(Gdiplus::GpImage* image, const PicturePlacement& placement) {
  if (image == nullptr) return false;
  Gdiplus::GpGraphics* graphics = State().graphics;
  if (graphics == nullptr) return true;
  UINT width = 0;
  UINT height = 0;
  if (!ReadSize(image, width, height) || width == 0 || height == 0) return false;
  const Scale scale{FactorOf(placement.scaledSize.Width, width),
                    FactorOf(placement.scaledSize.Height, height)};
  const Box box = BoxAt(placement.position, placement.boxSize);
  if (box.IsEmpty() || scale.x == 0 || scale.y == 0) return true;
  TextureOwner texture;
  if (!MakeTexture(image, width, height, placement, texture)) return false;
  FillWithTexture(graphics, box, scale, texture);
  return true;
}

}  // namespace korvel
