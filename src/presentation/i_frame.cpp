// The way of an I-frame from its bytes to an image: the temporary file, the host's decoder, and the
// colours.
#include "presentation/i_frame.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <span>

#include "objects/memory.h"
#include "presentation/encoder.h"
#include "presentation/picture_limits.h"
#include "presentation/yuv.h"

namespace korvel {

namespace {

// The number in the temporary file's name is never raised: each I-frame rewrites the same file.
constexpr int kTemporaryFileNumber = 0;
constexpr int kTemporaryFolderBytes = 255;

// What the host's library does: fills the buffer that `buffer` points to with the frame's planes.
// Its result means nothing to us.
using DecodeFrame = int(__cdecl*)(const char* path, std::uint8_t** buffer, int one);

class DecoderLibrary {
 public:
  DecoderLibrary() noexcept : module_(LoadLibraryA("MenuAPI")) {}
  ~DecoderLibrary() {
    if (module_ != nullptr) FreeLibrary(module_);
  }
  DecoderLibrary(const DecoderLibrary&) = delete;
  DecoderLibrary& operator=(const DecoderLibrary&) = delete;
  // Null when the library or the function is not there.
  [[nodiscard]] DecodeFrame Function() const noexcept {
    if (module_ == nullptr) return nullptr;
    return reinterpret_cast<DecodeFrame>(
        reinterpret_cast<void*>(GetProcAddress(module_, MAKEINTRESOURCEA(1))));
  }

 private:
  HMODULE module_;
};

class File {
 public:
  File(const char* path, const char* mode) noexcept : file_(std::fopen(path, mode)) {}
  ~File() {
    if (file_ != nullptr) std::fclose(file_);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  [[nodiscard]] bool Read(std::span<std::uint8_t> bytes) noexcept {
    return file_ != nullptr && std::fread(bytes.data(), 1, bytes.size(), file_) == bytes.size();
  }
  [[nodiscard]] bool Write(std::string_view bytes) noexcept {
    return file_ != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size() &&
           std::fflush(file_) == 0;
  }

 private:
  std::FILE* file_;
};

// The size in the sequence header that the file begins with. False when there is none, or one that
// is not decoded.
[[nodiscard]] bool ReadFrameSize(const char* path, FrameSize& size) noexcept {
  std::array<std::uint8_t, 7> start{};
  if (!File(path, "rb").Read(start)) return false;
  if (start[0] != 0 || start[1] != 0 || start[2] != 1 || start[3] != 0xB3) return false;
  size.Width = start[4] * 16 + (start[5] >> 4);
  size.Height = (start[5] & 15) * 256 + start[6];
  return IsDecodableSize(static_cast<std::uint64_t>(size.Width),
                         static_cast<std::uint64_t>(size.Height));
}

[[nodiscard]] bool DecodePlanes(const char* path, const PlanarFrame& frame) noexcept {
  const DecoderLibrary library;
  const DecodeFrame decode = library.Function();
  if (decode == nullptr) return false;
  std::uint8_t* buffer = frame.Bytes();
  decode(path, &buffer, 1);
  return true;
}

[[nodiscard]] bool MakeImage(const PlanarFrame& frame, BitmapOwner& image) noexcept {
  const FrameSize size = frame.Size();
  BitmapOwner made;
  if (!Succeeded(gdip::GdipCreateBitmapFromScan0(size.Width, size.Height, 0, PixelFormat32bppARGB,
                                                 nullptr, made.Slot()))) {
    return false;
  }
  const Gdiplus::Rect whole(0, 0, size.Width, size.Height);
  Gdiplus::BitmapData data{};
  if (!Succeeded(gdip::GdipBitmapLockBits(made, &whole, Gdiplus::ImageLockModeWrite,
                                          PixelFormat32bppARGB, &data))) {
    return false;
  }
  for (std::int32_t row = 0; row < size.Height; ++row) {
    auto* pixels = reinterpret_cast<std::uint32_t*>(static_cast<std::uint8_t*>(data.Scan0) +
                                                    std::ptrdiff_t{row} * data.Stride);
    for (std::int32_t column = 0; column < size.Width; ++column) {
      pixels[column] = frame.PixelAt(column, row);
    }
  }
  if (!Succeeded(gdip::GdipBitmapUnlockBits(made, &data))) return false;
  image = std::move(made);
  return true;
}

// The path of the temporary file. False when there is no folder for it.
[[nodiscard]] bool TemporaryFile(std::array<char, kTemporaryFolderBytes + 64>& path) noexcept {
  std::array<char, kTemporaryFolderBytes> folder{};
  const DWORD length = GetTempPathA(kTemporaryFolderBytes, folder.data());
  if (length == 0 || length >= folder.size()) return false;
  std::snprintf(path.data(), path.size(), "%s\\mheg_bmp_tmpfile%03d.m2v", folder.data(),
                kTemporaryFileNumber);
  return true;
}

}  // namespace

bool DecodeIFrame(std::string_view stream, BitmapOwner& image) noexcept {
  std::array<char, kTemporaryFolderBytes + 64> path{};
  return TemporaryFile(path) && File(path.data(), "wb").Write(stream) &&
         DecodeIFrameFile(path.data(), image);
}

bool DecodeIFrameFile(const char* path, BitmapOwner& image) noexcept {
  FrameSize size;
  if (!ReadFrameSize(path, size)) return false;
  const PlanarFrame frame(size);
  return frame.Bytes() != nullptr && DecodePlanes(path, frame) && MakeImage(frame, image);
}

bool ConvertIFrameToPng(const char* source, const char* target) noexcept {
  BitmapOwner image;
  return DecodeIFrameFile(source, image) && SaveImage(image, L"image/png", target);
}

}  // namespace korvel
