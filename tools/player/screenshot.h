// Pictures of the engine window: its client pixels as a PNG file. They all have the size of a
// scene, also where the system's frame leaves the window a little less or more.
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

// What the window shows in its client area, black beyond it. False when the system refuses.
[[nodiscard]] bool Capture(HWND window, Picture& picture);

// Keeps GDI+, which writes the files, started while it lives.
class PictureWriter {
 public:
  PictureWriter();
  PictureWriter(const PictureWriter&) = delete;
  PictureWriter& operator=(const PictureWriter&) = delete;
  ~PictureWriter();

  // False when the file cannot be written.
  [[nodiscard]] bool Write(Picture& picture, const std::filesystem::path& file) const;

 private:
  ULONG_PTR token_ = 0;
};

}  // namespace player
