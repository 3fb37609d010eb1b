// GDI+ as the drawing files use it: its flat functions, each of which returns a status that the
// caller checks, and owners that release its objects. An object lives only for one drawing call,
// except those in the presentation's state and in canvases.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <utility>

#include "appearance/colours.h"
#include "appearance/geometry.h"

namespace korvel {

namespace gdip = Gdiplus::DllExports;

[[nodiscard]] inline bool Succeeded(Gdiplus::GpStatus status) { return status == Gdiplus::Ok; }

// Owns one GDI+ object; converts to the pointer that the functions take.
template <class Object, auto Release> class GdiPlusOwner {
 public:
  GdiPlusOwner() = default;
  GdiPlusOwner(GdiPlusOwner&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  GdiPlusOwner& operator=(GdiPlusOwner&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  GdiPlusOwner(const GdiPlusOwner&) = delete;
  GdiPlusOwner& operator=(const GdiPlusOwner&) = delete;
  ~GdiPlusOwner() { Reset(); }

  // Output slot for a create function. Releases any object held so far.
  [[nodiscard]] Object** Slot() {
    Reset();
    return &object_;
  }
  // Releasing fails only for objects that are in use elsewhere, and none of ours is.
  void Reset() {
    Object* object = std::exchange(object_, nullptr);
    if (object != nullptr) static_cast<void>(Release(object));
  }
  [[nodiscard]] Object* Get() const { return object_; }
  operator Object*() const { return object_; }

 private:
  Object* object_ = nullptr;
};

using GraphicsOwner = GdiPlusOwner<Gdiplus::GpGraphics, gdip::GdipDeleteGraphics>;
using BitmapOwner = GdiPlusOwner<Gdiplus::GpBitmap, gdip::GdipDisposeImage>;
using ImageOwner = GdiPlusOwner<Gdiplus::GpImage, gdip::GdipDisposeImage>;
using SolidBrushOwner = GdiPlusOwner<Gdiplus::GpSolidFill, gdip::GdipDeleteBrush>;
using TextureOwner = GdiPlusOwner<Gdiplus::GpTexture, gdip::GdipDeleteBrush>;
using PenOwner = GdiPlusOwner<Gdiplus::GpPen, gdip::GdipDeletePen>;
using FontOwner = GdiPlusOwner<Gdiplus::GpFont, gdip::GdipDeleteFont>;
using FontFamilyOwner = GdiPlusOwner<Gdiplus::GpFontFamily, gdip::GdipDeleteFontFamily>;
using StringFormatOwner = GdiPlusOwner<Gdiplus::GpStringFormat, gdip::GdipDeleteStringFormat>;
using ImageAttributesOwner =
    GdiPlusOwner<Gdiplus::GpImageAttributes, gdip::GdipDisposeImageAttributes>;

// Converts a colour to the form of GDI+.
[[nodiscard]] inline Gdiplus::ARGB ToGdiPlus(DrawnColour colour) {
  const Gdiplus::ARGB alpha = 255 - (colour & kTransparencyByte);
  return alpha << 24 | colour >> 8;
}

[[nodiscard]] inline Gdiplus::RectF ToGdiPlus(const Box& box) {
  return {static_cast<float>(box.left), static_cast<float>(box.top),
          static_cast<float>(box.Width()), static_cast<float>(box.Height())};
}

// Creates a bitmap of that size in pixels, 32 bits per pixel with alpha. False if that fails.
[[nodiscard]] inline bool MakeBitmap(std::int32_t width, std::int32_t height, BitmapOwner& bitmap) {
  return Succeeded(gdip::GdipCreateBitmapFromScan0(width, height, 0, PixelFormat32bppARGB, nullptr,
                                                   bitmap.Slot()));
}

// Creates a brush of the colour. False if the colour is invisible or the creation fails.
[[nodiscard]] inline bool MakeBrush(DrawnColour colour, SolidBrushOwner& brush) {
  return IsSeen(colour) && Succeeded(gdip::GdipCreateSolidFill(ToGdiPlus(colour), brush.Slot()));
}

}  // namespace korvel
