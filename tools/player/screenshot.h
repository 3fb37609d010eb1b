// Pictures of the engine window: its client pixels as a PNG file. They all have the size of a
// scene, even if the system's frame makes the window slightly smaller or larger.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include <windows.h>

namespace player {

constexpr unsigned kPictureWidth = 720;
constexpr unsigned kPictureHeight = 576;

struct Picture {
  std::vector<std::uint32_t> pixels;  // 0xXXRRGGBB, rows from the top

  bool operator==(const Picture&) const = default;
};

// The window's client area, black beyond it. False if the system refuses.
[[nodiscard]] bool Capture(HWND window, Picture& picture);

// Keeps GDI+ running, which writes the files.
class PictureWriter {
 public:
  PictureWriter();
  PictureWriter(const PictureWriter&) = delete;
  PictureWriter& operator=(const PictureWriter&) = delete;
  ~PictureWriter();

  // False if the file cannot be written.
  [[nodiscard]] bool Write(Picture& picture, const std::filesystem::path& file) const;

 private:
  ULONG_PTR token_ = 0;
};

}  // namespace player
