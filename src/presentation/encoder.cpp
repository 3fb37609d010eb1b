// The look-up of GDI+'s encoders.
#include "presentation/encoder.h"

#include <array>
#include <cwchar>

#include "objects/memory.h"

namespace korvel {

namespace {

// The list of encoders, followed by the texts that it points to.
class EncoderList {
 public:
  EncoderList() {
    UINT bytes = 0;
    if (!Succeeded(gdip::GdipGetImageEncodersSize(&count_, &bytes))) count_ = 0;
    encoders_ = static_cast<Gdiplus::ImageCodecInfo*>(AllocateZeroed(bytes));
    if (encoders_ == nullptr || !Succeeded(gdip::GdipGetImageEncoders(count_, bytes, encoders_))) {
      count_ = 0;
    }
  }
  ~EncoderList() { ReleaseMemory(encoders_); }
  EncoderList(const EncoderList&) = delete;
  EncoderList& operator=(const EncoderList&) = delete;
  [[nodiscard]] const Gdiplus::ImageCodecInfo* begin() const { return encoders_; }
  [[nodiscard]] const Gdiplus::ImageCodecInfo* end() const { return encoders_ + count_; }

 private:
  UINT count_ = 0;
  Gdiplus::ImageCodecInfo* encoders_ = nullptr;
};

}  // namespace

bool FindEncoder(const WCHAR* mimeType, CLSID& encoder) {
  for (const Gdiplus::ImageCodecInfo& candidate : EncoderList()) {
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
