// Video: a fixed picture replaces broadcast video, which is not decoded here. The picture is read
// once from the library's resources. A failure is remembered, so that the reading is not tried
// again at every painting.
#include "appearance/geometry.h"
#include "platform/screen.h"
#include "presentation/drawings.h"
#include "presentation/picture.h"
#include "presentation/presentation.h"
#include "presentation/state.h"

namespace korvel {
namespace {

// Only the first bytes of a name are compared.
constexpr std::size_t kLongestName = 100;

constexpr WORD kPictureResource = 101;
constexpr const char* kPictureType = "VIDEO_JPG";

// The module that contains this code: the library or a test.
HMODULE OwnModule() {
  HMODULE module = nullptr;
  const DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  const bool isFound =
      GetModuleHandleExA(flags, reinterpret_cast<LPCSTR>(&State()), &module) != FALSE;
  return isFound ? module : nullptr;
}

// The bytes of the resource, valid while the module is loaded; empty if there is none.
std::string_view PictureResource() {
  HMODULE module = OwnModule();
  HRSRC place = FindResourceA(module, MAKEINTRESOURCEA(kPictureResource), kPictureType);
  if (place == nullptr) return {};
  HGLOBAL loaded = LoadResource(module, place);
  const void* bytes = loaded == nullptr ? nullptr : LockResource(loaded);
  if (bytes == nullptr) return {};
  return {static_cast<const char*>(bytes), SizeofResource(module, place)};
}

[[nodiscard]] NamedPicture* FindPicture(std::string_view name) {
  for (NamedPicture& picture : State().namedPictures) {
    if (picture.name.View() == name) return &picture;
  }
  return nullptr;
}

// Null if memory runs out.
[[nodiscard]] NamedPicture* AddPicture(std::string_view name) {
  NamedPicture picture;
  if (!picture.name.Assign(name)) return nullptr;
  static_cast<void>(ReadPicture(PictureResource(), picture.content));
  return State().namedPictures.Append(std::move(picture));
}

}  // namespace

Gdiplus::GpImage* NamedImage(std::string_view name) {
  name = name.substr(0, kLongestName);
  NamedPicture* picture = FindPicture(name);
  if (picture == nullptr) picture = AddPicture(name);
  return picture == nullptr ? nullptr : picture->content.image.Get();
}

void ClearImageCache() {
  for (NamedPicture& picture : State().namedPictures) {
    picture.content.image.Reset();
    // If there is no memory for the entry, the block is released now.
    static_cast<void>(State().keptBlocks.Append(std::move(picture.content.block)));
  }
  State().namedPictures.Clear();
  State().keptPictures.Clear();
}

bool Draw(const Video& video) {
  if (!HasArea(video.BoxSize)) return true;
  return PaintPicture(
      NamedImage("video.jpg"),
      {.position = video.Position, .boxSize = video.BoxSize, .scaledSize = video.ScaledSize});
}

Status StartVideo(const Stream& /*stream*/, std::int32_t /*componentTag*/, const Position& /*at*/,
                  const BoxSize& /*size*/) {
  return Status::Done;
}

Status EndStream(const Stream& /*stream*/) { return Status::Done; }

}  // namespace korvel
