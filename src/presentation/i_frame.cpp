// Converts the bytes of an I-frame to an image with the host's decoder, which reads a temporary
// file, and saves images as files with GDI+'s encoders.
#include "presentation/i_frame.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <span>

#include "appearance/content_file.h"
#include "appearance/yuv.h"
#include "objects/octet_string.h"
#include "presentation/state.h"

namespace korvel {
namespace {

// The function of the host's library. Fills the buffer that `buffer` points to with the frame's
// planes; the result has no meaning.
using DecodeFrame = int(__cdecl*)(const char* path, std::uint8_t** buffer, int one);

// Calls the function with these arguments. On 32 bits it may be __cdecl or __stdcall, which cannot
// be detected: both take their arguments on the stack, but __stdcall functions remove them.
// Restoring the stack pointer from the frame pointer is correct for both. The stack is aligned as
// in compiled calls. `noipa` keeps the compiler from changing the calling convention of this
// function, which it may do for functions local to a file. On 64 bits there is only one convention.
#ifdef _WIN64
void Call(DecodeFrame decode, const char* path, std::uint8_t** buffer, int one) {
  decode(path, buffer, one);
}
#else
[[gnu::naked, gnu::noipa]] void __cdecl Call(DecodeFrame, const char*, std::uint8_t**, int) {
  asm("pushl %ebp\n\t"
      "movl %esp, %ebp\n\t"
      "andl $-16, %esp\n\t"
      "subl $4, %esp\n\t"
      "pushl 20(%ebp)\n\t"
      "pushl 16(%ebp)\n\t"
      "pushl 12(%ebp)\n\t"
      "call *8(%ebp)\n\t"
      "leave\n\t"
      "ret");
}
#endif

// Null if the library or the function is missing.
[[nodiscard]] DecodeFrame FindDecoder() {
  HMODULE& library = State().decoderLibrary;
  if (library == nullptr) library = LoadLibraryA("MenuAPI");
  if (library == nullptr) return nullptr;
  return reinterpret_cast<DecodeFrame>(
      reinterpret_cast<void*>(GetProcAddress(library, MAKEINTRESOURCEA(1))));
}

[[nodiscard]] bool DecodePlanes(const char* path, const PlanarFrame& frame) {
  const DecodeFrame decode = FindDecoder();
  std::uint8_t* buffer = frame.Bytes();
  if (decode == nullptr || buffer == nullptr) return false;
  Call(decode, path, &buffer, 1);
  return true;
}

[[nodiscard]] bool MakeImage(const PlanarFrame& frame, BitmapOwner& image) {
  const FrameSize size = frame.Size();
  BitmapOwner made;
  if (!MakeBitmap(size.width, size.height, made)) return false;
  const Gdiplus::Rect whole(0, 0, size.width, size.height);
  Gdiplus::BitmapData data{};
  if (!Succeeded(gdip::GdipBitmapLockBits(made, &whole, Gdiplus::ImageLockModeWrite,
                                          PixelFormat32bppARGB, &data))) {
    return false;
  }
  for (std::int32_t row = 0; row < size.height; ++row) {
    auto* pixels = reinterpret_cast<std::uint32_t*>(static_cast<std::uint8_t*>(data.Scan0) +
                                                    std::ptrdiff_t{row} * data.Stride);
    frame.ConvertRow(row, pixels);
  }
  if (!Succeeded(gdip::GdipBitmapUnlockBits(made, &data))) return false;
  image = std::move(made);
  return true;
}

[[nodiscard]] bool DecodeFile(const char* path, std::string_view stream, BitmapOwner& image) {
  FrameSize size;
  if (!FindFrameSize(stream, size)) return false;
  const PlanarFrame frame(size);
  return DecodePlanes(path, frame) && MakeImage(frame, image);
}

[[nodiscard]] bool WriteStream(const char* path, std::string_view bytes) {
  std::FILE* file = std::fopen(path, "wb");
  if (file == nullptr) return false;
  const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  return std::fclose(file) == 0 && isWritten;
}

[[nodiscard]] bool ReadStream(const char* path, OctetString& bytes) {
  std::FILE* file = std::fopen(path, "rb");
  if (file == nullptr) return false;
  std::fseek(file, 0, SEEK_END);
  const long size = std::ftell(file);
  std::rewind(file);
  const bool isRead = size >= 0 && bytes.AssignZeros(static_cast<std::size_t>(size)) &&
                      std::fread(bytes.MutableBytes(), 1, bytes.Length(), file) == bytes.Length();
  std::fclose(file);
  return isRead;
}

}  // namespace

bool DecodeIFrame(std::string_view stream, BitmapOwner& image) {
  const char* path = State().temporaryPath.data();
  return *path != '\0' && WriteStream(path, stream) && DecodeFile(path, stream, image);
}

bool ConvertIFrameToPng(const char* source, const char* target) {
  OctetString stream;
  BitmapOwner image;
  return ReadStream(source, stream) && DecodeFile(source, stream.View(), image) &&
         SaveImage(image, L"image/png", target);
}

void FindTemporaryFolder() {
  std::array<char, kTemporaryFolderBytes> folder{};
  TemporaryPath& path = State().temporaryPath;
  path = {};
  const DWORD length = GetTempPathA(kTemporaryFolderBytes, folder.data());
  if (length == 0 || length >= folder.size()) return;
  std::snprintf(path.data(), path.size(), "%s\\mheg_bmp_tmpfile000.m2v", folder.data());
}

void ReleaseDecoder() {
  if (State().decoderLibrary != nullptr) FreeLibrary(State().decoderLibrary);
  State().decoderLibrary = nullptr;
}

bool FindEncoder(const WCHAR* mimeType, CLSID& encoder) {
  UINT count = 0;
  UINT bytes = 0;
  OctetString list;  // followed by the texts that it points to
  if (!Succeeded(gdip::GdipGetImageEncodersSize(&count, &bytes)) || !list.AssignZeros(bytes)) {
    return false;
  }
  auto* encoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(list.MutableBytes());
  if (!Succeeded(gdip::GdipGetImageEncoders(count, bytes, encoders))) return false;
  for (const Gdiplus::ImageCodecInfo& candidate : std::span(encoders, count)) {
    if (std::wcscmp(candidate.MimeType, mimeType) != 0) continue;
    encoder = candidate.Clsid;
    return true;
  }
  return false;
}

bool SaveImage(Gdiplus::GpImage* image, const WCHAR* mimeType, const char* path) {
  std::array<WCHAR, MAX_PATH> widePath{};
  CLSID encoder;
  return MultiByteToWideChar(CP_ACP, 0, path, -1, widePath.data(), MAX_PATH) > 0 &&
         FindEncoder(mimeType, encoder) &&
         Succeeded(gdip::GdipSaveImageToFile(image, widePath.data(), &encoder, nullptr));
}

}  // namespace korvel
