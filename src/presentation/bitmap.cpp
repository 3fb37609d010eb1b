// Bitmaps. The content is fetched at every painting, because it may have changed. An I-frame is
// also decoded every time, because its decoder is the host's.
#include "appearance/content_file.h"
#include "appearance/geometry.h"
#include "engine/engine.h"
#include "presentation/drawings.h"
#include "presentation/i_frame.h"
#include "presentation/picture.h"

namespace korvel {
namespace {

// The content hook of MPEG-2 I-frames. All other content is recognised by its bytes.
constexpr std::int32_t kIFrameHook = 2;

void SettleContentHook(Bitmap& bitmap) {
  const Application* application = CurrentApplication();
  if (bitmap.ContentHOOK >= 1 || application == nullptr) return;
  bitmap.ContentHOOK = application->Defaults.BitmapContentHook;
}

[[nodiscard]] bool PaintContent(const Bitmap& bitmap, std::string_view bytes) {
  const PicturePlacement placement{.position = bitmap.Position,
                                   .boxSize = bitmap.BoxSize,
                                   .transparency = bitmap.Transparency,
                                   .tiling = bitmap.Tiling,
                                   .scaledSize = bitmap.ScaledSize};
  if (bitmap.ContentHOOK == kIFrameHook) {
    BitmapOwner frame;
    return DecodeIFrame(bytes, frame) && PaintPicture(frame, placement);
  }
  return PaintPicture(DecodedImage(bytes), placement);
}

}  // namespace

bool Draw(Bitmap& bitmap) {
  if (!HasArea(bitmap.BoxSize)) return true;
  SettleContentHook(bitmap);
  OctetString file;
  std::string_view bytes;
  return ReadPictureContent(bitmap.Content, file, bytes) && PaintContent(bitmap, bytes);
}

}  // namespace korvel
