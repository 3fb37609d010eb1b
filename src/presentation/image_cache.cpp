// Named pictures, each read once from the library's resources. A name that cannot be read is
// remembered too, so that it is not tried again at every painting.
#include "presentation/image_cache.h"

#include "objects/list.h"
#include "objects/octet_string.h"
#include "objects/owned.h"
#include "presentation/picture.h"
#include "presentation/picture_limits.h"
#include "presentation/presentation.h"

namespace korvel {

namespace {

// A name is compared as far as this.
constexpr std::size_t kLongestName = 100;

constexpr WORD kPictureResource = 101;
constexpr const char* kPictureType = "VIDEO_JPG";

struct NamedPicture {
  OctetString Name;
  Picture Content;
};

struct ImageCache {
  List<NamedPicture> Pictures;
  List<GlobalBlock> KeptBlocks;  // of pictures that a restart has destroyed
};

// A plain pointer: when the process ends while the engine runs, no destructor may call GDI+.
ImageCache* cache = nullptr;

// The module that holds this code, whatever it is called: a library or a test.
HMODULE OwnModule() noexcept {
  HMODULE module = nullptr;
  const DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  const bool isFound =
      GetModuleHandleExA(flags, reinterpret_cast<LPCSTR>(&cache), &module) != FALSE;
  return isFound ? module : nullptr;
}

// The bytes of the resource, which stay as long as the module; empty when it has none.
std::string_view PictureResource() noexcept {
  HMODULE module = OwnModule();
  HRSRC place = FindResourceA(module, MAKEINTRESOURCEA(kPictureResource), kPictureType);
  if (place == nullptr) return {};
  HGLOBAL loaded = LoadResource(module, place);
  const void* bytes = loaded == nullptr ? nullptr : LockResource(loaded);
  if (bytes == nullptr) return {};
  return {static_cast<const char*>(bytes), SizeofResource(module, place)};
}

[[nodiscard]] NamedPicture* FindPicture(std::string_view name) noexcept {
  for (NamedPicture& picture : cache->Pictures) {
    if (picture.Name.View() == name) return &picture;
  }
  return nullptr;
}

// Null when memory is out.
[[nodiscard]] NamedPicture* AddPicture(std::string_view name) noexcept {
  NamedPicture picture;
  if (!picture.Name.Assign(name)) return nullptr;
  static_cast<void>(ReadPicture(PictureResource(), kLongestPicturesNs, picture.Content));
  return cache->Pictures.Append(std::move(picture));
}

}  // namespace

Gdiplus::GpImage* NamedImage(std::string_view name) noexcept {
  if (cache == nullptr) cache = Owned<ImageCache>::New().Release();
  if (cache == nullptr) return nullptr;
  name = name.substr(0, kLongestName);
  NamedPicture* picture = FindPicture(name);
  if (picture == nullptr) picture = AddPicture(name);
  return picture == nullptr ? nullptr : picture->Content.Image.Get();
}

void ClearImageCache() noexcept {
  if (cache == nullptr) return;
  for (NamedPicture& picture : cache->Pictures) {
    picture.Content.Image.Reset();
    // Without memory for the note the block is given back at once.
    static_cast<void>(cache->KeptBlocks.Append(std::move(picture.Content.Block)));
  }
  cache->Pictures.Clear();
}

void ReleaseImageMemory() noexcept {
  Owned<ImageCache>(cache).Reset();
  cache = nullptr;
}

}  // namespace korvel
