// Draws the benchmark scenes directly with GDI+: the baseline for the engine's redraw. Uses the
// same calls, fonts, brushes and clips as a redraw does, but only those that the picture needs.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "windows/scenes.h"

namespace korvel::bench {

enum class Decoding { Once, EachTime };

// GDI+ must stay initialised for the lifetime of this object.
class PlainDrawing {
 public:
  explicit PlainDrawing(const Content& content);

  // Draws the scene. `decoding` says whether the pictures are decoded again. An I-frame always is,
  // because the host's decoder is called at each painting.
  void Draw(Decoding decoding);
  // The drawn pixels, 0xAARRGGBB.
  [[nodiscard]] std::vector<std::uint32_t> Pixels();

 private:
  void DrawPictures(Decoding decoding);
  void DrawTexts();

  Content content_;
  Gdiplus::Bitmap surface_;
  Gdiplus::Graphics graphics_;
  std::unique_ptr<Gdiplus::Image> video_;
  std::vector<std::unique_ptr<Gdiplus::Image>> pictures_;
  std::unique_ptr<Gdiplus::Bitmap> canvas_;
};

}  // namespace korvel::bench
