// Bitmaps: the content is fetched and decoded anew at every painting, and nothing of it is kept.
#include "appearance/content_path.h"
#include "appearance/geometry.h"
#include "engine/engine.h"
#include "platform/files.h"
#include "presentation/drawings.h"
#include "presentation/i_frame.h"
#include "presentation/picture.h"
#include "presentation/picture_painting.h"

namespace korvel {

namespace {

// The content hook of MPEG-2 I-frames. All other content is recognised by its bytes.
constexpr std::int32_t kIFrameHook = 2;

void SettleContentHook(Bitmap& bitmap) {
  const Application* application = CurrentApplication();
  if (bitmap.ContentHOOK >= 1 || application == nullptr) return;
  bitmap.ContentHOOK = application->Defaults.BitmapContentHook;
}

// The bytes of the picture: included ones are borrowed from the object, others read into `file`.
[[nodiscard]] bool ReadContent(const Bitmap& bitmap, OctetString& file, std::string_view& bytes) {
  bytes = bitmap.Content.Data.View();
  if (bitmap.Content.IsReferenced) {
    OctetString path;
    if (!ContentPath(bytes, path) || FetchFile(path.View(), &file) != Status::Done) return false;
    bytes = file.View();
  }
  return !bytes.empty();
}

Status PaintContent(const Bitmap& bitmap, std::string_view bytes) {
  const PicturePlacement placement{.Position = bitmap.Position,
                                   .BoxSize = bitmap.BoxSize,
                                   .Transparency = bitmap.Transparency,
                                   .Tiling = bitmap.Tiling,
                                   .ScaledSize = bitmap.ScaledSize};
  if (bitmap.ContentHOOK == kIFrameHook) {
    BitmapOwner frame;
    if (!DecodeIFrame(bytes, frame)) return Status::Refused;
    return PaintPicture(frame, placement);
  }
  Picture picture;
  if (!ReadPicture(bytes, picture)) return Status::Refused;
  return PaintPicture(picture.Image, placement);
}

}  // namespace

// A box without area needs no picture, so that none can be missing in it.
Status Draw(Bitmap& bitmap) {
  if (!HasArea(bitmap.BoxSize)) return Status::Done;
  SettleContentHook(bitmap);
  OctetString file;
  std::string_view bytes;
  if (!ReadContent(bitmap, file, bytes)) return Status::Refused;
  return PaintContent(bitmap, bytes);
}

}  // namespace korvel
