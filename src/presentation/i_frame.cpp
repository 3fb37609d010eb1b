// The way of an I-frame from its bytes to an image: a file that nobody changes meanwhile, the
// host's decoder, and the colours.
#include "presentation/i_frame.h"

#include <cstddef>
#include <cstdint>

#include "objects/octet_string.h"
#include "presentation/encoder.h"
#include "presentation/mpeg_file.h"
#include "presentation/picture_limits.h"
#include "presentation/temporary_stream.h"
#include "presentation/yuv.h"

namespace korvel {

namespace {

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
    frame.ConvertRow(row, pixels);
  }
  if (!Succeeded(gdip::GdipBitmapUnlockBits(made, &data))) return false;
  image = std::move(made);
  return true;
}

// Decodes the stream, which is what the held file has in it. A decoder that leaves the planes as
// they were may have wanted the file for itself, and gets it so.
[[nodiscard]] bool Decode(const char* path, HeldFile& file, std::string_view stream,
                          std::uint64_t mostNs, BitmapOwner& image) noexcept {
  FrameSize size;
  if (!FindFrameSize(stream, mostNs, size)) return false;
  const PlanarFrame frame(size);
  if (frame.Bytes() == nullptr || !DecodePlanes(path, frame)) return false;
  if (frame.IsUntouched()) {
    file.Release();
    if (!DecodePlanes(path, frame)) return false;
  }
  return MakeImage(frame, image);
}

}  // namespace

bool DecodeIFrame(std::string_view stream, std::uint64_t mostNs, BitmapOwner& image) noexcept {
  HeldFile file;
  const char* path = HoldTemporaryStream(stream, file);
  return path != nullptr && Decode(path, file, stream, mostNs, image);
}

bool DecodeIFrameFile(const char* path, std::uint64_t mostNs, BitmapOwner& image) noexcept {
  HeldFile file;
  OctetString stream;
  return file.Hold(path) && file.Read(stream) && Decode(path, file, stream.View(), mostNs, image);
}

bool ConvertIFrameToPng(const char* source, const char* target) noexcept {
  BitmapOwner image;
  return DecodeIFrameFile(source, kLongestPicturesNs, image) &&
         SaveImage(image, L"image/png", target);
}

}  // namespace korvel
