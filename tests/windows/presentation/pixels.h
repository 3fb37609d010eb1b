// Reads and measures the pixels of the back buffer and of the window.
#pragma once

#include <windows.h>

#include <cstdint>
#include <iosfwd>
#include <vector>

namespace korvel::test {

inline constexpr std::uint32_t kBlack = 0x000000;
inline constexpr std::uint32_t kWhite = 0xFFFFFF;
inline constexpr std::uint32_t kRed = 0xFF0000;
inline constexpr std::uint32_t kGreen = 0x00FF00;
inline constexpr std::uint32_t kBlue = 0x0000FF;

// A rectangle of pixels; right and bottom are one past the last pixel.
struct Area {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const Area&) const = default;
  [[nodiscard]] int Width() const { return right - left; }
  [[nodiscard]] int Height() const { return bottom - top; }
};

// Prints an area when a test fails.
void PrintTo(const Area& area, std::ostream* out);

// The scene's 720 x 576 pixels, 0xRRGGBB.
class Pixels {
 public:
  explicit Pixels(std::vector<std::uint32_t> values) : values_(std::move(values)) {}
  [[nodiscard]] std::uint32_t At(int x, int y) const;
  // The smallest area around all pixels of `within` that are not `background`; empty if there are
  // none.
  [[nodiscard]] Area Extent(const Area& within, std::uint32_t background = kBlack) const;
  // The number of text rows: groups of adjacent pixel rows with pixels that are not `background`.
  [[nodiscard]] int Bands(const Area& within, std::uint32_t background = kBlack) const;
  [[nodiscard]] int Count(const Area& within, std::uint32_t colour) const;
  // Whether every pixel of the area has the colour.
  [[nodiscard]] bool IsAll(const Area& within, std::uint32_t colour) const;
  bool operator==(const Pixels&) const = default;

 private:
  std::vector<std::uint32_t> values_;
};

inline constexpr Area kWholeScene{0, 0, 720, 576};

[[nodiscard]] Pixels BackBufferPixels();
[[nodiscard]] Pixels WindowPixels(HWND window);

}  // namespace korvel::test
