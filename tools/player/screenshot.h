// Pictures of the engine window: its client pixels as a PNG file.
#pragma once

#include <filesystem>

#include <windows.h>

namespace player {

// Keeps GDI+, which writes the files, started while it lives.
class PictureWriter {
 public:
  PictureWriter();
  PictureWriter(const PictureWriter&) = delete;
  PictureWriter& operator=(const PictureWriter&) = delete;
  ~PictureWriter();

  // Writes what the window shows in its client area. False when it cannot be read or written.
  [[nodiscard]] bool Write(HWND window, const std::filesystem::path& file) const;

 private:
  ULONG_PTR token_ = 0;
};

}  // namespace player
