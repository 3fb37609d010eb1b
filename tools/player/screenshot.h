// Takes pictures of the engine window's client area and writes them as PNG files. Every picture has
// the size of a scene, even if the system's frame makes the client area slightly smaller or larger.
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

// Copies the window's client area; the rest of the picture is black. Returns false if the client
// area is empty or a system call fails.
[[nodiscard]] bool Capture(HWND window, Picture& picture);

// Keeps GDI+ initialised for writing files.
class PictureWriter {
 public:
  PictureWriter();
  PictureWriter(const PictureWriter&) = delete;
  PictureWriter& operator=(const PictureWriter&) = delete;
  ~PictureWriter();

  // Returns false if the file cannot be written.
  [[nodiscard]] bool Write(Picture& picture, const std::filesystem::path& file) const;

 private:
  ULONG_PTR token_ = 0;
};

}  // namespace player
