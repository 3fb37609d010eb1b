// Painting with a texture brush: a container maps the unscaled picture's coordinates onto the box,
// so that scaling, tiling and cutting come from one fill.
#include "presentation/picture_painting.h"

#include "appearance/geometry.h"
#include "presentation/state.h"

namespace korvel {

namespace {

struct Scale {
  double X = 1.0;
  double Y = 1.0;
};

double FactorOf(std::int32_t scaled, UINT own) {
  const double factor = static_cast<double>(scaled) / static_cast<double>(own);
  return factor < 0 ? 1.0 : factor;  // a negative size means not scaled
}

// Everything as it is but the alpha, which the transparency takes from.
Gdiplus::ColorMatrix MatrixOf(std::int32_t transparency) {
  Gdiplus::ColorMatrix matrix{};
  for (int place = 0; place < 5; ++place) matrix.m[place][place] = 1.0F;
  matrix.m[3][3] = 1.0F - static_cast<float>(transparency) / 100.0F;
  return matrix;
}

[[nodiscard]] bool MakeAttributes(const PicturePlacement& placement,
                                  ImageAttributesOwner& attributes) {
  const Gdiplus::ColorMatrix matrix = MatrixOf(placement.Transparency);
  return Succeeded(gdip::GdipCreateImageAttributes(attributes.Slot())) &&
         Succeeded(gdip::GdipSetImageAttributesColorMatrix(
             attributes, Gdiplus::ColorAdjustTypeBitmap, TRUE, &matrix, nullptr,
             Gdiplus::ColorMatrixFlagsDefault)) &&
         (!placement.Tiling || Succeeded(gdip::GdipSetImageAttributesWrapMode(
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

void FillBox(Gdiplus::GpGraphics* graphics, const Box& box, const Scale& scale,
             Gdiplus::GpTexture* texture) {
  const Gdiplus::RectF destination(static_cast<float>(box.Left), static_cast<float>(box.Top),
                                   static_cast<float>(box.Width()),
                                   static_cast<float>(box.Height()));
  const Gdiplus::RectF source(0.0F, 0.0F, static_cast<float>(box.Width() / scale.X),
                              static_cast<float>(box.Height() / scale.Y));
  Gdiplus::GraphicsContainer container = 0;
  if (!Succeeded(gdip::GdipBeginContainer(graphics, &destination, &source, Gdiplus::UnitPixel,
                                          &container))) {
    return;
  }
  // Whether it could be filled or not, the container must be closed.
  static_cast<void>(
      gdip::GdipFillRectangle(graphics, texture, source.X, source.Y, source.Width, source.Height));
  static_cast<void>(gdip::GdipEndContainer(graphics, container));
}

}  // namespace

Status PaintPicture(Gdiplus::GpImage* image, const PicturePlacement& placement) {
  Gdiplus::GpGraphics* graphics = State().graphics;
  if (graphics == nullptr) return Status::Done;
  UINT width = 0;
  UINT height = 0;
  if (image == nullptr || !Succeeded(gdip::GdipGetImageWidth(image, &width)) ||
      !Succeeded(gdip::GdipGetImageHeight(image, &height)) || width == 0 || height == 0) {
    return Status::Refused;
  }
  const Scale scale{FactorOf(placement.ScaledSize.Width, width),
                    FactorOf(placement.ScaledSize.Height, height)};
  const Box box = BoxAt(placement.Position.X, placement.Position.Y, placement.BoxSize.Width,
                        placement.BoxSize.Height);
  if (box.IsEmpty() || scale.X == 0 || scale.Y == 0) return Status::Done;
  TextureOwner texture;
  if (!MakeTexture(image, width, height, placement, texture)) return Status::Refused;
  FillBox(graphics, box, scale, texture);
  return Status::Done;
}

}  // namespace korvel
