// Named pictures, each read once from the library's resources. A name that cannot be read is
// remembered too, so that it is not tried again at every painting.
#include "presentation/image_cache.h"

#include "presentation/presentation.h"
#include "presentation/state.h"

namespace korvel {

namespace {

// A name is compared as far as this.
constexpr std::size_t kLongestName = 100;

constexpr WORD kPictureResource = 101;
constexpr const char* kPictureType = "VIDEO_JPG";

// The module that holds this code, whatever it is called: a library or a test.
HMODULE OwnModule() {
  HMODULE module = nullptr;
  const DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  const bool isFound =
      GetModuleHandleExA(flags, reinterpret_cast<LPCSTR>(&State()), &module) != FALSE;
  return isFound ? module : nullptr;
}

// The bytes of the resource, which stay as long as the module; empty when it has none.
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
    if (picture.Name.View() == name) return &picture;
  }
  return nullptr;
}

// Null when memory is out.
[[nodiscard]] NamedPicture* AddPicture(std::string_view name) {
  NamedPicture picture;
  if (!picture.Name.Assign(name)) return nullptr;
  static_cast<void>(ReadPicture(PictureResource(), picture.Content));
  return State().namedPictures.Append(std::move(picture));
}

}  // namespace

Gdiplus::GpImage* NamedImage(std::string_view name) {
  name = name.substr(0, kLongestName);
  NamedPicture* picture = FindPicture(name);
  if (picture == nullptr) picture = AddPicture(name);
  return picture == nullptr ? nullptr : picture->Content.Image.Get();
}

void ClearImageCache() {
  for (NamedPicture& picture : State().namedPictures) {
    picture.Content.Image.Reset();
    // Without memory for the entry the block is released at once.
    static_cast<void>(State().keptBlocks.Append(std::move(picture.Content.Block)));
  }
  State().namedPictures.Clear();
}

}  // namespace korvel
